-- Stored selections of parts of the project tree. The host maintains them.

-- A stored selection.
CREATE TABLE RechenProjekt (
    ID_RechMan INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_RechMan <= 2147483647),  -- selection
    RechManEbene TEXT,  -- level: Projekt, Abschnitt, UnvU-Stelle, VerU-Stelle or Teilraum
    RechManSQL TEXT  -- condition in the store's syntax
);

-- The members of a selection.
CREATE TABLE RechenProjektListe (
    ID_RechMan INTEGER NOT NULL,  -- selection
    ID_Ebene INTEGER NOT NULL,  -- key of the member in the table of its level
    EbenenRF INTEGER,  -- order of the members
    PRIMARY KEY (ID_RechMan, ID_Ebene)
);
CREATE INDEX RechenProjektListe_ID_Ebene ON RechenProjektListe (ID_Ebene);

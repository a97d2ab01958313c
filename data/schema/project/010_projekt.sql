-- The project tree. It belongs to the host: the module reads these tables and never writes them.

-- A project of the host.
CREATE TABLE Projekt (
    ID_PRJ INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_PRJ <= 2147483647),  -- project
    PRJBez TEXT,  -- name
    IstWGEV BOOLEAN DEFAULT 0 CHECK (IstWGEV IN (-1, 0))  -- the project follows the layout of the water-quality ordinance
);

-- A section of a project.
CREATE TABLE Abschnitt (
    ID_AB INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_AB <= 2147483647),  -- section
    ID_PRJ INTEGER,  -- project
    ABBez TEXT,  -- name
    RF INTEGER  -- position in lists
);
CREATE INDEX Abschnitt_ID_PRJ ON Abschnitt (ID_PRJ);

-- A survey station.
CREATE TABLE UnvUStelle (
    ID_UUS INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UUS <= 2147483647),  -- station
    ID_AB INTEGER,  -- section
    USBez TEXT,  -- name
    Gewaessername TEXT,  -- name of the water body
    RF INTEGER,  -- position in lists
    ID_AL_Bioregion INTEGER,  -- bioregion
    ID_AL_Hoehenstufe INTEGER,  -- altitude step
    ID_AL_Flussabschnitt INTEGER,  -- river section
    RefBioregionen TEXT,  -- reference bioregions: Kurzzeichen, comma separated, each with an optional last digit for the altitude step
    WGEV_ID TEXT  -- number of the station under the ordinance
);
CREATE INDEX UnvUStelle_ID_AB ON UnvUStelle (ID_AB);
CREATE INDEX UnvUStelle_ID_AL_Bioregion ON UnvUStelle (ID_AL_Bioregion);
CREATE INDEX UnvUStelle_ID_AL_Hoehenstufe ON UnvUStelle (ID_AL_Hoehenstufe);
CREATE INDEX UnvUStelle_ID_AL_Flussabschnitt ON UnvUStelle (ID_AL_Flussabschnitt);

-- A dated visit of a survey station.
CREATE TABLE VerUStelle (
    ID_VUS INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_VUS <= 2147483647),  -- visit
    ID_UUS INTEGER,  -- station
    USDatumVon DATE,  -- first day
    USDatumBis DATE,  -- last day
    USZeitVon TIME,  -- begin
    USZeitBis TIME  -- end
);
CREATE INDEX VerUStelle_ID_UUS ON VerUStelle (ID_UUS);

-- A sub-habitat: the unit of calculation. Its key is the ID of the result rows.
CREATE TABLE Teilraum (
    ID_TR INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_TR <= 2147483647),  -- sub-habitat
    ID_VUS INTEGER,  -- visit
    TRBez TEXT,  -- name
    RF INTEGER,  -- position in lists
    Anzeige BOOLEAN DEFAULT -1 CHECK (Anzeige IN (-1, 0)),  -- marked for display
    Substrat TEXT  -- substrate
);
CREATE INDEX Teilraum_ID_VUS ON Teilraum (ID_VUS);
CREATE INDEX Teilraum_Anzeige ON Teilraum (Anzeige);

-- Field protocol of the growth forms after the ordinance, filled by the host.
CREATE TABLE awaobWGEV07_Grid (
    ID_TR INTEGER,  -- sub-habitat
    Zeilencode INTEGER,  -- code of the line; the module reads those from 300 upward
    ZeilenBezeichnung TEXT,  -- what the line is about
    Deckung FLOAT,  -- cover [percent]
    Dicke FLOAT  -- thickness [mm]
);
CREATE INDEX awaobWGEV07_Grid_ID_TR ON awaobWGEV07_Grid (ID_TR);
CREATE INDEX awaobWGEV07_Grid_Zeilencode ON awaobWGEV07_Grid (Zeilencode);

-- Further facts of a survey station, filled by the host.
CREATE TABLE obProjekt1a (
    ID_UUS INTEGER NOT NULL PRIMARY KEY,  -- station
    UBA_M632 TEXT  -- station number of the national register
);

-- Seston: catalogue and findings. Numbers and flags of taxa and findings default to 0.

-- A taxon of the seston catalogue.
CREATE TABLE sesArt (
    ID_ART INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ART <= 2147483647),  -- taxon
    Gattung TEXT,  -- genus
    Art TEXT,  -- species
    Beschreiber TEXT,  -- author
    ID_Klasse INTEGER,  -- class
    Erstellt DATE,  -- created on
    Loeschstatus BOOLEAN DEFAULT 0 CHECK (Loeschstatus IN (-1, 0)),  -- marked as deleted
    W_O DOUBLE DEFAULT 0,  -- oligosaprobic valence
    W_B DOUBLE DEFAULT 0,  -- betamesosaprobic valence
    W_A DOUBLE DEFAULT 0,  -- alphamesosaprobic valence
    W_P DOUBLE DEFAULT 0,  -- polysaprobic valence
    W_SI DOUBLE DEFAULT 0  -- saprobic index
);
CREATE INDEX sesArt_ID_Klasse ON sesArt (ID_Klasse);
CREATE INDEX sesArt_Gattung ON sesArt (Gattung);
CREATE INDEX sesArt_Loeschstatus ON sesArt (Loeschstatus);

-- Selection flag of a taxon.
CREATE TABLE sesArtAuswahl (
    ID_ART INTEGER NOT NULL PRIMARY KEY,  -- taxon
    Auswahl BOOLEAN DEFAULT 0 CHECK (Auswahl IN (-1, 0))  -- selected
);
CREATE INDEX sesArtAuswahl_Auswahl ON sesArtAuswahl (Auswahl);

-- A taxon found at a seston sampling site.
CREATE TABLE sesArtPrStelle (
    ID_PS INTEGER NOT NULL,  -- sampling site
    ID_ART INTEGER NOT NULL,  -- taxon
    CF BOOLEAN NOT NULL DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    Abundanz INTEGER DEFAULT 0,  -- abundance class
    Zusatz TEXT,  -- remark
    PRIMARY KEY (ID_PS, ID_ART, CF)
);
CREATE INDEX sesArtPrStelle_ID_ART ON sesArtPrStelle (ID_ART);

-- Classes of the seston catalogue.
CREATE TABLE sesKlasse (
    ID_KLASSE INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_KLASSE <= 2147483647),  -- class
    Klasse TEXT  -- name
);

-- A seston sampling site.
CREATE TABLE sesPrStelle (
    ID_PS INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_PS <= 2147483647),  -- sampling site
    ID_TR INTEGER,  -- sub-habitat
    PSBez TEXT  -- label
);
CREATE INDEX sesPrStelle_ID_TR ON sesPrStelle (ID_TR);

-- Marks a sub-habitat as sampled for seston.
CREATE TABLE sesTeilraum (
    ID_TR INTEGER NOT NULL PRIMARY KEY  -- sub-habitat
);

-- Columns of the overview of the seston catalogue.
CREATE TABLE sesKatalogfeldDefinition (
    ID_Katalogfeld INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_Katalogfeld <= 2147483647),  -- column definition
    SpaltenIndex SMALLINT,  -- grid column that the row describes
    ResID_Label SMALLINT,  -- string number of the heading without the language base; 0 gives an empty head
    IstVisible BOOLEAN DEFAULT 0 CHECK (IstVisible IN (-1, 0)),  -- shown; a hidden column keeps width 1
    IstEditable BOOLEAN DEFAULT 0 CHECK (IstEditable IN (-1, 0)),  -- offered in the column dialog
    ColWidthUser SMALLINT,  -- width in use [twip]
    ColWidthDefault SMALLINT,  -- standard width [twip]
    ColSortUser SMALLINT DEFAULT 0,  -- sort in use: 0 none, 1 ascending, 2 descending
    ColSortDefault SMALLINT DEFAULT 0,  -- standard sort
    ColSortField TEXT,  -- expression for ORDER BY
    IstKurz BOOLEAN DEFAULT 0 CHECK (IstKurz IN (-1, 0)),  -- shown in the short layout
    IstLang BOOLEAN DEFAULT 0 CHECK (IstLang IN (-1, 0))  -- shown in the long layout
);
CREATE INDEX sesKatalogfeldDefinition_SpaltenIndex ON sesKatalogfeldDefinition (SpaltenIndex);
CREATE INDEX sesKatalogfeldDefinition_IstEditable ON sesKatalogfeldDefinition (IstEditable);

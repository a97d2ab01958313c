-- The taxon catalogue: taxa, their ratings, and what hangs on them. Ratings default to 0, Algenart to Null.

-- A taxon; the two lowest levels of the taxonomy stand on it. A taxon is marked as deleted and never removed
-- by the catalogue.
CREATE TABLE awaArt (
    ID_ART INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ART <= 2147483647),  -- taxon
    ID_UFAM INTEGER,  -- subfamily; 0 = none
    Gattung TEXT,  -- genus
    Untergattung TEXT,  -- subgenus
    UntergatAbk TEXT,  -- abbreviation of the subgenus
    Art TEXT,  -- species
    Beschreiber TEXT,  -- author
    Jahreszahl TEXT,  -- year
    UABeschreiber TEXT,  -- author of the subspecies
    UAJahreszahl TEXT,  -- year of the subspecies
    UBANr TEXT,  -- number in the register of the environment agency
    DINNr TEXT,  -- number in the standard
    DtName TEXT,  -- German name
    Kurzzeichen TEXT,  -- short code
    RoteListe TEXT,  -- red list entry
    Autoekologie TEXT,  -- remark on autecology
    RF INTEGER,  -- position in lists
    Erstellt DATE,  -- created on
    Geaendert DATE,  -- changed on
    GeaendertVon TEXT,  -- changed by
    Loeschstatus BOOLEAN DEFAULT 0 CHECK (Loeschstatus IN (-1, 0)),  -- marked as deleted
    IstArtniveau BOOLEAN DEFAULT 0 CHECK (IstArtniveau IN (-1, 0))  -- determined to species level
);
CREATE INDEX awaArt_ID_UFAM ON awaArt (ID_UFAM);
CREATE INDEX awaArt_Gattung ON awaArt (Gattung);
CREATE INDEX awaArt_Art ON awaArt (Art);
CREATE INDEX awaArt_Loeschstatus ON awaArt (Loeschstatus);
CREATE INDEX awaArt_IstArtniveau ON awaArt (IstArtniveau);

-- Ratings of a taxon.
CREATE TABLE awaModulStandard (
    ID_ART INTEGER NOT NULL PRIMARY KEY,  -- taxon
    X DOUBLE DEFAULT 0,  -- xenosaprobic valence; the eight valences add up to 0 or to 10
    O DOUBLE DEFAULT 0,  -- oligosaprobic valence; the eight valences add up to 0 or to 10
    OB DOUBLE DEFAULT 0,  -- oligo- to betamesosaprobic valence; the eight valences add up to 0 or to 10
    B DOUBLE DEFAULT 0,  -- betamesosaprobic valence; the eight valences add up to 0 or to 10
    BA DOUBLE DEFAULT 0,  -- beta- to alphamesosaprobic valence; the eight valences add up to 0 or to 10
    A DOUBLE DEFAULT 0,  -- alphamesosaprobic valence; the eight valences add up to 0 or to 10
    AP DOUBLE DEFAULT 0,  -- alphameso- to polysaprobic valence; the eight valences add up to 0 or to 10
    P DOUBLE DEFAULT 0,  -- polysaprobic valence; the eight valences add up to 0 or to 10
    S DOUBLE DEFAULT 0,  -- ninth value, not part of the sum
    SI DOUBLE DEFAULT 0,  -- saprobic value
    Sap_GBer DOUBLE DEFAULT 0,  -- indicator weight that the calculation uses
    Sap_GMan1 DOUBLE DEFAULT 0,  -- indicator weight, entered by hand
    Sap_GMan2 DOUBLE DEFAULT 0,  -- second indicator weight, entered by hand
    BSBSaprobie BOOLEAN DEFAULT 0 CHECK (BSBSaprobie IN (-1, 0)),  -- saprobic value checked against BOD5 data
    Abundanz TEXT,  -- greatest abundance, a text of awaAL_Abundanz
    Frequenz TEXT,  -- frequency, a text of awaAL_Frequenz
    Algenart TEXT,  -- kind of alga, a text of awaAL_Algenart
    Lebensform INTEGER DEFAULT 0,  -- life form; only 1 takes part in an assessment
    Trophiewert DOUBLE DEFAULT 0,  -- trophic value
    Trophiegewicht DOUBLE DEFAULT 0,  -- weight of the trophic value
    Trophiewert_N DOUBLE DEFAULT 0,  -- second trophic value
    Trophiegewicht_N DOUBLE DEFAULT 0  -- weight of the second trophic value
);
CREATE INDEX awaModulStandard_Lebensform ON awaModulStandard (Lebensform);
CREATE INDEX awaModulStandard_Algenart ON awaModulStandard (Algenart);

-- A catalogue. The module lists and creates taxa in catalogue 1 only.
CREATE TABLE awaKatalog (
    ID_KAT INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_KAT <= 2147483647),  -- catalogue
    KATBez TEXT  -- name
);

-- Which taxon is in which catalogue.
CREATE TABLE awaArtKatalog (
    ID_ART INTEGER NOT NULL,  -- taxon
    ID_KAT INTEGER NOT NULL,  -- catalogue
    PRIMARY KEY (ID_ART, ID_KAT)
);
CREATE INDEX awaArtKatalog_ID_KAT ON awaArtKatalog (ID_KAT);

-- Selection flag of a taxon, one for all users.
CREATE TABLE awaArtAuswahl (
    ID_ART INTEGER NOT NULL PRIMARY KEY,  -- taxon
    Auswahl BOOLEAN DEFAULT 0 CHECK (Auswahl IN (-1, 0))  -- selected
);
CREATE INDEX awaArtAuswahl_Auswahl ON awaArtAuswahl (Auswahl);

-- A picture of a taxon. The file stays where it is; the row holds its place.
CREATE TABLE awaArtBild (
    ID_ArtBild INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ArtBild <= 2147483647),  -- picture
    ID_Art INTEGER,  -- taxon
    Bildbezeichnung TEXT,  -- title
    Pfad TEXT,  -- folder
    Bildname TEXT,  -- file name
    CDBez TEXT,  -- label of the medium
    Beschreibung TEXT  -- description
);
CREATE INDEX awaArtBild_ID_Art ON awaArtBild (ID_Art);

-- Autecology of a taxon.
CREATE TABLE awaArtAutoekologie (
    ID_Art INTEGER NOT NULL PRIMARY KEY,  -- taxon
    Autoekologie TEXT  -- text
);

-- A find of the archive of finds, with the names as they were at the time.
CREATE TABLE awaFundarchiv (
    ID_Art INTEGER,  -- taxon
    GewName TEXT,  -- water body
    PrjBez TEXT,  -- project
    AbBez TEXT,  -- section
    UStBez TEXT,  -- station
    TRBez TEXT,  -- sub-habitat
    Gattung TEXT,  -- genus
    Art TEXT,  -- species
    Datum DATE,  -- day of the find
    Häufigkeit TEXT,  -- frequency
    Individuen TEXT,  -- individuals
    Menge TEXT,  -- amount
    Stadium TEXT,  -- stage
    legName TEXT,  -- collected by
    detName TEXT,  -- determined by
    detDatum DATE,  -- determined on
    donName TEXT,  -- given by
    donDatum DATE,  -- given on
    collName TEXT,  -- owner of the collection
    collBez TEXT,  -- collection
    properatious TEXT  -- preparation
);
CREATE INDEX awaFundarchiv_ID_Art ON awaFundarchiv (ID_Art);

-- A synonym of a taxon.
CREATE TABLE awaSynArt (
    ID_SYNART INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_SYNART <= 2147483647),  -- synonym
    ID_SYN INTEGER,  -- accepted taxon
    SynGattung TEXT,  -- genus
    SynUntergattung TEXT,  -- subgenus
    SynArt TEXT,  -- species
    SynBeschreiber TEXT,  -- author
    SynJahreszahl TEXT,  -- year
    IstKombNov BOOLEAN DEFAULT 0 CHECK (IstKombNov IN (-1, 0)),  -- comb. nov.
    SynAngelegt DATE,  -- recorded on
    SynAngelegtVon TEXT,  -- recorded by
    SynBemerkung TEXT  -- remark
);
CREATE INDEX awaSynArt_ID_SYN ON awaSynArt (ID_SYN);
CREATE INDEX awaSynArt_SynGattung ON awaSynArt (SynGattung);

-- Texts to choose from for the greatest abundance.
CREATE TABLE awaAL_Abundanz (
    RF INTEGER,  -- position in lists
    Abundanz TEXT  -- text
);

-- Texts to choose from for the frequency.
CREATE TABLE awaAL_Frequenz (
    RF INTEGER,  -- position in lists
    Frequenz TEXT  -- text
);

-- Kinds of algae to choose from; the one without a name gives an empty entry.
CREATE TABLE awaAL_Algenart (
    RF INTEGER,  -- position in lists
    Algenart TEXT  -- text
);

-- Life forms. A taxon whose life form has no row here is missing from the overviews.
CREATE TABLE awaAL_Lebensform (
    ID_AL_Lebensform INTEGER NOT NULL PRIMARY KEY,  -- life form
    Lebensform TEXT,  -- name; that of 0 is empty
    RF INTEGER  -- position in lists
);

-- Major groups. 128 are the diatoms, up to 132 the algae, 133 bacteria, 134 fungi, 132 and 135 to 137 higher
-- plants.
CREATE TABLE awaGrossGr (
    ID_GRGR INTEGER NOT NULL PRIMARY KEY,  -- major group
    Grossgruppe TEXT,  -- German name
    Bezeichnung TEXT,  -- scientific name
    Reihenfolge INTEGER,  -- order in lists
    RF_Kieselalge INTEGER  -- 0 for algae, bacteria and fungi, 1 for diatoms, 100 and more for the macrophytes in their order
);
CREATE INDEX awaGrossGr_RF_Kieselalge ON awaGrossGr (RF_Kieselalge);

-- Columns of the catalogue overview.
CREATE TABLE awaKatalogfeldDefinition (
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
CREATE INDEX awaKatalogfeldDefinition_SpaltenIndex ON awaKatalogfeldDefinition (SpaltenIndex);
CREATE INDEX awaKatalogfeldDefinition_IstEditable ON awaKatalogfeldDefinition (IstEditable);

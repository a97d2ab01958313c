-- Reference data of the assessment and classification of the sites. The module only reads them; their rows come
-- from the authority. Where a ratio lies on a bound that two rows share, the lower class number wins.

-- Trophic reference class by site.
CREATE TABLE awaWRRL_TGZK (
    ID_AL_Bioregion INTEGER NOT NULL,  -- bioregion
    Hoehenstufe SMALLINT NOT NULL,  -- altitude step, the number of AL_Hoehenstufe
    TGZK TEXT,  -- trophic reference class
    PRIMARY KEY (ID_AL_Bioregion, Hoehenstufe)
);
CREATE INDEX awaWRRL_TGZK_Hoehenstufe ON awaWRRL_TGZK (Hoehenstufe);

-- Saprobic reference class by site.
CREATE TABLE awaWRRL_SGZK (
    ID_AL_Bioregion INTEGER NOT NULL,  -- bioregion
    Hoehenstufe SMALLINT NOT NULL,  -- altitude step, the number of AL_Hoehenstufe
    Gueteklasse SMALLINT,  -- saprobic reference class
    PRIMARY KEY (ID_AL_Bioregion, Hoehenstufe)
);
CREATE INDEX awaWRRL_SGZK_Hoehenstufe ON awaWRRL_SGZK (Hoehenstufe);

-- Bioregion type by site.
CREATE TABLE awaWRRL_RBioregionstyp (
    ID_AL_Bioregion INTEGER NOT NULL,  -- bioregion
    Hoehenstufe SMALLINT NOT NULL,  -- altitude step, the number of AL_Hoehenstufe
    Bioregionstyp TEXT,  -- bioregion type
    PRIMARY KEY (ID_AL_Bioregion, Hoehenstufe)
);
CREATE INDEX awaWRRL_RBioregionstyp_Hoehenstufe ON awaWRRL_RBioregionstyp (Hoehenstufe);

-- Expected trophic index.
CREATE TABLE awaWRRL_ETI (
    Taxagruppe TEXT NOT NULL,  -- Alle or KA
    TGZK TEXT NOT NULL,  -- trophic reference class
    ErwarteterWert DOUBLE,  -- value expected in reference state
    PRIMARY KEY (Taxagruppe, TGZK)
);
CREATE INDEX awaWRRL_ETI_TGZK ON awaWRRL_ETI (TGZK);

-- Expected saprobic index.
CREATE TABLE awaWRRL_ESI (
    Taxagruppe TEXT NOT NULL,  -- Alle or KA
    Gueteklasse SMALLINT NOT NULL,  -- saprobic reference class
    ErwarteterWert DOUBLE,  -- value expected in reference state
    PRIMARY KEY (Taxagruppe, Gueteklasse)
);
CREATE INDEX awaWRRL_ESI_Gueteklasse ON awaWRRL_ESI (Gueteklasse);

-- Expected reference index.
CREATE TABLE awaWRRL_ERI (
    Taxagruppe TEXT NOT NULL,  -- Alle or KA
    Bioregionstyp TEXT NOT NULL,  -- bioregion type
    ErwarteterWert DOUBLE,  -- value expected in reference state
    PRIMARY KEY (Taxagruppe, Bioregionstyp)
);
CREATE INDEX awaWRRL_ERI_Bioregionstyp ON awaWRRL_ERI (Bioregionstyp);

-- Class bounds of the trophic module.
CREATE TABLE awaWRRL_TIOEZK (
    Taxagruppe TEXT,  -- Alle or KA
    TGZK TEXT,  -- trophic reference class
    EQRMin DOUBLE,  -- lower bound of the quality ratio, inclusive
    EQRMax DOUBLE,  -- upper bound, inclusive
    OEZK SMALLINT  -- class number
);
CREATE INDEX awaWRRL_TIOEZK_Taxagruppe_TGZK ON awaWRRL_TIOEZK (Taxagruppe, TGZK);
CREATE INDEX awaWRRL_TIOEZK_TGZK ON awaWRRL_TIOEZK (TGZK);

-- Class bounds of the saprobic module.
CREATE TABLE awaWRRL_SIOEZK (
    Taxagruppe TEXT,  -- Alle or KA
    Gueteklasse SMALLINT,  -- saprobic reference class
    EQRMin DOUBLE,  -- lower bound of the quality ratio, inclusive
    EQRMax DOUBLE,  -- upper bound, inclusive
    OEZK SMALLINT  -- class number
);
CREATE INDEX awaWRRL_SIOEZK_Taxagruppe_Gueteklasse ON awaWRRL_SIOEZK (Taxagruppe, Gueteklasse);
CREATE INDEX awaWRRL_SIOEZK_Gueteklasse ON awaWRRL_SIOEZK (Gueteklasse);

-- Class bounds of the reference species module.
CREATE TABLE awaWRRL_RIOEZK (
    Taxagruppe TEXT,  -- Alle or KA
    Bioregionstyp TEXT,  -- bioregion type
    EQRMin DOUBLE,  -- lower bound of the quality ratio, inclusive
    EQRMax DOUBLE,  -- upper bound, inclusive
    OEZK SMALLINT  -- class number
);
CREATE INDEX awaWRRL_RIOEZK_Taxagruppe_Bioregionstyp ON awaWRRL_RIOEZK (Taxagruppe, Bioregionstyp);
CREATE INDEX awaWRRL_RIOEZK_Bioregionstyp ON awaWRRL_RIOEZK (Bioregionstyp);

-- Names of the classes.
CREATE TABLE awaWRRL_Klasse (
    Klassenzahl SMALLINT NOT NULL PRIMARY KEY,  -- class number
    Bezeichnung TEXT  -- name of the class
);

-- Reference species that are valid everywhere.
CREATE TABLE awaRefArt_TypA (
    ID_Art INTEGER NOT NULL PRIMARY KEY  -- taxon
);

-- Reference species of a bioregion and altitude step.
CREATE TABLE awaRefArt_TypB (
    ID_Art INTEGER,  -- taxon
    ID_AL_Bioregion INTEGER,  -- bioregion
    ID_AL_Hoehenstufe INTEGER  -- altitude step
);
-- First, since loading makes the others anew and the planner goes by their order.
CREATE UNIQUE INDEX awaRefArt_TypB_ID_Art_ID_AL_Bioregion_ID_AL_Hoehenstufe ON awaRefArt_TypB (ID_Art, ID_AL_Bioregion, ID_AL_Hoehenstufe);
CREATE INDEX awaRefArt_TypB_ID_AL_Bioregion ON awaRefArt_TypB (ID_AL_Bioregion);
CREATE INDEX awaRefArt_TypB_ID_AL_Hoehenstufe ON awaRefArt_TypB (ID_AL_Hoehenstufe);

-- Bioregions.
CREATE TABLE AL_Bioregion (
    ID_AL_Bioregion INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_AL_Bioregion <= 2147483647),  -- bioregion
    Nummer INTEGER,  -- number
    Bezeichnung TEXT,  -- name
    Kurzzeichen TEXT  -- short sign, without a digit at its end
);
CREATE INDEX AL_Bioregion_Kurzzeichen ON AL_Bioregion (Kurzzeichen);

-- Altitude steps.
CREATE TABLE AL_Hoehenstufe (
    ID_AL_Hoehenstufe INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_AL_Hoehenstufe <= 2147483647),  -- altitude step
    Hoehenstufe SMALLINT,  -- number that the tables awaWRRL_* use
    Bezeichnung TEXT  -- name
);
CREATE INDEX AL_Hoehenstufe_Hoehenstufe ON AL_Hoehenstufe (Hoehenstufe);

-- River sections.
CREATE TABLE AL_Flussabschnitt (
    ID_AL_Flussabschnitt INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_AL_Flussabschnitt <= 2147483647),  -- river section
    Bezeichnung TEXT  -- name
);

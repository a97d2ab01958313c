-- The taxonomy: 19 levels, each row under one of the level above; genus and species stand on awaArt.

-- Level 1, Reich.
CREATE TABLE awaReich (
    ID_REICH INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_REICH <= 2147483647),  -- kingdom
    Reich TEXT  -- name
);
CREATE INDEX awaReich_Reich ON awaReich (Reich);

-- Level 2, Unterreich.
CREATE TABLE awaUnterreich (
    ID_UREICH INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UREICH <= 2147483647),  -- subkingdom
    ID_REICH INTEGER,  -- parent: kingdom
    Unterreich TEXT  -- name
);
CREATE INDEX awaUnterreich_ID_REICH ON awaUnterreich (ID_REICH);
CREATE INDEX awaUnterreich_Unterreich ON awaUnterreich (Unterreich);

-- Level 3, Stamm.
CREATE TABLE awaStamm (
    ID_STAMM INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_STAMM <= 2147483647),  -- phylum
    ID_UREICH INTEGER,  -- parent: subkingdom
    Stamm TEXT  -- name
);
CREATE INDEX awaStamm_ID_UREICH ON awaStamm (ID_UREICH);
CREATE INDEX awaStamm_Stamm ON awaStamm (Stamm);

-- Level 4, Unterstamm.
CREATE TABLE awaUnterstamm (
    ID_USTAMM INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_USTAMM <= 2147483647),  -- subphylum
    ID_STAMM INTEGER,  -- parent: phylum
    Unterstamm TEXT  -- name
);
CREATE INDEX awaUnterstamm_ID_STAMM ON awaUnterstamm (ID_STAMM);
CREATE INDEX awaUnterstamm_Unterstamm ON awaUnterstamm (Unterstamm);

-- Level 5, Überklasse.
CREATE TABLE awaUeberklasse (
    ID_UEKLASSE INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UEKLASSE <= 2147483647),  -- superclass
    ID_USTAMM INTEGER,  -- parent: subphylum
    Ueberklasse TEXT  -- name
);
CREATE INDEX awaUeberklasse_ID_USTAMM ON awaUeberklasse (ID_USTAMM);
CREATE INDEX awaUeberklasse_Ueberklasse ON awaUeberklasse (Ueberklasse);

-- Level 6, Klasse.
CREATE TABLE awaKlasse (
    ID_KLASSE INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_KLASSE <= 2147483647),  -- class
    ID_UEKLASSE INTEGER,  -- parent: superclass
    Klasse TEXT  -- name
);
CREATE INDEX awaKlasse_ID_UEKLASSE ON awaKlasse (ID_UEKLASSE);
CREATE INDEX awaKlasse_Klasse ON awaKlasse (Klasse);

-- Level 7, Zwischengruppe-Klasse.
CREATE TABLE awaZwgrKlasse (
    ID_ZGKLASSE INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ZGKLASSE <= 2147483647),  -- group between class and subclass
    ID_KLASSE INTEGER,  -- parent: class
    ZwgrKlasse TEXT  -- name
);
CREATE INDEX awaZwgrKlasse_ID_KLASSE ON awaZwgrKlasse (ID_KLASSE);
CREATE INDEX awaZwgrKlasse_ZwgrKlasse ON awaZwgrKlasse (ZwgrKlasse);

-- Level 8, Unterklasse.
CREATE TABLE awaUnterklasse (
    ID_UKLASSE INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UKLASSE <= 2147483647),  -- subclass
    ID_ZGKLASSE INTEGER,  -- parent: group between class and subclass
    Unterklasse TEXT  -- name
);
CREATE INDEX awaUnterklasse_ID_ZGKLASSE ON awaUnterklasse (ID_ZGKLASSE);
CREATE INDEX awaUnterklasse_Unterklasse ON awaUnterklasse (Unterklasse);

-- Level 9, Überordnung.
CREATE TABLE awaUeberordnung (
    ID_UEORDNUNG INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UEORDNUNG <= 2147483647),  -- superorder
    ID_UKLASSE INTEGER,  -- parent: subclass
    Ueberordnung TEXT  -- name
);
CREATE INDEX awaUeberordnung_ID_UKLASSE ON awaUeberordnung (ID_UKLASSE);
CREATE INDEX awaUeberordnung_Ueberordnung ON awaUeberordnung (Ueberordnung);

-- Level 10, Ordnung.
CREATE TABLE awaOrdnung (
    ID_ORDNUNG INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ORDNUNG <= 2147483647),  -- order
    ID_UEORDNUNG INTEGER,  -- parent: superorder
    Ordnung TEXT  -- name
);
CREATE INDEX awaOrdnung_ID_UEORDNUNG ON awaOrdnung (ID_UEORDNUNG);
CREATE INDEX awaOrdnung_Ordnung ON awaOrdnung (Ordnung);

-- Level 11, Unterordnung.
CREATE TABLE awaUnterordnung (
    ID_UORDNUNG INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UORDNUNG <= 2147483647),  -- suborder
    ID_ORDNUNG INTEGER,  -- parent: order
    Unterordnung TEXT  -- name
);
CREATE INDEX awaUnterordnung_ID_ORDNUNG ON awaUnterordnung (ID_ORDNUNG);
CREATE INDEX awaUnterordnung_Unterordnung ON awaUnterordnung (Unterordnung);

-- Level 12, Infraordnung.
CREATE TABLE awaInfraordnung (
    ID_IORDNUNG INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_IORDNUNG <= 2147483647),  -- infraorder
    ID_UORDNUNG INTEGER,  -- parent: suborder
    Infraordnung TEXT  -- name
);
CREATE INDEX awaInfraordnung_ID_UORDNUNG ON awaInfraordnung (ID_UORDNUNG);
CREATE INDEX awaInfraordnung_Infraordnung ON awaInfraordnung (Infraordnung);

-- Level 13, Zwischengruppe-Ordnung.
CREATE TABLE awaZwgrOrdnung (
    ID_ZGORDNUNG INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ZGORDNUNG <= 2147483647),  -- group below infraorder
    ID_IORDNUNG INTEGER,  -- parent: infraorder
    ZwgrOrdnung TEXT  -- name
);
CREATE INDEX awaZwgrOrdnung_ID_IORDNUNG ON awaZwgrOrdnung (ID_IORDNUNG);
CREATE INDEX awaZwgrOrdnung_ZwgrOrdnung ON awaZwgrOrdnung (ZwgrOrdnung);

-- Level 14, Familienreihe.
CREATE TABLE awaFamilienreihe (
    ID_FAMREIHE INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_FAMREIHE <= 2147483647),  -- series of families
    ID_ZGORDNUNG INTEGER,  -- parent: group below infraorder
    Familienreihe TEXT  -- name
);
CREATE INDEX awaFamilienreihe_ID_ZGORDNUNG ON awaFamilienreihe (ID_ZGORDNUNG);
CREATE INDEX awaFamilienreihe_Familienreihe ON awaFamilienreihe (Familienreihe);

-- Level 15, Zwischengruppe 1.
CREATE TABLE awaZwgrReihe1 (
    ID_ZGREIHE1 INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ZGREIHE1 <= 2147483647),  -- first group below series
    ID_FAMREIHE INTEGER,  -- parent: series of families
    ZwgrReihe1 TEXT  -- name
);
CREATE INDEX awaZwgrReihe1_ID_FAMREIHE ON awaZwgrReihe1 (ID_FAMREIHE);
CREATE INDEX awaZwgrReihe1_ZwgrReihe1 ON awaZwgrReihe1 (ZwgrReihe1);

-- Level 16, Zwischengruppe 2.
CREATE TABLE awaZwgrReihe2 (
    ID_ZGREIHE2 INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_ZGREIHE2 <= 2147483647),  -- second group below series
    ID_ZGREIHE1 INTEGER,  -- parent: first group below series
    ZwgrReihe2 TEXT  -- name
);
CREATE INDEX awaZwgrReihe2_ID_ZGREIHE1 ON awaZwgrReihe2 (ID_ZGREIHE1);
CREATE INDEX awaZwgrReihe2_ZwgrReihe2 ON awaZwgrReihe2 (ZwgrReihe2);

-- Level 17, Überfamilie.
CREATE TABLE awaUeberfamilie (
    ID_UEFAM INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UEFAM <= 2147483647),  -- superfamily
    ID_ZGREIHE2 INTEGER,  -- parent: second group below series
    Ueberfamilie TEXT  -- name
);
CREATE INDEX awaUeberfamilie_ID_ZGREIHE2 ON awaUeberfamilie (ID_ZGREIHE2);
CREATE INDEX awaUeberfamilie_Ueberfamilie ON awaUeberfamilie (Ueberfamilie);

-- Level 18, Familie.
CREATE TABLE awaFamilie (
    ID_FAM INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_FAM <= 2147483647),  -- family
    ID_UEFAM INTEGER,  -- parent: superfamily
    Familie TEXT,  -- name
    ID_GRGR INTEGER  -- major group
);
CREATE INDEX awaFamilie_ID_UEFAM ON awaFamilie (ID_UEFAM);
CREATE INDEX awaFamilie_Familie ON awaFamilie (Familie);
CREATE INDEX awaFamilie_ID_GRGR ON awaFamilie (ID_GRGR);

-- Level 19, Unterfamilie.
CREATE TABLE awaUnterFam (
    ID_UFAM INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_UFAM <= 2147483647),  -- subfamily
    ID_FAM INTEGER,  -- parent: family
    Unterfamilie TEXT  -- name
);
CREATE INDEX awaUnterFam_ID_FAM ON awaUnterFam (ID_FAM);
CREATE INDEX awaUnterFam_Unterfamilie ON awaUnterFam (Unterfamilie);

-- The 21 levels with their numbers, for the search.
CREATE TABLE awaseUebersicht (
    Ebene TEXT,  -- word of the level
    seUebersicht_RF SMALLINT NOT NULL PRIMARY KEY  -- number of the level
);

-- Two lists of the taxonomy editing read level 1 under other names.
CREATE VIEW Reich AS SELECT Reich, ID_REICH FROM awaReich;
CREATE VIEW awaUReich AS SELECT Reich, ID_REICH FROM awaReich;

-- Deleting an entry deletes what hangs below it, down to the taxa. These are triggers and not foreign keys
-- because a chain may lack rows and a taxon may have subfamily 0. Findings, ratings and synonyms of a taxon
-- that went this way keep its key.
CREATE TRIGGER awaReich_Kaskade AFTER DELETE ON awaReich
BEGIN
    DELETE FROM awaUnterreich WHERE ID_REICH = OLD.ID_REICH;
END;

CREATE TRIGGER awaUnterreich_Kaskade AFTER DELETE ON awaUnterreich
BEGIN
    DELETE FROM awaStamm WHERE ID_UREICH = OLD.ID_UREICH;
END;

CREATE TRIGGER awaStamm_Kaskade AFTER DELETE ON awaStamm
BEGIN
    DELETE FROM awaUnterstamm WHERE ID_STAMM = OLD.ID_STAMM;
END;

CREATE TRIGGER awaUnterstamm_Kaskade AFTER DELETE ON awaUnterstamm
BEGIN
    DELETE FROM awaUeberklasse WHERE ID_USTAMM = OLD.ID_USTAMM;
END;

CREATE TRIGGER awaUeberklasse_Kaskade AFTER DELETE ON awaUeberklasse
BEGIN
    DELETE FROM awaKlasse WHERE ID_UEKLASSE = OLD.ID_UEKLASSE;
END;

CREATE TRIGGER awaKlasse_Kaskade AFTER DELETE ON awaKlasse
BEGIN
    DELETE FROM awaZwgrKlasse WHERE ID_KLASSE = OLD.ID_KLASSE;
END;

CREATE TRIGGER awaZwgrKlasse_Kaskade AFTER DELETE ON awaZwgrKlasse
BEGIN
    DELETE FROM awaUnterklasse WHERE ID_ZGKLASSE = OLD.ID_ZGKLASSE;
END;

CREATE TRIGGER awaUnterklasse_Kaskade AFTER DELETE ON awaUnterklasse
BEGIN
    DELETE FROM awaUeberordnung WHERE ID_UKLASSE = OLD.ID_UKLASSE;
END;

CREATE TRIGGER awaUeberordnung_Kaskade AFTER DELETE ON awaUeberordnung
BEGIN
    DELETE FROM awaOrdnung WHERE ID_UEORDNUNG = OLD.ID_UEORDNUNG;
END;

CREATE TRIGGER awaOrdnung_Kaskade AFTER DELETE ON awaOrdnung
BEGIN
    DELETE FROM awaUnterordnung WHERE ID_ORDNUNG = OLD.ID_ORDNUNG;
END;

CREATE TRIGGER awaUnterordnung_Kaskade AFTER DELETE ON awaUnterordnung
BEGIN
    DELETE FROM awaInfraordnung WHERE ID_UORDNUNG = OLD.ID_UORDNUNG;
END;

CREATE TRIGGER awaInfraordnung_Kaskade AFTER DELETE ON awaInfraordnung
BEGIN
    DELETE FROM awaZwgrOrdnung WHERE ID_IORDNUNG = OLD.ID_IORDNUNG;
END;

CREATE TRIGGER awaZwgrOrdnung_Kaskade AFTER DELETE ON awaZwgrOrdnung
BEGIN
    DELETE FROM awaFamilienreihe WHERE ID_ZGORDNUNG = OLD.ID_ZGORDNUNG;
END;

CREATE TRIGGER awaFamilienreihe_Kaskade AFTER DELETE ON awaFamilienreihe
BEGIN
    DELETE FROM awaZwgrReihe1 WHERE ID_FAMREIHE = OLD.ID_FAMREIHE;
END;

CREATE TRIGGER awaZwgrReihe1_Kaskade AFTER DELETE ON awaZwgrReihe1
BEGIN
    DELETE FROM awaZwgrReihe2 WHERE ID_ZGREIHE1 = OLD.ID_ZGREIHE1;
END;

CREATE TRIGGER awaZwgrReihe2_Kaskade AFTER DELETE ON awaZwgrReihe2
BEGIN
    DELETE FROM awaUeberfamilie WHERE ID_ZGREIHE2 = OLD.ID_ZGREIHE2;
END;

CREATE TRIGGER awaUeberfamilie_Kaskade AFTER DELETE ON awaUeberfamilie
BEGIN
    DELETE FROM awaFamilie WHERE ID_UEFAM = OLD.ID_UEFAM;
END;

CREATE TRIGGER awaFamilie_Kaskade AFTER DELETE ON awaFamilie
BEGIN
    DELETE FROM awaUnterFam WHERE ID_FAM = OLD.ID_FAM;
END;

CREATE TRIGGER awaUnterFam_Kaskade AFTER DELETE ON awaUnterFam
BEGIN
    DELETE FROM awaArt WHERE ID_UFAM = OLD.ID_UFAM;
END;

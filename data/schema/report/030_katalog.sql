-- Data of the catalogue reports. A report run empties its table first; none has a key.

-- Taxonomy of taxa, one column for each of the 21 levels.
CREATE TABLE rpt_Kat_Systematik (
    txtReich TEXT,  -- Reich
    txtUnterreich TEXT,  -- Unterreich
    txtStamm TEXT,  -- Stamm
    txtUnterstamm TEXT,  -- Unterstamm
    txtUeberklasse TEXT,  -- Ueberklasse
    txtKlasse TEXT,  -- Klasse
    txtZwgrKlasse TEXT,  -- ZwgrKlasse
    txtUnterklasse TEXT,  -- Unterklasse
    txtUeberordnung TEXT,  -- Ueberordnung
    txtOrdnung TEXT,  -- Ordnung
    txtUnterordnung TEXT,  -- Unterordnung
    txtInfraordnung TEXT,  -- Infraordnung
    txtZwgrOrdnung TEXT,  -- ZwgrOrdnung
    txtFamilienreihe TEXT,  -- Familienreihe
    txtZwgrReihe1 TEXT,  -- ZwgrReihe1
    txtZwgrReihe2 TEXT,  -- ZwgrReihe2
    txtUeberfamilie TEXT,  -- Ueberfamilie
    txtFamilie TEXT,  -- Familie
    txtUnterfam TEXT,  -- Unterfam
    txtGattung TEXT,  -- Gattung
    txtArt TEXT  -- Art
);

-- Taxa with their ratings.
CREATE TABLE rpt_awaKat_Art (
    txtGattung TEXT,  -- genus
    txtArt TEXT,  -- species
    txtBeschreiber TEXT,  -- author
    txtMod_Sap_X DOUBLE,  -- xenosaprobic valence
    txtMod_Sap_O DOUBLE,  -- oligosaprobic valence
    txtMod_Sap_OB DOUBLE,  -- oligo- to betamesosaprobic valence
    txtMod_Sap_B DOUBLE,  -- betamesosaprobic valence
    txtMod_Sap_BA DOUBLE,  -- beta- to alphamesosaprobic valence
    txtMod_Sap_A DOUBLE,  -- alphamesosaprobic valence
    txtMod_Sap_AP DOUBLE,  -- alphameso- to polysaprobic valence
    txtMod_Sap_P DOUBLE,  -- polysaprobic valence
    txtMod_Sap_s DOUBLE,  -- ninth value
    txtMod_Sap_SI DOUBLE,  -- saprobic value
    txtMod_Sap_GM1 DOUBLE,  -- first weight entered by hand
    txtMod_Sap_GM2 DOUBLE,  -- second weight entered by hand
    txtMod_Sap_G DOUBLE,  -- weight that the calculation uses
    txtAbundanz TEXT,  -- greatest abundance
    txtFrequenz TEXT,  -- frequency
    txtAlgenart TEXT,  -- kind of alga
    txtBSBSaprobie BOOLEAN DEFAULT 0 CHECK (txtBSBSaprobie IN (-1, 0)),  -- checked against BOD5 data
    IstEinstufung BOOLEAN DEFAULT 0 CHECK (IstEinstufung IN (-1, 0))  -- the ratings are printed
);

-- What was found where: covers, mixed stands, sampling sites and findings of algae. Numbers and flags default to
-- 0, since the sheets insert a row by its keys alone and a Null would fail the calculation; Null is allowed.

-- Covers of a sub-habitat that was sampled for algae. A sub-habitat without a row here is not calculated.
CREATE TABLE awaTeilraum (
    ID_TR INTEGER NOT NULL PRIMARY KEY,  -- sub-habitat
    DG_Gesamt FLOAT DEFAULT 0,  -- cover of the algae without diatoms [percent]
    DG_MA FLOAT DEFAULT 0,  -- cover of the macroalgae [percent]
    DG_Algengesamt FLOAT DEFAULT 0,  -- total cover of algae [percent]
    MitBewuchsdichte FLOAT DEFAULT 0,  -- mean thickness of the growth [mm]
    DG_Gesamt_WRRL FLOAT DEFAULT 0,  -- as DG_Gesamt, for the assessment; entered separately [percent]
    DG_MA_WRRL FLOAT DEFAULT 0,  -- as DG_MA, for the assessment [percent]
    DG_Algengesamt_WRRL FLOAT DEFAULT 0,  -- as DG_Algengesamt, for the assessment [percent]
    MitBewuchsdichte_WRRL FLOAT DEFAULT 0  -- as MitBewuchsdichte, for the assessment [mm]
);

-- A mixed stand of microalgae in a sub-habitat.
CREATE TABLE awaTeilraum_MI (
    ID_TR_MI INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_TR_MI <= 2147483647),  -- stand
    ID_TR INTEGER,  -- sub-habitat
    MI_Bez TEXT,  -- name of the stand
    DG_MI FLOAT DEFAULT 0,  -- cover of the stand [percent of the sub-habitat]
    DG_MI_WRRL FLOAT DEFAULT 0,  -- as DG_MI, for the assessment [percent of the sub-habitat]
    SD_MI FLOAT DEFAULT 0,  -- mean layer thickness of the stand [mm]
    RF_MI INTEGER DEFAULT 0  -- order of the stands on the sheet
);
CREATE INDEX awaTeilraum_MI_ID_TR ON awaTeilraum_MI (ID_TR);

-- A sampling site within a sub-habitat.
CREATE TABLE awaPrStelle (
    ID_PS INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_PS <= 2147483647),  -- sampling site
    ID_TR INTEGER,  -- sub-habitat
    PSBez TEXT,  -- label
    Anzeige BOOLEAN DEFAULT -1 CHECK (Anzeige IN (-1, 0)),  -- marked for display
    PSBez_Anzeige TEXT  -- label as displayed
);
CREATE INDEX awaPrStelle_ID_TR ON awaPrStelle (ID_TR);
CREATE INDEX awaPrStelle_Anzeige ON awaPrStelle (Anzeige);

-- A taxon found at a sampling site. A taxon with and without CF makes two rows.
CREATE TABLE awaArtPrStelle (
    ID_PS INTEGER NOT NULL,  -- sampling site
    ID_ART INTEGER NOT NULL,  -- taxon
    CF BOOLEAN NOT NULL DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    MAalsMI BOOLEAN DEFAULT 0 CHECK (MAalsMI IN (-1, 0)),  -- a macroalga entered as part of a mixed stand; plays no part in the indices
    DG_MA FLOAT DEFAULT 0,  -- cover as macroalga [percent of the sub-habitat]
    SD_MA FLOAT DEFAULT 0,  -- mean layer thickness as macroalga [mm]
    Schalen_KA INTEGER DEFAULT 0,  -- counted diatom valves [valves]
    DG_MP FLOAT DEFAULT 0,  -- cover as macrophyte [percent]
    PRIMARY KEY (ID_PS, ID_ART, CF)
);
CREATE INDEX awaArtPrStelle_ID_ART ON awaArtPrStelle (ID_ART);

-- A taxon in a mixed stand. The rows go with their stand.
CREATE TABLE awaArtPrStelle_MI (
    ID_TR_MI INTEGER NOT NULL,  -- stand
    ID_ART INTEGER NOT NULL,  -- taxon
    CF BOOLEAN NOT NULL DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    DG_MI FLOAT DEFAULT 0,  -- share of the taxon [percent of the stand]
    PRIMARY KEY (ID_TR_MI, ID_ART, CF),
    FOREIGN KEY (ID_TR_MI) REFERENCES awaTeilraum_MI (ID_TR_MI) ON DELETE CASCADE
);
CREATE INDEX awaArtPrStelle_MI_ID_ART ON awaArtPrStelle_MI (ID_ART);

-- Results of the last run. Every run empties them first. Result columns are Null until they are written, flags
-- and the column n are 0.

-- Indices of a sub-habitat. A sub-habitat can have a normal row and one from its diatoms alone.
CREATE TABLE awaErgProjekt (
    ID INTEGER NOT NULL,  -- sub-habitat (ID_TR)
    IstWRRL BOOLEAN DEFAULT 0 CHECK (IstWRRL IN (-1, 0)),  -- the row comes from an assessment run
    KAOnly BOOLEAN NOT NULL DEFAULT 0 CHECK (KAOnly IN (-1, 0)),  -- calculated from the diatoms alone
    SapIndex FLOAT,  -- saprobic index
    SapIndex_KA FLOAT,  -- saprobic index of the diatoms
    TI FLOAT,  -- trophic index
    TI_N FLOAT,  -- trophic index from the _N values
    TI_KA FLOAT,  -- trophic index of the diatoms
    AMI DOUBLE,  -- algae quantity index
    DG_Gesamt FLOAT,  -- cover used [percent]
    DG_Makroalgen FLOAT,  -- macroalgae cover used [percent]
    Taxa DOUBLE,  -- taxa [taxa]
    Taxa_KA DOUBLE,  -- taxa with counted valves [taxa]
    Taxa_SI DOUBLE,  -- taxa with a saprobic value [taxa]
    Taxa_SI_KA DOUBLE,  -- taxa with counted valves and a weight [taxa]
    TaxaSap DOUBLE,  -- taxa with complete valences [taxa]
    TaxaTI DOUBLE,  -- taxa with Trophiewert [taxa]
    TaxaTI_N DOUBLE,  -- taxa with Trophiewert_N [taxa]
    TaxaTI_KA DOUBLE,  -- diatoms with Trophiewert [taxa]
    ANZ_Gueteklasse_I SMALLINT,  -- taxa of water-quality class I [taxa]
    ANZ_Gueteklasse_I_II SMALLINT,  -- taxa of water-quality class I-II [taxa]
    ANZ_Gueteklasse_II SMALLINT,  -- taxa of water-quality class II [taxa]
    ANZ_Gueteklasse_II_III SMALLINT,  -- taxa of water-quality class II-III [taxa]
    ANZ_Gueteklasse_III SMALLINT,  -- taxa of water-quality class III [taxa]
    ANZ_Gueteklasse_III_IV SMALLINT,  -- taxa of water-quality class III-IV [taxa]
    ANZ_Gueteklasse_IV SMALLINT,  -- taxa of water-quality class IV [taxa]
    XENO DOUBLE,  -- xenosaprobic valence; not written
    OLIGO DOUBLE,  -- oligosaprobic valence; not written
    OLIGOBETA DOUBLE,  -- oligo- to betamesosaprobic valence; not written
    BETA DOUBLE,  -- betamesosaprobic valence; not written
    BETAALPHA DOUBLE,  -- beta- to alphamesosaprobic valence; not written
    ALPHA DOUBLE,  -- alphamesosaprobic valence; not written
    ALPHAPOLY DOUBLE,  -- alphameso- to polysaprobic valence; not written
    POLY DOUBLE,  -- polysaprobic valence; not written
    KUMXENO DOUBLE,  -- cumulated valences up to xenosaprobic; not written
    KUMOLIGO DOUBLE,  -- cumulated valences up to oligosaprobic; not written
    KUMOLIGOBETA DOUBLE,  -- cumulated valences up to oligo- to betamesosaprobic; not written
    KUMBETA DOUBLE,  -- cumulated valences up to betamesosaprobic; not written
    KUMBETAALPHA DOUBLE,  -- cumulated valences up to beta- to alphamesosaprobic; not written
    KUMALPHA DOUBLE,  -- cumulated valences up to alphamesosaprobic; not written
    KUMALPHAPOLY DOUBLE,  -- cumulated valences up to alphameso- to polysaprobic; not written
    KUMPOLY DOUBLE,  -- cumulated valences up to polysaprobic; not written
    TAXAMA DOUBLE,  -- macroalgae; not written [taxa]
    TAXAMI DOUBLE,  -- microalgae; not written [taxa]
    TAXAKA DOUBLE,  -- diatoms; not written [taxa]
    XENO_W DOUBLE,  -- xenosaprobic valence of the figures by Wegl; not written
    OLIGO_W DOUBLE,  -- oligosaprobic valence of the figures by Wegl; not written
    BETA_W DOUBLE,  -- betamesosaprobic valence of the figures by Wegl; not written
    ALPHA_W DOUBLE,  -- alphamesosaprobic valence of the figures by Wegl; not written
    POLY_W DOUBLE,  -- polysaprobic valence of the figures by Wegl; not written
    TAXA_SI_W DOUBLE,  -- taxa of the figures by Wegl; not written [taxa]
    SapIndex_W DOUBLE,  -- saprobic index by Wegl; not written
    SI_Streuung_W DOUBLE,  -- its dispersion; not written
    PRIMARY KEY (ID, KAOnly)
);
CREATE INDEX awaErgProjekt_ID ON awaErgProjekt (ID);

-- Assessment of a sub-habitat.
CREATE TABLE awaErgWRRL (
    ID INTEGER NOT NULL,  -- sub-habitat (ID_TR)
    KAOnly BOOLEAN NOT NULL DEFAULT 0 CHECK (KAOnly IN (-1, 0)),  -- assessed from the diatoms alone
    SQL_RefBioregion TEXT,  -- condition on the reference bioregions
    Taxagruppe TEXT,  -- group that the assessment rests on: Alle or KA
    BedingtBewertbar BOOLEAN DEFAULT 0 CHECK (BedingtBewertbar IN (-1, 0)),  -- the assessment is restricted
    KASchalenzahl DOUBLE,  -- counted valves [valves]
    Bioregionstyp TEXT,  -- bioregion type; - where none was found
    TGZK TEXT,  -- trophic reference class; - where none was found
    TI FLOAT,  -- trophic index used
    TI_EW FLOAT,  -- expected value; -1 where none was found
    TI_EQR FLOAT,  -- quality ratio
    TI_OEZK SMALLINT,  -- class; -1 where none was found
    TI_OEZK3 SMALLINT,  -- class at the ratio raised by 0.03; -1 where none was found
    SGZK SMALLINT,  -- saprobic reference class; -1 where none was found
    SI FLOAT,  -- saprobic index used
    SI_EW FLOAT,  -- expected value; -1 where none was found
    SI_EQR FLOAT,  -- quality ratio
    SI_OEZK SMALLINT,  -- class; -1 where none was found
    SI_OEZK3 SMALLINT,  -- class at the ratio raised by 0.03; -1 where none was found
    TaxazahlGesamt DOUBLE,  -- taxa [taxa]
    TaxazahlGesamt_KA DOUBLE,  -- diatoms [taxa]
    TaxazahlArtniveau DOUBLE,  -- taxa at species level [taxa]
    TaxazahlArtniveau_KA DOUBLE,  -- diatoms at species level [taxa]
    TaxazahlArtniveauNKA INTEGER,  -- taxa at species level without diatoms [taxa]
    TaxazahlRefart DOUBLE,  -- reference species [taxa]
    TaxazahlRefart_KA DOUBLE,  -- reference species among the diatoms [taxa]
    AbundanzGesamt DOUBLE,  -- abundance [percent]
    AbundanzGesamt_KA DOUBLE,  -- abundance of the diatoms [percent]
    AbundanzArtniveau DOUBLE,  -- abundance at species level [percent]
    AbundanzArtniveau_KA DOUBLE,  -- abundance of the diatoms at species level [percent]
    AbundanzArtniveauNKA FLOAT,  -- abundance at species level without diatoms [percent]
    AbundanzRefart DOUBLE,  -- abundance of reference species [percent]
    AbundanzRefart_KA DOUBLE,  -- abundance of reference species among the diatoms [percent]
    RI_Anzahl FLOAT,  -- part of the taxa count in the reference index
    RI_Abundanz FLOAT,  -- part of the abundance in the reference index
    RI_EW FLOAT,  -- expected value; -1 where none was found
    RI_EQR FLOAT,  -- quality ratio
    RI_OEZK SMALLINT,  -- class; -1 where none was found
    RI_OEZK3 SMALLINT,  -- class at the ratio raised by 0.03; -1 where none was found
    TI_OEZK_Klasse TEXT,  -- name of the trophic class
    SI_OEZK_Klasse TEXT,  -- name of the saprobic class
    RI_OEZK_Klasse TEXT,  -- name of the reference species class
    OEZK SMALLINT,  -- overall class; -1 where none was found
    OEZK_Klasse TEXT,  -- name of the overall class
    PRIMARY KEY (ID, KAOnly)
);
CREATE INDEX awaErgWRRL_ID ON awaErgWRRL (ID);
CREATE INDEX awaErgWRRL_Taxagruppe ON awaErgWRRL (Taxagruppe);

-- Seston results of a sub-habitat.
CREATE TABLE sesErgProjekt (
    ID INTEGER NOT NULL PRIMARY KEY,  -- sub-habitat (ID_TR)
    Oligo FLOAT,  -- oligosaprobic valence [of 10]
    Beta FLOAT,  -- betamesosaprobic valence [of 10]
    Alpha FLOAT,  -- alphamesosaprobic valence [of 10]
    Poly FLOAT,  -- polysaprobic valence [of 10]
    KumOligo FLOAT,  -- cumulated up to oligosaprobic [of 10]
    KumBeta FLOAT,  -- cumulated up to betamesosaprobic [of 10]
    KumAlpha FLOAT,  -- cumulated up to alphamesosaprobic [of 10]
    KumPoly FLOAT,  -- cumulated up to polysaprobic [of 10]
    SapIndex FLOAT,  -- saprobic index
    Abundanzsumme INTEGER,  -- sum of abundances
    Taxa SMALLINT,  -- taxa [taxa]
    Taxa_SI SMALLINT,  -- taxa with complete valences [taxa]
    SI_Streuung DOUBLE,  -- dispersion of the saprobic index
    ShannonundWeaver DOUBLE,  -- Shannon-Weaver diversity, natural logarithm
    MArgalef DOUBLE,  -- Margalef index
    Eveness DOUBLE  -- evenness
);

-- Findings of the seston sub-habitat that is being calculated.
CREATE TABLE sesErgProjektTmp (
    ID_TR INTEGER,  -- sub-habitat
    Si DOUBLE,  -- saprobic value of the taxon
    a INTEGER,  -- abundance
    n SMALLINT DEFAULT 0  -- 1 for a rated finding
);
CREATE INDEX sesErgProjektTmp_ID_TR ON sesErgProjektTmp (ID_TR);

-- Frequency list of the last scope: a row for each taxon, a column A<ID_TR> (64-bit float, percent) for each
-- sub-habitat. The run drops and rebuilds the table; a new database has it empty, without any sub-habitat.
CREATE TABLE awaArtenlisteHaeufigkeit (
    ID_Art INTEGER,  -- taxon
    CF BOOLEAN DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    IstKA BOOLEAN DEFAULT 0 CHECK (IstKA IN (-1, 0)),  -- the taxon is a diatom
    MAalsMI BOOLEAN DEFAULT 0 CHECK (MAalsMI IN (-1, 0))  -- copied from the finding
);

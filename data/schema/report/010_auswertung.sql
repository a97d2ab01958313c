-- Data of the evaluation reports, one row for each sub-habitat. A report run empties its table first; none has a
-- key.

-- Indices of the algae.
CREATE TABLE rpt_awaAuswertung (
    ID INTEGER,  -- sub-habitat (ID_TR)
    XENO DOUBLE,  -- xenosaprobic valence
    OLIGO DOUBLE,  -- oligosaprobic valence
    OLIGOBETA DOUBLE,  -- oligo- to betamesosaprobic valence
    BETA DOUBLE,  -- betamesosaprobic valence
    BETAALPHA DOUBLE,  -- beta- to alphamesosaprobic valence
    ALPHA DOUBLE,  -- alphamesosaprobic valence
    ALPHAPOLY DOUBLE,  -- alphameso- to polysaprobic valence
    POLY DOUBLE,  -- polysaprobic valence
    KUMXENO DOUBLE,  -- cumulated valences up to xenosaprobic
    KUMOLIGO DOUBLE,  -- cumulated valences up to oligosaprobic
    KUMOLIGOBETA DOUBLE,  -- cumulated valences up to oligo- to betamesosaprobic
    KUMBETA DOUBLE,  -- cumulated valences up to betamesosaprobic
    KUMBETAALPHA DOUBLE,  -- cumulated valences up to beta- to alphamesosaprobic
    KUMALPHA DOUBLE,  -- cumulated valences up to alphamesosaprobic
    KUMALPHAPOLY DOUBLE,  -- cumulated valences up to alphameso- to polysaprobic
    KUMPOLY DOUBLE,  -- cumulated valences up to polysaprobic
    ANZ_Gueteklasse_I SMALLINT,  -- taxa of water-quality class I [taxa]
    ANZ_Gueteklasse_I_II SMALLINT,  -- taxa of water-quality class I-II [taxa]
    ANZ_Gueteklasse_II SMALLINT,  -- taxa of water-quality class II [taxa]
    ANZ_Gueteklasse_II_III SMALLINT,  -- taxa of water-quality class II-III [taxa]
    ANZ_Gueteklasse_III SMALLINT,  -- taxa of water-quality class III [taxa]
    ANZ_Gueteklasse_III_IV SMALLINT,  -- taxa of water-quality class III-IV [taxa]
    ANZ_Gueteklasse_IV SMALLINT,  -- taxa of water-quality class IV [taxa]
    DG_Gesamt FLOAT,  -- cover used [percent]
    DG_Makroalgen FLOAT,  -- macroalgae cover used [percent]
    TAXA DOUBLE,  -- taxa [taxa]
    TAXA_KA DOUBLE,  -- taxa with counted valves [taxa]
    TAXA_SI DOUBLE,  -- taxa with a saprobic value [taxa]
    TAXA_SI_KA DOUBLE,  -- taxa with counted valves and a weight [taxa]
    TAXASAP DOUBLE,  -- taxa with complete valences [taxa]
    TAXAMA DOUBLE,  -- macroalgae [taxa]
    TAXAMI DOUBLE,  -- microalgae [taxa]
    TAXAKA DOUBLE,  -- diatoms [taxa]
    AMI DOUBLE,  -- algae quantity index
    SapIndex FLOAT,  -- saprobic index
    SapIndex_KA FLOAT,  -- saprobic index of the diatoms
    TI FLOAT,  -- trophic index
    TI_N FLOAT,  -- trophic index from the _N values
    TI_KA FLOAT,  -- trophic index of the diatoms
    TAXATI DOUBLE,  -- taxa with Trophiewert [taxa]
    TAXATI_N DOUBLE,  -- taxa with Trophiewert_N [taxa]
    TAXATI_KA DOUBLE  -- diatoms with Trophiewert [taxa]
);

-- Figures by Wegl.
CREATE TABLE rpt_awaAuswertung_W (
    ID INTEGER,  -- sub-habitat (ID_TR)
    XENO DOUBLE,  -- xenosaprobic valence by Wegl
    OLIGO DOUBLE,  -- oligosaprobic valence by Wegl
    BETA DOUBLE,  -- betamesosaprobic valence by Wegl
    ALPHA DOUBLE,  -- alphamesosaprobic valence by Wegl
    POLY DOUBLE,  -- polysaprobic valence by Wegl
    TAXA_SI DOUBLE,  -- taxa [taxa]
    SapIndex DOUBLE,  -- saprobic index by Wegl
    SI_Streuung DOUBLE,  -- its dispersion
    KUMXENO DOUBLE,  -- cumulated valences up to xenosaprobic
    KUMOLIGO DOUBLE,  -- cumulated valences up to oligosaprobic
    KUMBETA DOUBLE,  -- cumulated valences up to betamesosaprobic
    KUMALPHA DOUBLE,  -- cumulated valences up to alphamesosaprobic
    KUMPOLY DOUBLE  -- cumulated valences up to polysaprobic
);

-- Assessment.
CREATE TABLE rpt_awaAuswertungWRRL (
    ID INTEGER,  -- sub-habitat (ID_TR)
    Taxagruppe TEXT,  -- group that the assessment rests on: Alle or KA
    BedingtBewertbar BOOLEAN DEFAULT 0 CHECK (BedingtBewertbar IN (-1, 0)),  -- the assessment is restricted
    TGZK TEXT,  -- trophic reference class; - where none was found
    TI FLOAT,  -- trophic index used
    TI_EW FLOAT,  -- expected value; -1 where none was found
    TI_EQR FLOAT,  -- quality ratio
    TI_OEZK SMALLINT,  -- class; -1 where none was found
    TI_OEZK3 SMALLINT,  -- class at the ratio raised by 0.03; -1 where none was found
    TI_OEZK_Klasse TEXT,  -- name of the trophic class
    SGZK SMALLINT,  -- saprobic reference class; -1 where none was found
    SI FLOAT,  -- saprobic index used
    SI_EW FLOAT,  -- expected value; -1 where none was found
    SI_EQR FLOAT,  -- quality ratio
    SI_OEZK SMALLINT,  -- class; -1 where none was found
    SI_OEZK3 SMALLINT,  -- class at the ratio raised by 0.03; -1 where none was found
    SI_OEZK_Klasse TEXT,  -- name of the saprobic class
    TaxazahlGesamt DOUBLE,  -- taxa [taxa]
    TaxazahlArtniveau DOUBLE,  -- taxa at species level [taxa]
    TaxazahlArtniveauNKA INTEGER,  -- taxa at species level without diatoms [taxa]
    TaxazahlRefart DOUBLE,  -- reference species [taxa]
    AbundanzGesamt DOUBLE,  -- abundance [percent]
    AbundanzArtniveau DOUBLE,  -- abundance at species level [percent]
    AbundanzArtniveauNKA FLOAT,  -- abundance at species level without diatoms [percent]
    AbundanzRefart DOUBLE,  -- abundance of reference species [percent]
    KASchalenzahl DOUBLE,  -- counted valves [valves]
    RI_Abundanz FLOAT,  -- part of the abundance in the reference index
    RI_Anzahl FLOAT,  -- part of the taxa count in the reference index
    Bioregionstyp TEXT,  -- bioregion type; - where none was found
    RI_EW FLOAT,  -- expected value; -1 where none was found
    RI_EQR FLOAT,  -- quality ratio
    RI_OEZK SMALLINT,  -- class; -1 where none was found
    RI_OEZK3 SMALLINT,  -- class at the ratio raised by 0.03; -1 where none was found
    RI_OEZK_Klasse TEXT,  -- name of the reference species class
    OEZK SMALLINT,  -- overall class; -1 where none was found
    OEZK_Klasse TEXT,  -- name of the overall class
    txtTaxagruppe TEXT,  -- Taxagruppe in words
    txtBedingtBewertbar TEXT  -- BedingtBewertbar in words
);
CREATE INDEX rpt_awaAuswertungWRRL_Taxagruppe ON rpt_awaAuswertungWRRL (Taxagruppe);
CREATE INDEX rpt_awaAuswertungWRRL_BedingtBewertbar ON rpt_awaAuswertungWRRL (BedingtBewertbar);

-- Indices of the seston.
CREATE TABLE rpt_sesAuswertung_Indices (
    ID INTEGER,  -- sub-habitat (ID_TR)
    OLIGO FLOAT,  -- oligosaprobic valence [of 10]
    BETA FLOAT,  -- betamesosaprobic valence [of 10]
    ALPHA FLOAT,  -- alphamesosaprobic valence [of 10]
    POLY FLOAT,  -- polysaprobic valence [of 10]
    KUMOLIGO FLOAT,  -- cumulated up to oligosaprobic [of 10]
    KUMBETA FLOAT,  -- cumulated up to betamesosaprobic [of 10]
    KUMALPHA FLOAT,  -- cumulated up to alphamesosaprobic [of 10]
    KUMPOLY FLOAT,  -- cumulated up to polysaprobic [of 10]
    TAXA SMALLINT,  -- taxa [taxa]
    TAXASAP SMALLINT,  -- taxa with complete valences [taxa]
    PANTEL_MUC FLOAT,  -- saprobic index
    STR_PANTLE DOUBLE,  -- its dispersion
    MARGALEF DOUBLE,  -- Margalef index
    SHANNON_WE DOUBLE,  -- Shannon-Weaver diversity
    Eveness DOUBLE  -- evenness
);

-- Data of the taxa list reports. A report run empties its table first; none has a key.

-- Taxa of a scope.
CREATE TABLE rpt_awaTaxaliste (
    Projekt TEXT,  -- project
    RF_Abschnitt INTEGER,  -- position of the section
    Abschnitt TEXT,  -- section
    RF_UST INTEGER,  -- position of the station
    UST TEXT,  -- station
    Gewaessername TEXT,  -- water body
    VST TEXT,  -- visit, date and time
    RF_Teilraum INTEGER,  -- position of the sub-habitat
    Teilraum TEXT,  -- sub-habitat
    ID_TR INTEGER,  -- sub-habitat
    ID_Art INTEGER,  -- taxon
    CF BOOLEAN DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    SumGesHaeuf DOUBLE,  -- frequency
    Schalenzahl INTEGER,  -- counted valves [valves]
    DG_Gesamt FLOAT,  -- cover without diatoms [percent]
    DG_MA FLOAT,  -- cover as macroalga [percent]
    DG_MP FLOAT,  -- cover as macrophyte [percent]
    Gattung TEXT,  -- genus
    Art TEXT,  -- species
    Beschreiber TEXT,  -- author
    RF_Grgr INTEGER,  -- order of the group
    txtGrossgruppe TEXT,  -- heading of the group
    Algenart TEXT,  -- kind of alga
    IstVorhanden TEXT  -- X or P
);
CREATE INDEX rpt_awaTaxaliste_ID_TR ON rpt_awaTaxaliste (ID_TR);
CREATE INDEX rpt_awaTaxaliste_txtGrossgruppe ON rpt_awaTaxaliste (txtGrossgruppe);

-- Seston taxa of a scope.
CREATE TABLE rpt_sesTaxaliste (
    Projekt TEXT,  -- project
    RF_Abschnitt INTEGER,  -- position of the section
    Abschnitt TEXT,  -- section
    RF_UST INTEGER,  -- position of the station
    UST TEXT,  -- station
    Gewaessername TEXT,  -- water body
    VST TEXT,  -- visit, date and time
    RF_Teilraum INTEGER,  -- position of the sub-habitat
    Teilraum TEXT,  -- sub-habitat
    ID_TR INTEGER,  -- sub-habitat
    ID_Art INTEGER,  -- taxon
    CF BOOLEAN DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    SumGesHaeuf DOUBLE,  -- frequency
    Gattung TEXT,  -- genus
    Art TEXT,  -- species
    Klasse TEXT,  -- class
    O DOUBLE,  -- oligosaprobic valence
    B DOUBLE,  -- betamesosaprobic valence
    A DOUBLE,  -- alphamesosaprobic valence
    P DOUBLE,  -- polysaprobic valence
    SI DOUBLE  -- saprobic index
);
CREATE INDEX rpt_sesTaxaliste_ID_TR ON rpt_sesTaxaliste (ID_TR);

-- Taxa of one sub-habitat.
CREATE TABLE rpt_awaTaxalisteTLR (
    ID_TR INTEGER,  -- sub-habitat
    RF_Grgr INTEGER,  -- group: 10000 macroalgae, above 20000 mixed stands, 30000 diatoms, 100 and more macrophytes
    txtGrossgruppe TEXT,  -- heading of the group
    ID_Art INTEGER,  -- taxon
    Gattung TEXT,  -- genus
    Art TEXT,  -- species
    Beschreiber TEXT,  -- author
    CF BOOLEAN DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    MAalsMI BOOLEAN DEFAULT 0 CHECK (MAalsMI IN (-1, 0)),  -- a macroalga in a mixed stand
    txtMAalsMI TEXT,  -- its mark in words
    Algenart TEXT,  -- kind of alga
    GesDeckung_Absolut FLOAT,  -- cover, share or valves as entered
    GesDeckung_Relativ FLOAT,  -- the same as a share [percent]
    SumGG_GesDeckung_Absolut FLOAT,  -- sum of the group
    SumGG_GesDeckung_Relativ FLOAT,  -- sum of the shares of the group [percent]
    lblGesDeckung_Absolut TEXT,  -- label
    lblGesDeckung_Relativ TEXT,  -- label
    Si DOUBLE,  -- saprobic value
    Sap_GBer DOUBLE,  -- indicator weight
    RF_Kieselalge INTEGER,  -- order of the major group
    DG_MP FLOAT,  -- cover as macrophyte [percent]
    lblDeckung_Gesamt TEXT,  -- label
    lblDeckung_MA TEXT,  -- label
    lblDeckung_Gesamtalgen TEXT,  -- label
    lblMitBewuchsdichte TEXT,  -- label
    txtDeckung_Gesamt FLOAT,  -- cover without diatoms [percent]
    txtDeckung_MA FLOAT,  -- cover of the macroalgae [percent]
    txtDeckung_Gesamtalgen FLOAT,  -- total cover [percent]
    txtMitBewuchsdichte FLOAT,  -- mean thickness [mm]
    txtProjekt TEXT,  -- project
    txtAbschnitt TEXT,  -- section
    txtGewaesser TEXT,  -- water body
    txtUST TEXT,  -- station
    txtVST TEXT,  -- visit
    txtTLR TEXT,  -- sub-habitat
    txtAlgenstelle TEXT,  -- sampling site
    txtSubstrat TEXT  -- substrate
);
CREATE INDEX rpt_awaTaxalisteTLR_RF_Grgr ON rpt_awaTaxalisteTLR (RF_Grgr);

-- Macroalgae of one sub-habitat with the growth forms.
CREATE TABLE rpt_awaTaxalisteMakroalgen (
    ID_TR INTEGER,  -- sub-habitat
    RF_Grgr INTEGER,  -- group: 10000 macroalgae, above 20000 mixed stands, 30000 diatoms, 100 and more macrophytes
    txtGrossgruppe TEXT,  -- heading of the group
    ID_Art INTEGER,  -- taxon
    Gattung TEXT,  -- genus
    Art TEXT,  -- species
    Beschreiber TEXT,  -- author
    CF BOOLEAN DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    MAalsMI BOOLEAN DEFAULT 0 CHECK (MAalsMI IN (-1, 0)),  -- a macroalga in a mixed stand
    txtMAalsMI TEXT,  -- its mark in words
    Algenart TEXT,  -- kind of alga
    GesDeckung_Absolut FLOAT,  -- cover, share or valves as entered
    GesDeckung_Relativ FLOAT,  -- the same as a share [percent]
    SumGG_GesDeckung_Absolut FLOAT,  -- sum of the group
    SumGG_GesDeckung_Relativ FLOAT,  -- sum of the shares of the group [percent]
    lblGesDeckung_Absolut TEXT,  -- label
    lblGesDeckung_Relativ TEXT,  -- label
    Si DOUBLE,  -- saprobic value
    Sap_GBer DOUBLE,  -- indicator weight
    RF_Kieselalge INTEGER,  -- order of the major group
    DG_MP FLOAT,  -- cover as macrophyte [percent]
    lblDeckung_Gesamt TEXT,  -- label
    lblDeckung_MA TEXT,  -- label
    lblDeckung_Gesamtalgen TEXT,  -- label
    lblMitBewuchsdichte TEXT,  -- label
    txtDeckung_Gesamt FLOAT,  -- cover without diatoms [percent]
    txtDeckung_MA FLOAT,  -- cover of the macroalgae [percent]
    txtDeckung_Gesamtalgen FLOAT,  -- total cover [percent]
    txtMitBewuchsdichte FLOAT,  -- mean thickness [mm]
    txtProjekt TEXT,  -- project
    txtAbschnitt TEXT,  -- section
    txtGewaesser TEXT,  -- water body
    txtUST TEXT,  -- station
    txtVST TEXT,  -- visit
    txtTLR TEXT,  -- sub-habitat
    txtAlgenstelle TEXT,  -- sampling site
    txtSubstrat TEXT,  -- substrate
    Zeilencode INTEGER,  -- code of the growth form
    ZeilenBezeichnung TEXT,  -- growth form
    Deckung FLOAT,  -- cover of the growth form [percent]
    Dicke FLOAT  -- its thickness [mm]
);
CREATE INDEX rpt_awaTaxalisteMakroalgen_RF_Grgr ON rpt_awaTaxalisteMakroalgen (RF_Grgr);

-- Taxa of an assessment.
CREATE TABLE rpt_awaTaxalisteWRRL (
    Projekt TEXT,  -- project
    RF_Abschnitt INTEGER,  -- position of the section
    Abschnitt TEXT,  -- section
    RF_UST INTEGER,  -- position of the station
    UST TEXT,  -- station
    Gewaessername TEXT,  -- water body
    VST TEXT,  -- visit, date and time
    RF_Teilraum INTEGER,  -- position of the sub-habitat
    Teilraum TEXT,  -- sub-habitat
    ID_TR INTEGER,  -- sub-habitat
    RF_Grgr INTEGER,  -- group
    RF_Grgr2 INTEGER,  -- order of the major group
    txtGrossgruppe TEXT,  -- heading of the group
    ID_Art INTEGER,  -- taxon
    Gattung TEXT,  -- genus
    Art TEXT,  -- species
    Beschreiber TEXT,  -- author
    CF BOOLEAN DEFAULT 0 CHECK (CF IN (-1, 0)),  -- the determination is uncertain (cf.)
    MAalsMI BOOLEAN DEFAULT 0 CHECK (MAalsMI IN (-1, 0)),  -- a macroalga in a mixed stand
    Referenzart TEXT,  -- A, B or empty
    GesDeckung_Absolut FLOAT,  -- cover, share or valves
    GesDeckung_Relativ FLOAT,  -- the same as a share [percent]
    SumGG_GesDeckung_Absolut FLOAT,  -- sum of the group
    SumGG_GesDeckung_Relativ FLOAT,  -- sum of the shares of the group [percent]
    lblGesDeckung_Absolut TEXT,  -- label
    lblGesDeckung_Relativ TEXT,  -- label
    Si DOUBLE,  -- saprobic value
    Sap_GBer DOUBLE,  -- indicator weight
    Trophiewert DOUBLE,  -- trophic value
    Trophiegewicht DOUBLE  -- weight of the trophic value
);
CREATE INDEX rpt_awaTaxalisteWRRL_RF_Grgr ON rpt_awaTaxalisteWRRL (RF_Grgr);
CREATE INDEX rpt_awaTaxalisteWRRL_ID_TR ON rpt_awaTaxalisteWRRL (ID_TR);

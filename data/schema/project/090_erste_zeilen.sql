-- Rows without which nothing works. Every new project database comes with them.

-- The one catalogue that the module lists and fills.
INSERT INTO awaKatalog (ID_KAT, KATBez) VALUES (1, 'Taxaliste');

-- The numbers 128 and 132 to 137 are fixed by the rules; the groups of the other algae may be changed. The
-- order within lists follows the number.
INSERT INTO awaGrossGr (ID_GRGR, Grossgruppe, Bezeichnung, Reihenfolge, RF_Kieselalge) VALUES
    (120, 'BLAUALGEN', 'Cyanobacteria', 1, 0),
    (121, 'ROTALGEN', 'Rhodophyta', 2, 0),
    (122, 'GOLDALGEN', 'Chrysophyceae', 3, 0),
    (123, 'GELBGRÜNALGEN', 'Xanthophyceae', 4, 0),
    (124, 'BRAUNALGEN', 'Phaeophyceae', 5, 0),
    (125, 'PANZERGEISSLER', 'Dinophyta', 6, 0),
    (126, 'SCHLUNDGEISSLER', 'Cryptophyta', 7, 0),
    (127, 'AUGENGEISSLER', 'Euglenophyta', 8, 0),
    (128, 'KIESELALGEN', 'Bacillariophyceae', 9, 1),
    (129, 'GRÜNALGEN', 'Chlorophyta', 10, 0),
    (130, 'JOCHALGEN', 'Zygnematophyceae', 11, 0),
    (131, 'ARMLEUCHTERALGEN', 'Charophyceae', 12, 0),
    (132, 'MOOSE', 'Bryophyta', 13, 100),
    (133, 'BAKTERIEN', 'Bacteria', 14, 0),
    (134, 'PILZE', 'Fungi', 15, 0),
    (135, 'FARNPFLANZEN', 'Pteridophyta', 16, 101),
    (136, 'EINKEIMBLÄTTRIGE', 'Liliopsida', 17, 102),
    (137, 'ZWEIKEIMBLÄTTRIGE', 'Magnoliopsida', 18, 103);

-- The kind without a name is the one of diatoms, bacteria, fungi and higher plants.
INSERT INTO awaAL_Algenart (RF, Algenart) VALUES
    (0, NULL),
    (1, 'Makroalge'),
    (2, 'Mikroalge');

INSERT INTO awaAL_Lebensform (ID_AL_Lebensform, Lebensform, RF) VALUES
    (0, '', 0),
    (1, 'benthisch', 1);

INSERT INTO awaseUebersicht (Ebene, seUebersicht_RF) VALUES
    ('Reich', 1),
    ('Unterreich', 2),
    ('Stamm', 3),
    ('Unterstamm', 4),
    ('Überklasse', 5),
    ('Klasse', 6),
    ('Zwischengruppe-Klasse', 7),
    ('Unterklasse', 8),
    ('Überordnung', 9),
    ('Ordnung', 10),
    ('Unterordnung', 11),
    ('Infraordnung', 12),
    ('Zwischengruppe-Ordnung', 13),
    ('Familienreihe', 14),
    ('Zwischengruppe 1', 15),
    ('Zwischengruppe 2', 16),
    ('Überfamilie', 17),
    ('Familie', 18),
    ('Unterfamilie', 19),
    ('Gattung', 20),
    ('Art', 21);

-- Headings are string numbers without the language base. The keys stay hidden and are not offered.
INSERT INTO awaKatalogfeldDefinition (ID_Katalogfeld, SpaltenIndex, ResID_Label, IstVisible, IstEditable,
                  ColWidthUser, ColWidthDefault, ColSortUser, ColSortDefault, ColSortField, IstKurz, IstLang) VALUES
    (1, 1, 5101, -1, -1, 700, 700, 0, 0, 'awaArtAuswahl.Auswahl', -1, -1),
    (2, 2, 4001, -1, -1, 1800, 1800, 0, 0, 'awaFamilie.Familie', 0, -1),
    (3, 3, 4002, 0, -1, 1800, 1800, 0, 0, 'awaArt.ID_UFAM', 0, -1),
    (4, 4, 5102, 0, 0, 900, 900, 0, 0, 'awaArt.ID_ART', 0, 0),
    (5, 5, 4003, -1, -1, 2000, 2000, 1, 1, 'awaArt.Gattung', -1, -1),
    (6, 6, 4004, 0, -1, 1500, 1500, 0, 0, 'awaArt.Untergattung', 0, -1),
    (7, 7, 5103, 0, -1, 900, 900, 0, 0, 'awaArt.UntergatAbk', 0, -1),
    (8, 8, 4006, -1, -1, 2500, 2500, 1, 1, 'awaArt.Art', -1, -1),
    (9, 9, 4007, -1, -1, 2500, 2500, 0, 0, 'awaArt.Beschreiber', -1, -1),
    (10, 10, 5104, 0, -1, 900, 900, 0, 0, 'awaArt.Jahreszahl', 0, -1),
    (11, 11, 5105, 0, -1, 2500, 2500, 0, 0, 'awaArt.UABeschreiber', 0, -1),
    (12, 12, 5106, 0, -1, 900, 900, 0, 0, 'awaArt.UAJahreszahl', 0, -1),
    (13, 13, 5107, 0, -1, 900, 900, 0, 0, 'awaArt.UBANr', 0, -1),
    (14, 14, 5108, 0, -1, 900, 900, 0, 0, 'awaArt.DINNr', 0, -1),
    (15, 15, 5109, 0, -1, 2000, 2000, 0, 0, 'awaArt.DtName', 0, -1),
    (16, 16, 5110, 0, -1, 900, 900, 0, 0, 'awaArt.RoteListe', 0, -1),
    (17, 17, 2036, 0, -1, 600, 600, 0, 0, 'awaArt.RF', 0, -1),
    (18, 18, 4123, 0, -1, 1200, 1200, 0, 0, 'awaArt.Erstellt', 0, -1),
    (19, 19, 5111, 0, -1, 1200, 1200, 0, 0, 'awaArt.Geaendert', 0, -1),
    (20, 20, 5112, 0, -1, 1200, 1200, 0, 0, 'awaArt.Kurzzeichen', 0, -1),
    (21, 21, 5113, 0, -1, 1500, 1500, 0, 0, 'awaArt.GeaendertVon', 0, -1),
    (22, 22, 4043, -1, -1, 1200, 1200, 0, 0, 'awaModulStandard.Algenart', -1, -1),
    (23, 23, 4064, -1, -1, 1200, 1200, 0, 0, 'awaAL_Lebensform.Lebensform', 0, -1),
    (24, 24, 5114, -1, -1, 900, 900, 0, 0, 'IIf(IsNull([awaRefArt_TypA].[ID_Art]),IIf(IsNull([awaRefArt_TypB].[ID_Art]),'''',''B''),''A'')', 0, -1);

INSERT INTO sesKatalogfeldDefinition (ID_Katalogfeld, SpaltenIndex, ResID_Label, IstVisible, IstEditable,
                  ColWidthUser, ColWidthDefault, ColSortUser, ColSortDefault, ColSortField, IstKurz, IstLang) VALUES
    (1, 1, 5101, -1, -1, 700, 700, 0, 0, 'sesArtAuswahl.Auswahl', -1, -1),
    (2, 2, 5115, 0, 0, 900, 900, 0, 0, 'sesKlasse.ID_KLASSE', 0, 0),
    (3, 3, 4108, -1, -1, 2000, 2000, 1, 1, 'sesKlasse.Klasse', -1, -1),
    (4, 4, 5102, 0, 0, 900, 900, 0, 0, 'sesArt.ID_ART', 0, 0),
    (5, 5, 4003, -1, -1, 2000, 2000, 1, 1, 'sesArt.Gattung', -1, -1),
    (6, 6, 4006, -1, -1, 2500, 2500, 1, 1, 'sesArt.Art', -1, -1),
    (7, 7, 4007, -1, -1, 2500, 2500, 0, 0, 'sesArt.Beschreiber', 0, -1),
    (8, 8, 4123, 0, -1, 1200, 1200, 0, 0, 'sesArt.Erstellt', 0, -1),
    (9, 9, 4029, -1, -1, 600, 600, 0, 0, 'sesArt.W_O', -1, -1),
    (10, 10, 4031, -1, -1, 600, 600, 0, 0, 'sesArt.W_B', -1, -1),
    (11, 11, 4033, -1, -1, 600, 600, 0, 0, 'sesArt.W_A', -1, -1),
    (12, 12, 4035, -1, -1, 600, 600, 0, 0, 'sesArt.W_P', -1, -1),
    (13, 13, 4037, -1, -1, 700, 700, 0, 0, 'sesArt.W_SI', -1, -1);

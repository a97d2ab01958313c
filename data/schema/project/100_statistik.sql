-- What the planner of the engine cannot know of an empty database: an index on a flag or on a class narrows
-- little, and a taxon has many more findings than a sampling site has taxa. Without these figures it may start a
-- query about one sub-habitat at a flag. They also keep the plans, and so the order of an unordered query, the
-- same from database to database.

ANALYZE sqlite_schema;
INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES
    ('Teilraum', 'Teilraum_Anzeige', '1048576 524288'),
    ('awaPrStelle', 'awaPrStelle_Anzeige', '1048576 524288'),
    ('awaArt', 'awaArt_Loeschstatus', '1048576 1000000'),
    ('awaArt', 'awaArt_IstArtniveau', '1048576 524288'),
    ('awaModulStandard', 'awaModulStandard_Lebensform', '1048576 524288'),
    ('awaModulStandard', 'awaModulStandard_Algenart', '1048576 349525'),
    ('awaArtKatalog', 'awaArtKatalog_ID_KAT', '1048576 1000000'),
    ('awaArtAuswahl', 'awaArtAuswahl_Auswahl', '1048576 524288'),
    ('awaGrossGr', 'awaGrossGr_RF_Kieselalge', '1048576 524288'),
    ('awaKatalogfeldDefinition', 'awaKatalogfeldDefinition_IstEditable', '1048576 524288'),
    ('awaFamilie', 'awaFamilie_ID_GRGR', '1048576 65536'),
    ('awaErgWRRL', 'awaErgWRRL_Taxagruppe', '1048576 524288'),
    ('awaobWGEV07_Grid', 'awaobWGEV07_Grid_Zeilencode', '1048576 20000'),
    ('awaArtPrStelle', 'sqlite_autoindex_awaArtPrStelle_1', '1048576 50 2 1'),
    ('awaArtPrStelle', 'awaArtPrStelle_ID_ART', '1048576 2000'),
    ('awaArtPrStelle_MI', 'sqlite_autoindex_awaArtPrStelle_MI_1', '1048576 20 2 1'),
    ('awaArtPrStelle_MI', 'awaArtPrStelle_MI_ID_ART', '1048576 2000'),
    ('sesArt', 'sesArt_Loeschstatus', '1048576 1000000'),
    ('sesArtAuswahl', 'sesArtAuswahl_Auswahl', '1048576 524288'),
    ('sesArtPrStelle', 'sqlite_autoindex_sesArtPrStelle_1', '1048576 50 2 1'),
    ('sesArtPrStelle', 'sesArtPrStelle_ID_ART', '1048576 2000'),
    ('sesKatalogfeldDefinition', 'sesKatalogfeldDefinition_IstEditable', '1048576 524288');
-- Reads the figures just written.
ANALYZE sqlite_schema;

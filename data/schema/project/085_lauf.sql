-- The programs' own record of the last run. Hosts neither need nor touch it.

-- From what a sub-habitat was calculated or assessed, so that a result is known to be out of date. Emptied by each run.
CREATE TABLE fx_Lauf (
    ID INTEGER NOT NULL,  -- sub-habitat (ID_TR)
    KAOnly BOOLEAN NOT NULL DEFAULT 0 CHECK (KAOnly IN (-1, 0)),  -- as in awaErgProjekt
    Eingaben TEXT,  -- digests of what was read, for an assessment with its group; Null where the run failed
    Ergebnis TEXT,  -- digest of the result row as the run left it, of an assessment those of both its rows; Null where there was none
    Fehlernummer INTEGER,  -- number of the failure; Null where there was none
    Fehlertext TEXT,  -- its description
    PRIMARY KEY (ID, KAOnly)
);

-- From what the seston of a sub-habitat was calculated. Emptied by each run over seston; other runs leave it alone.
CREATE TABLE fx_LaufSeston (
    ID INTEGER NOT NULL PRIMARY KEY,  -- sub-habitat (ID_TR)
    Eingaben TEXT,  -- digest of what was read; Null where the run failed
    Ergebnis TEXT,  -- digest of the result row as the run left it; Null where there was none
    Fehlernummer INTEGER,  -- number of the failure; Null where there was none
    Fehlertext TEXT  -- its description
);

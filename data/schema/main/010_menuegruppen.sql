-- Menu groups: which menu entries and controls a group of users sees. The host maintains them.

-- A group of users.
CREATE TABLE Menuegruppe (
    ID_Menuegruppe INTEGER PRIMARY KEY AUTOINCREMENT CHECK (ID_Menuegruppe <= 2147483647),  -- menu group
    Menuegruppe TEXT  -- name
);
CREATE INDEX Menuegruppe_Menuegruppe ON Menuegruppe (Menuegruppe);

-- State of a control for a group.
CREATE TABLE Menuegruppenzuordnung (
    ID_Menuegruppe INTEGER NOT NULL,  -- menu group
    Funktionsname TEXT NOT NULL,  -- name of the control
    StatusVisible BOOLEAN DEFAULT -1 CHECK (StatusVisible IN (-1, 0)),  -- visible
    StatusEnabled BOOLEAN DEFAULT -1 CHECK (StatusEnabled IN (-1, 0)),  -- enabled
    StatusChecked BOOLEAN DEFAULT 0 CHECK (StatusChecked IN (-1, 0)),  -- checked
    StatusWindowlist BOOLEAN DEFAULT 0 CHECK (StatusWindowlist IN (-1, 0)),  -- carries the list of windows
    PRIMARY KEY (ID_Menuegruppe, Funktionsname)
);

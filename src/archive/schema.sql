-- The tables of an archive of graph runs. The program adds rows to it.

CREATE TABLE ModelRun (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,  -- never given twice, also after a run was deleted
    Model TEXT NOT NULL,
    Parameters TEXT NOT NULL,
    Comment TEXT NOT NULL,                 -- may be empty
    Date_Time TEXT NOT NULL,               -- local, YYYY-MM-DD hh:mm:ss
    DataSetType INTEGER NOT NULL           -- numbers to a point
);

CREATE TABLE DataSets (
    ID INTEGER NOT NULL,                   -- of the run in ModelRun
    Legend TEXT NOT NULL,
    Comment TEXT NOT NULL,
    PointCount INTEGER NOT NULL,
    DataSet BLOB                           -- the points as little-endian doubles, then one byte 0
);

CREATE INDEX DataSetsOfRun ON DataSets (ID);

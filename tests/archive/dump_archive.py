"""Prints every field of an archive, a line each: texts quoted, numbers exact in hexadecimal."""
import sqlite3
import struct
import sys

archive = sqlite3.connect(sys.argv[1])
for row in archive.execute("SELECT * FROM ModelRun ORDER BY ID"):
    print("run", *map(repr, row), sep="|")
for id, legend, comment, n, data in archive.execute(
        "SELECT ID, Legend, Comment, PointCount, DataSet FROM DataSets ORDER BY rowid"):
    print("curve", id, legend, comment, n, len(data), data[-1], sep="|")
    for number in struct.unpack("<%dd" % (2 * n), data[:16 * n]):
        print(number.hex())

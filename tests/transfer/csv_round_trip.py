"""Reads the exported CSV back with an independent CSV reader.

usage: csv_round_trip.py PROGRAM    (PROGRAM turns NUL-ended paths on its input into the CSV)
"""

import csv
import io
import random
import subprocess
import sys

# A carriage return only occurs beside a line feed: alone it is not quoted on purpose.
PIECES = [b",", b'"', b'""', b"\n", b"\r\n", b" ", b";", b"\t", b"'", b"=1+1", b"a",
          b"\xc3\xa9", b"\xe6\x97\xa5", b"\xf0\x9f\x93\xb7",
          b"\xff", b"\xc3", b"\xe6\x97", b"\xed\xa0\x80"]


def nasty_paths(count):
    chooser = random.Random(1)
    return [b"/card/" + b"".join(chooser.choices(PIECES, k=chooser.randrange(1, 12))) for _ in range(count)]


def main(program):
    paths = nasty_paths(2000)
    given = b"\0".join(paths) + b"\0"
    document = subprocess.run([program], input=given, stdout=subprocess.PIPE, check=True).stdout.decode("utf-8")
    rows = list(csv.reader(io.StringIO(document, newline=""), strict=True))[1:]
    expected = [path.decode("utf-8", errors="replace") for path in paths]
    assert len(rows) == len(expected), f"{len(rows)} rows for {len(expected)} files"
    for row, path in zip(rows, expected):
        assert len(row) == 13, row
        assert [row[0], row[1], row[2], row[12]] == [path, path, path.rsplit("/", 1)[1], path], (row, path)


main(sys.argv[1])

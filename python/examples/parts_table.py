#!/usr/bin/python3
"""Writes a table of all parts of a folder as CSV: parts_table.py FOLDER >parts.csv

A file that cannot be read is named on standard error, and the exit code is then 1.
"""

from __future__ import annotations

import csv
import sys
from pathlib import Path
from typing import Any

import veka

COLUMNS = ["file", "manufacturer", "mpn", "description", "package", "pins", "footprints"]


def row(file: Path) -> list[str]:
    part = veka.read(file)
    general = part.vek.part_general
    footprints = " ".join(footprint.footprint_name for footprint in part.footprint_db_arr)
    return [file.name, general.manufacturer, general.mpn, general.part_description, general.package_type,
            str(general.number_of_pins), footprints]


def write(folder: Path, table: Any) -> int:
    table.writerow(COLUMNS)
    failed = 0
    for file in sorted(folder.rglob("*.veka")):
        try:
            table.writerow(row(file))
        except (OSError, veka.InvalidAccessError) as error:
            print(f"{file}: {error}", file=sys.stderr)
            failed = 1
    return failed


def main(arguments: list[str]) -> int:
    if len(arguments) != 1:
        print("usage: parts_table.py FOLDER", file=sys.stderr)
        return 2
    # Names and texts may have any bytes, and each is written as it is.
    with open(sys.stdout.fileno(), "w", encoding="utf-8", errors="surrogateescape", newline="", closefd=False) as out:
        return write(Path(arguments[0]), csv.writer(out, lineterminator="\n"))


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

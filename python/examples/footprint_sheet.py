#!/usr/bin/python3
"""Writes a sheet of footprint pictures as HTML: footprint_sheet.py FILE... >sheet.html"""

from __future__ import annotations

import sys
from base64 import b64encode
from collections.abc import Iterator
from html import escape

import veka

HEAD = """<!DOCTYPE html>
<meta charset="utf-8">
<title>Footprints</title>
<style>
body { font-family: sans-serif; display: flex; flex-wrap: wrap; gap: 1em; }
figure { margin: 0; }
img { width: 16em; height: 16em; object-fit: contain; }
</style>
"""


def printable(text: str) -> str:
    """A text for a page: bytes that are no UTF-8 are shown as U+FFFD."""
    return escape(text.encode("utf-8", "surrogateescape").decode("utf-8", "replace"))


def figures(part: veka.Manager) -> Iterator[str]:
    for footprint in part.footprint_db_arr:
        picture = b64encode(veka.drawing.footprint(part, footprint, theme="light")).decode()
        name = printable(f"{part.vek.part_general.mpn}: {footprint.footprint_name}, {len(footprint.f_pins)} pins")
        yield f'<figure><img alt="{name}" src="data:image/svg+xml;base64,{picture}"><figcaption>{name}</figcaption></figure>'


def main(files: list[str]) -> int:
    if not files:
        print("usage: footprint_sheet.py FILE...", file=sys.stderr)
        return 2
    page = HEAD + "\n".join(figure for file in files for figure in figures(veka.read(file)))
    sys.stdout.buffer.write(page.encode() + b"\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

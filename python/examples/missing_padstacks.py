#!/usr/bin/python3
"""Lists every pin of a footprint whose padstack is missing: missing_padstacks.py FILE...

The exit code is 1 if a padstack is missing.
"""

from __future__ import annotations

import sys
from collections.abc import Iterator

import veka


def missing(part: veka.Manager) -> Iterator[tuple[str, str, str]]:
    """The footprint, the pin and the name of each padstack that the part names and does not have."""
    padstacks = {padstack.padstack_name for padstack in part.pad_stack_arr}
    for footprint in part.footprint_db_arr:
        for pin in footprint.f_pins:
            if pin.lib_padstack_name not in padstacks:
                yield footprint.footprint_name, pin.pin_name or str(pin.pin_no), pin.lib_padstack_name


def main(files: list[str]) -> int:
    if not files:
        print("usage: missing_padstacks.py FILE...", file=sys.stderr)
        return 2
    found = 0
    for file in files:
        for footprint, pin, padstack in missing(veka.read(file)):
            print(f"{file}: footprint {footprint!r}, pin {pin!r}: there is no padstack {padstack!r}")
            found = 1
    return found


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

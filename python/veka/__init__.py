"""Electronic parts from VEK ASCII part data files.

    import veka

    part = veka.read("op-amp.veka")
    for pin in part.vek.electrical.electrical_pins:
        print(pin.name, pin.signal_name)

read() and reads() give a Manager: the part, and the library that it refers to. Each record has its fields as
attributes; help(veka.BOM) says what they mean.
"""

import os as _os
from collections.abc import MutableSequence as _MutableSequence
from typing import NamedTuple as _NamedTuple

from . import _veka, drawing
from ._files import Library, LibraryPart, to_gltf, to_kicad, to_step
from ._veka import *  # noqa: F401,F403: the classes are made from the records of the library
from ._veka import __version__

__all__ = ["Finding", "Library", "LibraryPart", "check", "checks", "drawing", "to_gltf", "to_kicad", "to_step"]
__all__ += [_name for _name in vars(_veka) if not _name.startswith("_")]

_MutableSequence.register(_veka.RecordArray)
_MutableSequence.register(_veka.TextList)


class Finding(_NamedTuple):
    """One thing that the import of a file left out or changed, or that does not go together."""

    code: str  #: such as "VEKA-W001"; it never gets another meaning
    severity: str  #: "error", "warning" or "note"
    kind: str  #: "not-read", "replaced", "changed", "structure", "reference" or "disagreement"
    line: int
    column: int  #: of the byte, from 1 on
    path: str  #: the levels around it
    text: str  #: the text concerned
    sentence: str  #: what was done with it, and what was probably meant


def check(path, /):
    """The findings of the import of a file, in their order. Files that the part names are looked for beside the file."""
    with open(path, "rb") as file:
        data = file.read()
    folder = _os.path.dirname(_os.path.abspath(_os.fsencode(path)))
    return [Finding(*finding) for finding in _veka._check(data, folder)]


def checks(data, /):
    """The findings of the import of bytes. No other files are looked for."""
    return [Finding(*finding) for finding in _veka._check(bytes(memoryview(data)), b"")]

"""Files of other programs, and libraries of parts. The package veka gives these their names."""

import datetime as _datetime
import errno as _errno
import os as _os
from typing import NamedTuple as _NamedTuple
from typing import Optional as _Optional

from . import _veka


def _host():
    """The part of the module that needs OpenCASCADE and SQLite. It is loaded when it is first used."""
    try:
        from . import _host as module
    except ModuleNotFoundError:
        raise NotImplementedError("this module was built without the host program") from None
    return module


def _folders(folders):
    if isinstance(folders, (str, bytes, _os.PathLike)):
        folders = [folders]
    return [_os.fsencode(folder) for folder in folders]


def to_step(part, path, *, folders=()):
    """Writes the solids of all packages of a part to a STEP file.

    Files of STEP that the part names are looked for in the folders. The file takes its place once it is whole.
    Returns a list of sentences that say what the file lacks.
    """
    return _host().write_solids(_veka._address(part), _os.fsencode(path), "step", _folders(folders))


def to_gltf(part, path, *, folders=()):
    """Writes the solids of all packages of a part to a binary glTF file, as to_step does to a STEP file."""
    return _host().write_solids(_veka._address(part), _os.fsencode(path), "gltf", _folders(folders))


def to_kicad(parts, place, *, models=True, folders=()):
    """Adds a part, or several, to the libraries of KiCad at a place DIR/NAME.

    The symbols are in DIR/NAME.kicad_sym, the footprints in DIR/NAME.pretty, and the solid models in
    DIR/NAME.3dshapes. What is there stays, except what has the same name. Files of STEP that a part names are
    looked for in the folders. Returns a list of sentences that say what KiCad cannot hold.
    """
    parts = [parts] if isinstance(parts, _veka.Manager) else list(parts)
    addresses = [_veka._address(part) for part in parts]
    for part in parts:
        if not part.vek.part_general.mpn:
            raise ValueError("a part without a part number has no name in KiCad")
    return _host().write_to_kicad(addresses, _os.fsencode(place), bool(models), _folders(folders))


class LibraryPart(_NamedTuple):
    """A part as a library lists it."""

    name: str  #: of the part's directory in the library
    number: str  #: the manufacturer's part number
    manufacturer: str
    description: str
    type: str  #: functional type
    package_type: str
    pins: int  #: as the file says
    company_numbers: tuple
    families: tuple
    packages: tuple
    footprints: tuple
    symbols: tuple
    file: str  #: path of the part's file, for veka.read
    size: int  #: of the file in bytes
    stored: _datetime.datetime  #: when the file was stored, in UTC
    errors: _Optional[int]  #: findings of the part's report; None until the report was asked for
    warnings: _Optional[int]
    notes: _Optional[int]


class Library:
    """A library of parts, as veka-host keeps it: a directory that has a directory for each part.

    The parts are found by an index, which is made where there is none and brought up to date by each call. A
    library and its index can be used by several threads and programs at one time.
    """

    def __init__(self, path, /):
        self.path = _os.fsdecode(path)
        if not _os.path.isdir(self.path):
            code = _errno.ENOTDIR if _os.path.exists(self.path) else _errno.ENOENT
            raise OSError(code, _os.strerror(code), self.path)

    def find(self, text="", *, where=(), sort_by=None, descending=False):
        """The parts that have some words, beginnings of words, or parts of a part number, as a list of LibraryPart.

        `where` is a condition such as "pins>=8" or "manufacturer=Maker*", or several that must all hold. They come
        in the order of `sort_by`: "number", "manufacturer", "description", "package_type", "pins", "size" or
        "stored"; else by their numbers, those that begin with the text first.
        """
        conditions = [where] if isinstance(where, str) else list(where)
        found = _host().find_parts(_os.fsencode(self.path), text, conditions, sort_by or "", bool(descending))
        return [_part(row) for row in found]

    def list(self, *, sort_by=None, descending=False):
        """All parts."""
        return self.find(sort_by=sort_by, descending=descending)

    def __iter__(self):
        return iter(self.find())

    def __len__(self):
        return len(self.find())

    def __repr__(self):
        return f"veka.Library({self.path!r})"


def _part(row):
    part = LibraryPart(*row)
    return part._replace(file=_os.fsdecode(part.file), stored=_datetime.datetime.fromtimestamp(part.stored, _datetime.timezone.utc))


for _public in (to_step, to_gltf, to_kicad, LibraryPart, Library):
    _public.__module__ = "veka"

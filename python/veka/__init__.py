"""Electronic parts from VEK ASCII part data files.

    import veka

    part = veka.read("op-amp.veka")
    for pin in part.vek.electrical.electrical_pins:
        print(pin.name, pin.signal_name)

read() and reads() give a Manager: the part, and the library that it refers to. Each record has its fields as
attributes; help(veka.BOM) says what they mean.
"""

from collections.abc import MutableSequence as _MutableSequence

from . import _veka
from ._veka import *  # noqa: F401,F403: the classes are made from the records of the library
from ._veka import __version__

__all__ = [_name for _name in vars(_veka) if not _name.startswith("_")]

_MutableSequence.register(_veka.RecordArray)
_MutableSequence.register(_veka.TextList)

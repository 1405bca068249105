from typing import Literal

from . import FootprintDB, Manager, Package, Symbol

_Theme = Literal["dark", "light"]

def footprint(part: Manager, footprint: FootprintDB, *, side: Literal["both", "top", "bottom"] = ...,
              theme: _Theme = ...) -> bytes: ...
def symbol(part: Manager, symbol: Symbol, *, theme: _Theme = ...) -> bytes: ...
def package(part: Manager, package: Package, *, looking: Literal["above", "front", "side"] = ...,
            theme: _Theme = ...) -> bytes: ...

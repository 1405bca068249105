"""Pictures of a part as the bytes of SVG files."""

from __future__ import annotations

from ._veka import _draw_footprint, _draw_package, _draw_symbol

__all__ = ["footprint", "package", "symbol"]


def footprint(part, footprint, *, side="both", theme="dark"):
    """A footprint of a part from the top, or one side of it: "both", "top" or "bottom". The theme is "dark" or "light"."""
    return _draw_footprint(part, footprint, side, theme)


def symbol(part, symbol, *, theme="dark"):
    """A symbol of a part, with all its gates side by side."""
    return _draw_symbol(part, symbol, theme)


def package(part, package, *, looking="above", theme="dark"):
    """A package of a part, seen from "above", from the "front" or from its right "side"."""
    return _draw_package(part, package, looking, theme)

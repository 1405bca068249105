#!/usr/bin/python3
"""Compares exports to KiCad with the footprints and symbols that parts were made from. scripts/kicad-round-trip runs it.

Footprints are loaded by KiCad itself, through its module pcbnew. The module has no reader of symbols, so that symbols are read here,
as S-expressions. Coordinates are compared to a nanometre, which is the unit of KiCad's boards.
"""
import argparse
import collections
import math
import os
import re
import shutil
import subprocess
import sys

import pcbnew

KICAD = '/usr/share/kicad'

# The differences that are known, with their reasons. "Made" is what makes the parts from KiCad's libraries. What the made part does not
# have cannot come back.
KNOWN = {
    'pad: opening of several layers':
        'made: an opening without copper is drawn on each of its layers, so that it comes back as a pad for each layer',
    'pad: area on a drawing layer':
        'made: a pad without copper on a drawing layer is an area there',
    'pad: stencil with cut corners':
        'made: the stencil of a chip part gets cut corners; the export has the stencil as a pad of its own',
    'pad: mask of a pad of its own shape':
        'made: the mask of such a pad is grown at its anchor only; the export has the mask as a pad of its own',
    'pad: paste of a pad of its own shape':
        'made: the paste of such a pad is grown at its anchor only; the export has the paste as a pad of its own',
    'pad: mask of cut corners':
        'made: the corners of the mask are cut in proportion to its size; the export has the mask as a pad of its own',
    'pad: radius of the corners':
        'made: the radius of a corner is rounded to 0.1 micrometres',
    'pad: rounded rectangle with all corners cut':
        'made: such a pad keeps its cut corners and loses the radius of the others',
    'pad: oval of equal sides':
        'made: an oval as wide as high is a circle',
    'pad: layers of a hole without copper':
        'made: a hole without copper is on no layer; the export keeps copper away on all layers',
    'pad: size of a hole without copper':
        'made: the size of a pad that is not larger than its hole is not kept',
    'pad: number of a hole without copper': 'KiCad gives no number to such a hole, whatever its file says',
    'pad: rounded rectangle without a radius': 'made: a rounded rectangle with a radius of 0 is a rectangle',
    'pad: turn of a circle': 'a circle has no turn',
    'graphics: area without a line around it':
        'made: every polygon is filled',
    'graphics: rectangle without a height': 'made: a rectangle without a width or a height is a line',
    'graphics: layer': 'made: only the layers up to B.Fab are kept',
    'graphics: curve': 'made: curves are left out',
    'graphics: twice': 'made: what is drawn twice in a courtyard is kept once',
    'graphics: polygon of two corners': 'made: a polygon of two corners is a line, and one of one corner is nothing',
    'graphics: opening': 'an area on a mask or in a stencil is a pad',
    'graphics: arc of one point': 'made: an arc that ends where it begins is a point',
    'text: value': "made: the text of a value is the footprint's name, whatever else it says",
    'keep-out: layers': 'made: the layers of a keep-out are not kept; the export keeps it on all copper layers',
    'symbol: hidden names or numbers':
        'the reader takes one child of a label only, so that the part does not say what is hidden',
    'symbol: fill': 'made: a filled circle or rectangle loses its line',
    'symbol: curve': 'made: a curve is a line between its points',
    'symbol: arc that is a line': 'made: an arc whose points lie on a line is a line',
    'symbol: pin that comes twice': 'made: of pins with one number the first one says the type',
    'symbol: point': 'made: a line of one point is nothing',
    'symbol: text': 'made: an empty text is left out',
    'symbol: frame of a unit without a body':
        'made: a gate has a frame around its pins, which is drawn where the gate has no body',
    'symbol: style of a pin': 'made: the mark of a falling edge is that of a clock',
}


# -- S-expressions ------------------------------------------------------------------------------------------------------------------

TOKEN = re.compile(r'"((?:[^"\\]|\\.)*)"|([()])|([^\s()"]+)', re.S)
ESCAPED = re.compile(r'\\(.)', re.S)
BRACED = {'slash': '/', 'backslash': '\\', 'lt': '<', 'gt': '>', 'colon': ':', 'dblquote': '"', 'space': ' ', 'brace': '{',
          'return': '\n', 'tab': '\t'}


def unescape(text):
    text = ESCAPED.sub(lambda m: {'n': '\n', 't': '\t', 'r': '\r'}.get(m.group(1), m.group(1)), text)
    return re.sub(r'\{(\w+)\}', lambda m: BRACED.get(m.group(1), m.group(0)), text)


def parse(text):
    """The first list of a text: lists, and strings for words and texts."""
    stack, current = [], []
    for m in TOKEN.finditer(text):
        kind = m.lastindex
        if kind == 2 and m.group(2) == '(':
            stack.append(current)
            current = []
        elif kind == 2:
            if len(stack) == 1:
                return current
            parent = stack.pop()
            parent.append(current)
            current = parent
        else:
            current.append(unescape(m.group(1)) if kind == 1 else m.group(3))
    raise ValueError('a parenthesis is missing')


def child(node, name):
    return next((x for x in node if isinstance(x, list) and x and x[0] == name), None)


def number(node, name, default=0.0):
    found = child(node, name)
    return float(found[1]) if found and len(found) > 1 else default


# -- footprints ---------------------------------------------------------------------------------------------------------------------

PLUGIN = pcbnew.IO_MGR.PluginFind(pcbnew.IO_MGR.KICAD_SEXP)
COPPER = {pcbnew.F_Cu, pcbnew.B_Cu}
KEPT_LAYERS = {'F.Cu', 'B.Cu', 'F.Adhes', 'B.Adhes', 'F.Paste', 'B.Paste', 'F.SilkS', 'B.SilkS', 'F.Mask', 'B.Mask', 'Dwgs.User',
               'Cmts.User', 'Eco1.User', 'Eco2.User', 'Edge.Cuts', 'Margin', 'F.CrtYd', 'B.CrtYd', 'F.Fab', 'B.Fab'}
LAYER_NAMES = {i: pcbnew.BOARD.GetStandardLayerName(i) for i in range(pcbnew.PCB_LAYER_ID_COUNT)}


def layer_name(layer):
    name = LAYER_NAMES.get(layer, str(layer))
    return {'F.Silkscreen': 'F.SilkS', 'B.Silkscreen': 'B.SilkS', 'F.Courtyard': 'F.CrtYd', 'B.Courtyard': 'B.CrtYd',
            'F.Adhesive': 'F.Adhes', 'B.Adhesive': 'B.Adhes', 'User.Drawings': 'Dwgs.User', 'User.Comments': 'Cmts.User',
            'User.Eco1': 'Eco1.User', 'User.Eco2': 'Eco2.User'}.get(name, name)


def xy(point):
    return (point.x, point.y)


def near(a, b, most=1):
    return len(a) == len(b) and all(abs(p - q) <= most for p, q in zip(a, b))


def layers_of(pad):
    return frozenset(layer_name(l) for l in pad.GetLayerSet().Seq())


def is_opening(pad):
    return pad.GetAttribute() in (pcbnew.PAD_ATTRIB_SMD, pcbnew.PAD_ATTRIB_CONN) and \
        not any(l.endswith('.Cu') for l in layers_of(pad))


def polygon(pad):
    """The area of a pad, as KiCad makes it."""
    return pcbnew.SHAPE_POLY_SET(pad.GetEffectivePolygon())


def difference(a, b):
    """The area that only one of two polygons covers, in square nanometres."""
    area = 0
    for first, second in ((a, b), (b, a)):
        rest = pcbnew.SHAPE_POLY_SET(first)
        rest.BooleanSubtract(second, pcbnew.SHAPE_POLY_SET.PM_FAST)
        area += rest.Area()
    return area


SHAPES = {pcbnew.PAD_SHAPE_CIRCLE: 'circle', pcbnew.PAD_SHAPE_RECT: 'rect', pcbnew.PAD_SHAPE_OVAL: 'oval',
          pcbnew.PAD_SHAPE_TRAPEZOID: 'trapezoid', pcbnew.PAD_SHAPE_ROUNDRECT: 'roundrect',
          pcbnew.PAD_SHAPE_CHAMFERED_RECT: 'chamfered', pcbnew.PAD_SHAPE_CUSTOM: 'custom'}


def bare_hole(pad):
    """True for a hole that is not plated and whose pad is not larger than the hole."""
    return pad.GetAttribute() == pcbnew.PAD_ATTRIB_NPTH and \
        max(xy(pad.GetSize())) <= max(xy(pad.GetDrillSize())) + 1


def radius_of(pad):
    return pad.GetRoundRectRadiusRatio() * min(xy(pad.GetSize()))


def corner_area(a, b):
    """The area at the corners of two pads whose radii differ by rounding; 0 for other pads."""
    if SHAPES[a.GetShape()] not in ('roundrect', 'chamfered') or SHAPES[b.GetShape()] not in ('roundrect', 'chamfered'):
        return 0
    radii = sorted((radius_of(a), radius_of(b)))
    if radii[1] - radii[0] >= 60:
        return 0
    # A corner covers 1 - pi / 4 of the square of its radius less; KiCad makes polygons of the arcs, which adds some.
    return 60 * 60 * 4 + 1.5 * (4 - math.pi) * (radii[1] ** 2 - radii[0] ** 2)


def turn(pad):
    return pad.GetOrientationDegrees() % 360


def compare_pad(say, a, b):
    """Says how a pad of the original and one of the export differ."""
    if bare_hole(a):
        if a.GetNumber() != b.GetNumber():
            say('pad: number of a hole without copper')
        if layers_of(a) != layers_of(b):
            say('pad: layers of a hole without copper')
        if not near(xy(a.GetSize()), xy(b.GetSize())):
            say('pad: size of a hole without copper')
        if not near(xy(a.GetPosition()), xy(b.GetPosition())):
            say('pad: position of a hole %s %s' % (xy(a.GetPosition()), xy(b.GetPosition())))
        if not near(xy(a.GetDrillSize()), xy(b.GetDrillSize())):
            say('pad: drill of a hole %s %s' % (xy(a.GetDrillSize()), xy(b.GetDrillSize())))
        if xy(a.GetDrillSize())[0] != xy(a.GetDrillSize())[1] and abs(turn(a) - turn(b)) > 1e-6:
            say('pad: turn of a slot')
        return
    where = 'of pad "%s"' % a.GetNumber()
    if a.GetNumber() != b.GetNumber():
        say('pad: number %s: "%s"' % (where, b.GetNumber()))
    if a.GetAttribute() != b.GetAttribute():
        say('pad: kind %s' % where)
    if not near(xy(a.GetPosition()), xy(b.GetPosition())):
        say('pad: position %s: %s and %s' % (where, xy(a.GetPosition()), xy(b.GetPosition())))
    if not near(xy(a.GetSize()), xy(b.GetSize())):
        say('pad: size %s: %s and %s' % (where, xy(a.GetSize()), xy(b.GetSize())))
    if not near(xy(a.GetOffset()), xy(b.GetOffset())):
        say('pad: offset %s: %s and %s' % (where, xy(a.GetOffset()), xy(b.GetOffset())))
    if not near(xy(a.GetDrillSize()), xy(b.GetDrillSize())) or \
            (a.GetDrillSize().x and a.GetDrillSize().x != a.GetDrillSize().y and a.GetDrillShape() != b.GetDrillShape()):
        say('pad: drill %s: %s and %s' % (where, xy(a.GetDrillSize()), xy(b.GetDrillSize())))
    if layers_of(a) != layers_of(b):
        only = sorted(layers_of(a) - layers_of(b))
        more = sorted(layers_of(b) - layers_of(a))
        if not more and only and all(l.endswith('.Paste') for l in only):
            say('missing paste', a)
        elif not more and only and all(l.endswith('.Mask') for l in only):
            say('missing mask', a)
        elif not more and only and all(l.endswith(('.Mask', '.Paste')) for l in only):
            say('missing mask', a)
            say('missing paste', a)
        else:
            say('pad: layers %s: %s and %s' % (where, only, more))
    shapes = SHAPES[a.GetShape()], SHAPES[b.GetShape()]
    size = xy(a.GetSize())
    if shapes[0] != shapes[1]:
        if shapes == ('oval', 'circle') and abs(size[0] - size[1]) <= 1:
            say('pad: oval of equal sides')
        elif shapes == ('roundrect', 'rect') and a.GetRoundRectRadiusRatio() * min(size) < 1000:
            say('pad: rounded rectangle without a radius')
        else:
            say('pad: shape %s: %s and %s' % (where, shapes[0], shapes[1]))
    elif shapes[0] == 'roundrect':
        radii = [radius_of(p) for p in (a, b)]
        if abs(radii[0] - radii[1]) > 1:
            say('pad: radius of the corners' if abs(radii[0] - radii[1]) < 60 else 'pad: radius %s: %s' % (where, radii))
    elif shapes[0] == 'chamfered':
        if abs(a.GetChamferRectRatio() - b.GetChamferRectRatio()) > 1e-4 or a.GetChamferPositions() != b.GetChamferPositions():
            say('pad: cut corners %s' % where)
        if a.GetRoundRectRadiusRatio() != b.GetRoundRectRadiusRatio():
            say('pad: rounded rectangle with all corners cut')
    elif shapes[0] == 'trapezoid' and not near(xy(a.GetDelta()), xy(b.GetDelta())):
        say('pad: delta %s: %s and %s' % (where, xy(a.GetDelta()), xy(b.GetDelta())))
    if abs(turn(a) - turn(b)) > 1e-6:
        if 'circle' in shapes and not (a.GetDrillSize().x != a.GetDrillSize().y) and xy(a.GetOffset()) == (0, 0):
            say('pad: turn of a circle')
        else:
            say('pad: turn %s: %s and %s' % (where, turn(a), turn(b)))
    # Each nanometre of a size and of a place counts along the whole outline.
    most = 2 * (size[0] + size[1]) * 3 + corner_area(a, b)
    area = difference(polygon(a), polygon(b))
    if shapes[0] == 'custom':
        box = a.GetBoundingBox()
        most = 4 * (box.GetWidth() + box.GetHeight()) * 3
    if area > most and not (shapes[0] == 'chamfered' and a.GetRoundRectRadiusRatio() > 0):
        say('pad: area %s: %.6f of %.6f square millimetres differ' % (where, area / 1e12, polygon(a).Area() / 1e12))


def openings(pads):
    """Openings without copper, one for each layer."""
    found = collections.defaultdict(list)
    for pad in pads:
        if is_opening(pad):
            for layer in layers_of(pad):
                found[layer].append(pad)
    return found


def compare_openings(say, first, second, missing):
    for layer in sorted(set(first) | set(second)):
        rest = list(second.get(layer, []))
        for pad in first.get(layer, []):
            place = polygon(pad)
            size = pad.GetBoundingBox()
            most = 2 * (size.GetWidth() + size.GetHeight()) * 4
            match = next((o for o in rest if near(xy(o.GetBoundingBox().Centre()), xy(size.Centre()), 3) and
                          difference(place, polygon(o)) <= most + corner_area(pad, o)), None)
            if match:
                rest.remove(match)
                if corner_area(pad, match) and abs(radius_of(pad) - radius_of(match)) > 1:
                    say('pad: radius of the corners')
            else:
                if layer.endswith(('.Mask', '.Paste')):
                    say('pad: opening on %s at %s is missing' % (layer, xy(pad.GetPosition())))
                else:
                    say('pad: area on a drawing layer')
        kind = 'paste' if layer.endswith('.Paste') else 'mask'
        for pad in rest:
            owner = next((p for p in missing[kind] if near(xy(p.GetBoundingBox().Centre()), xy(pad.GetBoundingBox().Centre()), 200000)
                          or p.GetBoundingBox().Intersects(pad.GetBoundingBox())), None)
            if owner is None:
                say('pad: opening on %s at %s is new' % (layer, xy(pad.GetPosition())))
            elif SHAPES[owner.GetShape()] == 'custom':
                say('pad: %s of a pad of its own shape' % kind)
            elif kind == 'paste' and SHAPES[pad.GetShape()] == 'chamfered':
                say('pad: stencil with cut corners')
            elif SHAPES[owner.GetShape()] == 'chamfered':
                say('pad: mask of cut corners')
            else:
                say('pad: opening on %s of pad "%s" is no margin' % (layer, owner.GetNumber()))


def dot(center, size):
    return ('disc', center + (size,), 0)


def drawn(say, footprint):
    """What is drawn: by layer a list of (kind, coordinates, width)."""
    layers = collections.defaultdict(list)
    for item in footprint.GraphicalItems():
        if not isinstance(item, pcbnew.FP_SHAPE):
            continue
        layer, width, shape = layer_name(item.GetLayer()), item.GetWidth(), item.GetShape()
        start, end = xy(item.GetStart()), xy(item.GetEnd())
        if shape == pcbnew.SHAPE_T_SEGMENT:
            entry = dot(start, width / 2) if start == end else ('line', min(start, end) + max(start, end), width)
        elif shape == pcbnew.SHAPE_T_RECT:
            x, y = sorted((start[0], end[0])), sorted((start[1], end[1]))
            filled = item.IsFilled()
            entry = ('area' if filled else 'rect', (x[0], y[0], x[1], y[1]), 0 if filled else width)
            if not filled and (x[0] == x[1]) != (y[0] == y[1]):
                say('graphics: rectangle without a height')
                entry = ('line', (x[0], y[0], x[1], y[1]), width)
        elif shape == pcbnew.SHAPE_T_ARC:
            middle = xy(item.GetArcMid())
            if start == end:
                say('graphics: arc of one point')
                layers[layer].append(dot(start, width / 2))
                continue
            entry = ('arc', min(start, end) + max(start, end) + middle, width)
        elif shape == pcbnew.SHAPE_T_CIRCLE:
            center, radius = xy(item.GetCenter()), item.GetRadius()
            entry = dot(center, radius + width / 2) if item.IsFilled() else ('circle', center + (radius,), width)
        elif shape == pcbnew.SHAPE_T_POLY:
            poly = item.GetPolyShape()
            points = [xy(poly.Outline(0).CPoint(i)) for i in range(poly.Outline(0).PointCount())] if poly.OutlineCount() else []
            if len(points) < 3:
                say('graphics: polygon of two corners')
                continue
            if not item.IsFilled():
                say('graphics: area without a line around it')
            points = [p for i, p in enumerate(points) if p != points[i - 1]]
            first = points.index(min(points))
            points = points[first:] + points[:first]
            if len(points) > 2 and points[1] > points[-1]:
                points = points[:1] + points[:0:-1]
            entry = ('poly', tuple(v for p in points for v in p), width)
        else:
            entry = ('curve', start + end, width)
        layers[layer].append(entry)
    return layers


def same(a, b, most):
    return a[0] == b[0] and near(a[1], b[1], most) and abs(a[2] - b[2]) <= 1


def length_of(entry):
    kind, c, width = entry
    if kind == 'line':
        return math.hypot(c[2] - c[0], c[3] - c[1])
    if kind in ('rect', 'area'):
        return 2 * (c[2] - c[0] + c[3] - c[1])
    if kind in ('circle', 'disc'):
        return 2 * math.pi * c[2]
    if kind == 'arc':
        return math.hypot(c[4] - c[0], c[5] - c[1]) + math.hypot(c[2] - c[4], c[3] - c[5])
    return sum(math.hypot(c[i] - c[i - 2], c[i + 1] - c[i - 1]) for i in range(0, len(c), 2))


def compare_drawn(say, original, export, areas):
    for layer in sorted(set(original) | set(export)):
        if layer not in KEPT_LAYERS:
            say('graphics: layer')
            continue
        rest = collections.defaultdict(list)
        for entry in export.get(layer, []):
            rest[entry[0]].append(entry)
        missing = []
        seen = collections.Counter()
        for entry in original.get(layer, []):
            # An arc's middle and a circle's radius come from other points, so that they are rounded twice.
            most = 1 if entry[0] in ('line', 'rect', 'poly') else 3
            match = next((o for o in rest[entry[0]] if same(entry, o, most)), None)
            seen[entry] += 1
            if match:
                rest[entry[0]].remove(match)
            elif entry[0] == 'curve':
                say('graphics: curve')
            elif seen[entry] > 1:
                say('graphics: twice')
            else:
                missing.append(entry)
        for kind in list(rest):
            for extra in list(rest[kind]):
                # The ends may count twice where one end of a line differs by rounding from that of another.
                twin = next((m for m in missing if m[0] == kind and same(m, extra, 3)), None)
                if twin:
                    say('graphics: place on %s differs by 3 nanometres: %s and %s' % (layer, twin, extra))
                    missing.remove(twin)
                    rest[kind].remove(extra)
        if missing or any(rest.values()):
            extra = [e for entries in rest.values() for e in entries]
            if not missing and layer in areas and all(e[0] in ('poly', 'disc') and e[2] == 0 for e in extra):
                continue
            say('graphics: %s: missing %s (%.3f mm), new %s (%.3f mm)' % (
                layer, missing[:2], sum(map(length_of, missing)) / 1e6, extra[:2], sum(map(length_of, extra)) / 1e6))


def texts_of(footprint):
    found = collections.Counter()
    for item in [footprint.Reference(), footprint.Value()] + list(footprint.GraphicalItems()):
        if not isinstance(item, pcbnew.FP_TEXT):
            continue
        layer = layer_name(item.GetLayer())
        if layer in KEPT_LAYERS and item.GetText().strip():
            found[item.GetType(), item.GetText(), layer, xy(item.GetPosition()), round(item.GetTextAngleDegrees() % 360, 4),
                  (item.GetTextWidth(), item.GetTextHeight()), item.GetHorizJustify(), item.GetVertJustify(), item.IsMirrored(),
                  item.IsVisible()] += 1
    return found


def outline_of(zone):
    return [xy(zone.Outline().Outline(0).CPoint(i)) for i in range(zone.Outline().Outline(0).PointCount())]


def compare_footprints(say, original, export):
    missing = {'paste': [], 'mask': []}

    def say_pad(text, pad=None):
        if text in ('missing paste', 'missing mask'):
            missing[text[8:]].append(pad)
        else:
            say(text)
    first = [p for p in original.Pads() if not is_opening(p)]
    second = [p for p in export.Pads() if not is_opening(p)]
    if len(first) != len(second):
        say('pad: %d and %d pads' % (len(first), len(second)))
    else:
        for a, b in zip(first, second):
            compare_pad(say_pad, a, b)
    if any(len(layers_of(p)) > 1 for p in original.Pads() if is_opening(p)):
        say('pad: opening of several layers')
    compare_openings(say, openings(original.Pads()), openings(export.Pads()), missing)
    areas = {l for l in openings(original.Pads()) if not l.endswith(('.Mask', '.Paste'))}
    compare_drawn(say, drawn(say, original), drawn(lambda text: None, export), areas)
    a, b = texts_of(original), texts_of(export)
    for text in a - b:
        as_made = text[:1] + (original.GetFPID().GetUniStringLibItemName(),) + text[2:]
        if text[0] == pcbnew.FP_TEXT.TEXT_is_VALUE and as_made in b:
            say('text: value')
            b[as_made] -= 1
        else:
            say('text: %s is missing' % (text,))
    for text in b - a:
        say('text: %s is new' % (text,))
    board = pcbnew.CreateEmptyBoard()
    for footprint in (original, export):
        board.Add(footprint)
        footprint.BuildCourtyardCaches()
    for side, layer in (('front', pcbnew.F_CrtYd), ('back', pcbnew.B_CrtYd)):
        areas = [f.GetCourtyard(layer) for f in (original, export)]
        if difference(*areas) > 2e-6 * max(areas[0].Area(), 1):
            say('courtyard: %s: %.9f of %.9f square millimetres differ' % (side, difference(*areas) / 1e12, areas[0].Area() / 1e12))
    zones = [list(f.Zones()) for f in (original, export)]
    if len(zones[0]) != len(zones[1]):
        say('keep-out: %d and %d areas' % (len(zones[0]), len(zones[1])))
    for za, zb in zip(*zones):
        if outline_of(za) != outline_of(zb):
            say('keep-out: outline')
        if za.GetLayerSet().Seq() and layers_of_zone(za) != layers_of_zone(zb):
            say('keep-out: layers')


def layers_of_zone(zone):
    return frozenset(layer_name(l) for l in zone.GetLayerSet().Seq())


# -- symbols ------------------------------------------------------------------------------------------------------------------------

PEN = 0.1524            # what the made parts have where KiCad's symbol takes the width of the schematic
SYMBOLS = {}


def symbol_library(path):
    if path not in SYMBOLS:
        with open(path, encoding='utf-8') as f:
            root = parse(f.read())
        SYMBOLS[path] = {unescape(x[1]): x for x in root if isinstance(x, list) and x[0] == 'symbol'}
    return SYMBOLS[path]


class Symbol:
    """Units with their pins and graphics: by (unit, style), with what is common to units and to styles."""

    def __init__(self, say, library, name):
        node = library[name]
        base = child(node, 'extends')
        body = library[unescape(base[1])] if base else node
        parts = collections.defaultdict(list)
        for x in body:
            if isinstance(x, list) and x[0] == 'symbol':
                m = re.search(r'_(\d+)_(\d+)$', x[1])
                parts[int(m.group(1)), int(m.group(2))] += [g for g in x[2:] if isinstance(g, list)]
        units = sorted({u for u, s in parts if u > 0}) or [1]
        styles = [s for s in (sorted({s for u, s in parts if s > 0}) or [1]) if s < 3]
        self.units = {}
        for u in units:
            for s in styles:
                items = [g for key in ((0, 0), (0, s), (u, 0), (u, s)) for g in parts.get(key, ())]
                self.units[u, s] = ([pin(g) for g in items if g[0] == 'pin'],
                                    [d for g in items if g[0] != 'pin' for d in graphic(say, g)])
        self.properties = {x[1]: x[2] for x in (body + node if base else node) if isinstance(x, list) and x[0] == 'property'}
        self.hides = [bool(child(body, n) and 'hide' in child(body, n)) for n in ('pin_names', 'pin_numbers')]


def nm(value):
    return round(float(value) * 1e6)


def pin(g):
    at = child(g, 'at')
    name = child(g, 'name')[1]
    kind = {'unconnected': 'no_connect'}.get(g[1], g[1])
    return dict(type=kind, style=g[2], x=nm(at[1]), y=nm(at[2]), turn=float(at[3]) % 360, length=nm(number(g, 'length')),
                name='' if name == '~' else name, number=child(g, 'number')[1], hidden='hide' in g)


def points_of(g):
    return [(nm(p[1]), nm(p[2])) for p in child(g, 'pts')[1:]]


def arcs_of(a, m, b):
    """The arc from a point by another one to a third one as (start, middle, end); as two where it is more than half a circle, which is
    how the export has such an arc. None for a line."""
    bx, by, cx, cy = m[0] - a[0], m[1] - a[1], b[0] - a[0], b[1] - a[1]
    d = 2 * (bx * cy - by * cx)
    if abs(d) < 2e3:
        return None
    ux = (cy * (bx * bx + by * by) - by * (cx * cx + cy * cy)) / d
    uy = (bx * (cx * cx + cy * cy) - cx * (bx * bx + by * by)) / d
    x, y, radius = a[0] + ux, a[1] + uy, math.hypot(ux, uy)
    start, end = math.atan2(-uy, -ux), math.atan2(b[1] - y, b[0] - x)
    sweep = (end - start) % (2 * math.pi)
    if d < 0:
        sweep -= 2 * math.pi
    pieces = 2 if abs(sweep) > math.pi + 1e-7 else 1
    points = [(round(x + radius * math.cos(start + sweep * i / 2 / pieces)), round(y + radius * math.sin(start + sweep * i / 2 / pieces)))
              for i in range(2 * pieces + 1)]
    points[0], points[-1] = a, b
    return [points[i:i + 3] for i in range(0, 2 * pieces, 2)]


def graphic(say, g):
    """A graphic as a list of (kind, coordinates, width): lines one by one."""
    kind = g[0]
    if kind not in ('polyline', 'rectangle', 'circle', 'arc', 'bezier', 'text'):
        return []
    stroke, fill = child(g, 'stroke'), child(g, 'fill')
    width = number(stroke, 'width') if stroke else 0
    width = nm(width if width > 0 else PEN)
    filled = fill is not None and child(fill, 'type') is not None and child(fill, 'type')[1] == 'outline'
    if kind == 'rectangle':
        a, b = (tuple(nm(v) for v in child(g, n)[1:3]) for n in ('start', 'end'))
        x, y = sorted((a[0], b[0])), sorted((a[1], b[1]))
        if x[0] == x[1] and y[0] == y[1]:
            say('symbol: point')
            return []
        if (x[0] == x[1]) != (y[0] == y[1]):
            return [('line', (x[0], y[0], x[1], y[1]), width)]
        if filled:
            say('symbol: fill')
        return [('area' if filled else 'rect', (x[0], y[0], x[1], y[1]), 0 if filled else width)]
    if kind == 'circle':
        if filled:
            say('symbol: fill')
        center = tuple(nm(v) for v in child(g, 'center')[1:3])
        return [('disc' if filled else 'circle', center + (nm(number(g, 'radius')),), 0 if filled else width)]
    if kind == 'arc':
        a, m, b = (tuple(nm(v) for v in child(g, n)[1:3]) for n in ('start', 'mid', 'end'))
        arcs = arcs_of(a, m, b)
        if arcs is None:
            say('symbol: arc that is a line')
            return [('line', min(a, b) + max(a, b), width)]
        return [('arc', min(p, r) + max(p, r) + q, width) for p, q, r in arcs]
    if kind == 'text':
        if not g[1].strip():
            say('symbol: text')
            return []
        at = child(g, 'at')
        return [('text ' + g[1], (nm(at[1]), nm(at[2]), round(float(at[3])) % 3600), 0)]
    points = points_of(g)
    if kind == 'bezier':
        say('symbol: curve')
    if len(points) < 2:
        say('symbol: point')
        return []
    if filled and len(points) > 2:
        corners = points[:-1] if points[0] == points[-1] else points
        corners = [p for i, p in enumerate(corners) if p != corners[i - 1]]
        if len(corners) == 2:
            return [('line', min(corners) + max(corners), width)]
        first = corners.index(min(corners))
        corners = corners[first:] + corners[:first]
        if len(corners) > 2 and corners[1] > corners[-1]:
            corners = corners[:1] + corners[:0:-1]
        xs, ys = sorted({p[0] for p in corners}), sorted({p[1] for p in corners})
        if len(corners) == 4 and len(xs) == 2 and len(ys) == 2:
            say('symbol: fill')
            return [('area', (xs[0], ys[0], xs[1], ys[1]), 0)]
        return [('poly', tuple(v for p in corners for v in p), width)]
    return [('line', min(p, q) + max(p, q), width) for p, q in zip(points, points[1:]) if p != q]


def compare_symbols(say, original, export):
    if set(original.units) != set(export.units):
        say('symbol: units %s and %s' % (sorted(original.units), sorted(export.units)))
        return
    seen = {}
    for key in sorted(original.units):
        for p in original.units[key][0]:
            seen.setdefault(p['number'], p['type'])
    for key in sorted(original.units):
        (pins, items), (others, drawn_items) = original.units[key], export.units[key]
        if len(pins) != len(others):
            say('symbol: unit %s has %d and %d pins' % (key, len(pins), len(others)))
            continue
        for a, b in zip(pins, others):
            for field in a:
                if a[field] == b[field]:
                    continue
                if field in ('x', 'y', 'length') and abs(a[field] - b[field]) <= 1:
                    continue
                if field == 'type' and b['type'] == seen[a['number']]:
                    say('symbol: pin that comes twice')
                elif field == 'style' and (a['style'], b['style']) == ('edge_clock_high', 'clock'):
                    say('symbol: style of a pin')
                else:
                    say('symbol: %s of pin "%s": %s and %s' % (field, a['number'], a[field], b[field]))
        rest = list(drawn_items)
        missing = []
        for entry in items:
            match = next((o for o in rest if same(entry, o, 5 if entry[0] == 'arc' else 1)), None)
            if match:
                rest.remove(match)
            else:
                missing.append(entry)
        if not items and len(rest) == 1 and rest[0][0] in ('rect', 'line'):
            say('symbol: frame of a unit without a body')
        elif missing or rest:
            say('symbol: graphics of unit %s: missing %s (%.3f mm), new %s (%.3f mm)' % (
                key, missing[:2], sum(map(length_of, missing)) / 1e6 if not any('text' in m[0] for m in missing) else 0, rest[:2],
                sum(map(length_of, rest)) / 1e6 if not any('text' in m[0] for m in rest) else 0))
    if original.hides != export.hides and any(p for unit in original.units.values() for p in unit[0]):
        say('symbol: hidden names or numbers')
    if original.properties.get('Reference', 'U') != export.properties.get('Reference'):
        say('symbol: reference %s and %s' % (original.properties.get('Reference'), export.properties.get('Reference')))


# -- all of it ----------------------------------------------------------------------------------------------------------------------

ORIGIN = re.compile(rb'// footprint (.*?):(.*?)   symbol (.*?):(.*?)\r?$', re.M)


def compare(say, program, path, work):
    with open(path, 'rb') as f:
        head = f.read(4096)
    m = ORIGIN.search(head)
    if not m:
        say('the file does not say what it was made from')
        return
    library, name, symbol_lib, symbol = (g.decode('cp1252' if b'\xb5' in g and b'\xc2\xb5' not in g else 'utf-8') for g in m.groups())
    place = os.path.join(work, 'out')
    shutil.rmtree(place, ignore_errors=True)
    done = subprocess.run([program, path, '--kicad', os.path.join(place, 'x'), '--models', 'no', '--quiet'], capture_output=True)
    if done.returncode != 0:
        say('export: code %d: %s' % (done.returncode, done.stderr.decode('utf-8', 'replace')[:300]))
        return
    try:
        original = PLUGIN.FootprintLoad('%s/footprints/%s.pretty' % (KICAD, library), name)
        export = PLUGIN.FootprintLoad(os.path.join(place, 'x.pretty'), name)
        if export is None or original is None:
            say('footprint: "%s" is not in the library' % name)
        else:
            compare_footprints(say, original, export)
        for other in sorted(os.listdir(os.path.join(place, 'x.pretty'))):
            if PLUGIN.FootprintLoad(os.path.join(place, 'x.pretty'), other[:-10]) is None:
                say('footprint: "%s" cannot be loaded' % other)
    except OSError as error:
        say('footprint: %s' % error)
    with open(os.path.join(place, 'x.kicad_sym'), encoding='utf-8') as f:
        entries = [x for x in parse(f.read()) if isinstance(x, list) and x[0] == 'symbol']
    if len(entries) != 1:
        say('symbol: %d entries' % len(entries))
    elif symbol_lib != '-':
        library = symbol_library('%s/symbols/%s.kicad_sym' % (KICAD, symbol_lib))
        compare_symbols(say, Symbol(say, library, symbol), Symbol(lambda text: None, {'x': entries[0]}, 'x'))


def main():
    options = argparse.ArgumentParser()
    options.add_argument('--program', required=True)
    options.add_argument('--count', type=int, default=60)
    options.add_argument('--list', action='store_true', help='print the known differences of each file, too')
    options.add_argument('--work', required=True)
    options.add_argument('folder')
    asked = options.parse_args()
    files = sorted(f for f in os.listdir(asked.folder) if f.endswith('.veka'))
    # Spread over the families of the names.
    if len(files) > asked.count:
        files = [files[i * len(files) // asked.count] for i in range(asked.count)]
    equal, made, wrong = 0, 0, 0
    counts, other = collections.Counter(), collections.Counter()
    for file in files:
        found = []
        try:
            compare(lambda text, *rest: found.append(text), os.path.abspath(asked.program), os.path.join(asked.folder, file), asked.work)
        except (ValueError, KeyError, IndexError, TypeError) as error:
            found.append('the comparison failed: %r' % error)
        known = {text for text in found if KNOWN.get(text)}
        unknown = sorted({text for text in found if not KNOWN.get(text)})
        counts.update(known)
        other.update({re.sub(r'[:"].*', '', text[text.find(':') + 1:]).strip() for text in unknown})
        equal += not found
        made += bool(known) and not unknown
        wrong += bool(unknown)
        for text in unknown[:5]:
            print('%s: %s' % (file, text[:400]))
        if asked.list and known:
            print('%s: known: %s' % (file, '; '.join(sorted(known))))
    print('%d parts: %d are equal in everything, %d differ as known, %d differ otherwise' % (len(files), equal, made, wrong))
    width = max([len(text) for text in counts] or [0])
    for text, count in counts.most_common():
        print('%6d  %-*s  %s' % (count, width, text, KNOWN[text]))
    return 1 if wrong or not files else 0


if __name__ == '__main__':
    sys.exit(main())

"""Pictures of records."""

import xml.etree.ElementTree as ElementTree

import pytest
import veka

SVG = "{http://www.w3.org/2000/svg}svg"


@pytest.fixture
def part(examples):
    return veka.read(examples / "op-amp.veka")


def test_a_picture_is_an_svg_file(part):
    pictures = {veka.drawing.footprint(part, part.footprint_db_arr[0]),
                veka.drawing.footprint(part, part.footprint_db_arr[0], theme="light"),
                veka.drawing.footprint(part, part.footprint_db_arr[0], side="bottom"),
                veka.drawing.symbol(part, part.vek.logic_symbols.symbol[0]),
                veka.drawing.package(part, part.vek.packages.package_arr[0]),
                veka.drawing.package(part, part.vek.packages.package_arr[0], looking="front")}
    assert len(pictures) == 6
    for picture in pictures:
        assert isinstance(picture, bytes)
        assert ElementTree.fromstring(picture).tag == SVG


def test_a_picture_shows_what_was_changed(part):
    footprint = part.footprint_db_arr[0]
    before = veka.drawing.footprint(part, footprint)
    footprint.f_pins[0].point.x += 1
    assert veka.drawing.footprint(part, footprint) != before


def test_records_that_belong_to_nothing_are_drawn():
    for draw, record in ((veka.drawing.footprint, veka.FootprintDB(f_pins=[veka.FootprintPin(lib_padstack_name="X")])),
                         (veka.drawing.symbol, veka.Symbol()), (veka.drawing.package, veka.Package())):
        assert ElementTree.fromstring(draw(veka.Manager(), record)).tag == SVG


def test_wrong_arguments_are_refused(part):
    footprint = part.footprint_db_arr[0]
    for arguments in ((part, part), (footprint, footprint), (part, None), (1, 2), (part, part.footprint_db_arr)):
        with pytest.raises(TypeError):
            veka.drawing.footprint(*arguments)
    for options in ({"side": "left"}, {"theme": ""}):
        with pytest.raises(ValueError):
            veka.drawing.footprint(part, footprint, **options)
    with pytest.raises(TypeError):
        veka.drawing.footprint(part, footprint, side=None)
    with pytest.raises(ValueError):
        veka.drawing.package(part, veka.Package(), looking="below")


def test_odd_numbers_are_drawn_or_refused(part):
    footprint = part.footprint_db_arr[0]
    for value in (float("nan"), float("inf"), 1e300, -1e300):
        footprint.f_pins[0].point.x = value
        footprint.f_pins[1].rotation = value
        assert ElementTree.fromstring(veka.drawing.footprint(part, footprint)).tag == SVG

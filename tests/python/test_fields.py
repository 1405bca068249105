"""Reading and writing of fields."""

import gc
import math

import pytest
import veka


def test_numbers():
    bom = veka.BOM()
    bom.cost = 3
    assert bom.cost == 3.0 and isinstance(bom.cost, float)
    bom.cost = math.inf
    assert bom.cost == math.inf
    general = veka.PartGeneral()
    general.number_of_pins = True
    assert general.number_of_pins == 1
    general.number_of_pins = -2**31
    assert general.number_of_pins == -2**31
    lead = veka.USERDEFINED()
    lead.reserved2 = 2**63 - 1
    assert lead.reserved2 == 2**63 - 1
    bar = veka.BAR()
    assert bar.clinch is False
    bar.clinch = 5
    assert bar.clinch is True


@pytest.mark.parametrize("value", [2**31, -2**31 - 1, 10**30, 2**63])
def test_a_number_that_does_not_fit_is_refused(value):
    general = veka.PartGeneral(number_of_pins=7)
    with pytest.raises(OverflowError):
        general.number_of_pins = value
    assert general.number_of_pins == 7


def test_a_number_that_no_float_holds_is_refused():
    with pytest.raises(OverflowError):
        veka.BOM().cost = 10**400


@pytest.mark.parametrize("field, value", [
    ("number_of_pins", 1.0), ("number_of_pins", "1"), ("number_of_pins", None), ("mpn", b"x"), ("mpn", 1), ("mpn", None),
    ("cpn", "text"), ("cpn", [1]), ("cpn", 5), ("cpn", None), ("bom", None), ("bom", veka.Comment()),
    ("comment_arr", 1), ("comment_arr", [veka.BOM()]), ("comment_arr", veka.FontArray([veka.Font()])),
    ("comment_arr", [None]), ("bom", veka.BOM),
])
def test_a_value_of_a_wrong_type_is_refused_and_changes_nothing(field, value):
    general = veka.PartGeneral(number_of_pins=7, mpn="A", cpn=["B"], bom=veka.BOM(cost=1),
                               comment_arr=[veka.Comment(property="C")])
    before = general.to_dict()
    with pytest.raises(TypeError):
        setattr(general, field, value)
    assert general.to_dict() == before


def test_a_field_cannot_be_deleted_and_no_field_added():
    bom = veka.BOM()
    with pytest.raises(TypeError):
        del bom.cost
    with pytest.raises(AttributeError):
        bom.costs = 1


def test_texts_keep_all_bytes():
    part = veka.reads(b'(VEK (PARTGENERAL (MPN "a\xe4\xff\x80z") (MANUFACTURER "\xc3\xa4")))')
    general = part.vek.part_general
    assert general.mpn == "a\udce4\udcff\udc80z"
    assert general.manufacturer == "ä"
    assert general.mpn.encode("utf-8", "surrogateescape") == b"a\xe4\xff\x80z"
    general.manufacturer = general.mpn
    assert general.manufacturer == general.mpn
    general.unit = "a\0b\U0001F600" * 100
    assert general.unit == "a\0b\U0001F600" * 100


@pytest.mark.parametrize("text", ["\ud800", "a\udc00", "\udbff"])
def test_a_surrogate_that_is_no_byte_is_refused(text):
    bom = veka.BOM(unit="A")
    with pytest.raises(UnicodeEncodeError):
        bom.unit = text
    assert bom.unit == "A"


def test_a_record_that_is_assigned_is_copied():
    general = veka.PartGeneral()
    bom = veka.BOM(cost=1)
    inside = general.bom
    general.bom = bom
    assert inside is general.bom and inside.cost == 1
    bom.cost = 2
    assert general.bom.cost == 1
    general.bom = general.bom
    assert general.bom.cost == 1


def test_an_array_takes_any_iterable_of_records():
    general = veka.PartGeneral()
    general.comment_arr = (veka.Comment(property=name) for name in "ab")
    assert [c.property for c in general.comment_arr] == ["a", "b"]
    other = veka.PartGeneral(comment_arr=general.comment_arr)
    assert other.comment_arr == general.comment_arr
    assert other.comment_arr[0] is not general.comment_arr[0]
    general.comment_arr = general.comment_arr
    assert len(general.comment_arr) == 2
    general.comment_arr = reversed(general.comment_arr)
    assert [c.property for c in general.comment_arr] == ["b", "a"]


def test_a_record_is_assigned_from_the_inside_of_what_it_replaces():
    composite = veka.COMPOSITE(elements=[veka.COMPOSITE(elements=[veka.BALL(h=3)])])
    inner = composite.elements[0]
    composite.elements = inner.elements
    assert [type(o).__name__ for o in composite.elements] == ["BALL"]
    assert inner.elements[0].h == 3


def test_lists_of_texts_change_the_record():
    general = veka.PartGeneral(cpn=["a"])
    cpn = general.cpn
    cpn.append("b")
    cpn += ["c"]
    assert general.cpn == ["a", "b", "c"]
    assert general.cpn == veka.PartGeneral(cpn=["a", "b", "c"]).cpn
    assert cpn[-1] == "c" and cpn[1:] == ["b", "c"] and "b" in cpn and 5 not in cpn
    cpn[0] = "x"
    del cpn[1]
    cpn.insert(1, "i")
    assert list(cpn) == ["x", "i", "c"] and len(cpn) == 3
    cpn.sort(reverse=True)
    cpn[1:2] = ["p", "q"]
    assert cpn == ["x", "p", "q", "c"] and cpn.index("q") == 2 and cpn.count("q") == 1
    cpn.remove("q")
    assert cpn.pop() == "c"
    cpn.reverse()
    assert repr(cpn) == "['p', 'x']"
    assert cpn + ["z"] == ["p", "x", "z"]
    assert cpn.copy() == ["p", "x"] and type(cpn.copy()) is list
    cpn.extend(cpn)
    assert general.cpn == ["p", "x", "p", "x"]
    cpn.clear()
    assert general.cpn == [] and general.cpn != ["a"]


def test_a_list_of_texts_refuses_what_is_no_text():
    cpn = veka.PartGeneral(cpn=["a", "b"]).cpn
    for change, error in ((lambda: cpn.append(1), TypeError), (lambda: cpn.extend(["c", None]), TypeError),
                          (lambda: cpn.extend("text"), TypeError), (lambda: cpn.__setitem__(0, 1), TypeError),
                          (lambda: cpn[5], IndexError), (lambda: cpn[-3], IndexError), (lambda: cpn["a"], TypeError),
                          (lambda: cpn[10**30], IndexError), (lambda: cpn.__setitem__(2, "x"), IndexError),
                          (lambda: cpn.__delitem__(2), IndexError), (lambda: cpn.pop(9), IndexError),
                          (lambda: cpn.remove("z"), ValueError), (lambda: cpn.insert("0", "a"), TypeError),
                          (lambda: cpn.__setitem__(slice(0, 2, -1), ["x", "y", "z"]), ValueError)):
        with pytest.raises(error):
            change()
        assert cpn == ["a", "b"]


def test_distinct_names_keep_what_they_are_given():
    stack = veka.PadStack(standardization_pad_names=["a", "b", "a"])
    assert stack.standardization_pad_names == ["a", "b", "a"]
    stack.standardization_pad_names.append("c")
    assert stack.standardization_pad_names == ["a", "b", "a", "c"]


def test_a_list_of_texts_keeps_its_record_alive():
    cpn = veka.PartGeneral(cpn=["a"]).cpn
    gc.collect()
    assert cpn == ["a"]

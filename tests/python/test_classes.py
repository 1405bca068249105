"""Every class and every field."""

import ast
import keyword
import re
from pathlib import Path

import pytest
import veka
from conftest import PROJECT, array_classes, fill, record_classes


def stub_classes():
    """The classes of the stubs with their bases and attributes. The build writes them from the descriptions."""
    tree = ast.parse((Path(veka.__file__).parent / "__init__.pyi").read_text())
    return {node.name: ([ast.unparse(base) for base in node.bases],
                        [item.target.id for item in node.body if isinstance(item, ast.AnnAssign)])
            for node in tree.body if isinstance(node, ast.ClassDef) and not node.name.startswith("_")}


def defined_classes():
    """The classes that the headers of the model define."""
    names = set()
    for header in (PROJECT / "src" / "model").rglob("*.h"):
        text = header.read_text()
        names |= set(re.findall(r"^class (?:VEKA_API )?(CVEKA_\w+)[^;\n]*\{", text, re.M))
        names |= set(re.findall(r"^VEKA_ARRAY\((\w+),", text, re.M))
    return names


def test_every_class_of_the_model_is_a_class_here():
    docs = {c.__doc__.split(".")[0].split(":")[0] for c in record_classes() + array_classes()}
    assert docs == defined_classes()


def test_the_stubs_have_the_same_classes_with_the_same_fields():
    stubs = stub_classes()
    for name in ("Finding", "InvalidAccessError", "Library", "LibraryPart", "Record", "RecordArray", "TextList"):
        del stubs[name]
    assert set(stubs) == {c.__name__ for c in record_classes() + array_classes()}
    for python in record_classes():
        bases, attributes = stubs[python.__name__]
        assert bases == [python.__base__.__name__]
        inherited = list(getattr(python.__base__, "__fields__", {}))
        assert inherited + attributes == list(python.__fields__), python


@pytest.mark.parametrize("python", record_classes(), ids=lambda c: c.__name__)
def test_every_field_is_an_attribute_by_the_rule(python):
    record = python()
    assert python.__module__ == "veka"
    assert python.__name__.isidentifier()
    taken = set()
    for name, field in python.__fields__.items():
        expected = re.sub(r"(?<=[a-z])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", field).lower()
        while expected in taken or keyword.iskeyword(expected) or hasattr(veka.Record, expected):
            expected += "_"
        taken.add(name)
        assert name == expected
        assert name in dir(record)
        getattr(record, name)
        assert getattr(python, name).__doc__
        assert f"\n{name}: " in python.__doc__
    assert len(taken) == len(python.__fields__)
    assert list(record.to_dict()) == list(python.__fields__.values())


@pytest.mark.parametrize("python", record_classes(), ids=lambda c: c.__name__)
def test_every_field_keeps_what_is_written(python):
    record = fill(python())
    expected = {}
    for name in python.__fields__:
        value = getattr(record, name)
        if isinstance(value, bool):
            assert value is True
        elif isinstance(value, (int, float, str, veka.TextList)):
            assert value, f"{name} was not filled"
        expected[name] = value.to_dict() if isinstance(value, veka.Record) else value
    again = python(**{name: getattr(record, name) for name in python.__fields__})
    for name in python.__fields__:
        if not isinstance(getattr(again, name), (veka.Record, veka.RecordArray)):
            assert getattr(again, name) == getattr(record, name), name
    assert record != python()


def test_two_fields_of_one_name_are_told_apart():
    point = veka.PINPOINT(type_=7)
    assert point.type_ == point.to_dict()["TYPE"] == 7
    assert point.type == point.to_dict()["Type"] != 7


def test_objects_are_classes_of_their_own(complete):
    objects = complete.vek.packages.package_arr[0].body_geometry.objects3d
    assert type(objects[0]) is veka.CUBOID
    assert isinstance(objects[0], veka.AxisPivot)
    assert isinstance(objects[0], veka.Object3D)
    assert isinstance(objects[0], veka.Record)
    assert not isinstance(objects[0], veka.RotMirror)
    assert issubclass(veka.BALL, veka.RotMirror)


def test_help_says_what_the_fields_mean():
    assert veka.BOM.cost.__doc__ == "price of one piece"
    assert "cost: float -- price of one piece" in veka.BOM.__doc__


def test_a_record_is_written_as_it_would_be_made():
    assert repr(veka.BOM(unit="EUR", cost=2)) == "veka.BOM(unit='EUR', cost=2.0)"
    assert repr(veka.BOM()) == "veka.BOM()"
    assert repr(veka.PartGeneral(bom=veka.BOM(cost=1), cpn=["a"])) == "veka.PartGeneral(cpn=['a'], bom=...)"
    assert repr(veka.CommentArray()) == "<veka.CommentArray of 0 elements>"
    assert repr(veka.CommentArray([veka.Comment()])) == "<veka.CommentArray of 1 element>"


def test_a_constructor_takes_the_fields_by_name_and_no_others():
    assert veka.Coordinate(x=1, y=2, z=3).to_dict() == {"X": 1, "Y": 2, "Z": 3}
    for wrong in (lambda: veka.Coordinate(1, 2), lambda: veka.Coordinate(u=1), lambda: veka.Coordinate(x="1"),
                  lambda: veka.CommentArray(1), lambda: veka.CommentArray([], []), lambda: veka.CommentArray(x=[])):
        with pytest.raises(TypeError):
            wrong()


def test_the_bases_are_not_made():
    for base in (veka.Record, veka.RecordArray, veka.TextList):
        with pytest.raises(TypeError):
            base()


def test_a_class_of_python_can_be_derived():
    class Costly(veka.BOM):
        def double(self):
            self.cost *= 2

    bom = Costly(cost=2)
    bom.double()
    assert bom.cost == 4
    assert bom == veka.BOM(cost=4)


def test_a_class_derived_from_two_records_reads_no_memory_of_another_class():
    class Both(veka.BOM, veka.PartGeneral):
        pass

    both = Both()
    assert both.cost == 0
    with pytest.raises(TypeError):
        both.mpn
    with pytest.raises(TypeError):
        both.mpn = "X"


def test_the_class_of_a_record_cannot_be_changed():
    bom = veka.BOM()
    with pytest.raises(TypeError):
        bom.__class__ = veka.PartGeneral
    with pytest.raises(TypeError):
        veka.BOM.cost = 1

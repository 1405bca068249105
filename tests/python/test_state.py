"""Whole records: copies, comparisons, dictionaries and pickles."""

import copy
import json
import math
import pickle

import pytest
import veka
from conftest import PROJECT, array_classes, fill, record_classes, run_host

# The classes whose copies lose a field, and those that hold them.
LOSSY = {"MountPin", "MountData", "Packing_ReelInfo", "Packing_Reel", "Packing", "Package", "Packages", "VEK", "Manager"}


@pytest.mark.parametrize("python", record_classes(), ids=lambda c: c.__name__)
def test_a_record_is_copied_pickled_and_compared_whole(python):
    record = fill(python())
    for protocol in range(pickle.HIGHEST_PROTOCOL + 1):
        restored = pickle.loads(pickle.dumps(record, protocol))
        assert type(restored) is python and restored == record
        assert restored.to_dict() == record.to_dict()
    for copied in (copy.copy(record), copy.deepcopy(record)):
        assert type(copied) is python and copied is not record
        assert python.__name__ in LOSSY or copied == record
        again = copy.copy(copied)
        assert again == copied and again.to_dict() == copied.to_dict()
    assert record != python() and not record == python()


@pytest.mark.parametrize("python", array_classes(), ids=lambda c: c.__name__)
def test_an_array_is_copied_pickled_and_compared_whole(python):
    element = vars(veka)[python.__name__[:-len("Array")]]
    array = python([fill(element()), element()])
    restored = pickle.loads(pickle.dumps(array))
    assert type(restored) is python and restored == array and restored.to_list() == array.to_list()
    copied = copy.deepcopy(array)
    assert type(copied) is python and len(copied) == 2 and copied[0] is not array[0]
    assert element.__name__ in LOSSY or copied == array
    assert array != python() and array != python([element(), element()])


def test_the_copy_of_a_mounted_pin_is_blank_as_in_the_library():
    assert copy.copy(veka.MountPin(pin_name="A")) == veka.MountPin()


def test_a_copy_shares_nothing(complete):
    copied = copy.copy(complete)
    assert copied.vek.part_general == complete.vek.part_general
    copied.vek.part_general.bom.cost = 1e9
    assert copied.vek.part_general != complete.vek.part_general


def test_a_list_that_holds_records_is_copied_with_them():
    pair = copy.deepcopy([veka.BOM(cost=1), veka.PartGeneral(cpn=["a"]).cpn])
    assert pair == [veka.BOM(cost=1), ["a"]]


def test_records_of_two_classes_differ():
    assert veka.Coordinate() != veka.Color()
    assert veka.BOM() != 5 and veka.BOM() is not None
    assert veka.BALL() != veka.BAR()
    with pytest.raises(TypeError):
        veka.BOM() < veka.BOM()
    with pytest.raises(TypeError):
        hash(veka.BOM())


def test_a_record_equals_its_copy_where_a_number_is_none():
    bom = veka.BOM(cost=math.nan)
    assert bom == copy.copy(bom)


def printed(host, file):
    return json.loads(run_host(host, file, "--print", "json"))


def test_a_dictionary_agrees_with_what_the_host_program_prints(host, examples):
    files = [*examples.glob("*.veka"), PROJECT / "tests" / "data" / "complete.veka"]
    assert len(files) > 1
    for file in files:
        assert veka.read(file).to_dict() == printed(host, file), file


def test_a_dictionary_agrees_for_odd_texts_and_numbers(host, tmp_path):
    file = tmp_path / "odd.veka"
    file.write_bytes(b'(VEK (PARTGENERAL (MPN "a\xe4\xff\x01\x7f\\ \xf4\x8f\xbe\x80 \xed\xa0\x80 \xc3\xa4 \xf0\x9f\x98\x80")'
                     b' (CPN "\x80" "") (BOM (COST 1e999)) (NUMBEROFPINS 99999999999)))'
                     b'(COLORTABLE (COLOR 1 (1 2 3)))(VEK2)')
    assert veka.read(file).to_dict() == printed(host, file)


def test_a_dictionary_agrees_for_all_numbers():
    values = [0.0, -0.0, 1e300, 5e-324, 0.1, 1e22, 123456789012345678.0, -2.5]
    for value in values:
        assert json.loads(json.dumps(veka.BOM(cost=value).to_dict())) == {"Unit": "", "Cost": value}
    assert veka.BOM(cost=math.inf).to_dict()["Cost"] == "inf"
    assert veka.BOM(cost=-math.inf).to_dict()["Cost"] == "-inf"
    assert veka.BOM(cost=math.nan).to_dict()["Cost"] == "nan"
    assert veka.BAR(clinch=True).to_dict()["CLINCH"] == 1


def test_a_dictionary_names_the_kind_of_each_object(complete):
    objects = complete.vek.packages.package_arr[0].body_geometry.objects3d
    assert objects.to_list()[0]["kind"] == "CUBOID"
    assert "kind" not in objects[0].to_dict()


def test_a_pickle_of_an_odd_record_restores_it():
    general = veka.PartGeneral(mpn="a\udce4", cpn=["\udcff", ""], number_of_pins=-5, bom=veka.BOM(cost=math.nan))
    assert pickle.loads(pickle.dumps(general)) == general
    assert pickle.loads(pickle.dumps(general)).mpn == "a\udce4"


@pytest.mark.parametrize("state", [
    5, None, [], {"BOM": 5}, {"BOM": []}, {"MPN": 1}, {"CPN": "x"}, {"CPN": [1]}, {"NumberOfPins": 1.5},
    {"CommentArr": {}}, {"CommentArr": [5]}, {"CommentArr": [[]]}, {"CommentArr": [("Comment", {})]},
])
def test_a_state_of_a_wrong_form_is_refused(state):
    general = veka.PartGeneral(mpn="A")
    with pytest.raises(TypeError):
        general.__setstate__(state)
    assert general == veka.PartGeneral(mpn="A")


def test_a_state_of_a_wrong_kind_or_number_is_refused():
    for state in ({"Elements": [("NOSUCH", {})]}, {"Elements": [("\ud800", {})]}, {"Elements": [("BOM", {})]}):
        with pytest.raises(ValueError):
            veka.COMPOSITE().__setstate__(state)
    for state in ({"Elements": [{}]}, {"Elements": [(1, {})]}, {"Elements": [("BALL",)]}):
        with pytest.raises(TypeError):
            veka.COMPOSITE().__setstate__(state)
    with pytest.raises(OverflowError):
        veka.PartGeneral().__setstate__({"NumberOfPins": 2**31})


def test_a_state_may_lack_fields_and_have_others():
    general = veka.PartGeneral()
    general.__setstate__({"MPN": "A", "NoSuchField": 5})
    assert general == veka.PartGeneral(mpn="A")


def test_a_state_that_contains_itself_is_refused():
    elements = []
    elements.append(("COMPOSITE", {"Elements": elements}))
    with pytest.raises(ValueError):
        veka.COMPOSITE().__setstate__({"Elements": elements})


def test_only_a_new_record_takes_a_state():
    general = veka.PartGeneral()
    bom = general.bom
    with pytest.raises(TypeError):
        general.__setstate__({})
    with pytest.raises(TypeError):
        bom.__setstate__({})

    class Taking:
        def __index__(self):
            self.array = comments.comment_arr
            return 1

    comments = veka.PartGeneral()
    taking = Taking()
    with pytest.raises(TypeError):
        comments.__setstate__({"NumberOfPins": taking})
    assert len(taking.array) == 0

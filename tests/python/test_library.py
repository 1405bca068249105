"""Libraries of parts and their index."""

import datetime

import pytest
import veka
from conftest import run_host

_host = pytest.importorskip("veka._host", reason="the module was built without the host program")

pytestmark = pytest.mark.skipif(not _host.has_index(), reason="the module was built without SQLite")


def part(number, maker="ACME", pins=2):
    return f'(VEK (PARTGENERAL (MPN "{number}") (MANUFACTURER {maker}) (NUMBEROFPINS {pins}) (CPN C-{number})))'


@pytest.fixture
def store(host, tmp_path):
    """A function that stores parts in a library, and gives the library."""
    folder = tmp_path / "lib"
    folder.mkdir()

    def store(*parts):
        for i, text in enumerate(parts):
            file = tmp_path / f"part{i}.veka"
            file.write_text(text)
            run_host(host, file, "--library", folder, "--overwrite", "yes", "--quiet")
        return veka.Library(folder)

    return store


def test_parts_are_found_by_words_and_conditions(store):
    library = store(part("OPA-1", pins=8), part("OPA-2", "Other", 16), part("R-100"))
    assert [p.number for p in library] == [p.number for p in library.list()] == ["OPA-1", "OPA-2", "R-100"]
    assert [p.number for p in library.find("opa")] == ["OPA-1", "OPA-2"]
    assert [p.number for p in library.find("opa other")] == ["OPA-2"]
    assert [p.number for p in library.find(where="pins>=8")] == ["OPA-1", "OPA-2"]
    assert [p.number for p in library.find("opa", where=["pins>=8", "manufacturer=AC*"])] == ["OPA-1"]
    assert [p.number for p in library.list(sort_by="pins", descending=True)] == ["OPA-2", "OPA-1", "R-100"]
    assert len(library) == 3 and library.find("no such part") == []


def test_a_part_of_the_list_leads_to_its_file(store):
    found = store(part("A/B", pins=3)).find()[0]
    assert isinstance(found, veka.LibraryPart)
    assert (found.number, found.manufacturer, found.pins, found.company_numbers) == ("A/B", "ACME", 3, ("C-A/B",))
    assert veka.read(found.file).vek.part_general.mpn == "A/B"
    assert found.size > 0 and found.errors is None
    assert abs(found.stored - datetime.datetime.now(datetime.timezone.utc)) < datetime.timedelta(minutes=10)


def test_a_part_that_is_stored_later_is_found(store):
    library = store(part("A"))
    assert len(library) == 1
    store(part("A"), part("B"))
    assert [p.number for p in library] == ["A", "B"]


def test_what_cannot_be_understood_is_an_error(store, tmp_path):
    library = store(part("A"))
    with pytest.raises(ValueError, match="the fields are"):
        library.find(where="colour=red")
    with pytest.raises(ValueError, match="none of these"):
        library.find(sort_by="colour")
    for wrong in ({"where": [3]}, {"sort_by": 3}, {"text": 3}):
        with pytest.raises(TypeError):
            library.find(**wrong)
    assert library.find("\udc80") == []
    with pytest.raises(FileNotFoundError):
        veka.Library(tmp_path / "missing")
    with pytest.raises(NotADirectoryError):
        veka.Library(__file__)

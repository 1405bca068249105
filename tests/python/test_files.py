"""Files of other programs that the module writes."""

import threading

import pytest
import veka

_host = pytest.importorskip("veka._host", reason="the module was built without the host program")

solids = pytest.mark.skipif(not _host.has_solids(), reason="the module was built without OpenCASCADE")


@pytest.fixture
def part(examples):
    return veka.read(examples / "op-amp.veka")


@solids
def test_solids_are_written_as_step_and_gltf(part, tmp_path):
    remarks = veka.to_step(part, tmp_path / "part.step")
    assert (tmp_path / "part.step").read_bytes().startswith(b"ISO-10303-21;")
    assert all(isinstance(remark, str) for remark in remarks)
    assert veka.to_gltf(part, str(tmp_path / "part.glb"), folders=tmp_path) == remarks
    assert (tmp_path / "part.glb").read_bytes().startswith(b"glTF")


def test_solids_that_cannot_be_written_leave_nothing(part, tmp_path):
    with pytest.raises((OSError, NotImplementedError)):
        veka.to_step(part, tmp_path / "none" / "part.step")
    with pytest.raises(TypeError):
        veka.to_step("part", tmp_path / "part.step")
    with pytest.raises(TypeError):
        veka.to_step(part, 3)
    with pytest.raises(TypeError):
        veka.to_step(part, tmp_path / "part.step", folders=[3])
    assert list(tmp_path.iterdir()) == []


def test_a_part_is_added_to_libraries_of_kicad(part, tmp_path):
    remarks = veka.to_kicad(part, tmp_path / "parts", models=False)
    symbols = (tmp_path / "parts.kicad_sym").read_text()
    assert '(symbol "OPA-2000-D"' in symbols
    assert (tmp_path / "parts.pretty" / "SO8N.kicad_mod").exists()
    assert not (tmp_path / "parts.3dshapes").exists()
    assert any("pins that no gate has" in remark for remark in remarks)
    # Another part leaves the first one as it is.
    other = veka.Manager()
    other.vek.part_general.mpn = "A/B"
    veka.to_kicad(other, tmp_path / "parts")
    both = (tmp_path / "parts.kicad_sym").read_text()
    assert '(symbol "A=2FB"' in both and '(symbol "OPA-2000-D"' in both


def test_several_parts_are_added_at_once(examples, tmp_path):
    parts = [veka.read(file) for file in sorted(examples.glob("*.veka"))]
    veka.to_kicad((part for part in parts), tmp_path / "parts", models=False)
    symbols = (tmp_path / "parts.kicad_sym").read_text()
    for part in parts:
        assert f'(symbol "{part.vek.part_general.mpn}"' in symbols


@solids
def test_a_library_of_kicad_has_solid_models(part, tmp_path):
    veka.to_kicad(part, tmp_path / "parts")
    assert (tmp_path / "parts.3dshapes" / "SO8.step").exists()
    assert "parts.3dshapes/SO8.step" in (tmp_path / "parts.pretty" / "SO8N.kicad_mod").read_text()


def test_a_part_without_a_number_has_no_place(tmp_path):
    with pytest.raises(ValueError, match="part number"):
        veka.to_kicad(veka.Manager(), tmp_path / "parts")
    with pytest.raises(TypeError):
        veka.to_kicad([veka.BOM()], tmp_path / "parts")
    assert list(tmp_path.iterdir()) == []


def test_a_file_that_is_no_library_is_left_as_it_is(part, tmp_path):
    (tmp_path / "parts.kicad_sym").write_text("something else")
    with pytest.raises(OSError, match="was left as it is"):
        veka.to_kicad(part, tmp_path / "parts", models=False)
    assert (tmp_path / "parts.kicad_sym").read_text() == "something else"
    with pytest.raises(OSError, match="takes no library"):
        veka.to_kicad(part, tmp_path / "a:b")


def test_threads_export_to_one_library(examples, tmp_path):
    def export(name):
        part = veka.read(examples / "op-amp.veka")
        part.vek.part_general.mpn = name
        veka.to_kicad(part, tmp_path / "parts", models=False)

    threads = [threading.Thread(target=export, args=(f"P{i}",)) for i in range(8)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    symbols = (tmp_path / "parts.kicad_sym").read_text()
    assert all(f'(symbol "P{i}"' in symbols for i in range(8))

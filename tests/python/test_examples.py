"""The scripts in python/examples, run as their users run them, and the page docs/python.md."""

import csv
import io
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from base64 import b64decode

import pytest
import veka
from conftest import PROJECT, without_sanitizer

EXAMPLES = PROJECT / "python" / "examples"


def run(script, *arguments):
    return subprocess.run([sys.executable, EXAMPLES / script, *arguments], capture_output=True)


def test_a_table_of_all_parts_of_a_folder(tmp_path, examples):
    (tmp_path / "below").mkdir()
    for file in examples.glob("*.veka"):
        shutil.copy(file, tmp_path / "below")
    (tmp_path / "odd.veka").write_bytes(b'(VEK (PARTGENERAL (MPN "a\xe4,b") (MANUFACTURER "Q")))')
    result = run("parts_table.py", tmp_path)
    assert result.returncode == 0 and result.stderr == b""
    assert b'odd.veka,Q,"a\xe4,b",' in result.stdout
    rows = list(csv.DictReader(io.StringIO(result.stdout.decode(errors="surrogateescape"))))
    assert len(rows) == len(list(examples.glob("*.veka"))) + 1
    amplifier = next(row for row in rows if row["file"] == "op-amp.veka")
    assert amplifier["mpn"] == "OPA-2000-D" and amplifier["pins"] == "8"


def test_a_file_that_cannot_be_read_is_named_and_the_others_are_listed(tmp_path, examples):
    shutil.copy(examples / "op-amp.veka", tmp_path)
    (tmp_path / "dangling.veka").symlink_to("nowhere")
    result = run("parts_table.py", tmp_path)
    assert result.returncode == 1
    assert b"dangling.veka" in result.stderr and b"OPA-2000-D" in result.stdout


def test_pins_whose_padstack_is_missing(tmp_path, examples):
    whole = run("missing_padstacks.py", *examples.glob("*.veka"))
    assert (whole.returncode, whole.stdout, whole.stderr) == (0, b"", b"")
    text = (examples / "op-amp.veka").read_bytes()
    name = veka.reads(text).pad_stack_arr[0].padstack_name
    broken = re.sub(rb'PADSTACKNAME\s+"?' + name.encode() + rb'"?', b"PADSTACKNAME OTHER", text)
    assert broken != text
    (tmp_path / "broken.veka").write_bytes(broken)
    result = run("missing_padstacks.py", tmp_path / "broken.veka")
    assert result.returncode == 1
    lines = result.stdout.decode().splitlines()
    pins = [pin for footprint in veka.reads(text).footprint_db_arr for pin in footprint.f_pins]
    assert len(lines) == sum(pin.lib_padstack_name == name for pin in pins) > 0
    assert all(line.endswith(f"there is no padstack {name!r}") for line in lines)


def test_a_sheet_of_footprint_pictures(tmp_path, examples):
    (tmp_path / "odd.veka").write_bytes(
        b'(VEK (PARTGENERAL (MPN "<\xe4>")))(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME "F&G")))')
    files = [*examples.glob("*.veka"), tmp_path / "odd.veka"]
    result = run("footprint_sheet.py", *files)
    assert (result.returncode, result.stderr) == (0, b"")
    page = result.stdout.decode()
    pictures = re.findall('src="data:image/svg\\+xml;base64,([^"]+)"', page)
    assert len(pictures) == sum(len(veka.read(file).footprint_db_arr) for file in files) > 0
    for picture in pictures:
        ElementTree.fromstring(b64decode(picture))
    assert "OPA-2000-D" in page and "<\ufffd>" not in page


@pytest.mark.parametrize("script", sorted(path.name for path in EXAMPLES.glob("*.py")))
def test_a_wrong_command_line_is_told(script):
    result = run(script)
    assert result.returncode == 2 and result.stderr.startswith(b"usage: " + script.encode())


def test_the_examples_of_the_page_print_what_the_page_says(tmp_path):
    (tmp_path / "examples").symlink_to(PROJECT / "examples")  # a program of the page writes files
    page = (PROJECT / "docs" / "python.md").read_text()
    parts = re.findall(r"```python\n(.*?)```\n\nThis prints:\n\n((?:    [^\n]*\n)+)", page, re.S)
    assert len(parts) == 3
    for program, printed in parts:
        program = program if "import veka" in program else "import veka\n" + program
        result = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True, cwd=tmp_path)
        assert result.stdout == re.sub("^    ", "", printed, flags=re.M)


def test_the_examples_and_the_stubs_pass_the_type_checker(tmp_path):
    if subprocess.run([sys.executable, "-c", "import mypy"], capture_output=True).returncode != 0:
        pytest.skip("mypy is not installed")
    wrong = tmp_path / "wrong.py"
    wrong.write_text("import veka\n"
                     "bom = veka.BOM(cost='1')\n"
                     "bom.unit = 1\n"
                     "bom.costs\n"
                     "veka.CommentArray([bom])\n"
                     "veka.PartGeneral().cpn = ['a']\n"
                     "veka.PartGeneral().cpn = [1]\n"
                     "veka.PartGeneral().comment_arr = [veka.Comment()]\n"
                     "veka.read(5)\n"
                     "veka.Library('x').find(3)\n"
                     "veka.to_kicad(bom, 'x')\n"
                     "veka.Library('x').list()[0].footprints.sort()\n"
                     "veka.to_kicad([veka.read(p.file) for p in veka.Library('x')], b'x', models=False)\n")

    def check(*files):
        return subprocess.run([sys.executable, "-m", "mypy", "--strict", f"--cache-dir={tmp_path}", *files],
                              capture_output=True, text=True, env=without_sanitizer())

    right = check(*EXAMPLES.glob("*.py"))
    assert right.returncode == 0, right.stdout + right.stderr
    found = re.findall(r"wrong.py:(\d+): error", check(wrong).stdout)
    assert sorted(set(found), key=int) == ["2", "3", "4", "5", "7", "9", "10", "11", "12"]

"""The findings of an import."""

import pytest
import veka


def test_a_file_with_mistakes_has_findings(tmp_path):
    file = tmp_path / "wrong.veka"
    file.write_bytes(b'(VEK\n (PARTGENERAL (MPN "A") (NOSUCH 1) (NUMBEROFPINS 3x)))\n')
    findings = veka.check(file)
    assert findings and findings == veka.check(str(file)) == veka.checks(file.read_bytes())
    finding = next(f for f in findings if "NOSUCH" in f.text)
    assert isinstance(finding, veka.Finding)
    assert finding.line == 2 and finding.column > 1
    assert finding.code.startswith("VEKA-") and finding.severity in ("error", "warning", "note")
    assert finding.kind == "not-read" and "PARTGENERAL" in finding.path and finding.sentence
    assert [(f.line, f.column) for f in findings] == sorted((f.line, f.column) for f in findings)


def test_a_file_without_mistakes_has_no_findings(examples):
    assert veka.check(examples / "ball-grid.veka") == []


def test_texts_of_any_bytes_are_told():
    findings = veka.checks(b'(VEK (\xff\xe4 "\x80"))')
    assert findings and all(isinstance(f.text, str) for f in findings)


def test_a_file_that_cannot_be_opened_is_an_os_error(tmp_path):
    with pytest.raises(FileNotFoundError):
        veka.check(tmp_path / "missing")
    with pytest.raises(TypeError):
        veka.checks("text")
    with pytest.raises(TypeError):
        veka.check(None)

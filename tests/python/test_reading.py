"""Reading of files and bytes."""

import errno
import os
import signal
import subprocess
import sys
import threading

import pytest
import veka


def test_a_path_can_have_each_form(examples):
    path = examples / "op-amp.veka"
    expected = veka.read(path)
    assert expected.vek.part_general.mpn == "OPA-2000-D"
    assert veka.read(str(path)) == expected
    assert veka.read(os.fsencode(path)) == expected
    assert veka.reads(path.read_bytes()) == expected
    assert veka.reads(bytearray(path.read_bytes())) == expected
    assert veka.reads(memoryview(path.read_bytes())) == expected
    assert veka.reads(memoryview(path.read_bytes() * 2)[::2]) != expected
    assert type(expected) is veka.Manager


def test_a_name_of_any_bytes_is_read(tmp_path):
    name = os.fsencode(tmp_path) + b"/\xff\xe4.veka"
    with open(name, "wb") as file:
        file.write(b'(VEK (PARTGENERAL (MPN "A")))')
    assert veka.read(name).vek.part_general.mpn == "A"
    assert veka.read(os.fsdecode(name)).vek.part_general.mpn == "A"


def test_a_file_that_cannot_be_opened_is_an_os_error(tmp_path):
    with pytest.raises(FileNotFoundError) as caught:
        veka.read(tmp_path / "missing.veka")
    assert caught.value.errno == errno.ENOENT
    assert os.fspath(caught.value.filename) == str(tmp_path / "missing.veka")
    with pytest.raises(IsADirectoryError):
        veka.read(tmp_path)
    with pytest.raises(NotADirectoryError):
        (tmp_path / "file").touch()
        veka.read(tmp_path / "file" / "x")
    with pytest.raises(OSError) as caught:
        veka.read("x" * 5000)
    assert caught.value.errno == errno.ENAMETOOLONG
    with pytest.raises(FileNotFoundError):
        veka.read("")


@pytest.mark.skipif(os.geteuid() == 0, reason="root may open every file")
def test_a_file_that_may_not_be_opened_is_a_permission_error(tmp_path):
    (tmp_path / "x").touch(mode=0)
    with pytest.raises(PermissionError):
        veka.read(tmp_path / "x")


def test_a_file_that_cannot_be_read_is_an_os_error():
    if not os.path.exists("/proc/self/mem"):
        pytest.skip("this system has no file that can be opened and not read")
    with pytest.raises(OSError) as caught:
        veka.read("/proc/self/mem")
    assert caught.value.errno == errno.EIO


@pytest.mark.parametrize("path", [5, None, 1.5, [], object(), b"a\0b", "a\0b"])
def test_what_is_no_path_is_refused(path):
    with pytest.raises((TypeError, ValueError)):
        veka.read(path)


@pytest.mark.parametrize("data", ["text", 5, None, [1, 2]])
def test_what_is_no_bytes_is_refused(data):
    with pytest.raises(TypeError):
        veka.reads(data)


@pytest.mark.parametrize("data", [b"", b"\0", b"(" * 1000, b")))", b"(VEK", b'(VEK "', b"\xff" * 100, b"no part"])
def test_bad_input_is_no_error(data):
    assert isinstance(veka.reads(data), veka.Manager)


def test_a_level_that_lacks_a_child_is_an_invalid_access():
    labels = "(PROPLABEL (PROPERTY A)) (PROPLABEL (PROPERTY B)) (PROPLABEL (PROPERTY C))"
    with pytest.raises(veka.InvalidAccessError) as caught:
        veka.reads(f"(VEK (LOGICSYMBOLS (SYMBOL S (PARTITION P (PROPERTYLABELS {labels})))))".encode())
    assert isinstance(caught.value, ValueError)
    assert str(caught.value) == 'The level "PROPLABEL" has no child at position 1.'


def test_memory_that_ends_is_a_memory_error(tmp_path):
    resource = pytest.importorskip("resource")
    if "VEKA_SANITIZED" in os.environ:
        pytest.skip("a sanitizer needs more address space than a limit leaves")
    script = tmp_path / "script.py"
    script.write_text(f"""
import resource, veka
text = b'(VEK (PARTGENERAL (CPN ' + b'"{"x" * 50}" ' * 2_000_000 + b')))'
used = int(open('/proc/self/statm').read().split()[0]) * resource.getpagesize()
resource.setrlimit(resource.RLIMIT_AS, (used + 30_000_000, -1))
try:
    veka.reads(text)
except MemoryError:
    print('memory')
""")
    result = subprocess.run([sys.executable, script], capture_output=True, text=True, check=True)
    assert result.stdout == "memory\n"


def test_two_threads_read_side_by_side(tmp_path):
    """Each reads a pipe, and the pipe that was opened last is written first: neither waits for the other."""
    pipes = [tmp_path / name for name in "ab"]
    parts = {}

    def read(pipe):
        parts[pipe.name] = veka.read(pipe).vek.part_general.mpn

    threads = []
    for pipe in pipes:
        os.mkfifo(pipe)
        threads.append(threading.Thread(target=read, args=[pipe], daemon=True))
        threads[-1].start()
    for pipe in reversed(pipes):
        with open(pipe, "wb") as file:
            file.write(f'(VEK (PARTGENERAL (MPN "{pipe.name}")))'.encode())
    for thread in threads:
        thread.join(timeout=60)
    assert parts == {"a": "a", "b": "b"}


def test_the_user_can_interrupt_the_reading_of_a_file(tmp_path):
    pipe = tmp_path / "pipe"
    os.mkfifo(pipe)
    process = subprocess.Popen([sys.executable, "-c", f"import veka; veka.read({str(pipe)!r})"],
                               stderr=subprocess.PIPE, text=True)
    with pytest.raises(BrokenPipeError), open(pipe, "wb", buffering=0) as file:
        file.write(b"(VEK ")
        process.send_signal(signal.SIGINT)
        while True:
            file.write(b"(NOSUCH text)\n" * 100)
    _, err = process.communicate(timeout=60)
    assert "KeyboardInterrupt" in err

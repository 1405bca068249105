"""What the tests of the module share. The build says where things are, by variables of the environment."""

import os
import subprocess
from pathlib import Path

import pytest

import veka

PROJECT = Path(__file__).resolve().parents[2]


@pytest.fixture
def examples():
    return PROJECT / "examples"


@pytest.fixture
def complete():
    """A part that has a value in every field that a file can set."""
    return veka.read(PROJECT / "tests" / "data" / "complete.veka")


@pytest.fixture
def host():
    """The host program."""
    program = os.environ.get("VEKA_HOST_PROGRAM", "")
    if not os.path.exists(program):
        pytest.skip("the host program is not built")
    return program


def without_sanitizer():
    """The environment for a program that does not load the module: without the sanitizer's library of this process."""
    return {name: value for name, value in os.environ.items() if name not in ("LD_PRELOAD", "PYTHONMALLOC")}


def run_host(host, *arguments):
    """Runs the host program; returns what it printed."""
    return subprocess.run([host, *arguments], capture_output=True, check=True, env=without_sanitizer()).stdout


@pytest.fixture
def corpus():
    """The files of real parts, which are beside the project on the machines that have them."""
    folder = PROJECT.parent / "shared" / "corpus"
    files = sorted(folder.rglob("*.veka"))
    if not files:
        pytest.skip("there is no corpus beside the project")
    return files


def record_classes():
    return [c for c in vars(veka).values()
            if isinstance(c, type) and issubclass(c, veka.Record) and c is not veka.Record]


def array_classes():
    return [c for c in vars(veka).values()
            if isinstance(c, type) and issubclass(c, veka.RecordArray) and c is not veka.RecordArray]


def fill(record, seed=None):
    """Gives every field of a record a value of its own, and every array two elements."""
    seed = seed if seed is not None else iter(range(1, 10**9))
    for name in type(record).__fields__:
        value = getattr(record, name)
        if isinstance(value, bool):
            setattr(record, name, True)
        elif isinstance(value, (int, float)):
            setattr(record, name, type(value)(next(seed)))
        elif isinstance(value, str):
            setattr(record, name, f"text {next(seed)}")
        elif isinstance(value, veka.TextList):
            setattr(record, name, [f"entry {next(seed)}", f"entry {next(seed)}"])
        elif isinstance(value, veka.Record):
            fill(value, seed)
        else:
            for _ in range(2):
                element = ELEMENTS[type(value)]()
                if not isinstance(element, veka.Object3D):
                    fill(element, seed)
                value.append(element)
    return record


ELEMENTS = {array: vars(veka)[array.__name__[:-len("Array")]] for array in array_classes()}

"""Measures the module: python_module.py IMPORT_FILES FOLDER

Reads the files of a folder and builds the dictionary of each, and loads the same content as JSON; reads the files alone, and
lets the program IMPORT_FILES import them. Each is done in turns, and the fastest time of each counts.
"""

import json
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import veka

ROUNDS = 5


def seconds(work):
    start = time.perf_counter()
    work()
    return time.perf_counter() - start


def main(program, folder):
    files = sorted(Path(folder).rglob("*.veka"))[:1000]
    with tempfile.TemporaryDirectory() as beside:
        jsons = []
        for number, file in enumerate(files):
            jsons.append(Path(beside) / f"{number}.json")
            jsons[-1].write_text(json.dumps(veka.read(file).to_dict(), separators=(",", ":"), ensure_ascii=False))
        size = sum(file.stat().st_size for file in files)
        print(f"{len(files)} files, {size / 1e6:.1f} MB; as JSON {sum(j.stat().st_size for j in jsons) / 1e6:.1f} MB")

        def dictionaries():
            for file in files:
                veka.read(file).to_dict()

        def load():
            for file in jsons:
                with open(file, encoding="utf-8") as text:
                    json.load(text)

        def read():
            for file in files:
                veka.read(file)

        def imports():
            result = subprocess.run([program, *map(str, files)], capture_output=True, text=True, check=True)
            return float(result.stdout)

        best = {}
        for _ in range(ROUNDS):
            for name, took in (("read and to_dict()", seconds(dictionaries)), ("json.load", seconds(load)),
                               ("read", seconds(read)), ("import in C++", imports())):
                best[name] = min(took, best.get(name, took))
    for name, took in best.items():
        print(f"{name:20} {took * 1000:8.1f} ms")
    print(f"read and to_dict() takes {best['read and to_dict()'] / best['json.load']:.2f} times json.load (at most 2)")
    print(f"read takes {best['read'] / best['import in C++']:.2f} times the import in C++ (at most 1.3)")


if __name__ == "__main__":
    main(*sys.argv[1:])

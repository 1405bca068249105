"""Sums up clang's coverage of src/: coverage-report.py LCOV JSON

A line or branch of a template counts as run where any of its instances ran it.
"""

import collections
import json
import os
import sys

MINIMUM_OF_BRANCHES = 95.0


def in_source(path):
    """The path below the project, or None for what is not in src/."""
    relative = os.path.relpath(os.path.realpath(path))
    return relative if relative.startswith("src/") else None


def read_lines(path):
    lines = collections.defaultdict(lambda: collections.defaultdict(int))
    name = None
    with open(path) as file:
        for row in file:
            if row.startswith("SF:"):
                name = in_source(row[3:].strip())
            elif name and row.startswith("DA:"):
                number, count = row[3:].split(",")[:2]
                lines[name][int(number)] += int(count)
    return lines


def read_branches(path):
    branches = collections.defaultdict(lambda: collections.defaultdict(lambda: [0, 0]))
    with open(path) as file:
        for entry in json.load(file)["data"][0]["files"]:
            name = in_source(entry["filename"])
            if not name:
                continue
            for branch in entry["branches"]:
                taken = branches[name][tuple(branch[:2])]
                taken[0] += branch[4]
                taken[1] += branch[5]
    return branches


def read_exceptions():
    """Returns for each file the texts of the lines that no test runs. A reason is in the line above them."""
    exceptions = collections.defaultdict(set)
    path = os.path.join(os.path.dirname(__file__), "coverage-exceptions.txt")
    with open(path) as file:
        for row in file:
            row = row.strip()
            if row and not row.startswith("#"):
                name, line = row.split(": ", 1)
                exceptions[name].add(line)
    return exceptions


def main():
    lines, branches, exceptions = read_lines(sys.argv[1]), read_branches(sys.argv[2]), read_exceptions()
    missed, excepted, all_lines, all_sides, missed_sides = [], 0, 0, 0, []
    for name in sorted(lines):
        with open(name, errors="replace") as file:
            text = [row.strip() for row in file]
        for number, count in sorted(lines[name].items()):
            all_lines += 1
            if count:
                continue
            if text[number - 1] in exceptions[name]:
                excepted += 1
            else:
                missed.append(f"{name}:{number}: never run: {text[number - 1]}")
        for (number, column), taken in sorted(branches[name].items()):
            all_sides += 2
            for side, count in zip(("true", "false"), taken):
                # What the compiler chooses has no other side.
                if not count and "if constexpr" not in text[number - 1] and text[number - 1] not in exceptions[name]:
                    missed_sides.append(f"{name}:{number}:{column}: never {side}: {text[number - 1]}")
    covered = 100.0 * (1 - len(missed_sides) / all_sides)
    print("\n".join(missed_sides + missed))
    print(f"lines: {all_lines} in all, {excepted} excepted, {len(missed)} never run")
    print(f"branches: {all_sides} sides in all, {len(missed_sides)} never taken: {covered:.1f} % covered")
    return 1 if missed or covered < MINIMUM_OF_BRANCHES else 0


sys.exit(main())

"""Combines the sources of each target of a build into one file, for tools that read all headers again for each file.

combine-sources.py BUILD OUTPUT FOLDER...: writes into OUTPUT one file for each target of BUILD that has sources in the folders
of the project, beside it TARGET.sources with the paths of these sources, and a compile_commands.json for all of them. Prints the
paths of the combined files."""

import json
import pathlib
import re
import sys


def main():
    build, output, folders = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3:]
    project = pathlib.Path.cwd()
    targets = {}
    for entry in json.loads(pathlib.Path(build, "compile_commands.json").read_text()):
        target = re.search(r"/([\w-]+)\.dir/", entry["command"]).group(1)
        # On some systems a room is compiled once more, with other options, for programs that use the library's file.
        if target.endswith("_importing"):
            continue
        path = pathlib.Path(entry["file"])
        if any((project / folder) in path.parents for folder in folders):
            targets.setdefault(target, {}).setdefault(str(path), entry)
    output.mkdir(parents=True, exist_ok=True)
    commands = []
    for target, entries in sorted(targets.items()):
        combined = output.resolve() / f"{target}.cpp"
        # Copied and not included: some checks look only at the main file.
        combined.write_text("".join(pathlib.Path(path).read_text() for path in sorted(entries)))
        (output / f"{target}.sources").write_text("".join(path + "\n" for path in sorted(entries)))
        path, first = next(iter(entries.items()))
        commands.append({"directory": first["directory"], "file": str(combined),
                         "command": first["command"].replace(path, str(combined))})
        commands.extend(entries.values())
        print(combined)
    (output / "compile_commands.json").write_text(json.dumps(commands))


main()

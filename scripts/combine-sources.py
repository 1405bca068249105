"""Combines the sources of each target of a build into few files, for tools and compilers that read all headers again for each
file.

combine-sources.py BUILD OUTPUT FOLDER...: writes into OUTPUT the files TARGET.1.cpp, TARGET.2.cpp ... for each target of BUILD
that has sources in the folders of the project, beside each the file TARGET.1.sources with the paths of these sources, and a
compile_commands.json for all of them. Sources that use the same name for things of their own are kept apart. Prints the paths
of the combined files.

combine-sources.py --groups LIST: LIST has a line KEY|PATH for each source. Prints PATH|NUMBER for each. Sources of one key and
of one number can be compiled together."""

import json
import pathlib
import re
import sys


def own_names(text):
    """The names that a source declares for itself alone, in its namespace without a name."""
    names = set()
    for block in re.findall(r"^namespace \{$(.*?)^\}  // namespace$", text, re.MULTILINE | re.DOTALL):
        for line in re.findall(r"^[A-Za-z\[].*", block, re.MULTILINE):
            test = re.match(r"TEST(?:_F)?\((\w+), (\w+)\)", line)
            found = re.search(r"^(?:struct|class|enum class|enum) (\w+)|^using (\w+) =|(\w+)(?:\(|\{| =(?: |$)|\[|;)", line)
            if test:
                names.add(f"{test.group(1)}_{test.group(2)}_Test")
            elif found and not line.startswith("using namespace") and not re.match(r"using [\w:]+;", line):
                names.add(found.group(1) or found.group(2) or found.group(3))
                names.update(re.findall(r", (\w+) = ", line))
        for members in re.findall(r"^enum \{(.*?)\}", block, re.MULTILINE | re.DOTALL):
            names.update(re.findall(r"\w+", members))
    return names


def groups_of(paths):
    """Sources that can be together in one file: none declares a name that another declares, or a function or type that another
    names, which can be one of a header. What `using enum` declares is not known here, so such a source is alone."""
    groups, alone = [], []
    for path in paths:
        text = pathlib.Path(path).read_text()
        if "using enum" in text:
            alone.append([path])
            continue
        own, words = own_names(text), set(re.findall(r"\w+", text))
        strict = {name for name in own if name[0].isupper()}
        for group in groups:
            if own.isdisjoint(group["own"]) and strict.isdisjoint(group["words"]) and words.isdisjoint(group["strict"]):
                break
        else:
            group = {"paths": [], "own": set(), "strict": set(), "words": set()}
            groups.append(group)
        group["paths"].append(path)
        group["own"] |= own
        group["strict"] |= strict
        group["words"] |= words
    return [group["paths"] for group in groups] + alone


def print_groups(listed):
    sources = {}
    for line in pathlib.Path(listed).read_text().splitlines():
        key, path = line.rsplit("|", 1)
        sources.setdefault(key, []).append(path)
    for paths in sources.values():
        for number, group in enumerate(groups_of(sorted(paths)), start=1):
            for path in group:
                print(f"{path}|{number}")


def combine():
    build, output, folders = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3:]
    project = pathlib.Path.cwd()
    targets = {}
    for entry in json.loads(pathlib.Path(build, "compile_commands.json").read_text()):
        target = re.search(r"/([\w-]+)\.dir/", entry["command"]).group(1)
        # On some systems a room is compiled once more, with other options, for programs that use the library's file.
        if target.endswith("_importing"):
            continue
        path = pathlib.Path(entry["file"])
        if path.suffix == ".cpp" and any((project / folder) in path.parents for folder in folders):
            targets.setdefault(target, {}).setdefault(str(path), entry)
    output.mkdir(parents=True, exist_ok=True)
    commands = []
    for target, entries in sorted(targets.items()):
        for number, paths in enumerate(groups_of(sorted(entries)), start=1):
            combined = output.resolve() / f"{target}.{number}.cpp"
            # Copied and not included: some checks look only at the main file.
            combined.write_text("".join(pathlib.Path(path).read_text() for path in paths))
            combined.with_suffix(".sources").write_text("".join(path + "\n" for path in paths))
            first = entries[paths[0]]
            commands.append({"directory": first["directory"], "file": str(combined),
                             "command": first["command"].replace(paths[0], str(combined))})
            print(combined)
        commands.extend(entries.values())
    (output / "compile_commands.json").write_text(json.dumps(commands))


if sys.argv[1] == "--groups":
    print_groups(sys.argv[2])
else:
    combine()

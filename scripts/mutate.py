"""Compiles changed copies of source files and headers into the tests: mutate.py NUMBER (0 for all) [FILE...]

A change flips a comparison, a logical operator, a constant or a step, drops a statement, swaps two arguments, or makes a row of
the parser wrong: another form, keyword or field, another order, no row. A change counts as noticed where a test fails, does not end
or leaks memory, or where the sanitizers see undefined behaviour in the changed copy, as they do in `./test`. A change that does not
compile or link does not count, nor does one that `UNNOTICEABLE` lists.
"""

import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile

BUILD = "build/mutants"
# Tables of rows have no memory of their own, and the sanitizers would double their time to compile.
UNSANITIZED = "src/parser/"
SANITIZE = ["-fsanitize=address,undefined", "-fno-sanitize-recover=undefined", "-D_GLIBCXX_ASSERTIONS"]
ENVIRONMENT = {
    **os.environ,
    "ASAN_OPTIONS": "detect_leaks=1:allocator_may_return_null=1:hard_rss_limit_mb=4096",
    "LSAN_OPTIONS": f"suppressions={os.path.abspath('tests/leaks-of-others.txt')}:print_suppressions=0",
}
# The page of keywords tells which value a row takes, and the report which values a row loses.
PARSER = {"test_tools": "Keywords*", "test_report": "ImportReport*", "test_parser": "*"}
# Each file with the programs and tests that are there for it.
FILES = {
    "src/leveltree/LevelReader.cpp": {"test_leveltree": "LevelReader*", "test_parser": "CVEK_AsciiParser*:CompleteFile.Gives*:Import.*"},
    "src/leveltree/CECadCls.cpp": {"test_leveltree": "CECadCls*", "test_parser": "CVEK_AsciiParser*:CompleteFile.Gives*:Import.*"},
    "src/leveltree/QuoteLookAhead.cpp": {"test_leveltree": "QuoteLookAhead*:LevelReader*"},
    "src/platform/CStringArray.cpp": {"test_platform": "CStringArray*"},
    "src/dialog/CVEK_AsciiFile_Import_Dlg.cpp": {"test_dialog": "*"},
    "src/dialog/ImportDialogTemplate.cpp": {"test_dialog": "*"},
    "src/parser/CVEK_AsciiParser.cpp": {"test_parser": "*"},
    "src/parser/part.cpp": PARSER,
    "src/parser/electrical.cpp": PARSER,
    "src/parser/package.cpp": PARSER,
    "src/parser/mountdata.cpp": PARSER,
    "src/parser/logic.cpp": PARSER,
    "src/parser/library.cpp": PARSER,
    "src/parser/objects.cpp": PARSER,
    "src/parser/values.cpp": PARSER,
    "solids/bridge/AddNewShape.cpp": {"test_solids": "AddNewShape*:MakeDrawObjArray*"},
}
# Each header with the sources of tests that are compiled with its changed copy.
HEADERS = {
    "src/platform/CArray.h": ["tests/platform/CArrayTest.cpp", "tests/platform/CExPtrArrayTest.cpp"],
    "src/platform/CExPtrArray.h": ["tests/platform/CExPtrArrayTest.cpp"],
    "src/platform/CStringArray.h": ["tests/platform/CStringArrayTest.cpp"],
}
FILES.update({header: {"test_platform": "*Array*:Owned*"} for header in HEADERS})
MINIMUM = 95.0
# Changes that no test can notice: the file, what is changed on a line, into what, and why nothing differs that a test could see.
UNNOTICEABLE = [
    ("src/leveltree/LevelReader.cpp", "(size <= CString::kMaximumInside)", "(size < CString::kMaximumInside)",
     "Keep makes the same string of a text of this length"),
    ("src/leveltree/LevelReader.cpp", "specialBytes = specials;", "", "the next search finds its place in the block anew"),
    ("src/leveltree/LevelReader.cpp", "Allocate<char>(text.size() + 1)", "Allocate<char>(text.size() + 2)",
     "a byte more is not used"),
    ("src/leveltree/LevelReader.cpp", "text.size() > static_cast", "text.size() >= static_cast",
     "so long a text would take 2 GB"),
    ("src/leveltree/QuoteLookAhead.cpp", "m_steps < m_limit) FindFirst", "m_steps <= m_limit) FindFirst",
     "the search looks at the limit itself"),
    ("src/leveltree/QuoteLookAhead.cpp", "while (m_position < m_string", "while (m_position <= m_string",
     "there the chunk finds itself, which ends the search"),
    ("src/leveltree/QuoteLookAhead.cpp", "&& m_steps < m_limit) {", "&& m_steps <= m_limit) {",
     "the caller looks at the limit again"),
    ("src/leveltree/QuoteLookAhead.cpp", "m_string - m_position - 1", "m_string - m_position - 2",
     "a chunk that ends with a backslash and a quote does not occur one byte before itself"),
    ("src/platform/CStringArray.cpp", "other.m_size > m_capacity", "other.m_size >= m_capacity",
     "the texts are the same in the old room and in new room"),
    ("src/platform/CStringArray.cpp", "m_size > other.m_size", "m_size >= other.m_size",
     "where the sizes are equal, no text ends and none is made"),
    ("src/platform/CStringArray.cpp", "(size > m_capacity", "(size >= m_capacity",
     "the texts are the same in the old room and in new room"),
    ("src/platform/CStringArray.cpp", "number > m_size", "number >= m_size",
     "where the sizes are equal, no text ends and none is made"),
    ("src/platform/CStringArray.cpp", "+ count > m_capacity", "+ count >= m_capacity",
     "the texts are the same in the old room and in more room"),
    ("src/platform/CStringArray.cpp", "index >= GetSize()", "index > GetSize()",
     "a text that is added at the end is at its place already"),
    ("src/platform/CStringArray.cpp", "capacity > kLargestSize", "capacity >= kLargestSize",
     "so many texts would take 32 GB"),
    ("src/platform/CStringArray.h", "Grow(INT_PTR{m_size} + 1)", "Grow(INT_PTR{m_size} + 2)",
     "the texts are the same in more room"),
    ("src/platform/CArray.h", "m_nSize < m_nMaxSize", "m_nSize <= m_nMaxSize",
     "an array without unused storage is reallocated to the same"),
    ("src/platform/CArray.h", "index < old)", "index <= old)", "there is nothing to move behind the end"),
    ("src/platform/CArray.h", "a > kLargestSize", "a >= kLargestSize", "the sum with 1 or more is too large all the same"),
    ("src/platform/CArray.h", "b > kLargestSize", "b >= kLargestSize", "so many elements would take 8 GB"),
    ("src/platform/CArray.h", "needed > kLargestSize", "needed >= kLargestSize", "so many elements would take 8 GB"),
    ("src/platform/CArray.h", "capacity = std::min(capacity, kLargestSize);", "", "so many elements would take 8 GB"),
    ("src/dialog/CVEK_AsciiFile_Import_Dlg.cpp", "m_module.hModule = veka::ModuleOf(this);", "",
     "the module is null on this system; the tests under Windows notice the change"),
    ("src/dialog/CVEK_AsciiFile_Import_Dlg.cpp", "CDialog::DoDataExchange(exchange);", "",
     "the function of the base class does nothing"),
    ("src/dialog/CVEK_AsciiFile_Import_Dlg.cpp", "AfxMessageBox(messages::kAsciiReadFail);", "",
     "an import never gives the number that leads there"),
    ("solids/bridge/AddNewShape.cpp", "(angle > 360) angle += -360;", "(angle > 360) {}", "no angle is above 360"),
]
FLIPS = [
    (r"==", "!="), (r"!=", "=="), (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r"&&", "||"), (r"\|\|", "&&"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"\+ 1\b", "+ 2"), (r"- 1\b", "- 2"),
    (r"\+\+(?=\w)", "--"), (r"--(?=\w)", "++"), (r"(?<=return )0(?=;)", "1"), (r"(?<=return )-1(?=;)", "0"),
]
# What a row of the parser can get wrong: its form, its keyword, the order of its fields.
FORMS = [
    (r"\bFirst\(", "Last("), (r"\bLast\(", "First("), (r"\bList\(", "NewList("), (r"\bNewList\(", "List("),
    (r"\bElementOrNull\(", "Element("), (r"\bElement\((?=.*ObjectParser)", "ElementOrNull("), (r"\bElementByPlace\(", "Element("),
    (r"\bFirstChild\(", "Row("), (r"\bExactly\(", "ByPosition("), (r"\bParent\(", "("), (r"\bIfItHasChildren\(", "("),
    (r"\bFromOne\(", "("), (r"\bFlag\(", "("), (r"\bLastLevel\(", "FirstLevel("), (r"\bFirstLevel\(", "LastLevel("),
    (r'"([A-Z][A-Z0-9_]+)"', r'"\1X"'),
]
ROW = re.compile(r'^\s*(Row|Own|Any|Every|Known|FirstChild)\((?:"\w+", )?(\w+)\(([\w.>*-]+)\)\),(\s*//.*)?$')
ARGUMENTS = re.compile(r"\b([a-z]\w*(?:\.\w+|->\w+)*), ([a-z]\w*(?:\.\w+|->\w+)*)(?=[,)])")
STATEMENT = re.compile(r"^\s*(?!return|using|namespace|constexpr|static|const |auto|struct|class|break|continue|case|default)"
                       r"[\w:.>*\[\]()-]+(\(| [-+|&]?= |\+\+).*(?<!= delete)(?<!= default);\s*(//.*)?$")


def split_guarded(line):
    """The head of `if (...) statement;` and whether there is one, with the parentheses counted."""
    match = re.match(r"\s*(?:else )?(?:if|for|while) \(", line)
    if not match:
        return None
    depth = 1
    for i in range(match.end(), len(line)):
        depth += {"(": 1, ")": -1}.get(line[i], 0)
        if depth == 0:
            rest = line[i + 1:].strip()
            return line[:i + 1] if rest.endswith(";") and not rest.startswith("return") else None
    return None


def changes(lines):
    """Pairs of a line number and its changed text."""
    for number, line in enumerate(lines):
        code = line.split("//")[0].rstrip()
        if not code.strip() or code.lstrip().startswith(("#", "static_assert", "VEKA_ASSERT", "using", "*", "template")):
            continue
        for pattern, other in FLIPS:
            for match in re.finditer(pattern, code):
                if code[:match.start()].count('"') % 2 == 0:
                    yield number, code[:match.start()] + other + code[match.end():]
        yield from swapped_arguments(number, code)
        yield from row_changes(lines, number)
        head = split_guarded(code)
        if head:
            yield number, head + " {}"
        elif STATEMENT.match(line) and lines[number - 1].split("//")[0].rstrip().endswith(("{", "}", ";", ":", "")):
            previous = lines[number - 1].split("//")[0].rstrip()
            if not previous or previous.endswith(("{", "}", ";", ":")):
                yield number, ""


def changes_that_count(name, lines):
    """The changes of a file without those that no test can notice. Each of those must be there, so that their list stays true."""
    listed = {(old, new): 0 for file, old, new, _ in UNNOTICEABLE if file == name}
    for number, text in changes(lines):
        code = lines[number].split("//")[0].rstrip()
        same = next((pair for pair in listed if pair[0] in code and code.replace(*pair).strip() == text.strip()), None)
        if same:
            listed[same] += 1
        else:
            yield number, text
    for (old, new), count in listed.items():
        if count != 1:
            sys.exit(f"{name}: UNNOTICEABLE lists a change that is made {count} times: {old} -> {new}")


def swapped_arguments(number, code):
    """Calls with two arguments in the other order."""
    if re.search(r"std::(min|max|swap)|^\s*(for|while) \(", code):
        return
    for match in ARGUMENTS.finditer(code):
        if match[1] != match[2] and code[:match.start()].count("(") > code[:match.start()].count(")"):
            yield number, code[:match.start()] + f"{match[2]}, {match[1]}" + code[match.end():]


def row_changes(lines, number):
    """Wrong rows: another form or keyword, the field of the next row, no row."""
    line = lines[number]
    if "Row(" not in line and "Own(" not in line and "Any(" not in line and "FirstChild(" not in line:
        return
    for pattern, other in FORMS:
        for match in re.finditer(pattern, line):
            yield number, line[:match.start()] + match.expand(other) + line[match.end():]
    row = ROW.match(line)
    if row:
        yield number, ""
        following = ROW.match(lines[number + 1])
        if following and following[2] == row[2]:
            yield number, line.replace("(" + row[3] + ")", "(" + following[3] + ")")


class Tester:
    def __init__(self):
        with open(BUILD + "/compile_commands.json") as file:
            self.commands = {os.path.relpath(entry["file"]): entry for entry in json.load(file)}
        self.links = {}
        for program in {program for tests in FILES.values() for program in tests}:
            commands = subprocess.run(["ninja", "-C", BUILD, "-t", "commands", program], capture_output=True, text=True,
                                      check=True).stdout.strip().split("\n")
            self.links[program] = shlex.split(commands[-1].removeprefix(": && ").split(" && ")[0])

    def is_noticed(self, name, lines, number, text):
        """True where a test fails; None where the change does not compile or link."""
        with tempfile.TemporaryDirectory() as folder:
            text = "\n".join(lines[:number] + [text] + lines[number + 1:]) + "\n"
            made = {}
            if name in HEADERS:
                # Includes name a header by its room, and the changed copy is found first.
                changed = folder + "/" + name.removeprefix("src/")
                os.makedirs(os.path.dirname(changed))
                sources = {source: os.path.abspath(source) for source in HEADERS[name]}
            else:
                changed = folder + "/changed.cpp"
                sources = {name: changed}
            with open(changed, "w") as file:
                file.write(text)
            for source, path in sources.items():
                entry = self.commands[source]
                command = [part for part in shlex.split(entry["command"]) if not part.startswith("-W")] + ["-w"]
                command[command.index("-c") + 1] = path
                command += [] if name.startswith(UNSANITIZED) else SANITIZE
                place = command.index("-o") + 1
                made[command[place]] = command[place] = f"{folder}/{len(made)}.o"
                first = next(i for i, part in enumerate(command) if part.startswith("-I"))
                command.insert(first, "-I" + folder)
                if subprocess.run(command, cwd=entry["directory"], capture_output=True).returncode != 0:
                    return None
            try:
                return any(self.fails(program, tests, made, folder) for program, tests in FILES[name].items())
            except subprocess.CalledProcessError:  # a function that something calls is gone
                return None

    def failing_without_changes(self):
        """The programs of tests that fail by themselves: with them every change would count as noticed."""
        wanted = dict.fromkeys((program, filter) for tests in FILES.values() for program, filter in tests.items())
        with tempfile.TemporaryDirectory() as folder:
            return [f"{program} {filter}" for program, filter in wanted if self.fails(program, filter, {}, folder)]

    def fails(self, program, tests, made, folder):
        """True where a program of tests with the changed objects, by the names of those that they replace, fails or does
        not end."""
        changed = folder + "/" + program
        link = [*self.links[program], SANITIZE[0]]
        link[link.index("-o") + 1] = changed
        for former, object_file in made.items():
            if former in link:
                link[link.index(former)] = object_file
            else:
                link.insert(link.index("-o"), object_file)  # before the library, whose own copy is then left out
        subprocess.run(link, cwd=BUILD, capture_output=True, check=True)
        try:
            run = subprocess.run([changed, "--gtest_brief=1", "--gtest_fail_fast", "--gtest_filter=" + tests],
                                 capture_output=True, timeout=120, env=ENVIRONMENT)
        except subprocess.TimeoutExpired:
            return True
        return run.returncode != 0


def main():
    number_wanted = int(sys.argv[1])
    tester = Tester()
    failing = tester.failing_without_changes()
    if failing:
        print("fails without a change: " + ", ".join(failing), file=sys.stderr)
        return 1
    todo = []
    for name in sys.argv[2:] or FILES:
        with open(name) as file:
            lines = file.read().split("\n")
        todo += [(name, lines, number, text) for number, text in changes_that_count(name, lines)]
    if number_wanted and number_wanted < len(todo):
        step = len(todo) / number_wanted
        todo = [todo[int(i * step)] for i in range(number_wanted)]
    noticed = {name: [0, 0] for name in FILES}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for change, result in zip(todo, pool.map(lambda one: tester.is_noticed(*one), todo)):
            name, lines, number, text = change
            if result is None:
                continue
            noticed[name][0] += result
            noticed[name][1] += 1
            if not result:
                print(f"{name}:{number + 1}: not noticed\n    - {lines[number].strip()}\n    + {text.strip()}", flush=True)
    caught, tried = (sum(counts) for counts in zip(*noticed.values()))
    for name, counts in noticed.items():
        if counts[1] > 0:
            print(f"{name}: {counts[0]} of {counts[1]} noticed")
    print(f"{100.0 * caught / tried:.1f} % of {tried} changes noticed")
    return 0 if 100.0 * caught / tried >= MINIMUM else 1


sys.exit(main())

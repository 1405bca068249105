"""Draws which record holds which, from the records' own rows, as a graph in the language of dot: model-map.py"""

import pathlib
import re

ELEMENTS = {}  # of an array
FIELDS = {}  # of a record: names and classes of what it holds, in order


def read_headers():
    for path in sorted(pathlib.Path("src/model").rglob("*.h")):
        if path.name in ("Record.h", "ObjectRows.h"):
            continue
        text = path.read_text()
        for match in re.finditer(r"VEKA_ARRAY(?:_OPERATIONS)?\((\w+), (\w+)\)", text):
            ELEMENTS[match.group(1)] = match.group(2)
        for match in re.finditer(r"^class (?:VEKA_API )?(\w+)[^;{]*\{(.*?)^\};", text, re.M | re.S):
            held = re.findall(r"VEKA_OWNED(?:_AS)?\((\w+),\s*(\w+)", match.group(2))
            plain = re.findall(r"VEKA_(?:NUMBER(?:_AS)?\(\w+, |PUBLIC\(\w+, |FLAG\(|(?:TEXT|LIST)(?:_AS)?\()(\w+)", match.group(2))
            FIELDS[match.group(1)] = (held, plain)


def main():
    read_headers()
    ELEMENTS.update(CVEKA_3DObjectArray="CVEKA_3DObject", CVEKA_PadStackArray="CVEKA_PadStack")
    small = {"CVEKA_Coordinate", "CVEKA_Color", "CVEKA_RLC", "CVEKA_MinMax"}  # drawn as fields, not as boxes
    print('digraph model {\n rankdir=LR; ranksep=0.6; nodesep=0.12;\n'
          ' node [shape=plain, fontname="Liberation Sans", fontsize=9]; edge [arrowsize=0.6, color="#555555"];')
    done, todo = set(), ["CVEKA_Manager"]
    while todo:
        name = todo.pop(0)
        if name in done:
            continue
        done.add(name)
        held, plain = FIELDS.get(name, ([], []))
        rows = [f'<tr><td bgcolor="#dde8f5" align="left"><b>{name.removeprefix("CVEKA_")}</b></td></tr>']
        own = [field for field in plain] + [f"{field}" for kind, field in held if kind in small]
        if own:
            lines = "<br align='left'/>".join(", ".join(own[i:i + 3]) for i in range(0, len(own), 3))
            rows.append(f'<tr><td align="left">{lines}<br align="left"/></td></tr>')
        for kind, field in held:
            if kind in small:
                continue
            many = kind in ELEMENTS
            target = ELEMENTS.get(kind, kind)
            rows.append(f'<tr><td port="{field}" align="left">{field}{" *" if many else ""}</td></tr>')
            print(f' {name}:{field}:e -> {target}{" [style=dashed]" if many else ""};')
            todo.append(target)
        body = "".join(rows)
        print(f' {name} [label=<<table border="0" cellborder="1" cellspacing="0" cellpadding="3">{body}</table>>];')
    print("}")


main()

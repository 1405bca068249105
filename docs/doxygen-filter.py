"""Shows doxygen the rows of a record as the accessors that they make: doxygen-filter.py HEADER"""

import re
import sys

# What a row makes, public parts alone. {doc} is the row's own description.
GETTER_AND_SETTER = """public:
    /// {doc}
    {type} {get}() const{noexcept};
    /// Sets `{name}`.
    void {set}({argument} value){noexcept};
private:"""
TEMPLATES = {
    "NUMBER": GETTER_AND_SETTER,
    "TEXT": GETTER_AND_SETTER,
    "OWNED": """public:
    /// {doc} It stays the record's.
    {type}* {get}() const noexcept;
    /// Copies into `{name}`; raises `CInvalidArgException` for null.
    void {set}(const {type}* value);
private:""",
    "LIST": """public:
    /// {doc} Fills the list that is given.
    void {get}(CStringArray& list) const;
    /// Replaces `{name}`.
    void {set}(const CStringArray& list);
private:""",
    "PUBLIC": "public:\n    {type} {name} = {default};  ///< {doc}\nprivate:",
    "PAD_NAMES": """public:
    /// {doc} Fills the list that is given.
    void GetStandardizationPadNames(CStringArray& names) const;
    /// Adds a name, unless the list has it.
    void AddStandardizationPadName(CString name);
private:""",
}
# The rows: the template, the arguments in their order, and what else the template needs.
ROWS = {
    "VEKA_NUMBER": ("NUMBER", "type name default", {}),
    "VEKA_FLAG": ("NUMBER", "name", {"type": "int"}),
    "VEKA_TEXT": ("TEXT", "name", {"type": "CString"}),
    "VEKA_OWNED": ("OWNED", "type name", {}),
    "VEKA_LIST": ("LIST", "name", {}),
    "VEKA_PUBLIC": ("PUBLIC", "type name default", {}),
    "VEKA_REAL": ("PUBLIC", "name", {"type": "double", "default": "0"}),
    "VEKA_INTEGER": ("PUBLIC", "name", {"type": "int", "default": "0"}),
    "VEKA_STRING": ("PUBLIC", "name", {"type": "CString", "default": "{}"}),
    "VEKA_POINT": ("PUBLIC", "name", {"type": "Owned<CVEKA_Coordinate>", "default": "{}"}),
    "VEKA_PLACED_POINT": ("PUBLIC", "name place", {"type": "Owned<CVEKA_Coordinate>", "default": "{}"}),
    "VEKA_OBJECT_LIST": ("PUBLIC", "name form", {"type": "Owned<CVEKA_3DObjectArray>", "default": "{}"}),
    "VEKA_OBJECT_FIELD": ("PUBLIC", "type name default form", {}),
    "VEKA_PAD_NAMES_ROW": ("PAD_NAMES", "", {}),
}
# What other macros make.
MACROS = {
    "VEKA_LIST_APPEND": """public:
    /// Appends one text to `{0}`.
    void {1}(const CString& value);
private:""",
    "VEKA_RECORD": """public:
    /// Every field at its default.
    {0}();
    /// A deep copy, which is the caller's.
    virtual {0}* Clone() const;
private:""",
    "VEKA_ARRAY": """class {0} : public CExPtrArray<{1}*, {1}*> {{
public:
    /// A deep copy, which is the caller's.
    virtual {0}* Clone() const;
}};""",
    "VEKA_PAD_NAMES": """public:
    /// Distinct names in the order of their first appearance. Fills the list that is given.
    void GetStandardizationPadNames(CStringArray& names) const;
private:""",
    "VEKA_CLINCH_GROUP": """public:
    bool CLINCH = false;  ///< True if the end of the lead is clinched.
    double CLINCHLENGTH = 0;  ///< Length of the clinched end.
    double CLINCHROTATE = 0;  ///< Rotation of the clinched end in degrees.
private:""",
}
MACROS["VEKA_RECORD_CLONED_BY"] = MACROS["VEKA_RECORD_OPERATIONS"] = MACROS["VEKA_OBJECT"] = MACROS["VEKA_OBJECT_WITH_PRIVATE_INIT"] = MACROS["VEKA_OBJECT_OPERATIONS"] = MACROS["VEKA_RECORD"]
SILENT = ("VEKA_FIELDS_OF", "VEKA_DESCRIBE", "VEKA_DESCRIBE_AS", "VEKA_ARRAY_OPERATIONS")


def arguments(text):
    """The arguments of a macro, split at the commas outside of parentheses."""
    parts, depth, part = [], 0, ""
    for c in text:
        depth += {"(": 1, "{": 1, "<": 1, ")": -1, "}": -1, ">": -1}.get(c, 0)
        if c == "," and depth == 0:
            parts.append(part.strip())
            part = ""
        else:
            part += c
    return parts + [part.strip()]


def row(macro, inside):
    """The members that a row makes."""
    template, names, fields = ROWS[macro.removesuffix("_AS")]
    literal = re.search(r'(?:"[^"]*"\s*)+$', inside)
    doc = "".join(re.findall(r'"([^"]*)"', literal.group(0)))
    values = arguments(inside[:literal.start()].rstrip().rstrip(","))
    names = names.split() + (["get", "set"] if macro.endswith("_AS") else [])
    fields = dict(fields, **dict(zip(names, values)), doc=doc[:1].upper() + doc[1:] + ".")
    fields.setdefault("get", "Get" + fields.get("name", ""))
    fields.setdefault("set", "Set" + fields.get("name", ""))
    text = template == "TEXT"
    return TEMPLATES[template].format(noexcept="" if text else " noexcept",
                                      argument="const CString&" if text else fields.get("type"), **fields)


def main():
    with open(sys.argv[1]) as file:
        text = file.read()
    text = re.sub(r"\bVEKA_API ", "", text)
    if "#define VEKA_" in text:
        print(text)
        return

    def expand(match):
        before, macro, inside = match.group(1), match.group(2), match.group(3) or ""
        if macro in SILENT:
            return before
        if macro.removesuffix("_AS") in ROWS:
            return row(macro, inside)
        if macro not in MACROS:
            return match.group(0)
        return (before if macro == "VEKA_ARRAY" else "") + MACROS[macro].format(*arguments(inside))

    rows = r'((?:^[ \t]*///[^\n]*\n)*)^[ \t]*(VEKA_[A-Z_]+)(?:\(((?:[^()"]|"[^"]*"|\([^()]*\))*)\))?[ \t]*$'
    print(re.sub(rows, expand, text, flags=re.M))


main()

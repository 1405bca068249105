"""Shows doxygen the rows of a record as the accessors that they make: doxygen-filter.py HEADER"""

import re
import sys

# What a row makes, public parts alone. {doc} is the row's own comment, or a sentence about the field.
NUMBER = """public:
    /// {doc}
    {0} {3}() const noexcept;
    /// Sets `{1}`.
    void {4}({0} value) noexcept;
private:"""
ROWS = {
    "VEKA_NUMBER": NUMBER,
    "VEKA_FLAG": NUMBER.replace("{4}", "{2}").replace("{3}", "{1}").replace("`{1}`", "`{0}`").replace("{0} {1}()", "int {1}()")
    .replace("({0} value)", "(int value)"),
    "VEKA_TEXT": """public:
    /// {doc}
    CString {1}() const;
    /// Sets `{0}`.
    void {2}(const CString& value);
private:""",
    "VEKA_OWNED": """public:
    /// {doc} It stays the record's.
    {0}* {2}() const noexcept;
    /// Copies into `{1}`; raises `CInvalidArgException` for null.
    void {3}(const {0}* value);
private:""",
    "VEKA_LIST": """public:
    /// {doc} Fills the list that is given.
    void {1}(CStringArray& list) const;
    /// Replaces `{0}`.
    void {2}(const CStringArray& list);
private:""",
    "VEKA_LIST_APPEND": """public:
    /// Appends one text to `{0}`.
    void {1}(const CString& value);
private:""",
    "VEKA_PUBLIC_NUMBER": "public:\n    {0} {1} = {2};  ///< {doc}\nprivate:",
    "VEKA_PUBLIC_TEXT": "public:\n    CString {0};  ///< {doc}\nprivate:",
    "VEKA_PUBLIC_LIST": "public:\n    CStringArray {0};  ///< {doc}\nprivate:",
    "VEKA_PUBLIC_OWNED": "public:\n    Owned<{0}> {1};  ///< {doc}\nprivate:",
    "VEKA_REAL": "public:\n    double {0} = 0;  ///< {doc}\nprivate:",
    "VEKA_INTEGER": "public:\n    int {0} = 0;  ///< {doc}\nprivate:",
    "VEKA_STRING": "public:\n    CString {0};  ///< {doc}\nprivate:",
    "VEKA_POINT": "public:\n    Owned<CVEKA_Coordinate> {0};  ///< {doc}\nprivate:",
    "VEKA_PLACED_POINT": "public:\n    Owned<CVEKA_Coordinate> {0};  ///< {doc}\nprivate:",
    "VEKA_NUMBER_FLAG": "public:\n    bool {0} = false;  ///< {doc}\nprivate:",
    "VEKA_OBJECTS": "public:\n    Owned<CVEKA_3DObjectArray> {0};  ///< {doc}\nprivate:",
    "VEKA_OBJECT_LIST": "public:\n    Owned<CVEKA_3DObjectArray> {0};  ///< {doc}\nprivate:",
    "VEKA_OBJECT_FIELD": "public:\n    {0} {1};  ///< {doc}\nprivate:",
    "VEKA_CLINCH_GROUP": "",
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
}
ROWS["VEKA_RECORD_CLONED_BY"] = ROWS["VEKA_RECORD_OPERATIONS"] = ROWS["VEKA_OBJECT"] = ROWS["VEKA_OBJECT_OPERATIONS"] = ROWS["VEKA_RECORD"]
SILENT = ("VEKA_FIELDS_OF", "VEKA_DESCRIBE", "VEKA_DESCRIBE_AS", "VEKA_ARRAY_OPERATIONS", "VEKA_OBJECT_FIELDS_OF")
# Where the name of the field stands among the arguments.
NAME_AT = {"VEKA_NUMBER": 1, "VEKA_OWNED": 1, "VEKA_PUBLIC_NUMBER": 1, "VEKA_PUBLIC_OWNED": 1, "VEKA_OBJECT_FIELD": 1}


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


def main():
    with open(sys.argv[1]) as file:
        text = file.read()
    text = re.sub(r"\bVEKA_API ", "", text)
    if "#define VEKA_RECORD(" in text or "#define VEKA_OBJECT(" in text:
        print(text)
        return

    def expand(match):
        before, macro, inside, comment = match.group(1), match.group(2), match.group(3), match.group(4) or ""
        if macro in SILENT:
            return before
        if macro not in ROWS:
            return match.group(0)
        fields = arguments(inside or "")
        name = fields[min(NAME_AT.get(macro, 0), len(fields) - 1)]
        own = " ".join(re.sub(r"^\s*///<? ?", "", line).strip() for line in (before + "\n" + comment).split("\n")).strip()
        doc = own[:1].upper() + own[1:] if own else f"The field `{name}`."
        is_class = macro == "VEKA_ARRAY"
        return (before if is_class else "") + ROWS[macro].format(*fields, doc=doc)

    rows = r"((?:^[ \t]*///[^\n]*\n)*)^[ \t]*(VEKA_[A-Z_]+)(?:\(((?:[^()]|\([^()]*\))*)\))?(?:[ \t]*(///[^\n]*))?[ \t]*$"
    print(re.sub(rows, expand, text, flags=re.M))


main()

#include "HostileShapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <set>
#include <string_view>

#include "VEKAsciiDLL.h"

namespace bench {

namespace {

/// The texts one after another.
template <class... Texts>
std::string Join(const Texts&... texts) {
    std::string joined;
    ((joined += std::string_view(texts)), ...);
    return joined;
}

/// Pieces, numbered from 0, up to a size; between a begin and an end.
std::string Many(std::size_t size, std::string_view begin, std::string_view end,
                 const std::function<std::string(std::size_t)>& piece) {
    std::string text(begin);
    for (std::size_t i = 0; text.size() < size; ++i) text += piece(i);
    return text += end;
}
std::string Many(std::size_t size, std::string_view begin, std::string_view end, std::string_view piece) {
    std::string text(begin);
    while (text.size() < size) text += piece;
    return text += end;
}

/// A text, a number and a text.
std::string Numbered(std::string_view before, std::size_t number, std::string_view after) {
    std::string text(before);
    text += std::to_string(number);
    return text += after;
}

std::string RandomBytes(std::size_t size, std::string_view letters) {
    std::mt19937 random(1);
    std::string text(size, ' ');
    for (char& letter : text) letter = letters[random() % letters.size()];
    return text;
}

std::string AllBytesBut(std::string_view others) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (others.find(static_cast<char>(byte)) == std::string_view::npos) bytes += static_cast<char>(byte);
    return bytes;
}

/// The begin of a line of a size, with two strings that cost more steps of search than the line may cost
/// without an index. The line is inside a string then.
std::string Trigger(std::size_t size) {
    const std::size_t pieces = 4 * static_cast<std::size_t>(std::sqrt(static_cast<double>(size)));
    const std::string list = Many(3 * pieces, "", "", "a\\\"");
    return Join("(A \"", list, "x\" \"", list, "y\\\"x\" \"");
}

std::string Fibonacci(std::size_t size, std::string shorter, std::string text) {
    while (text.size() < size) {
        const std::string longer = text + shorter;
        shorter = text;
        text = longer;
    }
    text.resize(size);
    return text;
}

/// A line in which each sequence of as many pieces as fit occurs once.
std::string DeBruijn(std::size_t size, const std::vector<std::string>& pieces) {
    std::size_t order = 1, bytes = 1;
    while (bytes < size) {
        bytes *= pieces.size();
        ++order;
    }
    std::string line;
    std::vector<std::size_t> word{0};
    while (!word.empty() && line.size() < size) {
        if (order % word.size() == 0)
            for (const std::size_t piece : word) line += pieces[piece];
        const std::size_t period = word.size();
        while (word.size() < order) word.push_back(word[word.size() - period]);
        while (!word.empty() && word.back() + 1 == pieces.size()) word.pop_back();
        if (!word.empty()) ++word.back();
    }
    return line;
}

/// Strings of ever more pieces: the first ones, the last ones or those from the middle of one list.
std::string GrowingLists(std::size_t size, bool first, bool distinct) {
    return Many(size, "x\"", "", [&](std::size_t count) {
        std::string string = " \"";
        for (std::size_t i = 0; i < count; ++i)
            string += distinct ? Numbered("x", first ? i : count - i, "\\\"") : "\\\"";
        return string += "x\"";
    });
}

/// A list of pieces, cut off after each piece, and then every part of it to its end: each chunk of the latter
/// first occurs at another position.
std::string PartsOfCutLists(std::size_t size) {
    std::size_t count = 1;
    while (count * count * 7 < size) ++count;
    const auto part = [](std::size_t begin, std::size_t end) {
        std::string string = " \"";
        for (std::size_t i = begin; i < end; ++i) string += Numbered("x", i, "\\\"");
        return string += "x\"";
    };
    std::string text = "x\"";
    for (std::size_t i = 1; i <= count; ++i) text += part(0, i);
    for (std::size_t i = 0; i < count; ++i) text += part(i, count);
    return text;
}

/// A list of levels as text.
void Write(const CECadClsLvl& level, bool content, std::string& text) {
    text += '(';
    text += level.m_strName.View();
    if (content) {
        for (const CString& value : level.m_aValues) {
            const bool plain = !value.IsEmpty() && value.View().find(' ') == std::string_view::npos;
            text += plain ? " " : " \"";
            text += value.View();
            if (!plain) text += '"';
        }
        for (const CECadClsLvl* child : *level.m_pChildren) Write(*child, true, text);
    }
    text += ')';
}

/// Adds the shapes of all levels below a path of names.
void AddLevels(const CECadClsLvlArray& levels, const std::string& path, const std::string& begin,
               const std::string& end, std::set<std::string>& known, std::vector<Shape>& shapes) {
    for (const CECadClsLvl* level : levels) {
        const std::string name(level->m_strName.View());
        const std::string levelPath = Join(path, path.empty() ? "" : " ", name);
        if (known.insert(levelPath).second) {
            std::string whole, empty;
            Write(*level, true, whole);
            Write(*level, false, empty);
            const auto repeat = [=](const std::string& piece) {
                return
                    [=](std::size_t size) { return Many(size, begin, Join(end, "\n"), Join(piece, "\n")); };
            };
            shapes.push_back({"a level repeated", levelPath, repeat(whole)});
            shapes.push_back({"an empty level repeated", levelPath, repeat(empty)});
            const std::string value(level->m_aValues.IsEmpty() ? std::string_view("1")
                                                               : level->m_aValues[0].View());
            shapes.push_back({"values of a level", levelPath, [=](std::size_t size) {
                                  return Many(size, Join(begin, "(", name), Join(")", end), Join(" ", value));
                              }});
        }
        std::string values;
        for (const CString& value : level->m_aValues) (values += ' ') += value.View();
        AddLevels(*level->m_pChildren, levelPath, Join(begin, "(", name, values), Join(")", end), known,
                  shapes);
    }
}

/// Names of five letters whose standard hashes fall into one sixteenth of a hash table that is not keyed.
std::string CollidingNames(std::size_t size) {
    std::string text = "(PADSTACKS (PADSTACK (PADSTACKNAME";
    for (std::uint32_t i = 0; text.size() < size; ++i) {
        std::string name(5, ' ');
        std::uint32_t rest = i * 2654435761u % (1u << 30);
        for (char& letter : name) {
            letter = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_"[rest % 64];
            rest /= 64;
        }
        const std::size_t hash = std::hash<std::string_view>()(name);
        if (((hash ^ hash >> 32) & 0x3FFFF) < 0x4000) (text += ' ') += name;
    }
    return text += ")))";
}

std::string RandomNames(std::size_t size) {
    std::mt19937 random(1);
    return Many(size, "(PADSTACKS (PADSTACK (PADSTACKNAME", ")))", [&](std::size_t) {
        std::string name(6, ' ');
        for (std::size_t i = 1; i < name.size(); ++i)
            name[i] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_"[random() % 64];
        return name;
    });
}

}  // namespace

std::vector<Shape> HostileLines() {
    // What follows the first quote of the line.
    const auto pieces = [](std::string piece) {
        return [=](std::size_t n) { return Many(n, "", "", piece); };
    };
    const auto numbered = [](std::string before, std::string after) {
        return [=](std::size_t n) {
            return Many(n, "", "", [&](std::size_t i) { return Numbered(before, i, after); });
        };
    };
    const auto random = [](std::string letters) {
        return [=](std::size_t n) { return RandomBytes(n, letters); };
    };
    const auto randomPieces = [](std::vector<std::string> list) {
        return [=](std::size_t n) {
            std::mt19937 generator(1);
            return Many(n, "", "", [&](std::size_t) { return list[generator() % list.size()]; });
        };
    };
    const std::vector<std::string> fifteen{"\\\"",  "a\\\"", "b\\\"", "c\\\"", "d\\\"",
                                           "e\\\"", "f\\\"", "g\\\"", "h\\\"", "i\\\"",
                                           "j\\\"", "k\\\"", "l\\\"", "m\\\"", "n\\\""};
    const std::vector<Shape> insides{
        {"", "equal escaped quotes", pieces("\\\"")},
        {"", "equal escaped quotes, then short strings",
         [](std::size_t n) { return Many(n, Many(n / 2, "", "\"", "\\\""), "", " \"\\\"a\""); }},
        {"", "equal pieces", pieces("abc\\\"")},
        {"", "numbered pieces", numbered("x", "\\\"")},
        {"", "pieces with a long common ending", numbered("", "zzzzzzzzzzzzzzzzzzzz\\\"")},
        {"", "random pieces of 2 kinds", randomPieces({"\\\"", "a\\\""})},
        {"", "random pieces of 15 kinds", randomPieces(fifteen)},
        {"", "random bytes of 2 letters", random("\\\"")},
        {"", "random bytes of 15 letters", random("\\\" abcdefghijkl")},
        {"", "random bytes of 253 letters", random(AllBytesBut("\n()"))},
        {"", "bytes of the upper half before each quote",
         [](std::size_t n) {
             return Many(n, "", "", [](std::size_t i) { return Join(std::string(i % 300, '\xC3'), "\\\""); });
         }},
        {"", "a short period", pieces(Join(RandomBytes(10, "ab"), "\\\"a\\\""))},
        {"", "a long period", pieces(Join(RandomBytes(1000, "ab"), "\\\"a\\\""))},
        {"", "runs of a growing length",
         [](std::size_t n) {
             return Many(n, "", "", [](std::size_t i) {
                 return Many(2 * i, std::string(1, static_cast<char>('a' + i % 26)), "", "\\\"");
             });
         }},
        {"", "a Fibonacci word", [](std::size_t n) { return Fibonacci(n, "\\\"", "a\\\""); }},
        {"", "a Fibonacci word of strings", [](std::size_t n) { return Fibonacci(n, "\\\"a\" \"", "\\\""); }},
        {"", "a de Bruijn word of 2 letters",
         [](std::size_t n) {
             return DeBruijn(n, {"\\\"", "a"});
         }},
        {"", "a de Bruijn word of 15 letters", [=](std::size_t n) { return DeBruijn(n, fifteen); }},
        {"", "strings with an escaped quote", pieces("b\\\"c\" \"")},
        {"", "different strings with an escaped quote", numbered("b\\\"", "\\\"c\" \"")},
        {"", "strings of growing lists", [](std::size_t n) { return GrowingLists(n, true, true); }},
        {"", "strings of growing lists from the end",
         [](std::size_t n) { return GrowingLists(n, false, true); }},
        {"", "strings of growing runs", [](std::size_t n) { return GrowingLists(n, true, false); }},
        {"", "parts of cut lists", PartsOfCutLists},
    };
    std::vector<Shape> lines;
    for (const Shape& inside : insides) {
        lines.push_back({"one line", inside.name,
                         [text = inside.text](std::size_t n) { return Join("(A \"", text(n), "\")"); }});
        lines.push_back({"one line with an index", inside.name,
                         [text = inside.text](std::size_t n) { return Join(Trigger(n), text(n), "\")"); }});
    }
    return lines;
}

std::vector<Shape> HostileFiles() {
    const std::string kind = "a file";
    const auto repeat = [&](const char* name, std::string begin, std::string piece, std::string end) {
        return Shape{kind, name, [=](std::size_t size) { return Many(size, begin, end, piece); }};
    };
    const auto number = [&](const char* name, std::string begin, std::string before, std::string after,
                            std::string end) {
        return Shape{kind, name, [=](std::size_t size) {
                         return Many(size, begin, end,
                                     [&](std::size_t i) { return Numbered(before, i, after); });
                     }};
    };
    const std::string open20(20, '('), close20(20, ')');
    return {
        repeat("levels of the greatest depth", "", Join(open20, close20, "\n"), ""),
        repeat("named levels of the greatest depth", "",
               Join("(A(A(A(A(A(A(A(A(A(A(A(A(A(A(A(A(A(A(A(A", close20, "\n"), ""),
        repeat("siblings", "(A\n", "(B 1)\n", ")"),
        repeat("siblings in one line", "(A", "(B 1)", ")"),
        repeat("open parentheses without a name", "", "()", ""),
        repeat("closed parentheses too many", "", ")", ""),
        repeat("sections that nobody knows", "", "(X 1)\n", ""),
        repeat("empty parts", "", "(VEK)\n", ""),
        repeat("parts", "", "(VEK(PARTGENERAL(MPN A)))\n", ""),
        repeat("shapes", "", "(NSHAPE(NAME N))\n", ""),
        number("unknown keywords", "(VEK(PARTGENERAL\n", "(U", ")\n", "))"),
        number("unknown objects", "(PADS(PAD\n", "(U", ")\n", "))"),
        repeat("a keyword", "(VEK(PARTGENERAL\n", "(MPN A)\n", "))"),
        repeat("values", "(A", " 12.5", ")"),
        repeat("values in lines", "(A\n", "12.5\n", ")"),
        number("company part numbers", "(VEK(PARTGENERAL(CPN", " C", "", ")))"),
        repeat("values of two bytes that are kept", "(VEK(PARTGENERAL(CPN", " C", ")))"),
        repeat("a long token", "(VEK(PARTGENERAL(MPN ", "x", ")))"),
        repeat("a long string", "(VEK(PARTGENERAL(MPN \"", "x", "\")))"),
        repeat("a long name", "(VEK(", "x", "))"),
        repeat("digits of a number", "(VEK(PARTGENERAL(BOM(COST A ", "1", "))))"),
        repeat("decimals of a number", "(VEK(PARTGENERAL(BOM(COST A 0.", "3", "))))"),
        repeat("digits of an exponent", "(VEK(PARTGENERAL(BOM(COST A 1e", "9", "))))"),
        repeat("zeros before a number", "(VEK(PARTGENERAL(NUMBEROFPINS ", "0", ")))"),
        repeat("white space before a number", "(VEK(PARTGENERAL(NUMBEROFPINS \"", "\t", "1\")))"),
        repeat("long numbers", "(VEK(PARTGENERAL(BOM(COST A", " 1.2345678901234567890123e-300", "))))"),
        repeat("lines of a string", "(A \"", "x\n", "\")"),
        repeat("empty lines of a string", "(A \"", "\n", "\")"),
        repeat("escaped quotes in the lines of a string", "(A \"", "x\\\"\n", "\")"),
        repeat("lines that end with a backslash in a string", "(A \"", "\\\n\"\n\"", "\")"),
        repeat("lines of some escaped quotes", "",
               "(A \"a\\\"b\\\"c\\\"\" \"a\\\"b\\\"d\\\"\" \"a\\\"b\\\"e\\\"\")\n", ""),
        repeat("lines of 300 escaped quotes", "", Many(600, "(A \"", "\")\n", "\\\""), ""),
        repeat("lines of 60 strings with escaped quotes", "", Many(600, "(A", ")\n", " \"ab\\\"ab\\\"c\""),
               ""),
        repeat("strings in one line", "(A", " \"b c\"", ")"),
        repeat("strings without a gap", "(A", "\"b\"", ")"),
        repeat("empty strings", "(A ", "\"\"", ")"),
        repeat("tokens before strings", "(A", " a\"b\"", ")"),
        repeat("a token of escaped quotes", "(A ", "\\\"", ")"),
        repeat("comment lines", "", "//\n", ""),
        repeat("comment lines in a string", "(A \"", "//\n", "\")"),
        repeat("empty lines", "", "\n", ""),
        repeat("carriage returns", "", "\r\n", ""),
        repeat("blanks", "(A", " ", ")"),
        repeat("tabulators", "(A ", "\t", ")"),
        repeat("white space that begins a line", "", "\v", "(A)"),
        repeat("bytes of zero", "(A ", std::string(1, '\0'), ")"),
        repeat("bytes of the upper half", "(A ", "\xC3", ")"),
        repeat("comments of a part", "(VEK(PARTGENERAL(COMMENT", "()", ")))"),
        repeat("empty packages", "(VEK(PACKAGES", "(PACKAGE)", "))"),
        repeat("empty padstacks", "(PADSTACKS", "(PADSTACK)", ")"),
        repeat("objects", "(PADS(PAD\n", "(FILLCIRCLE(PT 1 2 3)(D 0.5))\n", "))"),
        repeat("empty objects", "(PADS(PAD", "(LINE)", "))"),
        repeat("nested objects", "(PADS(PAD",
               "(COMPOSITE(COMPOSITE(COMPOSITE(COMPOSITE(COMPOSITE(COMPOSITE(LINE)))))))\n", "))"),
        repeat("points of an outline", "(PADS(PAD(PLINE", "(PT 1 2 3)", ")))"),
        {kind, "names of a padstack that collide in a hash without a key", CollidingNames},
        {kind, "random names of a padstack", RandomNames},
        {kind, "numbered names of a padstack",
         [](std::size_t n) {
             return Many(n, "(PADSTACKS(PADSTACK(PADSTACKNAME", ")))",
                         [](std::size_t i) { return Numbered(" ", 10000 + i, ""); });
         }},
        number("padstacks with names of their own", "(PADSTACKS\n", "(PADSTACK(PADSTACKNAME S", "))\n", ")"),
        number("pads with names of their own", "(PADS\n", "(PAD(PADNAME P", "))\n", ")"),
        number("layers of a padstack", "(PADSTACKS(PADSTACK\n", "(TOP(CON P", "))\n", "))"),
    };
}

std::vector<Shape> GrownLevels(const char* file) {
    CECadCls tree;
    tree.m_strFilePath = CString(file);
    tree.ReadLevelTree(0);
    std::vector<Shape> shapes;
    std::set<std::string> known;
    AddLevels(*tree.m_pRootLevels, "", "", "", known, shapes);
    return shapes;
}

}  // namespace bench

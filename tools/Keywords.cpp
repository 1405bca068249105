#include "tools/Keywords.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "parser/KeywordLister.h"

namespace {

using veka::KeywordRow;

std::string Code(const std::string& text) {
    return text.empty() ? "" : "`" + text + "`";
}

/// A table of keywords that says each thing once: a method that several levels use has the same rows in each.
class Table {
public:
    explicit Table(bool withParent) : m_withParent(withParent) {}

    void Add(const KeywordRow& row) {
        const std::string line = "| " + (row.keyword.empty() ? "the level itself" : Code(row.keyword)) +
                                 " | " + (m_withParent ? Code(row.parent) + " | " : "") + row.form + " | " +
                                 Code(row.target);
        if (m_printed.insert(line).second) m_text += line + " | " + row.meaning + " |\n";
    }
    void Write(std::ostream& out) const {
        out << "| keyword | " << (m_withParent ? "in | " : "")
            << "read as | field | meaning and unit |\n|---|---|---|---|" << (m_withParent ? "---|\n" : "\n")
            << m_text;
    }
    /// The lines of the table.
    const std::string& Text() const { return m_text; }

private:
    bool m_withParent;
    std::set<std::string> m_printed;
    std::string m_text;
};

/// Kinds of objects that read the same fields of their base class, and the table of these fields.
struct Family {
    std::string base, kinds;
    Table table;
};

/// The families of kinds, in the order of their first kinds.
std::vector<Family> Families(const std::vector<KeywordRow>& rows) {
    std::vector<Family> families;
    for (std::size_t i = 0; i < rows.size();) {
        const std::string& kind = rows[i].kind;
        Family one{"", Code(kind), Table(false)};
        for (; i < rows.size() && rows[i].kind == kind; ++i) {
            if (rows[i].base.empty()) continue;
            one.base = rows[i].base;
            one.table.Add(rows[i]);
        }
        if (one.base.empty()) continue;
        const auto same = std::find_if(families.begin(), families.end(), [&](const Family& family) {
            return family.base == one.base && family.table.Text() == one.table.Text();
        });
        if (same == families.end())
            families.push_back(one);
        else
            same->kinds += ", " + one.kinds;
    }
    return families;
}

}  // namespace

void WriteKeywordsPage(std::ostream& out) {
    const std::vector<KeywordRow> rows = veka::KeywordLister::AllKeywords();
    Table sections(true), kinds(true);
    for (const KeywordRow& row : rows)
        if (row.base.empty()) (row.kind.empty() ? sections : kinds).Add(row);

    out << "# All keywords\n\n"
           "`veka-describe keywords` prints this page from the rows of the parser and of the records. A test "
           "compares "
           "the page with\nthe rows. After a change of the rows run `scripts/renew`.\n\n"
           "*In* is the level around the keyword; the keywords of the top level have none. `*` is a level of "
           "any name "
           "that no other\nrow of its parent finds. *The level itself* is what the values or the name of the "
           "parent "
           "give.\n[The file format](format.md) explains the forms of reading. Lengths are in the unit of "
           "the part if the "
           "table says nothing else.\n\n## Keywords of the sections\n\n";
    sections.Write(out);
    for (const Family& family : Families(rows)) {
        out << "\n## Keywords of all kinds of `" << family.base
            << "`\n\nThese kinds of objects have them: " << family.kinds << ".\n\n";
        family.table.Write(out);
    }
    out << "\n## Keywords of one kind of object\n\n";
    kinds.Write(out);
}

void WriteDictionary(std::ostream& out) {
    std::set<std::string> keywords;
    for (const KeywordRow& row : veka::KeywordLister::AllKeywords())
        if (!row.keyword.empty() && row.keyword != "*") keywords.insert(row.keyword);
    for (const std::string& keyword : keywords) out << '"' << keyword << "\"\n";
    // Marks of the format, and words that values are compared with.
    for (const char* mark : {"//", "\\\\\\\"", "(\\\"\\\")", "TRUE", "FALSE"}) out << '"' << mark << "\"\n";
}

#include "tools/ModelMap.h"

#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/Description.h"
#include "model/CVEKA_Manager.h"

namespace {

using veka::FieldDescription;
using veka::RecordDescription;

constexpr std::size_t kNamesInALine = 3;

/// True for a small record that is drawn as a field of its parent, without a box of its own.
bool IsSmall(const RecordDescription& record) {
    static const std::set<std::string_view> small{"CVEKA_Coordinate", "CVEKA_Color", "CVEKA_RLC",
                                                  "CVEKA_MinMax"};
    return small.count(record.name) > 0;
}

/// Draws the boxes of records and the arrows between them.
class Map {
public:
    explicit Map(std::ostream& out) : m_out(out) {}

    /// Draws a record and all records that can be reached from it.
    void Draw(const RecordDescription& root) {
        m_waiting.push_back(&root);
        while (!m_waiting.empty()) {
            const RecordDescription* next = m_waiting.front();
            m_waiting.pop_front();
            if (m_drawn.insert(next).second) DrawBox(*next);
        }
    }

private:
    void DrawBox(const RecordDescription& record) {
        std::vector<std::string_view> plain;
        std::string ports;
        for (const FieldDescription& field : record.fields) {
            if (!field.content || IsSmall(*field.content))
                plain.push_back(field.name);
            else
                ports += DrawArrow(record, field);
        }
        const std::string_view name = std::string_view(record.name).substr(std::string_view("CVEKA_").size());
        m_out << ' ' << record.name
              << " [label=<<table border=\"0\" cellborder=\"1\" cellspacing=\"0\" cellpadding=\"3\">"
              << "<tr><td bgcolor=\"#dde8f5\" align=\"left\"><b>" << name << "</b></td></tr>";
        if (!plain.empty()) m_out << "<tr><td align=\"left\">" << Lines(plain) << "</td></tr>";
        m_out << ports << "</table>>];\n";
    }
    /// Draws the arrow from a field to the record that it holds, and returns the row of the field.
    std::string DrawArrow(const RecordDescription& record, const FieldDescription& field) {
        const bool many = field.content->IsArray();
        const RecordDescription* target = many ? field.content->element : field.content;
        m_out << ' ' << record.name << ':' << field.name << ":e -> " << target->name
              << (many ? " [style=dashed]" : "") << ";\n";
        m_waiting.push_back(target);
        const std::string name = field.name;
        return "<tr><td port=\"" + name + "\" align=\"left\">" + name + (many ? " *" : "") + "</td></tr>";
    }
    static std::string Lines(const std::vector<std::string_view>& names) {
        std::string lines;
        for (std::size_t i = 0; i < names.size(); ++i) {
            lines += names[i];
            const bool last = i + 1 == names.size();
            lines += last || (i + 1) % kNamesInALine == 0 ? "<br align=\"left\"/>" : ", ";
        }
        return lines;
    }

    std::ostream& m_out;
    std::deque<const RecordDescription*> m_waiting;
    std::set<const RecordDescription*> m_drawn;
};

}  // namespace

void WriteModelMap(std::ostream& out) {
    out << "digraph model {\n"
           " rankdir=LR; ranksep=0.6; nodesep=0.12;\n"
           " node [shape=plain, fontname=\"Liberation Sans\", fontsize=9];\n"
           " edge [arrowsize=0.6, color=\"#555555\"];\n";
    Map(out).Draw(veka::Describe(typeid(CVEKA_Manager)));
    out << "}\n";
}

#include "export/kicad/Exported.h"

#include <algorithm>

#include "drawing/SceneBuilder.h"

namespace kicad {

namespace {

// More sentences help nobody.
constexpr std::size_t kMostRemarks = 50;

}  // namespace

void Remarks::Add(const std::string& sentence) {
    if (m_sentences.size() < kMostRemarks &&
        std::find(m_sentences.begin(), m_sentences.end(), sentence) == m_sentences.end())
        m_sentences.push_back(sentence);
}

void RequireRoom(std::size_t bytes) {
    if (bytes > kMostBytes)
        throw drawing::TooLarge("the export has more than " + std::to_string(kMostBytes) + " bytes");
}

std::string QuotedName(std::string_view name) {
    return '"' + std::string(name.substr(0, 200)) + '"';
}

}  // namespace kicad

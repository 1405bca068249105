#include "support/PlainReader.h"

#include <array>
#include <cstdio>
#include <memory>

namespace test {

namespace {

struct Node {
    PlainLevel level;
    std::vector<std::unique_ptr<Node>> children;
};

PlainLevel Finish(Node& node) {
    for (auto& child : node.children) node.level.children.push_back(Finish(*child));
    return node.level;
}

std::vector<std::string> Lines(const std::string& file) {
    std::vector<std::string> lines;
    std::string line;
    bool open = false;
    for (char c : file) {
        if (c != '\n') {
            line += c;
            open = true;
            continue;
        }
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        line.clear();
        open = false;
    }
    if (open) lines.push_back(line);
    return lines;
}

}  // namespace

bool EndsPlainly(const std::string& line, const std::string& chunk) {
    std::string copy = line;
    copy.erase(0, copy.find(chunk));
    std::string rest;
    for (size_t i = 0; i < copy.size();) {
        if (copy.compare(i, chunk.size(), chunk) == 0)
            i += chunk.size();
        else
            rest += copy[i++];
    }
    return !rest.empty() && rest[0] == ')';
}

PlainResult ReadPlainly(const std::string& file, bool stopAtDepthZero, int reserved) {
    PlainResult out;
    int depth = 0;
    Node* current = nullptr;
    std::array<std::unique_ptr<Node>, 20> open;
    bool inString = false;
    std::string token;
    char previous = static_cast<char>(reserved);
    std::string chunk;

    const auto commit = [&] {
        if (token.empty() || !current) return;
        if (current->level.name.empty()) {
            current->level.name = token;
        } else {
            if (token == " ") token.clear();
            current->level.values.push_back(token);
        }
    };

    for (std::string line : Lines(file)) {
        chunk.clear();
        std::vector<int> kinds;
        if (line.compare(0, 2, "//") == 0) {
            ++out.lineCount;
            continue;
        }
        if (inString) {
            token += '\n';
            ++out.lineCount;
        } else {
            commit();
            token.clear();
            ++out.lineCount;
            line.erase(0, line.find_first_not_of(" \t\r\n\v\f"));
        }
        bool trail = false;
        int previousKind = 1;
        for (size_t i = 0; i < line.size(); ++i) {
            const char b = line[i];
            if (trail) {
                trail = false;
                kinds.push_back(-1);
            } else if (static_cast<signed char>(b) < 0) {
                trail = true;
                kinds.push_back(-1);
            } else {
                kinds.push_back(1);
            }
            if (i > 0) {
                previous = line[i - 1];
                previousKind = kinds[i - 1];
            }
            if (inString) {
                chunk += b;
                if (b != '"') {
                    token += b;
                    continue;
                }
                if (previousKind != -1 && previous == '\\') {
                    if (!EndsPlainly(line, chunk)) {
                        token += '"';
                        continue;
                    }
                } else if (token.empty() || chunk == "\"") {
                    token += ' ';
                }
                commit();
                token.clear();
                inString = false;
                continue;
            }
            if (b == '"') {
                if (!token.empty() && token.back() == '\\') {
                    token += '"';
                } else {
                    inString = true;
                    token.clear();
                    chunk.clear();
                }
            } else if (b == '\n') {
                token.clear();
            } else if (b == ' ') {
                commit();
                token.clear();
            } else if (b == '(') {
                const auto d = static_cast<unsigned>(depth);
                ++depth;
                if (d > 19) {
                    char text[200];
                    std::snprintf(text, sizeof text,
                                  "Parser meet unexpected Brace Counting Number, %d at line number %d.!",
                                  depth, out.lineCount);
                    out.message = text;
                    out.result = -1;
                    return out;
                }
                commit();
                open[d] = std::make_unique<Node>();
                current = open[d].get();
                current->level.depth = depth;
                token.clear();
            } else if (b == ')') {
                --depth;
                commit();
                if (depth == 0) {
                    out.roots.push_back(Finish(*open[0]));
                    current = nullptr;
                } else if (depth >= 1 && depth <= 20) {
                    Node* parent = open[static_cast<size_t>(depth) - 1].get();
                    parent->children.push_back(std::move(open[static_cast<size_t>(depth)]));
                    current = parent;
                }
                token.clear();
            } else {
                token += b;
            }
        }
        if (out.lineCount != 1 && stopAtDepthZero && depth == 0) return out;
    }
    out.result = depth == 0 ? 0 : -1;
    return out;
}

}  // namespace test

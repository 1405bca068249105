#include "support/ReferenceReader.h"

#include <array>
#include <cstdio>
#include <memory>
#include <utility>

namespace test {

namespace {

struct Node {
    LevelData level;
    int line = 0;
    std::vector<std::unique_ptr<Node>> children;
};

LevelData Finish(Node& node) {
    for (auto& child : node.children) node.level.children.push_back(Finish(*child));
    return std::move(node.level);
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::string line;
    bool open = false;
    for (char c : text) {
        if (c != '\n') {
            line += c;
            open = true;
            continue;
        }
        // Rule: a carriage return directly before a line feed is part of the line end.
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        line.clear();
        open = false;
    }
    // Rule: a last line without a line feed is a line.
    if (open) lines.push_back(line);
    return lines;
}

}  // namespace

bool EndsByReference(const std::string& line, const std::string& chunk) {
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

ReadResult ReadByReference(const std::string& text, bool stopAtDepthZero, int reserved) {
    ReadResult out;
    int depth = 0;
    Node* current = nullptr;
    std::array<std::unique_ptr<Node>, 20> open;
    bool inString = false;
    int stringLine = 0;
    std::string token;
    char previous = static_cast<char>(reserved);
    std::string chunk;

    const auto commit = [&] {
        // Rule: an empty token is no token, and a token outside all levels is dropped.
        if (token.empty() || !current) return;
        if (current->level.name.empty()) {
            // Rule: the first token of a level is its name.
            current->level.name = token;
        } else {
            // Rule: all further tokens are values; a token of one blank is the empty value.
            if (token == " ") token.clear();
            current->level.values.push_back(token);
        }
    };
    const auto finish = [&](int result) {
        out.result = result;
        // A last token that was not complete is no value of any level in the tree, but it may be the name of
        // an open one.
        if (!inString) commit();
        for (int i = 0; i < depth && i < 20; ++i) {
            const Node& node = *open[static_cast<size_t>(i)];
            out.open.push_back({node.level.name, node.line});
        }
        if (inString) out.openString = stringLine;
        return out;
    };

    std::vector<std::string> lines = Lines(text);
    for (std::string& line : lines) {
        chunk.clear();
        std::vector<int> kinds;
        if (line.compare(0, 2, "//") == 0) {
            // Rule: a line that begins with two slashes is a comment, inside a string too.
            ++out.lineCount;
            continue;
        }
        if (inString) {
            // Rule: the lines of a string are joined by a line feed and are not trimmed.
            token += '\n';
            ++out.lineCount;
        } else {
            // Rule: a token ends with its line. Leading white space of a line is removed.
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
                // Rule: the byte after a lead byte is a trail byte, whatever it is.
                trail = false;
                kinds.push_back(-1);
            } else if (static_cast<signed char>(b) < 0) {
                // Rule: a byte with the top bit set is a lead byte.
                trail = true;
                kinds.push_back(-1);
            } else {
                kinds.push_back(1);
            }
            if (i > 0) {
                // Rule: at the first byte of a line the previous byte is still that of an earlier line.
                previous = line[i - 1];
                previousKind = kinds[i - 1];
            }
            if (inString) {
                chunk += b;
                if (b != '"') {
                    // Rule: in a string all bytes but the double quote are text.
                    token += b;
                    continue;
                }
                if (previousKind != -1 && previous == '\\') {
                    // Rule: a quote after a backslash ends the string only if the look-ahead finds a close
                    // parenthesis. Otherwise the quote and the backslash are text.
                    if (!EndsByReference(line, chunk)) {
                        token += '"';
                        continue;
                    }
                } else if (token.empty() || chunk == "\"") {
                    // Rule: an empty string is one blank, and a closing quote at the beginning of a line adds
                    // one.
                    token += ' ';
                }
                // Rule: a string is a token.
                commit();
                token.clear();
                inString = false;
                continue;
            }
            if (b == '"') {
                if (!token.empty() && token.back() == '\\') {
                    // Rule: outside a string a quote after a backslash is text, also after a trail byte.
                    token += '"';
                } else {
                    // Rule: a quote begins a string and drops the token directly before it.
                    inString = true;
                    stringLine = out.lineCount;
                    token.clear();
                    chunk.clear();
                }
            } else if (b == '\n') {
                token.clear();
            } else if (b == ' ') {
                // Rule: a blank ends a token. A tab does not.
                commit();
                token.clear();
            } else if (b == '(') {
                // Rule: a level begins. It is not part of the tree before it is closed.
                const auto d = static_cast<unsigned>(depth);
                ++depth;
                if (d > 19) {
                    // Rule: a level is an error inside 20 open levels and after a stray close parenthesis.
                    char message[200];
                    std::snprintf(message, sizeof message,
                                  "Parser meet unexpected Brace Counting Number, %d at line number %d.!",
                                  depth, out.lineCount);
                    out.message = message;
                    return finish(-1);
                }
                // Rule: a token before the parenthesis is a value of the enclosing level.
                commit();
                open[d] = std::make_unique<Node>();
                current = open[d].get();
                current->level.depth = depth;
                current->line = out.lineCount;
                token.clear();
            } else if (b == ')') {
                --depth;
                commit();
                if (depth == 0) {
                    // Rule: a closed level outside all others is a top-level level.
                    out.roots.push_back(Finish(*open[0]));
                    out.rootLines.push_back(open[0]->line);
                    current = nullptr;
                } else if (depth >= 1 && depth <= 20) {
                    // Rule: any other closed level is a child of the level around it.
                    Node* parent = open[static_cast<size_t>(depth) - 1].get();
                    parent->children.push_back(std::move(open[static_cast<size_t>(depth)]));
                    current = parent;
                } else if (out.strayLine == 0) {
                    // Rule: a close parenthesis outside all levels closes nothing, but is counted.
                    out.strayLine = out.lineCount;
                }
                token.clear();
            } else {
                // Rule: any other byte is part of a token.
                token += b;
            }
        }
        // Rule: on demand, reading stops after a line that ends outside all levels. The first line and
        // comments do not stop it.
        if (out.lineCount != 1 && stopAtDepthZero && depth == 0) return finish(0);
    }
    // Rule: at the end of the text all levels must be closed. A token or a string that is not complete is
    // dropped.
    return finish(depth == 0 ? 0 : -1);
}

}  // namespace test

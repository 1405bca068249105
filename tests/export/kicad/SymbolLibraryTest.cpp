#include "export/kicad/SymbolLibrary.h"

#include <gtest/gtest.h>

namespace {

using kicad::Exported;
using kicad::WithSymbols;

const Exported kA{"A", "  (symbol \"A\" new)", {}};
const Exported kB{"B(\"", "  (symbol \"B(\\\"\" new)", {}};

TEST(KiCadSymbolLibrary, ANewLibraryHasTheSymbols) {
    EXPECT_EQ(WithSymbols("", {kA, kB}),
              "(kicad_symbol_lib (version 20211014) (generator veka)\n  (symbol \"A\" new)\n  (symbol "
              "\"B(\\\"\" new)\n)\n");
}

TEST(KiCadSymbolLibrary, OtherSymbolsStayByteForByte) {
    const std::string library =
        "(kicad_symbol_lib (version 1)\r\n\t(symbol \"X\"   (a \")\\\"(\") )\r\n (symbol \"A\" (old))  "
        "(symbol Y)\r\n)\r\n";
    EXPECT_EQ(WithSymbols(library, {kA, kB}),
              "(kicad_symbol_lib (version 1)\r\n\t(symbol \"X\"   (a \")\\\"(\") )\r\n (symbol \"A\" new)  "
              "(symbol Y)\n  (symbol \"B(\\\"\" new)\r\n)\r\n");
}

TEST(KiCadSymbolLibrary, ASymbolIsFoundByItsEscapedName) {
    const std::string once = WithSymbols("", {kA, kB});
    EXPECT_EQ(WithSymbols(once, {kB, kA}), once);
}

TEST(KiCadSymbolLibrary, ASymbolInsideOfAnotherOneIsNone) {
    EXPECT_EQ(WithSymbols("(kicad_symbol_lib (symbol \"Z\" (symbol \"A\" old)))", {kA}),
              "(kicad_symbol_lib (symbol \"Z\" (symbol \"A\" old))\n  (symbol \"A\" new))");
}

TEST(KiCadSymbolLibrary, OfTwoSymbolsOfOneNameTheLastOneCounts) {
    EXPECT_EQ(
        WithSymbols("(kicad_symbol_lib)", {{"A", "(symbol \"A\" 1)", {}}, {"A", "(symbol \"A\" 2)", {}}}),
        "(kicad_symbol_lib\n  (symbol \"A\" 2))");
}

TEST(KiCadSymbolLibrary, WhatIsNoLibraryIsRefused) {
    for (const char* text :
         {"x", "(", "()", "(kicad_pcb)", "(kicad_symbol_lib", "(kicad_symbol_lib (symbol \"A)",
          "(kicad_symbol_lib))", "(kicad_symbol_lib (symbol \"A\"", "(kicad_symbol_lib) x", "\n"})
        EXPECT_THROW(WithSymbols(text, {kA}), kicad::NoSymbolLibrary) << text;
}

TEST(KiCadSymbolLibrary, ADeepLibraryIsRead) {
    std::string deep = "(kicad_symbol_lib ";
    for (int i = 0; i < 200'000; ++i) deep += '(';
    for (int i = 0; i < 200'000; ++i) deep += ')';
    EXPECT_EQ(WithSymbols(deep + ")", {}), deep.substr(0, deep.size()) + ")");
}

}  // namespace

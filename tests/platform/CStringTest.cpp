#include "platform/CString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iomanip>
#include <random>
#include <sstream>
#include <stdexcept>
#include <unordered_map>

#include "platform/Exceptions.h"

namespace {

TEST(CString, TakesANullPointerForTheEmptyString) {
    EXPECT_TRUE(CString(static_cast<const char*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString(nullptr, 3).IsEmpty());
    EXPECT_TRUE(CString("abc") != CString(static_cast<const char*>(nullptr)));
    EXPECT_TRUE(CString() == static_cast<const char*>(nullptr));
}

TEST(CString, HoldsAnyByte) {
    const CString text(std::string_view("a\0b\xFF", 4));
    EXPECT_EQ(text.GetLength(), 4);
    EXPECT_EQ(text[1], '\0');
    EXPECT_EQ(text.View().size(), 4u);
}

TEST(CString, MakesRepeatedBytesAndParts) {
    EXPECT_EQ(CString('x', 3), "xxx");
    EXPECT_EQ(CString('x', -1), "");
    EXPECT_EQ(CString("abc", 2), "ab");
    EXPECT_EQ(CString("abc", -2), "");
}

TEST(CString, RaisesOutsideTheString) {
    CString text("ab");
    EXPECT_THROW(text.GetAt(2), CInvalidArgException);
    EXPECT_THROW(text.GetAt(-1), CInvalidArgException);
    EXPECT_THROW(text.SetAt(2, 'x'), CInvalidArgException);
    text.SetAt(1, 'x');
    EXPECT_EQ(text, "ax");
}

TEST(CString, ClampsPartsToTheString) {
    const CString text("abcdef");
    EXPECT_EQ(text.Left(2), "ab");
    EXPECT_EQ(text.Left(99), "abcdef");
    EXPECT_EQ(text.Left(-1), "");
    EXPECT_EQ(text.Right(2), "ef");
    EXPECT_EQ(text.Right(99), "abcdef");
    EXPECT_EQ(text.Mid(2, 3), "cde");
    EXPECT_EQ(text.Mid(4), "ef");
    EXPECT_EQ(text.Mid(99), "");
    EXPECT_EQ(text.Mid(-5, 2), "ab");
}

TEST(CString, Finds) {
    const CString text("abcabc");
    EXPECT_EQ(text.Find("ca"), 2);
    EXPECT_EQ(text.Find('a', 1), 3);
    EXPECT_EQ(text.Find("x"), -1);
    EXPECT_EQ(text.Find("a", -1), -1);
    EXPECT_EQ(text.Find("a", 99), -1);
    EXPECT_EQ(text.Find(CString("bc"), 2), 4);
    EXPECT_EQ(text.ReverseFind('b'), 4);
    EXPECT_EQ(text.FindOneOf("xc"), 2);
    EXPECT_EQ(text.FindOneOf(nullptr), -1);
}

TEST(CString, DeletesAndInserts) {
    CString text("abcdef");
    EXPECT_EQ(text.Delete(0, 2), 4);
    EXPECT_EQ(text, "cdef");
    EXPECT_EQ(text.Delete(2, 99), 2);
    EXPECT_EQ(text.Delete(99), 2);
    EXPECT_EQ(text.Insert(1, "xy"), 4);
    EXPECT_EQ(text, "cxyd");
    EXPECT_EQ(text.Insert(99, "z"), 5);
    EXPECT_EQ(text, "cxydz");
}

TEST(CString, ReplacesFromTheLeftWithoutOverlap) {
    CString text("aaaab");
    EXPECT_EQ(text.Replace("aa", "x"), 2);
    EXPECT_EQ(text, "xxb");
    EXPECT_EQ(text.Replace("", "y"), 0);
    EXPECT_EQ(text.Replace("q", "y"), 0);
    EXPECT_EQ(text.Replace("x", ""), 2);
    EXPECT_EQ(text, "b");
    EXPECT_EQ(text.Remove('b'), 1);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, TrimsWhiteSpaceOnly) {
    CString text(" \t\r\n\v\f a \t\r\n\v\f ");
    CString left(text), right(text);
    EXPECT_EQ(left.TrimLeft(), "a \t\r\n\v\f ");
    EXPECT_EQ(right.TrimRight(), " \t\r\n\v\f a");
    EXPECT_EQ(text.Trim(), "a");
    EXPECT_EQ(CString(" \t").Trim(), "");
    EXPECT_EQ(CString("\xA0").Trim(), "\xA0");
}

TEST(CString, ComparesBytes) {
    EXPECT_LT(CString("a").Compare("b"), 0);
    EXPECT_GT(CString("\x80").Compare("a"), 0);
    EXPECT_EQ(CString("a").Compare("a"), 0);
    EXPECT_LT(CString("a"), CString("b"));
    EXPECT_EQ(CString("ABC").CompareNoCase("abc"), 0);
    EXPECT_LT(CString("ab").CompareNoCase("ABC"), 0);
    EXPECT_GT(CString("abd").CompareNoCase("ABC"), 0);
    EXPECT_LT(CString("abb").CompareNoCase("ABC"), 0);
    EXPECT_GT(CString("abcd").CompareNoCase("ABC"), 0);
    EXPECT_FALSE(CString("A") == "a");
}

TEST(CString, ChangesTheCaseOfAsciiLettersAlone) {
    EXPECT_EQ(CString("aZ\xE4").MakeUpper(), "AZ\xE4");
    EXPECT_EQ(CString("aZ\xC4").MakeLower(), "az\xC4");
}

TEST(CString, JoinsTexts) {
    CString text = CString("a") + "b" + CString("c");
    text += "d";
    text += 'e';
    text += std::string_view("f");
    text += CString("g");
    text += static_cast<const char*>(nullptr);
    text.Append("h");
    text.AppendChar('i');
    EXPECT_EQ("<" + text, "<abcdefghi");
}

TEST(CString, Formats) {
    CString text;
    text.Format("%d of %s", 3, "four");
    EXPECT_EQ(text, "3 of four");
    text.Format("%s", "");
    EXPECT_TRUE(text.IsEmpty());
    text.Format("%s", text.GetString());
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, CanBeAddedToItself) {
    CString text("ab");
    text += text;
    text += text.GetString();
    EXPECT_EQ(text, "abababab");
}

TEST(CString, IsAsATextOfTheStandardLibraryWhateverIsDoneToIt) {
    std::mt19937 random(1);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 300; ++round) {
        CString string;
        std::string text;
        for (int step = 0; step < 30; ++step) {
            const std::string piece(static_cast<size_t>(below(20)), static_cast<char>('a' + below(3)));
            const int at = below(20), count = below(6);
            const size_t begin = std::min(static_cast<size_t>(at), text.size());
            switch (below(8)) {
                case 0:
                    string += std::string_view(piece);
                    text += piece;
                    break;
                case 1:
                    string += string;
                    text += std::string(text);
                    break;
                case 2:
                    string.Insert(at, CString(piece));
                    text.insert(begin, piece);
                    break;
                case 3:
                    string.Delete(at, count);
                    text.erase(begin, static_cast<size_t>(count));
                    break;
                case 4:
                    string = CString(piece);
                    text = piece;
                    break;
                case 5:
                    string.Remove('a');
                    std::erase(text, 'a');
                    break;
                case 6:
                    string = CString(string);
                    break;
                default:
                    if (!text.empty()) {
                        const size_t place = static_cast<size_t>(at) % text.size();
                        string.SetAt(static_cast<int>(place), 'z');
                        text[place] = 'z';
                    }
            }
            if (text.size() > 500) string = CString(text = "b");
            ASSERT_EQ(string.View(), text);
            ASSERT_EQ(string.GetString()[text.size()], '\0');
            ASSERT_EQ(string, CString(text)) << "one text has one form";
        }
    }
}

TEST(CString, IsSmallAndHoldsShortTextsInItself) {
    EXPECT_EQ(sizeof(CString), 16u);
    for (const int length : {0, 1, 13, 14, 15, 16, 100}) {
        const CString text('x', length);
        const char* begin = reinterpret_cast<const char*>(&text);
        const bool inside = text.GetString() >= begin && text.GetString() < begin + sizeof text;
        EXPECT_EQ(inside, static_cast<size_t>(length) <= CString::kMaximumInside) << length;
        EXPECT_EQ(text.GetLength(), length);
    }
}

TEST(CString, OfAReaderIsCutFromALongerText) {
    const char text[] = "abcdefghijklmnopqrstuvwxyz";
    for (size_t length = 0; length <= CString::kMaximumInside; ++length)
        EXPECT_EQ(CString::Inside(text, length), CString(std::string_view(text, length)));
}

TEST(CString, ACopyOfABorrowedTextIsItsOwn) {
    char lent[] = "a text that is longer than what fits inside";
    CString copy, changed = CString::Borrow(lent);
    EXPECT_EQ(changed.GetString(), lent) << "nothing was copied";
    copy = changed;
    changed += "!";
    lent[0] = 'X';
    EXPECT_EQ(copy.GetAt(0), 'a');
    EXPECT_EQ(changed.GetAt(0), 'a');
    CString written = CString::Borrow(lent);
    written.SetAt(1, 'Y');
    EXPECT_EQ(lent[1], ' ') << "a change is made in a copy";
    EXPECT_EQ(CString::Borrow("short"), "short");
}

TEST(CString, ABorrowedTextIsCopiedByAMove) {
    char lent[] = "a text that is longer than what fits inside";
    CString first = CString::Borrow(lent), second = CString::Borrow(lent),
            assigned("another text, of some length");
    const CString moved = std::move(first);
    assigned = std::move(second);
    lent[0] = 'X';
    EXPECT_EQ(moved, "a text that is longer than what fits inside");
    EXPECT_EQ(assigned, moved);
    EXPECT_EQ(first, "");   // NOLINT(bugprone-use-after-move): what a move leaves is promised
    EXPECT_EQ(second, "");  // NOLINT(bugprone-use-after-move)
}

TEST(CString, ConvertsToTheStandardStringsWithAllItsBytes) {
    const CString text("a\0b", 3);
    const std::string copy(text);
    const std::string_view direct(text), converted = text;
    const auto pass = [](std::string_view bytes) { return bytes; };
    EXPECT_EQ(copy, std::string("a\0b", 3));
    EXPECT_EQ(direct, copy);
    EXPECT_EQ(converted, copy);
    EXPECT_EQ(pass(text), copy);
    EXPECT_EQ(converted.data(), text.GetString());
}

TEST(CString, GoesIntoAStandardStringAsAnyTextDoes) {
    const CString text("abc");
    std::string assigned, appended = "x";
    assigned = text;
    appended += text;
    EXPECT_EQ(assigned, "abc");
    EXPECT_EQ(appended, "xabc");
    EXPECT_EQ(text, assigned);
}

TEST(CString, CanBeTheKeyOfAHashTable) {
    std::unordered_map<CString, int> table;
    table["a"] = 1;
    table[CString("a\0b", 3)] = 2;
    table["a text that is longer than what fits inside"] = 3;
    EXPECT_EQ(table.at("a"), 1);
    EXPECT_EQ(table.at(CString("a\0b", 3)), 2);
    EXPECT_EQ(table.at("a text that is longer than what fits inside"), 3);
    EXPECT_EQ(std::hash<CString>()("a"), std::hash<std::string_view>()("a"));
}

TEST(CString, IsWrittenToAStreamWithAllItsBytes) {
    std::ostringstream out;
    out << CString("a\0b", 3) << std::setw(3) << CString("c");
    EXPECT_EQ(out.str(), std::string("a\0b  c", 6));
}

TEST(CString, TakesNoTextBeyondItsLength) {
    const volatile size_t length = size_t{1} << 31;  // not for the compiler to see: nothing is read of it
    EXPECT_THROW(CString(std::string_view("a", length)), std::length_error);
}

TEST(CString, ComparesAShortTextWithALongOneAndFindsNoNullPointer) {
    const CString shorter("short"), longer("a text of more than fourteen bytes");
    EXPECT_FALSE(shorter == longer);
    EXPECT_FALSE(longer == shorter);
    EXPECT_EQ(shorter.Find(static_cast<const char*>(nullptr)), 0) << "as the empty text";
    CString text("abc");
    EXPECT_THROW(text.SetAt(-1, 'x'), CInvalidArgException);
    EXPECT_THROW(text.SetAt(3, 'x'), CInvalidArgException);
}

}  // namespace

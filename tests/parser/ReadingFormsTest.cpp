#include "parser/ReadingForms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Comment.h"
#include "parser/CInvalidAccessException.h"
#include "parser/ReadBy.h"
#include "parser/Rows.h"

namespace {

using namespace veka;
using test::ReadBy;
using testing::ElementsAre;

TEST(ReadingForms, TheFirstValueCounts) {
    int number = 7;
    CString text = "kept";
    ReadBy("(N 12mm 3)", Own(First(number)));
    EXPECT_EQ(number, 12);
    ReadBy("(N)", Own(First(number)), Own(First(text)));
    EXPECT_EQ(number, 12);
    EXPECT_EQ(text, "kept");
}

TEST(ReadingForms, TheLastValueCounts) {
    double number = 7;
    ReadBy("(N 1 2.5mm)", Own(Last(number)));
    EXPECT_EQ(number, 2.5);
    ReadBy("(N)", Own(Last(number)));
    EXPECT_EQ(number, 2.5);
}

TEST(ReadingForms, ValuesGoToFieldsByPosition) {
    CString text;
    int number = 7;
    double real = 8;
    ReadBy("(N a 2)", Own(ByPosition(text, number, real)));
    EXPECT_EQ(text, "a");
    EXPECT_EQ(number, 2);
    EXPECT_EQ(real, 8);
    ReadBy("(N b 3 4.5 5)", Own(ByPosition(text, number, real)));
    EXPECT_EQ(real, 4.5);
}

TEST(ReadingForms, TheRestOfTheValuesGoesToAList) {
    CString text;
    CStringArray list;
    ReadBy("(N a b c)", Own(ByPosition(text, Rest(list))));
    EXPECT_EQ(text, "a");
    EXPECT_THAT(test::Strings(list), ElementsAre("b", "c"));
    ReadBy("(N d)", Own(ByPosition(text, Rest(list))));
    EXPECT_THAT(test::Strings(list), ElementsAre("b", "c"));
}

TEST(ReadingForms, AnExactNumberOfValuesIsAllOrNothing) {
    int one = 7, two = 8;
    for (const char* text : {"(N)", "(N 1)", "(N 1 2 3)"}) {
        ReadBy(text, Own(Exactly(one, two)));
        EXPECT_EQ(one, 7) << text;
        EXPECT_EQ(two, 8) << text;
    }
    ReadBy("(N 1 2)", Own(Exactly(one, two)));
    EXPECT_EQ(one, 1);
    EXPECT_EQ(two, 2);
}

TEST(ReadingForms, APointAndAColourAreZeroWhereValuesAreMissing) {
    CVEKA_Coordinate point;
    point.SetZ(7);
    ReadBy("(N 1.5)", Own(Point(point)));
    EXPECT_EQ(point.GetX(), 1.5);
    EXPECT_EQ(point.GetZ(), 0);
    CVEKA_Color color;
    color.SetBlue(7);
    ReadBy("(N 1 2)", Own(Color(color)));
    EXPECT_EQ(color.GetGreen(), 2);
    EXPECT_EQ(color.GetBlue(), 0);
}

TEST(ReadingForms, AListGrows) {
    CStringArray list;
    ReadBy("(N a \"\" b)", Own(List(list)), Own(List(list)));
    EXPECT_THAT(test::Strings(list), ElementsAre("a", "", "b", "a", "", "b"));
}

TEST(ReadingForms, ANewListReplacesTheFormerOne) {
    CStringArray list;
    ReadBy("(N a b)", Own(NewList(list)), Own(NewList(list)));
    EXPECT_THAT(test::Strings(list), ElementsAre("a", "b"));
    ReadBy("(N)", Own(NewList(list)));
    EXPECT_TRUE(list.IsEmpty());
}

TEST(ReadingForms, OnlyTheExactWordSetsAFlag) {
    for (const char* text : {"(N true)", "(N 1)", "(N \"\")", "(N \"TRUE \")", "(N FALSE TRUE)"}) {
        int flag = 1;
        ReadBy(text, Own(First(Flag(flag))));
        EXPECT_EQ(flag, 0) << text;
    }
    int flag = 5;
    ReadBy("(N)", Own(First(Flag(flag))));
    EXPECT_EQ(flag, 5);
    ReadBy("(N TRUE)", Own(First(Flag(flag))));
    EXPECT_EQ(flag, 1);
}

TEST(ReadingForms, ANumberFromOneIsOneLess) {
    int number = 5;
    ReadBy("(N 3)", Own(First(FromOne(number))));
    EXPECT_EQ(number, 2);
    ReadBy("(N -2147483648)", Own(First(FromOne(number))));
    EXPECT_EQ(number, 2147483647) << "and wraps around";
}

TEST(ReadingForms, TheNameOfALevelIsAValueToo) {
    int number = 0;
    ReadBy("(12 7)", Own(Name(number)));
    EXPECT_EQ(number, 12);
}

TEST(ReadingForms, ARecordOfAMethodReplacesTheField) {
    Owned<CVEKA_Color> color;
    color->SetBlue(7);
    ReadBy("(N (C 1 2))", Row("C", Replace(color, &CVEK_AsciiParser::ColorParser)));
    EXPECT_EQ(color->GetGreen(), 2);
    EXPECT_EQ(color->GetBlue(), 0);
}

TEST(ReadingForms, ARecordOfRowsReplacesTheField) {
    Owned<CVEKA_CommentArray> comments;
    const auto one = Replace(comments, [](CVEKA_CommentArray& fresh) {
        return Rows(Any(Element(fresh, [](CVEKA_Comment&) { return Rows(); })));
    });
    ReadBy("(N (C (1) (2)) (C (3)))", Row("C", one));
    EXPECT_EQ(comments->GetSize(), 1);
}

TEST(ReadingForms, ElementsAreAppended) {
    CVEKA_CommentArray comments;
    ReadBy("(N (C) (D) (C))", Row("C", Element(comments, [](CVEKA_Comment&) { return Rows(); })));
    EXPECT_EQ(comments.GetSize(), 2);
}

TEST(ReadingForms, AnElementByPlaceReadsTheChildAtItsOwnPlace) {
    CVEKA_CommentArray comments;
    std::vector<int> numbers(2);
    size_t next = 0;
    const auto rows = [&](CVEKA_Comment&) { return Rows(Row("A", First(numbers[next++]))); };
    ReadBy("(N (C (A 1) (A 2)) (C (A 3) (A 4)))", Row("C", ElementByPlace(comments, rows)));
    EXPECT_THAT(numbers, ElementsAre(1, 4));
    EXPECT_EQ(comments.GetSize(), 2);
    const auto none = [](CVEKA_Comment&) { return Rows(); };
    EXPECT_THROW(ReadBy("(N (X) (C (A)))", Row("C", ElementByPlace(comments, none))),
                 CInvalidAccessException);
    ReadBy("(N (X) (C))", Row("C", ElementByPlace(comments, none)));
    EXPECT_EQ(comments.GetSize(), 3) << "without children there is none to be absent";
}

TEST(ReadingForms, ALevelCanBeReadOnlyWhereItHasChildren) {
    int number = 0;
    ReadBy("(N (A 1))", Row("A", IfItHasChildren(First(number))));
    EXPECT_EQ(number, 0);
    ReadBy("(N (A 1 (X)))", Row("A", IfItHasChildren(First(number))));
    EXPECT_EQ(number, 1);
}

TEST(ReadingForms, AChildCanMakeTheParentBeRead) {
    int number = 0;
    ReadBy("(N 3 (A 1))", Row("A", Parent(First(number))));
    EXPECT_EQ(number, 3);
}

}  // namespace

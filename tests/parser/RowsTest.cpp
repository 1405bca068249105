#include "parser/Rows.h"

#include <gtest/gtest.h>

#include "parser/ReadBy.h"

namespace {

using namespace veka;
using test::ReadBy;

TEST(Rows, FindChildrenByTheirExactName) {
    int number = 0;
    ReadBy("(N 1 (a 2) (AB 3) (A 4) (B 5))", Row("A", First(number)));
    EXPECT_EQ(number, 4);
}

TEST(Rows, ALaterChildOfTheSameNameIsReadToo) {
    int number = 0;
    ReadBy("(N (A 1) (A 2) (A))", Row("A", First(number)));
    EXPECT_EQ(number, 2);
}

TEST(Rows, TheFirstRowThatFindsAChildReadsIt) {
    int one = 0, two = 0, rest = 0;
    ReadBy("(N (A 1) (B 2))", Row("A", First(one)), Row("A", First(two)), Any(First(rest)));
    EXPECT_EQ(one, 1);
    EXPECT_EQ(two, 0);
    EXPECT_EQ(rest, 2);
}

TEST(Rows, AKnownChildIsNotReadByRowsBelow) {
    int number = 0;
    ReadBy("(N (A 1))", Known("A"), Any(First(number)));
    EXPECT_EQ(number, 0);
}

TEST(Rows, EveryChildCanBeReadBesideTheOtherRows) {
    int last = 0, number = 0;
    ReadBy("(N (A 1) (B 2))", Every(First(last)), Row("A", First(number)));
    EXPECT_EQ(last, 2);
    EXPECT_EQ(number, 1);
}

TEST(Rows, AFirstChildIsKnownElsewhereAndNotRead) {
    int number = 0, rest = 0;
    ReadBy("(N (A 1) (A 2))", FirstChild("A", First(number)), Any(First(rest)));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(rest, 0);
    ReadBy("(N (B 3) (A 4))", FirstChild("A", First(number)), Any(First(rest)));
    EXPECT_EQ(number, 1);
    EXPECT_EQ(rest, 3);
}

TEST(Rows, AChildAtAPlaceIsFoundThereAlone) {
    int number = 0, rest = 0;
    ReadBy("(N (A 1) (A 2) (A 3))", AtPlace("A", 1, First(number)), Any(First(rest)));
    EXPECT_EQ(number, 2);
    EXPECT_EQ(rest, 3);
    ReadBy("(N (A 4) (B 5))", AtPlace("A", 1, First(number)));
    EXPECT_EQ(number, 2);
}

TEST(Rows, TheLevelItselfIsReadOnceBeforeItsChildren) {
    int number = 0;
    ReadBy("(N 1 (A 2))", Row("A", First(number)), Own(First(number)));
    EXPECT_EQ(number, 2);
}

TEST(Rows, RowsAreARow) {
    int own = 0, one = 0, two = 0;
    ReadBy("(N 1 (A 2) (B 3))", Rows(Own(First(own)), Row("A", First(one))), Rows(), Row("B", First(two)));
    EXPECT_EQ(own, 1);
    EXPECT_EQ(one, 2);
    EXPECT_EQ(two, 3);
}

TEST(Rows, CanReadTheChildrenOfAChild) {
    int own = 0, number = 0;
    ReadBy("(N (A 1 (B 2)) (B 3))", Row("A", Within(Own(First(own)), Row("B", First(number)))));
    EXPECT_EQ(own, 1);
    EXPECT_EQ(number, 2);
}

}  // namespace

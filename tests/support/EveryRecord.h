#pragma once

#include <gtest/gtest.h>

#include "support/Records.h"

/// What holds for every record and every array of the model. The build makes these tests for each class that
/// the model's headers declare.

namespace test {

/// A clone of anything, by whichever name the class has for that.
template <class T>
T* CloneOf(const T& value) {
    if constexpr (requires { value.Clone(); })
        return value.Clone();
    else
        return value.clone();
}

/// Opens the protected `Init`.
template <class T>
struct Opened : T {
    using T::Init;
    using T::operator=;
    Opened(const T& other) : T(other) {}
};

template <class T>
void EveryRecordCopiesDeeply() {
    auto filled = Filled<T>(0);
    const T source(filled);  // some classes lose a field when they are copied, and no more after that
    veka::Lose(filled);
    EXPECT_TRUE(SameButApart(filled, source));
    T copy(source);
    EXPECT_TRUE(SameButApart(source, copy));
    T assigned;
    EXPECT_FALSE(SameButApart(source, assigned)) << "filling changed nothing";
    assigned = source;
    EXPECT_TRUE(SameButApart(source, assigned));
    const std::unique_ptr<T> clone(CloneOf(source));
    EXPECT_TRUE(SameButApart(source, *clone));
}

template <class T>
void EveryRecordIsNotChangedByAssigningItToItself() {
    const auto filled = Filled<T>(0);
    T record(filled);
    const T before(record);
    const T& same = record;
    record = same;
    EXPECT_TRUE(SameButApart(before, record));
}

template <class T>
void EveryRecordMovesAsItCopies() {
    auto source = Filled<T>(0);
    const T before(source);
    auto target = Filled<T>(1000);
    target = std::move(source);
    EXPECT_TRUE(SameButApart(before, target));
    const T constructed(std::move(target));
    EXPECT_TRUE(SameButApart(before, constructed));
}

template <class T>
void EveryRecordHasItsDefaultsAgainAfterInit() {
    Opened<T> record(Filled<T>(0));
    record.Init();
    EXPECT_TRUE(SameButApart<T>(T(), record));
}

template <class T>
void EveryRecordGivesBackWhatItsSettersTook() {
    int seed = 0;
    T record;
    veka::ForEachField(record, [&](const auto& field, auto& value) {
        if constexpr (!std::is_null_pointer_v<decltype(field.setter)>) {
            using Value = std::remove_reference_t<decltype(value)>;
            if constexpr (kIsOwned<Value>) {
                Value filled{};
                Fill(*filled, seed);
                Value argument(filled);
                (record.*field.setter)(argument.get());
                EXPECT_TRUE(SameButApart(argument, value)) << field.name;
                EXPECT_EQ((record.*field.getter)(), value.get()) << field.name;
                Fill(*argument, seed);
                EXPECT_FALSE(SameButApart(argument, value)) << field.name << " follows the argument";
                EXPECT_THROW((record.*field.setter)(nullptr), CInvalidArgException) << field.name;
            } else if constexpr (std::is_same_v<Value, CStringArray>) {
                Value argument, got;
                Fill(argument, seed);
                (record.*field.setter)(argument);
                (record.*field.setter)(argument);
                (record.*field.getter)(got);
                EXPECT_EQ(got, argument) << field.name;
            } else {
                Value argument{};
                Fill(argument, seed);
                (record.*field.setter)(argument);
                EXPECT_EQ((record.*field.getter)(), argument) << field.name;
            }
        }
    });
}

template <class T>
void EveryArrayCopiesDeeply() {
    auto filled = Filled<T>(0);
    const T source(filled);
    veka::Lose(filled);
    EXPECT_TRUE(SameButApart(filled, source));
    T copy(source), assigned;
    EXPECT_TRUE(SameButApart(source, copy));
    assigned = source;
    EXPECT_TRUE(SameButApart(source, assigned));
    const std::unique_ptr<T> clone(CloneOf(source));
    EXPECT_TRUE(SameButApart(source, *clone));
}

template <class T>
void EveryArrayIsNotChangedByAssigningItToItself() {
    const auto filled = Filled<T>(0);
    T array(filled);
    const T before(array);
    const T& same = array;
    array = same;
    EXPECT_TRUE(SameButApart(before, array));
}

template <class T>
void EveryArrayIsEmptyAfterCopyingItOntoItself() {
    auto array = Filled<T>(0);
    array.Copy(array);
    EXPECT_EQ(array.GetSize(), 0);
}

template <class T>
void EveryArrayReplacesItsContentOnCopyAndKeepsItOnAppend() {
    const auto filled = Filled<T>(0);
    const T source(filled);
    auto array = Filled<T>(1000);
    array.Append(source);
    EXPECT_EQ(array.GetSize(), 4);
    array.Copy(source);
    EXPECT_TRUE(SameButApart(source, array));
}

template <class T>
void EveryArrayMovesAsItCopies() {
    auto source = Filled<T>(0);
    const T before(source);
    auto target = Filled<T>(1000);
    target = std::move(source);
    EXPECT_TRUE(SameButApart(before, target));
    const T constructed(std::move(target));
    EXPECT_TRUE(SameButApart(before, constructed));
}

template <class T>
void EveryArrayIsEmptyAfterInit() {
    Opened<T> array(Filled<T>(0));
    array.Init();
    EXPECT_EQ(array.GetSize(), 0);
}

template <class T>
void EveryArrayKnowsItsClass() {
    const std::string name = T().GetRuntimeClass()->m_lpszClassName;
    EXPECT_EQ(name.substr(0, 6), "CVEKA_");
    EXPECT_TRUE(name.ends_with("Array"));
}

}  // namespace test

#define VEKA_TEST_RECORD(Class)                                      \
    TEST(Class, CopiesDeeply) {                                      \
        test::EveryRecordCopiesDeeply<Class>();                      \
    }                                                                \
    TEST(Class, IsNotChangedByAssigningItToItself) {                 \
        test::EveryRecordIsNotChangedByAssigningItToItself<Class>(); \
    }                                                                \
    TEST(Class, MovesAsItCopies) {                                   \
        test::EveryRecordMovesAsItCopies<Class>();                   \
    }                                                                \
    TEST(Class, HasItsDefaultsAgainAfterInit) {                      \
        test::EveryRecordHasItsDefaultsAgainAfterInit<Class>();      \
    }                                                                \
    TEST(Class, GivesBackWhatItsSettersTook) {                       \
        test::EveryRecordGivesBackWhatItsSettersTook<Class>();       \
    }

#define VEKA_TEST_ARRAY(Class)                                               \
    TEST(Class, CopiesDeeply) {                                              \
        test::EveryArrayCopiesDeeply<Class>();                               \
    }                                                                        \
    TEST(Class, IsNotChangedByAssigningItToItself) {                         \
        test::EveryArrayIsNotChangedByAssigningItToItself<Class>();          \
    }                                                                        \
    TEST(Class, IsEmptyAfterCopyingItOntoItself) {                           \
        test::EveryArrayIsEmptyAfterCopyingItOntoItself<Class>();            \
    }                                                                        \
    TEST(Class, ReplacesItsContentOnCopyAndKeepsItOnAppend) {                \
        test::EveryArrayReplacesItsContentOnCopyAndKeepsItOnAppend<Class>(); \
    }                                                                        \
    TEST(Class, MovesAsItCopies) {                                           \
        test::EveryArrayMovesAsItCopies<Class>();                            \
    }                                                                        \
    TEST(Class, IsEmptyAfterInit) {                                          \
        test::EveryArrayIsEmptyAfterInit<Class>();                           \
    }                                                                        \
    TEST(Class, KnowsItsClass) {                                             \
        test::EveryArrayKnowsItsClass<Class>();                              \
    }

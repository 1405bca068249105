// What holds for every record and every array of the model.

#include <gtest/gtest.h>

#include "all_records.h"
#include "support/Records.h"

namespace {

using test::Fill;
using test::Filled;
using test::SameButApart;

/// Opens the protected `Init`.
template <class T>
struct Opened : T {
    using T::Init;
    using T::operator=;
    Opened(const T& other) : T(other) {}
};

template <class T>
T* CloneOf(const T& value) {
    return value.Clone();
}

struct TypeName {
    template <class T>
    static std::string GetName(int index) {
        return std::to_string(index);
    }
};

template <class T>
class EveryRecord : public testing::Test {};
using Records = testing::Types<VEKA_ALL_RECORDS>;
TYPED_TEST_SUITE(EveryRecord, Records, TypeName);

TYPED_TEST(EveryRecord, CopiesDeeply) {
    auto source = Filled<TypeParam>(0);
    TypeParam copy(source);
    EXPECT_TRUE(SameButApart(source, copy));
    TypeParam assigned;
    EXPECT_FALSE(SameButApart(source, assigned)) << "filling changed nothing";
    assigned = source;
    EXPECT_TRUE(SameButApart(source, assigned));
    const std::unique_ptr<TypeParam> clone(CloneOf(source));
    EXPECT_TRUE(SameButApart(source, *clone));
}

TYPED_TEST(EveryRecord, IsNotChangedByAssigningItToItself) {
    auto record = Filled<TypeParam>(0);
    const TypeParam before(record);
    const TypeParam& same = record;
    record = same;
    EXPECT_TRUE(SameButApart(before, record));
}

TYPED_TEST(EveryRecord, MovesAsItCopies) {
    auto source = Filled<TypeParam>(0);
    const TypeParam before(source);
    auto target = Filled<TypeParam>(1000);
    target = std::move(source);
    EXPECT_TRUE(SameButApart(before, target));
    const TypeParam constructed(std::move(target));
    EXPECT_TRUE(SameButApart(before, constructed));
}

TYPED_TEST(EveryRecord, HasItsDefaultsAgainAfterInit) {
    Opened<TypeParam> record(Filled<TypeParam>(0));
    record.Init();
    EXPECT_TRUE(SameButApart<TypeParam>(TypeParam(), record));
}

TYPED_TEST(EveryRecord, GivesBackWhatItsSettersTook) {
    int seed = 0;
    TypeParam record;
    veka::ForEachField(record, [&](const auto& field, auto& value) {
        if constexpr (!std::is_null_pointer_v<decltype(field.setter)>) {
            using Value = std::remove_reference_t<decltype(value)>;
            if constexpr (test::kIsOwned<Value>) {
                Value argument{};
                Fill(*argument, seed);
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
class EveryArray : public testing::Test {};
using Arrays = testing::Types<VEKA_ALL_ARRAYS>;
TYPED_TEST_SUITE(EveryArray, Arrays, TypeName);

TYPED_TEST(EveryArray, CopiesDeeply) {
    auto source = Filled<TypeParam>(0);
    TypeParam copy(source), assigned;
    EXPECT_TRUE(SameButApart(source, copy));
    assigned = source;
    EXPECT_TRUE(SameButApart(source, assigned));
    const std::unique_ptr<TypeParam> clone(CloneOf(source));
    EXPECT_TRUE(SameButApart(source, *clone));
}

TYPED_TEST(EveryArray, IsNotChangedByAssigningItToItself) {
    auto array = Filled<TypeParam>(0);
    const TypeParam before(array);
    const TypeParam& same = array;
    array = same;
    EXPECT_TRUE(SameButApart(before, array));
}

TYPED_TEST(EveryArray, IsEmptyAfterCopyingItOntoItself) {
    auto array = Filled<TypeParam>(0);
    array.Copy(array);
    EXPECT_EQ(array.GetSize(), 0);
}

TYPED_TEST(EveryArray, ReplacesItsContentOnCopyAndKeepsItOnAppend) {
    const auto source = Filled<TypeParam>(0);
    auto array = Filled<TypeParam>(1000);
    array.Append(source);
    EXPECT_EQ(array.GetSize(), 4);
    array.Copy(source);
    EXPECT_TRUE(SameButApart(source, array));
}

TYPED_TEST(EveryArray, MovesAsItCopies) {
    auto source = Filled<TypeParam>(0);
    const TypeParam before(source);
    auto target = Filled<TypeParam>(1000);
    target = std::move(source);
    EXPECT_TRUE(SameButApart(before, target));
    const TypeParam constructed(std::move(target));
    EXPECT_TRUE(SameButApart(before, constructed));
}

TYPED_TEST(EveryArray, IsEmptyAfterInit) {
    Opened<TypeParam> array(Filled<TypeParam>(0));
    array.Init();
    EXPECT_EQ(array.GetSize(), 0);
}

TYPED_TEST(EveryArray, KnowsItsClass) {
    const std::string name = TypeParam().GetRuntimeClass()->m_lpszClassName;
    EXPECT_EQ(name.substr(0, 6), "CVEKA_");
    EXPECT_TRUE(name.ends_with("Array"));
}

}  // namespace

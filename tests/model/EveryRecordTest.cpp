// What holds for every record class and every array class. The tests are registered for each class that is
// described, so a new class needs no line here.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "support/Records.h"

namespace {

using test::Difference;
using test::Fill;
using test::Filled;
using test::Own;
using test::RecordOwner;
using veka::FieldDescription;
using veka::FieldKind;
using veka::RecordDescription;

/// The tests that a class departs from on purpose. The departure has tests of its own.
const std::set<std::string> kDepartures{
    "CVEKA_3DOJ_STEP.HasItsDefaultsAgainAfterInit",
    "CVEKA_MountPin.CopiesDeeply",
    "CVEKA_MountPin.IsNotChangedByAssigningItToItself",
    "CVEKA_MountPin.MovesAsItCopies",
    "CVEKA_MountPinArray.CopiesDeeply",
    "CVEKA_MountPinArray.MovesAsItCopies",
};

/// Changes a record to what its copy is to be: the copies of some classes lose a field.
void LoseWhatACopyLoses(const RecordDescription& type, void* record) {
    if (type.name == std::string("CVEKA_MountPin")) {
        for (const FieldDescription& field : type.fields)
            if (field.kind == FieldKind::Text)
                *static_cast<CString*>(field.In(record)) = "";
            else
                *static_cast<int*>(field.In(record)) = 0;
    }
    if (type.name == std::string("CVEKA_Packing_ReelInfo")) {
        double* thickness[2]{};
        for (const FieldDescription& field : type.fields)
            if (field.name[0] == 'T' && field.kind == FieldKind::Real)
                thickness[field.name[1] - '1'] = static_cast<double*>(field.In(record));
        *thickness[0] = *thickness[1];
    }
    for (const FieldDescription& field : type.fields)
        if (field.content) LoseWhatACopyLoses(*field.content, field.In(record));
    if (type.IsArray())
        for (INT_PTR i = 0; i < type.size(record); ++i)
            LoseWhatACopyLoses(*type.element, const_cast<void*>(type.at(record, i).record));
}

std::string Difference(const RecordDescription& type, const RecordOwner& a, const RecordOwner& b) {
    return Difference({&type, a.get()}, {&type, b.get()});
}

void CopiesDeeply(const RecordDescription& type) {
    const RecordOwner filled = Filled(type, 0);
    const RecordOwner source = Own(type, type.copy(filled.get()));
    LoseWhatACopyLoses(type, filled.get());
    EXPECT_EQ(Difference(type, filled, source), "");
    const RecordOwner copy = Own(type, type.copy(source.get()));
    EXPECT_EQ(Difference(type, source, copy), "");
    const RecordOwner assigned = Own(type, type.make());
    EXPECT_NE(Difference(type, source, assigned), "") << "filling changed nothing";
    type.assign(assigned.get(), source.get());
    EXPECT_EQ(Difference(type, source, assigned), "");
    const RecordOwner clone = Own(type, type.clone(source.get()));
    EXPECT_EQ(Difference(type, source, clone), "");
}

void IsNotChangedByAssigningItToItself(const RecordDescription& type) {
    const RecordOwner filled = Filled(type, 0);
    const RecordOwner record = Own(type, type.copy(filled.get()));
    const RecordOwner before = Own(type, type.copy(record.get()));
    type.assign(record.get(), record.get());
    EXPECT_EQ(Difference(type, before, record), "");
}

void MovesAsItCopies(const RecordDescription& type) {
    const RecordOwner source = Filled(type, 0);
    const RecordOwner before = Own(type, type.copy(source.get()));
    const RecordOwner target = Filled(type, 1000);
    type.moveAssign(target.get(), source.get());
    EXPECT_EQ(Difference(type, before, target), "");
    const RecordOwner constructed = Own(type, type.move(target.get()));
    EXPECT_EQ(Difference(type, before, constructed), "");
}

/// The classes whose `Init` is private. Their assignment calls `Init`.
const std::set<std::string> kWithPrivateInit{
    "CVEKA_3DOJ_3DARC",  "CVEKA_3DOJ_3DCIRCLE", "CVEKA_3DOJ_3DFILLCIRCLE", "CVEKA_3DOJ_3DFILLRECT",
    "CVEKA_3DOJ_3DLINE", "CVEKA_3DOJ_3DOBLONG", "CVEKA_3DOJ_3DPOLYGON",
};

void HasItsDefaultsAgainAfterInit(const RecordDescription& type) {
    const RecordOwner record = Filled(type, 0);
    const RecordOwner fresh = Own(type, type.make());
    EXPECT_EQ(type.init == nullptr, kWithPrivateInit.count(type.name) > 0);
    type.init ? type.init(record.get()) : type.assign(record.get(), fresh.get());
    EXPECT_EQ(Difference(type, fresh, record), "");
}

/// The setter copies its argument; the getter gives the address of what the record holds.
void HoldsACopyOfWhatTheSetterTook(const FieldDescription& field, void* record, int& seed) {
    const RecordDescription& content = *field.content;
    const RecordOwner argument = Own(content, content.make());
    Fill(content, argument.get(), seed);
    const RecordOwner taken = Own(content, content.copy(argument.get()));
    field.set(field, record, taken.get());
    const veka::RecordView held = field.Content(record);
    EXPECT_EQ(Difference({&content, taken.get()}, held), "") << field.name;
    const void* got = nullptr;
    field.get(field, record, &got);
    EXPECT_EQ(got, held.record) << field.name;
    Fill(content, taken.get(), seed);
    EXPECT_NE(Difference({&content, taken.get()}, held), "") << field.name << " follows the argument";
    EXPECT_THROW(field.set(field, record, nullptr), CInvalidArgException) << field.name;
}

/// The setter takes a filled value of a type, and the getter gives it back.
template <class T>
void GivesBack(const FieldDescription& field, void* record, const T& value) {
    T got{};
    field.set(field, record, &value);
    field.set(field, record, &value);
    field.get(field, record, &got);
    EXPECT_EQ(got, value) << field.name;
}

void GivesBackWhatItsSettersTook(const RecordDescription& type) {
    int seed = 0;
    const RecordOwner owner = Own(type, type.make());
    void* record = owner.get();
    for (const FieldDescription& field : type.fields) {
        if (!field.set) continue;
        ASSERT_TRUE(field.get) << field.name;
        const CString text(std::to_string(++seed));
        switch (field.kind) {
            case FieldKind::Whole:
                if (field.size == sizeof(int))
                    GivesBack<int>(field, record, seed);
                else
                    GivesBack<long long>(field, record, seed);
                break;
            case FieldKind::Flag:
                GivesBack<bool>(field, record, true);
                break;
            case FieldKind::Real:
                GivesBack<double>(field, record, seed);
                break;
            case FieldKind::Text:
                GivesBack<CString>(field, record, text);
                break;
            case FieldKind::TextList: {
                CStringArray list;
                list.Add(text);
                list.Add("last");
                GivesBack<CStringArray>(field, record, list);
                break;
            }
            case FieldKind::DistinctNames:
                ADD_FAILURE() << field.name << ": no setter is expected here";
                break;
            case FieldKind::Record:
            case FieldKind::Array:
                HoldsACopyOfWhatTheSetterTook(field, record, seed);
                break;
        }
    }
}

void IsEmptyAfterCopyingItOntoItself(const RecordDescription& type) {
    const RecordOwner array = Filled(type, 0);
    type.copyAll(array.get(), array.get());
    EXPECT_EQ(type.size(array.get()), 0);
}

void ReplacesItsContentOnCopyAndKeepsItOnAppend(const RecordDescription& type) {
    const RecordOwner filled = Filled(type, 0);
    const RecordOwner source = Own(type, type.copy(filled.get()));
    const RecordOwner array = Filled(type, 1000);
    type.append(array.get(), source.get());
    EXPECT_EQ(type.size(array.get()), 4);
    type.copyAll(array.get(), source.get());
    EXPECT_EQ(Difference(type, source, array), "");
}

void IsEmptyAfterInit(const RecordDescription& type) {
    const RecordOwner array = Filled(type, 0);
    type.init(array.get());
    EXPECT_EQ(type.size(array.get()), 0);
}

void KnowsItsClass(const RecordDescription& type) {
    const std::string name = type.name;  // that GetRuntimeClass gives
    EXPECT_TRUE(std::string(type.type->name()).ends_with(name));
    EXPECT_EQ(name.substr(0, 6), "CVEKA_");
    EXPECT_TRUE(name.ends_with("Array"));
}

/// One of the tests above, for one class.
class ForOneClass : public testing::Test {
public:
    using Body = void (*)(const RecordDescription& type);
    ForOneClass(Body body, const RecordDescription& type) : m_body(body), m_type(type) {}
    void TestBody() override { m_body(m_type); }

    static void Register(const char* test, Body body, const RecordDescription& type) {
        if (kDepartures.count(type.name + std::string(".") + test) > 0) return;
        testing::RegisterTest(type.name, test, nullptr, nullptr, __FILE__, __LINE__,
                              [body, &type]() -> testing::Test* { return new ForOneClass(body, type); });
    }

private:
    Body m_body;
    const RecordDescription& m_type;
};

void RegisterForRecord(const RecordDescription& type) {
    ForOneClass::Register("CopiesDeeply", CopiesDeeply, type);
    ForOneClass::Register("IsNotChangedByAssigningItToItself", IsNotChangedByAssigningItToItself, type);
    ForOneClass::Register("MovesAsItCopies", MovesAsItCopies, type);
    ForOneClass::Register("HasItsDefaultsAgainAfterInit", HasItsDefaultsAgainAfterInit, type);
    ForOneClass::Register("GivesBackWhatItsSettersTook", GivesBackWhatItsSettersTook, type);
}

void RegisterForArray(const RecordDescription& type) {
    ForOneClass::Register("CopiesDeeply", CopiesDeeply, type);
    ForOneClass::Register("IsNotChangedByAssigningItToItself", IsNotChangedByAssigningItToItself, type);
    ForOneClass::Register("IsEmptyAfterCopyingItOntoItself", IsEmptyAfterCopyingItOntoItself, type);
    ForOneClass::Register("ReplacesItsContentOnCopyAndKeepsItOnAppend",
                          ReplacesItsContentOnCopyAndKeepsItOnAppend, type);
    ForOneClass::Register("MovesAsItCopies", MovesAsItCopies, type);
    ForOneClass::Register("IsEmptyAfterInit", IsEmptyAfterInit, type);
    ForOneClass::Register("KnowsItsClass", KnowsItsClass, type);
}

/// Registers the tests before `main` runs them.
const bool kRegistered = [] {
    for (const RecordDescription* type : veka::AllDescriptions())
        type->IsArray() ? RegisterForArray(*type) : RegisterForRecord(*type);
    return true;
}();

}  // namespace

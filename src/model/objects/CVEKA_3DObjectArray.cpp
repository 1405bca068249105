#include "model/objects/CVEKA_3DObjectArray.h"

#include "model/objects/Objects.h"

CVEKA_3DObjectArray::CVEKA_3DObjectArray(const CVEKA_3DObjectArray& other) : CExPtrArray() {
    *this = other;
}

CVEKA_3DObjectArray::CVEKA_3DObjectArray(CVEKA_3DObjectArray&& other) noexcept {
    Swap(other);
    VekaLose();
}

CVEKA_3DObjectArray::~CVEKA_3DObjectArray() = default;

CVEKA_3DObjectArray& CVEKA_3DObjectArray::operator=(const CVEKA_3DObjectArray& other) {
    if (this == &other) return *this;
    DeleteAll();
    for (const CVEKA_3DObject* object : other)
        if (object) Add(std::unique_ptr<CVEKA_3DObject>(object->Clone()));
    return *this;
}

CVEKA_3DObjectArray* CVEKA_3DObjectArray::Clone() const {
    return new CVEKA_3DObjectArray(*this);
}

void CVEKA_3DObjectArray::Copy(const CVEKA_3DObjectArray& other) {
    DeleteAll();
    Append(other);
}

void CVEKA_3DObjectArray::Append(const CVEKA_3DObjectArray& other) {
    const INT_PTR count = other.GetSize();
    for (INT_PTR i = 0; i < count; ++i) {
        const CVEKA_3DObject* object = other[i];
        if (!object) continue;
        auto flat = std::make_unique<CVEKA_3DObject>();
        *flat = *object;
        Add(std::move(flat));
    }
}

CVEKA_3DObjectArray& CVEKA_3DObjectArray::operator=(CVEKA_3DObjectArray&& other) noexcept {
    if (this == &other) return *this;
    DeleteAll();
    Swap(other);
    VekaLose();
    return *this;
}

const CRuntimeClass* CVEKA_3DObjectArray::GetRuntimeClass() const {
    static const CRuntimeClass runtimeClass{"CVEKA_3DObjectArray"};
    return &runtimeClass;
}

void CVEKA_3DObjectArray::Init() {
    DeleteAll();
}

namespace {

/// Calls `visit` for each array of objects in an object of a class; false if the object is of another.
template <class Class, class Visitor>
bool VisitLists(CVEKA_3DObject* object, Visitor visit) {
    auto* typed = dynamic_cast<Class*>(object);
    if (!typed) return false;
    veka::ForEachField(*typed, [&](const auto&, auto& field) {
        if constexpr (std::is_same_v<decltype(field), Owned<CVEKA_3DObjectArray>&>) visit(*field);
    });
    return true;
}

}  // namespace

void CVEKA_3DObjectArray::VekaLose() noexcept {
    RemoveNullElement();
    const auto drop = [](CVEKA_3DObjectArray& list) { list.VekaLose(); };
    for (CVEKA_3DObject* object : *this) {
        if (!object->m_holds.objects) continue;
        (void)(VisitLists<CVEKA_3DOJ_POLYGON>(object, drop) ||
               VisitLists<CVEKA_3DOJ_POLYLINE>(object, drop) || VisitLists<CVEKA_3DOJ_VOID>(object, drop) ||
               VisitLists<CVEKA_3DOJ_COMPOSITE>(object, drop) ||
               VisitLists<CVEKA_3DOJ_CONTOUR>(object, drop) || VisitLists<CVEKA_3DOJ_PILLAR>(object, drop) ||
               VisitLists<CVEKA_3DOJ_3DPOLYGON>(object, drop) ||
               VisitLists<CVEKA_3DOJ_USERDEFINED>(object, drop) ||
               VisitLists<CVEKA_3DOJ_METAKMASKSHAPE>(object, drop));
    }
}

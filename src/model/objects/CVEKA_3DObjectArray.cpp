#include "model/objects/CVEKA_3DObjectArray.h"

CVEKA_3DObjectArray::CVEKA_3DObjectArray(const CVEKA_3DObjectArray& other) : CExPtrArray() {
    *this = other;
}

CVEKA_3DObjectArray::CVEKA_3DObjectArray(CVEKA_3DObjectArray&& other) noexcept {
    Swap(other);
    BecomeACopy();
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
    BecomeACopy();
    return *this;
}

const CRuntimeClass* CVEKA_3DObjectArray::GetRuntimeClass() const {
    static const CRuntimeClass runtimeClass{"CVEKA_3DObjectArray"};
    return &runtimeClass;
}

void CVEKA_3DObjectArray::Init() {
    DeleteAll();
}

void CVEKA_3DObjectArray::BecomeACopy() noexcept {
    RemoveNullElement();
    for (CVEKA_3DObject* object : *this)
        if (object->m_removeNulls) object->m_removeNulls(*object);
}

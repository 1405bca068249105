#include "model/library/CVEKA_PadStack.h"

#include "model/library/CVEKA_Pad.h"

void CVEKA_PadStack::AddStandardizationPadName(CVEKA_Padstack_LayerInfo* layer) {
    if (!layer) AfxThrowInvalidArgException();
    StandardizationPadNames.Add(layer->StandardizationPadNames);
}

CVEKA_PadStackArray::CVEKA_PadStackArray(const CVEKA_PadStackArray& other) : CExPtrArray() {
    CVEKA_PadStackArray::Append(other);
}

CVEKA_PadStackArray::CVEKA_PadStackArray(CVEKA_PadStackArray&& other) noexcept {
    *this = std::move(other);
}

CVEKA_PadStackArray::~CVEKA_PadStackArray() = default;

CVEKA_PadStackArray& CVEKA_PadStackArray::operator=(const CVEKA_PadStackArray& other) {
    if (this != &other) Copy(other);
    return *this;
}

CVEKA_PadStackArray* CVEKA_PadStackArray::Clone() const {
    return new CVEKA_PadStackArray(*this);
}

void CVEKA_PadStackArray::Copy(const CVEKA_PadStackArray& other) {
    Init();
    Append(other);
}

void CVEKA_PadStackArray::Append(const CVEKA_PadStackArray& other) {
    const INT_PTR count = other.GetSize();
    for (INT_PTR i = 0; i < count; ++i)
        if (const CVEKA_PadStack* padStack = other.GetAt(i)) Add(std::make_unique<CVEKA_PadStack>(*padStack));
    StandardizationPadNames.Append(other.StandardizationPadNames);
}

CVEKA_PadStackArray& CVEKA_PadStackArray::operator=(CVEKA_PadStackArray&& other) noexcept {
    if (this == &other) return *this;
    Init();
    Swap(other);
    RemoveNullElement();
    std::swap(StandardizationPadNames, other.StandardizationPadNames);
    return *this;
}

const CRuntimeClass* CVEKA_PadStackArray::GetRuntimeClass() const {
    static const CRuntimeClass runtimeClass{"CVEKA_PadStackArray"};
    return &runtimeClass;
}

void CVEKA_PadStackArray::AddStandardizationPadName(CVEKA_PadStack* padStack) {
    if (!padStack) AfxThrowInvalidArgException();
    StandardizationPadNames.Add(padStack->StandardizationPadNames);
}

void CVEKA_PadStackArray::AddStandardizationPadName(CVEKA_Pad* pad) {
    if (!pad) AfxThrowInvalidArgException();
    StandardizationPadNames.Add(pad->GetPadName());
}

void CVEKA_PadStackArray::Init() {
    DeleteAll();
    StandardizationPadNames.RemoveAll();
}

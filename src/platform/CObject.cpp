#include "platform/CObject.h"

#include <ostream>

CObject::~CObject() = default;

const CRuntimeClass* CObject::GetRuntimeClass() const {
    static const CRuntimeClass runtimeClass{"CObject"};
    return &runtimeClass;
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(std::ostream& out) const {
    out << GetRuntimeClass()->m_lpszClassName << '\n';
}

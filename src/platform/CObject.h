#pragma once

#include <iosfwd>

#include "platform/Export.h"

class CArchive;

/// Name of a class at run time.
struct CRuntimeClass {
    const char* m_lpszClassName;
};

/// The toolkit's object base: its virtual operations come first in every array class.
class VEKA_API CObject {
public:
    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Writes and reads nothing: no class of this system is stored by the toolkit.
    virtual void Serialize(CArchive& archive);
    /// Raises `CInvalidArgException` if the fields of the object contradict each other.
    virtual void AssertValid() const;
    /// Writes one line about the object, for debugging.
    virtual void Dump(std::ostream& out) const;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

protected:
    CObject() = default;
};

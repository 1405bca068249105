#pragma once

#include <type_traits>

#include "model/objects/CVEKA_3DObject.h"

/// Owning array of objects. Arrays that a parser made may hold null for what it did not know.
///
/// Its copies differ: `operator=`, `Clone` and the copy constructor keep each object's class and fields,
/// while `Copy` and `Append` flatten each object to its number, colour and point. All pass over null
/// elements.
class VEKA_API CVEKA_3DObjectArray : public CExPtrArray<CVEKA_3DObject*, CVEKA_3DObject*> {
public:
    CVEKA_3DObjectArray() = default;
    CVEKA_3DObjectArray(const CVEKA_3DObjectArray& other);
    CVEKA_3DObjectArray(CVEKA_3DObjectArray&& other) noexcept;
    ~CVEKA_3DObjectArray() override;
    virtual CVEKA_3DObjectArray& operator=(const CVEKA_3DObjectArray& other);
    virtual CVEKA_3DObjectArray* Clone() const;
    /// Replaces the content by flattened objects. Onto itself it empties the array.
    virtual void Copy(const CVEKA_3DObjectArray& other);
    /// Appends flattened objects.
    virtual void Append(const CVEKA_3DObjectArray& other);

    /// Takes the content over; null elements are dropped at all depths, as a copy drops them.
    CVEKA_3DObjectArray& operator=(CVEKA_3DObjectArray&& other) noexcept;

    const CRuntimeClass* GetRuntimeClass() const override;

    /// Removes the null elements, also those of the lists that the objects hold: a copy has none.
    void BecomeACopy() noexcept;

protected:
    /// Deletes all elements.
    void Init();
};

template <class Kind>
Owned<CVEKA_3DObjectArray> CVEKA_3DObject::NewList() {
    m_removeNulls = [](CVEKA_3DObject& object) noexcept {
        auto* kind = dynamic_cast<Kind*>(&object);
        if (!kind) return;
        veka::FieldAccess::ForEachOwn(*kind, [](const auto&, auto& field) {
            if constexpr (std::is_same_v<decltype(field), Owned<CVEKA_3DObjectArray>&>) field->BecomeACopy();
        });
    };
    return {};
}

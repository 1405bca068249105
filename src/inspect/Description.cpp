#include "inspect/Description.h"

#include "inspect/Descriptions.h"

namespace veka {

namespace {

/// Number of base classes.
int Depth(const RecordDescription& description) {
    return description.base ? 1 + Depth(*description.base) : 0;
}

}  // namespace

long long FieldDescription::Whole(const void* record) const noexcept {
    const void* value = In(record);
    if (kind == FieldKind::Flag) return *static_cast<const bool*>(value) ? 1 : 0;
    return size == sizeof(int) ? *static_cast<const int*>(value) : *static_cast<const long long*>(value);
}

double FieldDescription::Real(const void* record) const noexcept {
    return *static_cast<const double*>(In(record));
}

const CString& FieldDescription::Text(const void* record) const noexcept {
    return *static_cast<const CString*>(In(record));
}

const CStringArray& FieldDescription::Texts(const void* record) const noexcept {
    const void* value = In(record);
    return kind == FieldKind::DistinctNames ? static_cast<const DistinctNames*>(value)->Names()
                                            : *static_cast<const CStringArray*>(value);
}

const RecordDescription* FindDescription(const std::type_info& type) {
    return Descriptions::Instance().Find(type);
}

const RecordDescription& Describe(const std::type_info& type) {
    const RecordDescription* description = FindDescription(type);
    if (!description) AfxThrowInvalidArgException();
    return *description;
}

const std::vector<const RecordDescription*>& AllDescriptions() {
    return Descriptions::Instance().All();
}

RecordView View(const CVEKA_3DObject& object) {
    if (const RecordDescription* own = FindDescription(typeid(object)))
        return {own, dynamic_cast<const void*>(&object)};
    RecordView nearest;
    for (const RecordDescription* description : AllDescriptions()) {
        const void* record = description->cast ? description->cast(object) : nullptr;
        if (record && (!nearest.record || Depth(*description) > Depth(*nearest.description)))
            nearest = {description, record};
    }
    return nearest;
}

}  // namespace veka

#include "inspect/Description.h"

#include <cmath>

#include "inspect/Descriptions.h"

namespace veka {

namespace {

/// Number of base classes.
int Depth(const RecordDescription& description) {
    return description.base ? 1 + Depth(*description.base) : 0;
}

/// The list of a field of the kind `TextList`.
CStringArray& TextList(const FieldDescription& field, void* record) {
    return *static_cast<CStringArray*>(field.In(record));
}

void AppendName(DistinctNames& names, const CString& name) {
    DistinctNames one;
    one.Add(name);
    names.Append(one);
}

}  // namespace

void DeleteRecord::operator()(const RecordView& record) const noexcept {
    if (record.record) record.description->destroy(const_cast<void*>(record.record));
}

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

bool FieldDescription::HaveEqualValues(const void* a, const void* b) const {
    switch (kind) {
        case FieldKind::Whole:
        case FieldKind::Flag:
            return Whole(a) == Whole(b);
        case FieldKind::Real:
            return Real(a) == Real(b) || (std::isnan(Real(a)) && std::isnan(Real(b)));
        case FieldKind::Text:
            return Text(a) == Text(b);
        case FieldKind::TextList:
        case FieldKind::DistinctNames:
            return Texts(a) == Texts(b);
        case FieldKind::Record:
        case FieldKind::Array:
            break;
    }
    return AreEqual(Content(a), Content(b));
}

void FieldDescription::StoreWhole(void* record, long long value) const noexcept {
    void* target = In(record);
    if (kind == FieldKind::Flag)
        *static_cast<bool*>(target) = value != 0;
    else if (size == sizeof(int))
        *static_cast<int*>(target) = static_cast<int>(value);
    else
        *static_cast<long long*>(target) = value;
}

void FieldDescription::StoreTexts(void* record, const CStringArray& texts) const {
    if (kind == FieldKind::TextList) {
        TextList(*this, record) = texts;
        return;
    }
    DistinctNames names;
    for (const CString& text : texts) AppendName(names, text);
    *static_cast<DistinctNames*>(In(record)) = std::move(names);
}

void FieldDescription::AppendText(void* record, const CString& text) const {
    if (kind == FieldKind::TextList)
        TextList(*this, record).Add(text);
    else
        AppendName(*static_cast<DistinctNames*>(In(record)), text);
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

bool AreEqual(const RecordView& a, const RecordView& b) {
    if (a.record == b.record) return true;
    if (!a.record || !b.record || a.description != b.description) return false;
    const RecordDescription& description = *a.description;
    for (const FieldDescription& field : description.fields)
        if (!field.HaveEqualValues(a.record, b.record)) return false;
    if (!description.IsArray()) return true;
    const INT_PTR size = description.size(a.record);
    if (size != description.size(b.record)) return false;
    for (INT_PTR i = 0; i < size; ++i)
        if (!AreEqual(description.at(a.record, i), description.at(b.record, i))) return false;
    return true;
}

}  // namespace veka

#include "support/Records.h"

#include "model/library/DistinctNames.h"

namespace test {

namespace {

using veka::FieldDescription;
using veka::FieldKind;
using veka::RecordDescription;
using veka::RecordView;

CString NumberedText(const char* word, int& seed) {
    return CString(std::string(word) + " " + std::to_string(++seed));
}

void FillField(const FieldDescription& field, void* record, int& seed) {
    void* value = field.In(record);
    switch (field.kind) {
        case FieldKind::Whole:
            if (field.size == sizeof(int))
                *static_cast<int*>(value) = ++seed;
            else
                *static_cast<long long*>(value) = ++seed;
            break;
        case FieldKind::Flag:
            *static_cast<bool*>(value) = true;
            break;
        case FieldKind::Real:
            *static_cast<double*>(value) = ++seed;
            break;
        case FieldKind::Text:
            *static_cast<CString*>(value) = NumberedText("text", seed);
            break;
        case FieldKind::TextList:
            for (int i = 0; i < 2; ++i) static_cast<CStringArray*>(value)->Add(NumberedText("entry", seed));
            break;
        case FieldKind::DistinctNames:
            for (int i = 0; i < 20; ++i) static_cast<DistinctNames*>(value)->Add(NumberedText("name", seed));
            break;
        case FieldKind::Record:
        case FieldKind::Array:
            Fill(*field.content, value, seed);
            break;
    }
}

bool SameValue(const FieldDescription& field, const void* a, const void* b) {
    switch (field.kind) {
        case FieldKind::Whole:
        case FieldKind::Flag:
            return field.Whole(a) == field.Whole(b);
        case FieldKind::Real:
            return field.Real(a) == field.Real(b);
        case FieldKind::Text:
            return field.Text(a) == field.Text(b);
        default:
            return field.Texts(a) == field.Texts(b);
    }
}

}  // namespace

RecordOwner Own(const RecordDescription& description, void* record) {
    return {record, description.destroy};
}

void Fill(const RecordDescription& description, void* record, int& seed) {
    if (description.IsArray())
        for (int i = 0; i < 2; ++i) Fill(*description.element, description.add(record), seed);
    for (const FieldDescription& field : description.fields) FillField(field, record, seed);
}

RecordOwner Filled(const RecordDescription& description, int seed) {
    RecordOwner record = Own(description, description.make());
    Fill(description, record.get(), seed);
    return record;
}

std::string Difference(const RecordView& a, const RecordView& b) {
    if (!a.record || !b.record) return "a null element";
    if (a.description != b.description) return "the class";
    if (a.record == b.record) return "the address, which is the same";
    const RecordDescription& description = *a.description;
    for (const FieldDescription& field : description.fields) {
        if (field.content) {
            const std::string below = Difference(field.Content(a.record), field.Content(b.record));
            if (!below.empty()) return field.name + (": " + below);
        } else if (!SameValue(field, a.record, b.record)) {
            return field.name;
        }
    }
    if (!description.IsArray()) return "";
    const INT_PTR size = description.size(a.record);
    if (size != description.size(b.record)) return "the number of elements";
    for (INT_PTR i = 0; i < size; ++i) {
        const std::string below = Difference(description.at(a.record, i), description.at(b.record, i));
        if (!below.empty()) return std::to_string(i) + ": " + below;
    }
    return "";
}

}  // namespace test

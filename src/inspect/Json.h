#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "inspect/Description.h"

namespace veka {

/// A byte string as UTF-8. A UTF-8 character stays as it is. A byte that is not part of a UTF-8 character
/// becomes the one character U+10FF00 plus the byte. The characters from U+10FF80 to U+10FFFF are treated as
/// if their bytes were not UTF-8. So the result is always valid, and two byte strings never give the same
/// one.
VEKA_API std::string MarkedUtf8(std::string_view bytes);

/// A byte string as a JSON string, made from what `MarkedUtf8` gives.
VEKA_API std::string JsonString(std::string_view bytes);

/// Writes records as JSON. A record is an object whose members are the fields by their names. An array is a
/// list. An object of a drawing has the name of its class as the member "kind". Numbers that JSON does not
/// have are the strings "inf", "-inf" and "nan". `docs/part.schema.json` is the schema of an imported part.
class VEKA_API Json {
public:
    explicit Json(std::ostream& out) : m_out(out) {}

    /// Writes a record and ends the line.
    void Write(const RecordView& record);
    template <class T>
    void Write(const T& record) {
        Write(View(record));
    }
    /// Writes the value of one field of a record.
    void WriteField(const FieldDescription& field, const void* record);

private:
    void Object(const RecordView& record, const char* kind);
    void Array(const RecordView& array);
    void Texts(const CStringArray& texts);
    void Real(double value);

    std::ostream& m_out;
};

}  // namespace veka

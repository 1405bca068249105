#pragma once

#include <string>
#include <vector>

#include "inspect/Description.h"

/// The rules by which classes and fields are named in Python. docs/python.md tells them to users.
namespace veka::python {

/// The name of a class: without the prefix "CVEKA_" or "CVEKA_3DOJ_", and with a "3D" from its beginning
/// moved to its end, because no name in Python begins with a digit. The name of an array ends with "Array"
/// after that.
std::string ClassName(const RecordDescription& description);

/// The attributes of a class, in the order of its fields.
///
/// A field is named in small letters, with an underscore before each word. A word begins at a capital behind
/// a small letter, and at the last capital of several if a small letter follows. A name that Python reserves,
/// or that an attribute before it has, gets an underscore at its end. So no two attributes of a class have
/// one name, and a class names what it inherits as its base does.
std::vector<std::string> AttributeNames(const RecordDescription& description);

/// The type of a field as the type checker of Python knows it, such as "str" or "PackagePinArray".
std::string TypeName(const FieldDescription& field);

}  // namespace veka::python

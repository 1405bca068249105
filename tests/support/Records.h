#pragma once

#include <memory>
#include <string>

#include "inspect/Description.h"

/// What the tests do with any record: make it, fill it and compare it.
namespace test {

/// A record that is deleted by the operation of its class.
using RecordOwner = std::unique_ptr<void, void (*)(void*) noexcept>;
RecordOwner Own(const veka::RecordDescription& description, void* record);

/// Gives every field of a record a value of its own, none of them the default. An array gets two elements
/// more.
void Fill(const veka::RecordDescription& description, void* record, int& seed);
/// A new record that is filled with values from `seed` on.
RecordOwner Filled(const veka::RecordDescription& description, int seed);

/// Where the contents of two records differ first, as the names of the fields that lead there. Empty where
/// they have the same content and neither leads to anything that belongs to the other.
std::string Difference(const veka::RecordView& a, const veka::RecordView& b);

/// True if two records have the same content, while neither leads to anything of the other.
template <class T>
bool SameButApart(const T& a, const T& b) {
    return Difference(veka::View(a), veka::View(b)).empty();
}

}  // namespace test

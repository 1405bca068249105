#pragma once

#include "model/Record.h"
#include "model/library/DistinctNames.h"

/// The list of distinct pad names that a layer, a padstack and the array of padstacks have, with its getter.
#define VEKA_PAD_NAMES                                                      \
public:                                                                     \
    /** Gives the distinct names in the order of their first appearance. */ \
    void GetStandardizationPadNames(CStringArray& names) const {            \
        names.Copy(StandardizationPadNames.Names());                        \
    }                                                                       \
                                                                            \
private:                                                                    \
    DistinctNames StandardizationPadNames;
/// The same as the row of a record, with the operation that adds a name.
#define VEKA_PAD_NAMES_ROW(Doc)                                                                 \
    VEKA_DESCRIBE(StandardizationPadNames, &VekaSelf::GetStandardizationPadNames, nullptr, Doc) \
public:                                                                                         \
    /** Adds a name, unless the list has it. */                                                 \
    /* NOLINTNEXTLINE(performance-unnecessary-value-param): the interface gives it by value */  \
    void AddStandardizationPadName(CString name) {                                              \
        StandardizationPadNames.Add(name);                                                      \
    }                                                                                           \
    VEKA_PAD_NAMES

#include "host/LibraryIndex.h"

namespace host {

namespace {

[[noreturn]] void Fail() {
    throw IndexError("this program was built without SQLite and has no index of a library");
}

}  // namespace

std::unique_ptr<LibraryIndex> OpenIndex(const std::filesystem::path&, unsigned) {
    Fail();
}

Condition ParseCondition(const std::string&) {
    Fail();
}

std::string ConditionFields() {
    return "";
}

bool HasIndex() {
    return false;
}

}  // namespace host

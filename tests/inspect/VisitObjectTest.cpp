#include "inspect/VisitObject.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <typeinfo>

namespace {

TEST(VisitObject, GivesEveryKindAsItsOwnClass) {
    int count = 0;
    const std::type_info* visited = nullptr;
    const auto visit = [&](const auto& object) {
        visited = &typeid(std::remove_cvref_t<decltype(object)>);
        ++count;
    };
    const auto check = [&](const CVEKA_3DObject& object, const std::string& name) {
        EXPECT_EQ(host::KindName(object), name);
        host::VisitObject(object, visit);
        EXPECT_TRUE(*visited == typeid(object)) << name;
    };
#define CHECK_KIND(Level, Method, Class) check(Class(), std::string(#Class).substr(11));
    VEKA_OBJECT_KINDS(CHECK_KIND)
    check(CVEKA_3DOJ_METAKMASKSHAPE(), "METAKMASKSHAPE");
    check(CVEKA_3DObject(), "3DObject");
    EXPECT_EQ(count, 62);
}

}  // namespace

#include "host/VisitObject.h"

#include <gtest/gtest.h>

namespace {

TEST(VisitObject, GivesEveryKindAsItsOwnClass) {
    int count = 0;
    const auto check = [&](const auto& object, const std::string& name) {
        using Class = std::remove_cvref_t<decltype(object)>;
        const CVEKA_3DObject& base = object;
        EXPECT_EQ(host::KindName(base), name);
        host::VisitObject(base, [&](const auto& visited) {
            EXPECT_TRUE((std::is_same_v<std::remove_cvref_t<decltype(visited)>, Class>)) << name;
            ++count;
        });
    };
#define CHECK_KIND(Level, Method, Class) check(Class(), std::string(#Class).substr(11));
    VEKA_OBJECT_KINDS(CHECK_KIND)
    check(CVEKA_3DOJ_METAKMASKSHAPE(), "METAKMASKSHAPE");
    check(CVEKA_3DObject(), "3DObject");
    EXPECT_EQ(count, 62);
}

}  // namespace

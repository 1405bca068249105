#include "window/ExtensionModule.h"

#include <gtest/gtest.h>

namespace {

TEST(ExtensionModule, ItsTemplatesAreFoundWhileItIsRegistered) {
    AFX_EXTENSION_MODULE module;
    EXPECT_TRUE(AfxInitExtensionModule(module, {{4711, "caption", 10, 20, "font", 8, {}}}));
    EXPECT_FALSE(AfxInitExtensionModule(module, {})) << "it is ready already";
    EXPECT_EQ(veka::FindDialogTemplate(4711), nullptr) << "ready, but not registered";
    new CDynLinkLibrary(module);
    ASSERT_NE(veka::FindDialogTemplate(4711), nullptr);
    EXPECT_STREQ(veka::FindDialogTemplate(4711)->caption, "caption");
    EXPECT_EQ(veka::FindDialogTemplate(4712), nullptr);
    AfxTermExtensionModule(module);
    EXPECT_EQ(veka::FindDialogTemplate(4711), nullptr);
    EXPECT_FALSE(module.bInitialized);
}

TEST(ExtensionModule, TheResourcesAreThoseOfTheModuleWithTheTemplate) {
    AFX_EXTENSION_MODULE module;
    module.hModule = &module;
    AfxInitExtensionModule(module, {{4711, "caption", 10, 20, "font", 8, {}}});
    new CDynLinkLibrary(module);
    EXPECT_EQ(AfxFindResourceHandle(4711), &module);
    EXPECT_EQ(AfxFindResourceHandle(4712), nullptr);
    AfxTermExtensionModule(module);
    EXPECT_EQ(AfxFindResourceHandle(4711), nullptr);
}

}  // namespace

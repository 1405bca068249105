#include "dialog/ImportDialogTemplate.h"

#include <gtest/gtest.h>

#include "platform/AfxMessageBox.h"

namespace {

TEST(ImportDialogTemplate, IsTheDialogInItsTabOrder) {
    const veka::DialogTemplate dialog = veka::ImportDialogTemplate();
    EXPECT_EQ(dialog.id, 8000u);
    EXPECT_EQ(dialog.width, 316);
    EXPECT_EQ(dialog.height, 75);
    EXPECT_STREQ(dialog.caption, "Import ASCII Part Data File");
    EXPECT_STREQ(dialog.fontName, "MS Shell Dlg");
    EXPECT_EQ(dialog.fontSize, 8);
    const int order[] = {IDOK, IDCANCEL, 8002, 8003, 8000, 8001, 8004, 8005, 8006};
    ASSERT_EQ(dialog.controls.size(), std::size(order));
    for (size_t i = 0; i < std::size(order); ++i) EXPECT_EQ(dialog.controls[i].id, order[i]);
}

TEST(ImportDialogTemplate, NoControlLeavesTheDialog) {
    const veka::DialogTemplate dialog = veka::ImportDialogTemplate();
    for (const veka::ControlTemplate& control : dialog.controls) {
        EXPECT_LE(control.x + control.width, dialog.width);
        EXPECT_LE(control.y + control.height, dialog.height);
    }
}

}  // namespace

// The library's headers behind the system's, with all macros that a host may let it have.
#undef NOMINMAX
#undef WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "VEKAsciiDLL.h"
#include "win32/Win32UserInterface.h"

#include <gtest/gtest.h>

namespace {

TEST(HeadersBehindTheSystems, ADialogHasItsFunctions) {
    CVEK_AsciiFile_Import_Dlg dialog;
    dialog.SetWindowText("x");
    dialog.SetDlgItemText(IDOK, "x");
    EXPECT_EQ(dialog.GetDlgItemText(IDOK), "") << "there is no window";
}

TEST(HeadersBehindTheSystems, APolygonHasItsHoles) {
    CVEKA_3DOJ_POLYGON polygon;
    polygon.VOID->Add(std::make_unique<CVEKA_3DOJ_VOID>());
    EXPECT_EQ(polygon.VOID->GetSize(), 1);
}

}  // namespace

#pragma once

#include "window/UserInterface.h"

/// Numbers of the import dialog and its controls.
enum : int {
    IDD_VEK_ASCII_IMPORT = 8000,
    IDC_EDIT_VEK_ASCII_PATH = 8000,
    IDC_BTN_VEK_ASCII_PATH = 8001,
    IDC_GROUP_SELECT = 8002,
    IDC_STATIC_FILE_LABEL = 8003,
    IDC_STATIC_DIR_LABEL = 8004,
    IDC_EDIT_VEK_DIR_PATH = 8005,
    IDC_BTN_VEK_DIR_PATH = 8006,
};

namespace veka {

/// The import dialog as a table, from which every window is laid out.
VEKA_API DialogTemplate ImportDialogTemplate();

}  // namespace veka

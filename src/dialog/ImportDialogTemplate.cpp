#include "dialog/ImportDialogTemplate.h"

#include "dialog/Messages.h"
#include "window/AfxMessageBox.h"

veka::DialogTemplate veka::ImportDialogTemplate() {
    using enum ControlKind;
    return {IDD_VEK_ASCII_IMPORT,
            messages::kAsciiCaption,
            316,
            75,
            "MS Shell Dlg",
            8,
            // clang-format off
            {{IDOK,                    DefaultButton, messages::kOk,             205, 54,  50, 14},
             {IDCANCEL,                Button,        messages::kCancel,         259, 54,  50, 14},
             {IDC_GROUP_SELECT,        GroupBox,      messages::kSelectGroup,      7,  7, 302, 45},
             {IDC_STATIC_FILE_LABEL,   Label,         messages::kAsciiFileLabel,  13, 20,  65,  8},
             {IDC_EDIT_VEK_ASCII_PATH, Edit,          "",                        114, 17, 164, 14},
             {IDC_BTN_VEK_ASCII_PATH,  Button,        messages::kBrowse,         281, 17,  23, 14},
             {IDC_STATIC_DIR_LABEL,    Label,         messages::kDirectoryLabel,  13, 38,  70,  8},
             {IDC_EDIT_VEK_DIR_PATH,   Edit,          "",                        114, 35, 163, 14},
             {IDC_BTN_VEK_DIR_PATH,    Button,        messages::kBrowse,         281, 35,  23, 14}}};
    // clang-format on
}

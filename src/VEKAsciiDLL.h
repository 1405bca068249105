#pragma once

/// Everything that a host needs: the import dialog, the parser, the import with limits, the report of an
/// import, the model, its printers and the user interface to install.

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "inspect/Description.h"
#include "inspect/Json.h"
#include "inspect/Outline.h"
#include "inspect/Tree.h"
#include "leveltree/CECadCls.h"
#include "model/CVEKA_Manager.h"
#include "model/CVEKA_MinMax.h"
#include "model/CVEKA_RLC.h"
#include "model/CVEKA_Type.h"
#include "model/PartIndex.h"
#include "model/objects/Objects.h"
#include "parser/CInvalidAccessException.h"
#include "parser/CVEK_AsciiParser.h"
#include "parser/Import.h"
#include "platform/Version.h"
#include "report/ImportReport.h"
#include "report/Sarif.h"
#include "window/CDialog.h"
#include "window/ExtensionModule.h"
#include "window/SBUtility.h"
#include "window/ScopedUserInterface.h"
#include "window/UserInterface.h"

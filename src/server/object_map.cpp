#include "server/object_map.h"

#include "automation/ghATLBaseWindow.h"
#include "automation/ghATLCADTree.h"
#include "automation/ghATLCADTreeItem.h"
#include "automation/ghATLCADView.h"
#include "automation/ghATLCheckBox.h"
#include "automation/ghATLComboBox.h"
#include "automation/ghATLControlBar.h"
#include "automation/ghATLControlBarItem.h"
#include "automation/ghATLGXGrid.h"
#include "automation/ghATLGhosthand.h"
#include "automation/ghATLGroupCombo.h"
#include "automation/ghATLListBox.h"
#include "automation/ghATLListView.h"
#include "automation/ghATLOpenSaveDialog.h"
#include "automation/ghATLOptionTree.h"
#include "automation/ghATLOptionTreeItem.h"
#include "automation/ghATLRibCustomisationWidget.h"
#include "automation/ghATLTabControl.h"
#include "automation/ghATLTrackBar.h"
#include "automation/ghATLTreeControl.h"
#include "automation/ghATLTreeItem.h"
#include "automation/interfaces.h"

namespace server {
namespace {

using automation::CreateInstance;

// src/server/CMakeLists.txt numbers the registration scripts in the same order.
constinit ObjectMapEntry objectMap[] = {
    {&CLSID_Ghosthand, &CreateInstance<ghATLGhosthand>, 103},
    {&CLSID_BaseWindow, &CreateInstance<ghATLBaseWindow>, 104},
    {&CLSID_CheckBox, &CreateInstance<ghATLCheckBox>, 105},
    {&CLSID_TreeItem, &CreateInstance<ghATLTreeItem>, 106},
    {&CLSID_TreeControl, &CreateInstance<ghATLTreeControl>, 107},
    {&CLSID_CADTreeItem, &CreateInstance<ghATLCADTreeItem>, 108},
    {&CLSID_CADTreeControl, &CreateInstance<ghATLCADTree>, 109},
    {&CLSID_ComboBox, &CreateInstance<ghATLComboBox>, 110},
    {&CLSID_GroupCombo, &CreateInstance<ghATLGroupCombo>, 111},
    {&CLSID_ListBox, &CreateInstance<ghATLListBox>, 112},
    {&CLSID_ListView, &CreateInstance<ghATLListView>, 113},
    {&CLSID_TabControl, &CreateInstance<ghATLTabControl>, 114},
    {&CLSID_TrackBar, &CreateInstance<ghATLTrackBar>, 115},
    {&CLSID_ControlBar, &CreateInstance<ghATLControlBar>, 116},
    {&CLSID_ControlBarItem, &CreateInstance<ghATLControlBarItem>, 117},
    {&CLSID_OptionTree, &CreateInstance<ghATLOptionTree>, 118},
    {&CLSID_OptionTreeItem, &CreateInstance<ghATLOptionTreeItem>, 119},
    {&CLSID_GXGrid, &CreateInstance<ghATLGXGrid>, 120},
    {&CLSID_CADView, &CreateInstance<ghATLCADView>, 121},
    {&CLSID_OpenSaveDialog, &CreateInstance<ghATLOpenSaveDialog>, 122},
    {&CLSID_RibCustomisationWidget, &CreateInstance<ghATLRibCustomisationWidget>, 123},
};

} // namespace

std::span<ObjectMapEntry> ObjectMap() noexcept {
    return objectMap;
}

} // namespace server

#include "server/object_map.h"

#include "automation/classes.h"
#include "automation/interfaces.h"

namespace server {
namespace {

// src/server/CMakeLists.txt numbers the registration scripts in the same order.
constinit ObjectMapEntry objectMap[] = {
    {&CLSID_Ghosthand, &automation::CreateGhosthand, 103},
    {&CLSID_BaseWindow, &automation::CreateBaseWindow, 104},
    {&CLSID_CheckBox, &automation::CreateCheckBox, 105},
    {&CLSID_TreeItem, &automation::CreateTreeItem, 106},
    {&CLSID_TreeControl, &automation::CreateTreeControl, 107},
    {&CLSID_CADTreeItem, &automation::CreateCADTreeItem, 108},
    {&CLSID_CADTreeControl, &automation::CreateCADTreeControl, 109},
    {&CLSID_ComboBox, &automation::CreateComboBox, 110},
    {&CLSID_GroupCombo, &automation::CreateGroupCombo, 111},
    {&CLSID_ListBox, &automation::CreateListBox, 112},
    {&CLSID_ListView, &automation::CreateListView, 113},
    {&CLSID_TabControl, &automation::CreateTabControl, 114},
    {&CLSID_TrackBar, &automation::CreateTrackBar, 115},
    {&CLSID_ControlBar, &automation::CreateControlBar, 116},
    {&CLSID_ControlBarItem, &automation::CreateControlBarItem, 117},
    {&CLSID_OptionTree, &automation::CreateOptionTree, 118},
    {&CLSID_OptionTreeItem, &automation::CreateOptionTreeItem, 119},
    {&CLSID_GXGrid, &automation::CreateGXGrid, 120},
    {&CLSID_CADView, &automation::CreateCADView, 121},
    {&CLSID_OpenSaveDialog, &automation::CreateOpenSaveDialog, 122},
    {&CLSID_RibCustomisationWidget, &automation::CreateRibCustomisationWidget, 123},
};

} // namespace

std::span<ObjectMapEntry> ObjectMap() noexcept {
    return objectMap;
}

} // namespace server

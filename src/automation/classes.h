// The classes of the server as their class table knows them: by the functions that make their objects.
#pragma once

#include <windows.h>

#include <objbase.h>

namespace automation {

// Makes one object of a class. With an outer object the only interface that can be asked for is IUnknown
// (CLASS_E_NOAGGREGATION otherwise). E_POINTER for a null out pointer, E_OUTOFMEMORY, E_NOINTERFACE.
using CreateFunction = HRESULT(IUnknown* outer, REFIID iid, void** object) noexcept;

// Each is defined with its class, so that the members of a class are compiled once.
CreateFunction CreateBaseWindow;
CreateFunction CreateCADTreeControl;
CreateFunction CreateCADTreeItem;
CreateFunction CreateCADView;
CreateFunction CreateCheckBox;
CreateFunction CreateComboBox;
CreateFunction CreateControlBar;
CreateFunction CreateControlBarItem;
CreateFunction CreateGXGrid;
CreateFunction CreateGhosthand;
CreateFunction CreateGroupCombo;
CreateFunction CreateListBox;
CreateFunction CreateListView;
CreateFunction CreateOpenSaveDialog;
CreateFunction CreateOptionTree;
CreateFunction CreateOptionTreeItem;
CreateFunction CreateRibCustomisationWidget;
CreateFunction CreateTabControl;
CreateFunction CreateTrackBar;
CreateFunction CreateTreeControl;
CreateFunction CreateTreeItem;

} // namespace automation

// The wrap step: an engine object that a navigation found becomes an automation object for the caller.
#pragma once

#include <memory>

#include "automation/interfaces.h"

class ghBaseWindow;
class ghCADTree;
class ghCADTreeItem;
class ghCADView;
class ghCheckBox;
class ghComboBox;
class ghControlBar;
class ghControlBarItem;
class ghGroupCombo;
class ghGXGrid;
class ghListBox;
class ghListView;
class ghOpenSaveDialog;
class ghOptionTree;
class ghRibCustomiser;
class ghTabControl;
class ghTrackBar;
class ghTreeControl;
class ghTreeItem;

namespace automation {

// Each takes over the engine object. One that is null or not valid gives S_FALSE and a null object, no
// error. Defined with the automation class that wraps it.
HRESULT Wrap(std::unique_ptr<ghBaseWindow> engine, IBaseWindow** object);
HRESULT Wrap(std::unique_ptr<ghCADTree> engine, ITreeControl** object);
HRESULT Wrap(std::unique_ptr<ghCADTreeItem> engine, ITreeItem** object);
HRESULT Wrap(std::unique_ptr<ghCADView> engine, ICADView** object);
HRESULT Wrap(std::unique_ptr<ghCheckBox> engine, ICheckBox** object);
HRESULT Wrap(std::unique_ptr<ghComboBox> engine, IComboBox** object);
HRESULT Wrap(std::unique_ptr<ghControlBar> engine, IControlBar** object);
HRESULT Wrap(std::unique_ptr<ghControlBarItem> engine, IControlBarItem** object);
HRESULT Wrap(std::unique_ptr<ghGroupCombo> engine, IGroupCombo** object);
HRESULT Wrap(std::unique_ptr<ghGXGrid> engine, IGXGrid** object);
HRESULT Wrap(std::unique_ptr<ghListBox> engine, IListBox** object);
HRESULT Wrap(std::unique_ptr<ghListView> engine, IListView** object);
HRESULT Wrap(std::unique_ptr<ghOpenSaveDialog> engine, IOpenSaveDialog** object);
HRESULT Wrap(std::unique_ptr<ghOptionTree> engine, IOptionTree** object);
HRESULT Wrap(std::unique_ptr<ghRibCustomiser> engine, IRibCustomisationWidget** object);
HRESULT Wrap(std::unique_ptr<ghTabControl> engine, ITabControl** object);
HRESULT Wrap(std::unique_ptr<ghTrackBar> engine, ITrackBar** object);
HRESULT Wrap(std::unique_ptr<ghTreeControl> engine, ITreeControl** object);
// An item of a CAD tree becomes a CAD tree item, which answers for ITreeItem too.
HRESULT Wrap(std::unique_ptr<ghTreeItem> engine, ITreeItem** object);
// Takes a copy. An option tree that stands for no item gives S_FALSE and a null object.
HRESULT Wrap(const ghOptionTree& item, IOptionTreeItem** object);

} // namespace automation

# Drives the sample host: start one sample_host.exe, then run "powershell -File SampleHost.ps1".
. "$PSScriptRoot\GhosthandHelpers.ps1"

# Commands and control ids of the sample host (samples/host/host_ids.h).
$PageSettings, $PageContextMenus, $PageTrees, $PageListViews = 601, 608, 630, 631
$EditId, $CheckBox, $TriStateBox, $RadioImperial = 1001, 1010, 1011, 1016
$DropDownList, $ListBox, $MenuArea, $PartsTree, $LayersList = 1020, 1022, 1085, 1140, 1151
$DrawSnap = 705

# Opens a page of the sample host and returns its window.
function Open-Page($SampleHost, [int]$Command) {
    [void]$SampleHost.Command($Command)
    $page = $SampleHost.ActiveDocument()
    Write-Host "Page opened:    $($page.Text)"
    $page
}

function Set-Options($SampleHost) {
    $dialog = Open-Dialog $SampleHost $PageSettings
    "Dialog opened:  $($dialog.Text)"
    $edit = $dialog.Edit($EditId)
    $edit.Text = 'New setting'
    Assert-Equal 'Field' $edit.Text 'New setting'
    $box = $dialog.CheckBox('', $CheckBox)
    $box.Checked = -not $box.Checked
    $box.Checked = $true
    Assert-Equal 'Check box' $box.Checked $true
    $box = $dialog.CheckBox('', $TriStateBox)
    $box.CheckedState = 2
    Assert-Equal 'Three states' $box.CheckedState 2
    $dialog.Button('', $RadioImperial).Click()
    $combo = $dialog.ComboBox($DropDownList)
    [void]$combo.SelectItem(1)
    Assert-Equal 'Combo box' $combo.Text $combo.GetItem(1)
    $list = $dialog.ListBox($ListBox)
    [void]$list.SelectItem(2)
    Assert-Equal 'List box' $list.SelectedItem 2
    $dialog.Close()
    Assert-Equal 'Dialog gone' (Wait-Gone $dialog) $true
}

function Use-Menus($SampleHost) {
    $SampleHost.MenuChars('ha') # Alt, H, A: Help, About
    $about = $SampleHost.ActiveDialog()
    "Menu opened:    $($about.Text)"
    $about.Close()

    $area = (Open-Page $SampleHost $PageContextMenus).ChildWindow('', '', $MenuArea)
    $snap = $area.ContextMenu(10, 10).GetItemByID('Snap', $DrawSnap)
    $wasChecked = $snap.Checked
    $snap.Click()
    $menu = $area.ContextMenu(10, 10)
    Assert-Equal 'Snap marked' ($menu.GetItemByID('Snap', $DrawSnap).Checked) (-not $wasChecked)
    $menu.CloseMenu()
}

function Use-Tree($Tree) {
    $first = $Tree.ItemByNumPath('1')
    $first.Selected = $true
    Assert-Equal 'Tree item' $Tree.SelectedItem.Text $first.Text
    $first.Expanded = $true
    Assert-Equal 'Expanded' $first.Expanded $true
}

function Use-List($Layers) {
    Assert-Equal 'List view' $Layers.SelectItemByName('Layer 1') $true
    Assert-Equal 'Selected' $Layers.GetItem($Layers.SelectedItem) 'Layer 1'
    [void]$Layers.CheckItemByName('Layer 10')
    Assert-Equal 'Checked' $Layers.IsChecked($Layers.SelectedItem + 1) $true
}

$sampleHost = Get-MainWindow 'sample_host'
"Main window:    $($sampleHost.Text)"
$sampleHost.FitSize(900, 600)
Assert-Equal 'Client size' "$($sampleHost.Width) x $($sampleHost.Height)" '900 x 600'
Set-Options $sampleHost
Use-Menus $sampleHost
Use-Tree (Open-Page $sampleHost $PageTrees).TreeCtrl($PartsTree)
Use-List (Open-Page $sampleHost $PageListViews).ListView($LayersList)
'Done'

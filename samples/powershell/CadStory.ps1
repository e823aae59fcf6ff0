# A story in the sample host's CAD page: start one sample_host.exe, then run "powershell -File CadStory.ps1".
# Hides a part, colours another, sets a parameter and the material, restores a camera and replays a recorded click.
# Leave the mouse alone meanwhile: the view is driven with the real cursor.
. "$PSScriptRoot\GhosthandHelpers.ps1"

# Commands and control ids of the sample host (samples/host/host_ids.h).
$PageCad, $CadTree, $Material, $ParameterGrid, $StatusBar = 610, 1100, 1102, 1103, 1090
$LeftButton = 1
$Red = 208 + 64 * 0x100 + 56 * 0x10000
# What a recorder noted: the camera, the size of the view, and a click on the input shaft.
$Camera = 'yaw=-35.00 pitch=25.00 zoom=1.000'
$Width, $Height, $ClickX, $ClickY = 500, 400, 223, 181

function Set-Parts($Tree) {
    $wall = $Tree.ItemByPath('Gearbox|Housing|Right wall')
    $wall.Visible = $false
    Assert-Equal 'Wall visible' $wall.Visible $false
    $shaft = $Tree.ItemByPath('Gearbox|Shafts|Input shaft')
    $shaft.Color = $Red
    Assert-Equal 'Shaft colour' $shaft.Color $Red
    $Tree.ItemByPath('Gearbox|Housing|Base plate').Checked = $true
    Assert-Equal 'Selected' $Tree.SelectItemByPath('Gearbox|Shafts|Output shaft') $true
}

function Set-Parameters($Page) {
    $grid = $Page.GXGrid($ParameterGrid)
    $rows = @{}
    foreach ($row in 1..$grid.RowsCount) { $rows[$grid.GetText($row, 1)] = $row }
    $diameter = $rows['Shaft diameter']
    [void]$grid.SetText($diameter, 2, '40')
    Assert-Equal 'Shaft diameter' $grid.GetText($diameter, 2) '40'
    Assert-Equal 'Mass read-only' $grid.IsReadOnly($rows['Mass'], 2) $true
    $material = $Page.GroupCombo($Material)
    [void]$material.SelectItemByName('Metals', 'Brass')
    Assert-Equal 'Material' "$($material.HeadingText) > $($material.Text)" 'Metals > Brass'
}

function Test-Click($SampleHost, $View) {
    $View.SetCameraPosition($Camera, $Width, $Height)
    Assert-Equal 'Camera' $View.CameraPosition $Camera
    $View.MouseDown($LeftButton, 200, 60, $Width, $Height)
    $View.MouseMove(290, 80, $Width, $Height)
    $View.MouseUp($LeftButton, 290, 80, $Width, $Height)
    Assert-Equal 'Drag orbits' ($View.CameraPosition -cne $Camera) $true
    $View.SetCameraPosition($Camera, $Width, $Height)
    $View.Click($LeftButton, $ClickX, $ClickY, $Width, $Height)
    $status = $SampleHost.ChildWindow('', 'msctls_statusbar32', $StatusBar)
    Assert-Equal 'Status bar' $status.Text 'Picked Input shaft'
}

$sampleHost = Get-MainWindow 'sample_host'
[void]$sampleHost.Command($PageCad)
$page = $sampleHost.ActiveDocument()
"Page:           $($page.Text)"
Set-Parts $page.CADTree($CadTree)
Set-Parameters $page
Test-Click $sampleHost $page.CADView()
(New-Object -ComObject Ghosthand.Ghosthand).UnblockMouse()
'Done'

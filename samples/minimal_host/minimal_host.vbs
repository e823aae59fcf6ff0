' Drives the minimal host: start one minimal_host.exe, then run "cscript minimal_host.vbs".
Option Explicit

Dim host

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail Err.Description & " (error " & Hex(Err.Number) & ")"
WScript.Echo "Done"

Sub Main()
    Set host = CreateObject("Ghosthand.Ghosthand").MainWindow("minimal_host", "", "", 0, 60)
    If host Is Nothing Then Fail "the minimal host's main window was not found"

    ' Names
    If host.WindowByID("Parts").ControlID <> 1 Then Fail "the name of the tree leads elsewhere"
    If host.GXGridByID("parameters") Is Nothing Then Fail "the grid was not found by its name"
    If Not host.WindowByID("no such window", 0) Is Nothing Then Fail "a name that nobody gave leads somewhere"

    UseGrid host.GXGrid()
    UseTree host.CADTree()
End Sub

Sub UseGrid(grid)
    Expect "Size", grid.RowsCount & " x " & grid.ColumnsCount, "3 x 2"
    Expect "Parameter", grid.GetText(2, 1), "Width"
    grid.SetText 2, 2, "95"
    Expect "Its value", grid.GetText(2, 2), "95"
    Expect "Mass", grid.IsReadOnly(3, 2), True
    grid.SetText 3, 2, "9"
    Expect "Mass kept", grid.GetText(3, 2), "1.5"
    Expect "Outside", grid.GetText(4, 1), ""
End Sub

Sub UseTree(tree)
    Dim bolt
    Set bolt = tree.ItemByPath("Bolt")
    Expect "Visible", bolt.Visible, True
    bolt.Visible = False
    Expect "Hidden", bolt.Visible, False
    bolt.Checked = True
    Expect "Checked", bolt.Checked, True
    Expect "Nut checked", tree.ItemByPath("Nut").Checked, False
    bolt.Color = RGB(200, 30, 30)
    Expect "Colour", bolt.Color, RGB(200, 30, 30)
    bolt.Starred = True
    Expect "Starred", bolt.Starred, True
End Sub

Sub Expect(what, got, wanted)
    WScript.Echo Left(what & ":" & Space(16), 16) & got
    If got <> wanted Then Fail what & " is """ & got & """, not """ & wanted & """"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub

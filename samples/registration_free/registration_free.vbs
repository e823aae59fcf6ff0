' Ghosthand from a folder, with nothing registered: this script, client.manifest, Ghosthand.Classes.manifest
' and ghosthand.dll lie side by side. Run it with the 64-bit cscript while sample_host.exe runs:
'   cscript registration_free.vbs
Option Explicit

Dim folder, context, ghosthand, host
folder = CreateObject("Scripting.FileSystemObject").GetParentFolderName(WScript.ScriptFullName)
Set context = CreateObject("Microsoft.Windows.ActCtx")
context.Manifest = folder & "\client.manifest"
Set ghosthand = context.CreateObject("Ghosthand.Ghosthand")
Set host = ghosthand.MainWindow("sample_host")
If host Is Nothing Then
    WScript.Echo "Start sample_host.exe first"
    WScript.Quit 1
End If
WScript.Echo "Found: " & host.Text

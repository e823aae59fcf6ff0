// Drives Wine's Notepad as a tester would: start one Notepad, then run "cscript notepad.js".
// On Windows, whose Notepad has other commands and controls, run sample_host.js or cad_story.js.
var files = new ActiveXObject("Scripting.FileSystemObject");
var folder = files.GetParentFolderName(WScript.ScriptFullName);
eval(files.OpenTextFile(files.BuildPath(folder, "ghosthand_helpers.js")).ReadAll());

// Commands of Wine's Notepad.
var kNew = 256, kOpen = 257, kSaveAs = 259, kFont = 320;
var kYes = 6;
var kSelectAll = 0xB1; // EM_SETSEL

run(function () {
    var notepad = mainWindow("notepad");
    WScript.Echo("Main window:    '" + notepad.Text + "'");
    var edit = notepad.Edit();

    typeText(edit, "First words");
    expect("Typed", edit.Text, "First words");
    edit.SendMessage(kSelectAll, 0, -1); // what is typed replaces it
    typeText(edit, "Typed by JScript.");
    expect("Typed over it", edit.Text, "Typed by JScript.");

    var dialog = openDialog(notepad, kFont);
    WScript.Echo("Dialog opened:  '" + dialog.Text + "'");
    dialog.Close();
    expect("Dialog gone", waitUntilGone(dialog), true);

    var path = files.BuildPath(files.GetSpecialFolder(2), "ghosthand_sample.txt");
    saveAs(notepad, path);
    expect("File saved", files.OpenTextFile(path).ReadAll(), "Typed by JScript.");
    notepad.Command(kNew);
    expect("New text", edit.Text, "");
    notepad.Command(kOpen);
    notepad.OpenSaveDialog().File(path);
    expect("Read back", edit.Text, "Typed by JScript.");
    expect("Dialog alive", isAlive(dialog), false);
});

function saveAs(notepad, path) {
    notepad.Command(kSaveAs);
    notepad.OpenSaveDialog().File(path);
    var question = notepad.ActiveDialog(0);
    if (question !== null) question.Button("", kYes).Click(); // replace it
}

// Drives the classic Notepad of Wine as a tester would: start one Notepad, then run notepad.exe of this sample.
// On Windows, whose Notepad has other commands and controls, run the other two stories.
//     csc /platform:x64 Notepad.cs GhosthandHelpers.cs
using System;
using System.IO;
using System.Text;
using static Helpers;

static class Notepad
{
    // Commands of Wine's Notepad.
    const int New = 256, Open = 257, SaveAsCommand = 259, Font = 320;
    const int Yes = 6;
    const int Control = 0x11;

    [STAThread]
    static int Main() => Run(Story);

    static void Story()
    {
        dynamic notepad = MainWindow("notepad");
        Console.WriteLine($"Main window:    \"{notepad.Text}\"");
        dynamic edit = notepad.Edit();

        TypeText(edit, "First words");
        Expect("Typed", (string)edit.Text, "First words");
        PressKeys(edit, Control, 'A'); // select all: what is typed replaces it
        TypeText(edit, "Typed by C#.");
        Expect("Typed over it", (string)edit.Text, "Typed by C#.");

        dynamic dialog = OpenDialog(notepad, Font);
        Console.WriteLine($"Dialog opened:  \"{dialog.Text}\"");
        dialog.Close();
        Expect("Dialog gone", (bool)WaitUntilGone(dialog), true);

        string text = new StringBuilder().Insert(0, "0123456789", 300).ToString();
        edit.Text = text;
        Expect("Long text", LongText(edit) == text, true);
        string path = Path.Combine(Path.GetTempPath(), "ghosthand_sample.txt");
        SaveAs(notepad, path);
        Expect("File saved", File.ReadAllText(path) == text, true);
        notepad.Command(New);
        Expect("New text", (string)edit.Text, "");
        notepad.Command(Open);
        notepad.OpenSaveDialog().File(path);
        Expect("Read back", LongText(edit) == text, true);
        Expect("Dialog alive", (bool)IsAlive(dialog), false);
    }

    static void SaveAs(dynamic notepad, string path)
    {
        notepad.Command(SaveAsCommand);
        notepad.OpenSaveDialog().File(path);
        notepad.ActiveDialog(0)?.Button("", Yes).Click(); // replace it
    }
}

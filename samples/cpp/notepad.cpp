// Drives Wine's Notepad as a tester would: start one Notepad, then run cpp_notepad.exe.
// On Windows, whose Notepad has other commands and controls, run cpp_sample_host.exe or cpp_cad_story.exe.
#include "ghosthand_helpers.h"

#include <fstream>
#include <iterator>

using namespace helpers;

// Commands of Wine's Notepad.
constexpr long kNew = 256, kOpen = 257, kSaveAs = 259, kFont = 320;
constexpr long kYes = 6;

static void SaveAs(const Object<IBaseWindow>& notepad, const std::string& path) {
    Get(notepad, &IBaseWindow::Command, kSaveAs);
    Check(Get(notepad, &IBaseWindow::OpenSaveDialog, 10)->File(Text(path)));
    if (const auto question = Get(notepad, &IBaseWindow::ActiveDialog, 0))
        Check(Get(question, &IBaseWindow::Button, Text(""), kYes, 0, 10)->Click(1, 1, 1, 0)); // replace it
}

static void Story() {
    const auto notepad = MainWindow("notepad");
    std::printf("Main window:    \"%s\"\n", Get(notepad, &IBaseWindow::get_Text).c_str());
    const auto edit = Get(notepad, &IBaseWindow::Edit, 0, 0, 10);

    TypeText(edit, "First words");
    Expect("Typed:", Get(edit, &IBaseWindow::get_Text), "First words");
    PressKeys(edit, {VK_CONTROL, 'A'}); // select all: what is typed replaces it
    TypeText(edit, "Typed by C++.");
    Expect("Typed over it:", Get(edit, &IBaseWindow::get_Text), "Typed by C++.");

    const auto dialog = OpenDialog(notepad, kFont);
    std::printf("Dialog opened:  \"%s\"\n", Get(dialog, &IBaseWindow::get_Text).c_str());
    Check(dialog->Close());
    Expect("Dialog gone:", WaitUntilGone(dialog), true);

    std::string text;
    for (int count = 0; count < 300; ++count)
        text += "0123456789";
    Check(edit->put_Text(Text(text)));
    Expect("Long text:", LongText(edit) == text, true);
    char folder[MAX_PATH];
    GetTempPathA(MAX_PATH, folder);
    const std::string path = std::string(folder) + "ghosthand_sample.txt";
    SaveAs(notepad, path);
    std::ifstream file(path);
    Expect("File saved:", std::string(std::istreambuf_iterator<char>(file), {}) == text, true);
    Get(notepad, &IBaseWindow::Command, kNew);
    Expect("New text:", Get(edit, &IBaseWindow::get_Text), "");
    Get(notepad, &IBaseWindow::Command, kOpen);
    Check(Get(notepad, &IBaseWindow::OpenSaveDialog, 10)->File(Text(path)));
    Expect("Read back:", LongText(edit) == text, true);
    Expect("Dialog alive:", IsAlive(dialog), false);
}

int main() {
    return Run(Story);
}

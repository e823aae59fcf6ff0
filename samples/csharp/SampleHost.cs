// Drives the sample host: start one sample_host.exe, then run this.
//     csc /platform:x64 SampleHost.cs GhosthandHelpers.cs
using System;
using static Helpers;

static class SampleHost
{
    // Commands and control ids of the sample host (samples/host/host_ids.h).
    const int PageSettings = 601, PageContextMenus = 608, PageTrees = 630, PageListViews = 631;
    const int Edit = 1001, CheckBox = 1010, TriStateBox = 1011, RadioImperial = 1016;
    const int DropDownList = 1020, ListBox = 1022, MenuArea = 1085, PartsTree = 1140, LayersList = 1151;
    const int DrawSnap = 705;

    [STAThread]
    static int Main() => Run(Story);

    static void Story()
    {
        dynamic host = MainWindow("sample_host");
        Console.WriteLine($"Main window:    \"{host.Text}\"");
        host.FitSize(900, 600);
        Expect("Client size", $"{host.Width} x {host.Height}", "900 x 600");
        SetOptions(host);
        UseMenus(host);
        UseTree(Page(host, PageTrees).TreeCtrl(PartsTree));
        UseList(Page(host, PageListViews).ListView(LayersList));
    }

    /// <summary>Opens a page of the sample host and returns its window.</summary>
    static dynamic Page(dynamic host, int command)
    {
        host.Command(command);
        dynamic page = host.ActiveDocument();
        Console.WriteLine($"Page opened:    \"{page.Text}\"");
        return page;
    }

    static void SetOptions(dynamic host)
    {
        dynamic dialog = OpenDialog(host, PageSettings);
        Console.WriteLine($"Dialog opened:  \"{dialog.Text}\"");
        dynamic edit = dialog.Edit(Edit);
        edit.Text = "New setting";
        Expect("Field", (string)edit.Text, "New setting");
        dynamic box = dialog.CheckBox("", CheckBox);
        box.Checked = !box.Checked;
        box.Checked = true;
        Expect("Check box", (bool)box.Checked, true);
        box = dialog.CheckBox("", TriStateBox);
        box.CheckedState = 2;
        Expect("Three states", (int)box.CheckedState, 2);
        dialog.Button("", RadioImperial).Click();
        dynamic combo = dialog.ComboBox(DropDownList);
        combo.SelectItem(1);
        Expect("Combo box", (string)combo.Text, (string)combo.GetItem(1));
        dynamic list = dialog.ListBox(ListBox);
        list.SelectItem(2);
        Expect("List box", (int)list.SelectedItem, 2);
        dialog.Close();
        Expect("Dialog gone", (bool)WaitUntilGone(dialog), true);
    }

    static void UseMenus(dynamic host)
    {
        host.MenuChars("ha"); // Alt, H, A: Help, About
        dynamic about = host.ActiveDialog();
        Console.WriteLine($"Menu opened:    \"{about.Text}\"");
        about.Close();

        dynamic area = Page(host, PageContextMenus).ChildWindow("", "", MenuArea);
        dynamic snap = area.ContextMenu(10, 10).GetItemByID("Snap", DrawSnap);
        bool wasChecked = snap.Checked;
        snap.Click();
        dynamic menu = area.ContextMenu(10, 10);
        Expect("Snap marked", (bool)menu.GetItemByID("Snap", DrawSnap).Checked, !wasChecked);
        menu.CloseMenu();
    }

    static void UseTree(dynamic tree)
    {
        dynamic first = tree.ItemByNumPath("1");
        first.Selected = true;
        Expect("Tree item", (string)tree.SelectedItem.Text, (string)first.Text);
        first.Expanded = true;
        Expect("Expanded", (bool)first.Expanded, true);
    }

    static void UseList(dynamic layers)
    {
        Expect("List view", (bool)layers.SelectItemByName("Layer 1"), true);
        Expect("Selected", (string)layers.GetItem(layers.SelectedItem), "Layer 1");
        layers.CheckItemByName("Layer 10");
        Expect("Checked", (bool)layers.IsChecked(layers.SelectedItem + 1), true);
    }
}

"""A program of another toolkit, with the system's controls below it: wx_program.py JOURNAL.

It writes a line into the journal for each thing that its user has done.
"""

import sys

import wx

from wx_ids import (APPLY, BLUE, BOOK, BOX, CHOICE, COMBO, EDIT, EXTRUDE, FILLET, GRID, LAYERS, LIST, PROPERTIES, SHELL,
                    SLIDER, SNAP, TOP, TREE, TRISTATE)


class Modeller(wx.Frame):
    def __init__(self, journal):
        super().__init__(None, title="Modeller - bracket", size=(900, 640))
        self.journal = journal
        self.make_menu()
        self.make_tools()
        splitter = wx.SplitterWindow(self)
        tree = self.make_tree(splitter)
        splitter.SplitVertically(tree, self.make_book(splitter), 300)
        self.Bind(wx.EVT_CLOSE, self.on_close)
        self.tell("ready")

    def tell(self, *what):
        print(*what, file=self.journal, flush=True)

    def make_menu(self):
        bar, model, view = wx.MenuBar(), wx.Menu(), wx.Menu()
        model.Append(PROPERTIES, "&Properties...\tAlt+Enter")
        view.Append(TOP, "&Top")
        view.AppendCheckItem(GRID, "&Grid")
        bar.Append(model, "&Model")
        bar.Append(view, "&View")
        self.SetMenuBar(bar)
        self.Bind(wx.EVT_MENU, self.on_properties, id=PROPERTIES)
        self.Bind(wx.EVT_MENU, lambda event: self.tell("top"), id=TOP)
        self.Bind(wx.EVT_MENU, lambda event: self.tell("grid", event.IsChecked()), id=GRID)

    def make_tools(self):
        bar = self.CreateToolBar(wx.TB_TEXT)
        picture = wx.ArtProvider.GetBitmap(wx.ART_NEW, wx.ART_TOOLBAR, (16, 16))
        for tool, name in ((EXTRUDE, "Extrude"), (FILLET, "Fillet"), (SHELL, "Shell"), (SNAP, "Snap")):
            bar.AddTool(tool, name, picture, kind=wx.ITEM_CHECK if tool == SNAP else wx.ITEM_NORMAL)
            self.Bind(wx.EVT_TOOL, lambda event, name=name: self.tell("tool", name), id=tool)
        bar.EnableTool(SHELL, False)
        bar.Realize()

    def make_tree(self, parent):
        tree = wx.TreeCtrl(parent, TREE, style=wx.TR_DEFAULT_STYLE | wx.TR_EDIT_LABELS)
        root = tree.AddRoot("Assembly")
        for part in range(30):
            branch = tree.AppendItem(root, f"Part {part}")
            for feature in range(5):
                tree.AppendItem(branch, f"Feature {part}.{feature}")
        tree.Bind(wx.EVT_TREE_SEL_CHANGED, lambda event: self.tell("tree", tree.GetItemText(event.GetItem())))
        tree.Bind(wx.EVT_TREE_END_LABEL_EDIT, lambda event: self.tell("renamed", event.GetLabel()))
        return tree

    def make_book(self, parent):
        book = wx.Notebook(parent, BOOK)
        parameters = wx.ListCtrl(book, LIST, style=wx.LC_REPORT)
        parameters.EnableCheckBoxes()
        parameters.AppendColumn("Name", width=160)
        parameters.AppendColumn("Value")
        for number in range(200):
            parameters.Append((f"Parameter {number}", f"{number * 1.5}"))
        parameters.Bind(wx.EVT_LIST_ITEM_SELECTED, lambda event: self.tell("list", event.GetText()))
        parameters.Bind(wx.EVT_LIST_ITEM_CHECKED, lambda event: self.tell("list checked", event.GetIndex()))
        book.AddPage(parameters, "Parameters")
        book.AddPage(self.make_controls(book), "Controls")
        book.Bind(wx.EVT_NOTEBOOK_PAGE_CHANGED, lambda event: self.tell("page", event.GetSelection()))
        return book

    def make_controls(self, book):
        panel, column = wx.Panel(book), wx.BoxSizer(wx.VERTICAL)

        def add(control, event, name, value):
            column.Add(control, 0, wx.ALL, 3)
            control.Bind(event, lambda event: self.tell(name, value(event)))

        add(wx.TextCtrl(panel, EDIT), wx.EVT_TEXT, "edit", wx.CommandEvent.GetString)
        add(wx.CheckBox(panel, BOX, "Visible"), wx.EVT_CHECKBOX, "box", wx.CommandEvent.IsChecked)
        add(wx.CheckBox(panel, TRISTATE, "Mixed", style=wx.CHK_3STATE | wx.CHK_ALLOW_3RD_STATE_FOR_USER),
            wx.EVT_CHECKBOX, "tristate", lambda event: int(event.GetEventObject().Get3StateValue()))
        add(wx.RadioButton(panel, label="Red", style=wx.RB_GROUP), wx.EVT_RADIOBUTTON, "red", wx.CommandEvent.IsChecked)
        add(wx.RadioButton(panel, BLUE, "Blue"), wx.EVT_RADIOBUTTON, "blue", wx.CommandEvent.IsChecked)
        add(wx.Choice(panel, CHOICE, choices=["Steel", "Copper", "Gold"]), wx.EVT_CHOICE, "choice",
            wx.CommandEvent.GetString)
        add(wx.ComboBox(panel, COMBO, choices=["One", "Two", "Three"]), wx.EVT_COMBOBOX, "combo",
            wx.CommandEvent.GetString)
        add(wx.ListBox(panel, LAYERS, choices=[f"Layer {number}" for number in range(40)], size=(150, 60)),
            wx.EVT_LISTBOX, "layer", wx.CommandEvent.GetString)
        add(wx.Slider(panel, SLIDER, 10, 0, 100), wx.EVT_SCROLL_CHANGED, "slider", lambda event: event.GetPosition())
        add(wx.Button(panel, APPLY, "&Apply"), wx.EVT_BUTTON, "apply", lambda event: "")
        panel.SetSizer(column)
        return panel

    def on_properties(self, event):
        with wx.TextEntryDialog(self, "Name of the part:", "Properties", "bracket") as dialog:
            self.tell("properties", dialog.GetValue() if dialog.ShowModal() == wx.ID_OK else "cancelled")

    def on_close(self, event):
        self.tell("closed")
        event.Skip()


app = wx.App()
Modeller(open(sys.argv[1], "w", encoding="utf-8")).Show()
app.MainLoop()

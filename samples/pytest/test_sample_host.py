"""Tests of the sample host: one thing each, so that the report tells what does not work."""

import pytest
from ghosthand_helpers import by_name, open_dialog, wait_until_gone

# Commands and control ids of the sample host (samples/host/host_ids.h).
PAGE_SETTINGS, PAGE_CAD, PAGE_TREES = 601, 610, 630
EDIT, CHECK_BOX, DROP_DOWN_LIST, PARTS_TREE, CAD_TREE, PARAMETER_GRID = 1001, 1010, 1020, 1140, 1100, 1103


@pytest.fixture
def settings(host):
    return open_dialog(host, PAGE_SETTINGS)


def page(host, command):
    host.Command(command)
    return host.ActiveDocument()


def test_field_takes_text(settings):
    edit = settings.Edit(EDIT)
    edit.Text = "New setting"
    assert edit.Text == "New setting"


def test_check_box_toggles(settings):
    box = settings.CheckBox("", CHECK_BOX)
    before = box.Checked
    box.Click()
    assert box.Checked != before


@pytest.mark.parametrize("index", [0, 1])
def test_combo_box_selects(settings, index):
    combo = settings.ComboBox(DROP_DOWN_LIST)
    combo.SelectItem(index)
    assert combo.Text == combo.GetItem(index)


def test_dialog_closes(settings):
    settings.Close()
    assert wait_until_gone(settings)


def test_tree_selects(host):
    tree = page(host, PAGE_TREES).TreeCtrl(PARTS_TREE)
    first = tree.ItemByNumPath("1")
    first.Selected = True
    assert tree.SelectedItem.Text == first.Text


def test_part_hides_and_shows(host):
    part = by_name(page(host, PAGE_CAD).CADTree(CAD_TREE).ItemByPath("Gearbox|Housing|Right wall"))
    part.Visible = False
    assert not part.Visible
    part.Visible = True
    assert part.Visible


def test_mass_is_read_only(host):
    grid = page(host, PAGE_CAD).GXGrid(PARAMETER_GRID)
    rows = {grid.GetText(row, 1): row for row in range(1, grid.RowsCount + 1)}
    assert grid.IsReadOnly(rows["Mass"], 2)
    assert not grid.IsReadOnly(rows["Shaft diameter"], 2)

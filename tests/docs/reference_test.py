"""The reference: the type library is read right, and a text that is missing, or one too many, is noticed.

    reference_test.py TYPE-LIBRARY
"""

import copy
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[2] / "docs" / "site"))
import interfaces  # noqa: E402
import reference  # noqa: E402

LIBRARY, ENUMERATIONS = interfaces.read(sys.argv.pop(1))
TEXTS = reference.texts_of()


def member_of(interface, name):
    [found] = [member for other in LIBRARY if other.name == interface for member in other.members
               if member.name == name]
    return found


class ReadingTheTypeLibrary(unittest.TestCase):
    def test_parameters_with_their_defaults(self):
        parameters = member_of("IGhosthand", "MainWindow").parameters
        self.assertEqual([(parameter.name, parameter.type, parameter.default) for parameter in parameters],
                         [("a_app_name", "string", None), ("a_caption_name", "string", ""),
                          ("a_class_name", "string", ""), ("a_flags", "long", 0), ("a_timeout", "long", 10)])

    def test_a_default_that_is_not_stored_in_the_number(self):
        self.assertEqual(member_of("IBaseWindow", "SendMessage").parameters[2].default, 0)
        self.assertIs(member_of("ITreeControl", "ContextMenu").parameters[0].default, True)

    def test_accessors_of_a_property_are_one_member(self):
        text = member_of("ITreeItem", "Text")
        self.assertTrue(text.is_property and text.readable and text.writable)
        self.assertEqual((text.result, text.parameters), ("string", []))
        cell = member_of("IGXGrid", "IsReadOnly")
        self.assertEqual(([parameter.name for parameter in cell.parameters], cell.writable),
                         (["a_row", "a_col"], False))

    def test_bases_and_constants(self):
        bases = {interface.name: interface.base for interface in LIBRARY}
        self.assertEqual((len(bases), bases["IListView"], bases["ICADTreeItem"], bases["ITreeItem"]),
                         (20, "IListBox", "ITreeItem", "IDispatch"))
        self.assertEqual(ENUMERATIONS["ghCheckBoxState"][2], ("ghINDETERMINATE", 2))


class Completeness(unittest.TestCase):
    def setUp(self):
        self.texts = copy.deepcopy(TEXTS)
        self.pages = self.texts["interfaces"]

    def problems(self):
        return reference.problems(LIBRARY, self.texts)

    def test_the_texts_are_complete(self):
        self.assertEqual(self.problems(), [])

    def test_a_member_without_a_text(self):
        del self.pages["IGXGrid"]["members"]["SetText"]
        self.assertIn("IGXGrid.SetText has no text", self.problems())

    def test_a_text_without_a_member(self):
        self.pages["IGXGrid"]["members"]["Sort"] = self.pages["IGXGrid"]["members"]["SetText"]
        self.pages["IGrid"] = self.pages["IGXGrid"]
        self.assertEqual(set(self.problems()), {"IGXGrid has no member Sort", "there is no interface IGrid"})

    def test_what_a_text_must_tell(self):
        members = self.pages["ITreeControl"]["members"]
        del members["ItemByPath"]["nothing"]
        del members["SelectItem"]["false"]
        del members["ItemByNum"]["waits"]
        del members["SelectedItem"]["example"]
        self.assertEqual(set(self.problems()),
                         {"ITreeControl.ItemByPath does not tell: nothing", "ITreeControl.SelectItem does not tell: false",
                          "ITreeControl.ItemByNum does not tell: waits",
                          "ITreeControl.SelectedItem does not tell: example"})

    def test_parameters(self):
        del self.texts["parameters"]["a_delay"]
        self.pages["IGXGrid"]["members"]["SetText"]["parameters"]["a_colour"] = "Its colour."
        self.assertEqual(set(self.problems()),
                         {"IBaseWindow.MenuChars: its parameter a_delay has no text",
                          "IBaseWindow.MenuIndex: its parameter a_delay has no text",
                          "IGXGrid.SetText has no parameter a_colour"})


if __name__ == "__main__":
    unittest.main()

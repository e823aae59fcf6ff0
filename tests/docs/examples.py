"""Takes the VBScript examples out of the documents and makes scripts of them that check what they write.

    examples.py MEMBERS.yaml DOCS-FOLDER OUTPUT-FOLDER

Each page becomes NAME.vbs, whose examples run one after the other; what works with a menu becomes NAME.within.vbs,
which the sample host runs within itself. In an example

    WScript.Echo EXPRESSION   ' -> TEXT     must write the text
    <!-- not run: reason -->                before a block: its syntax is checked, nothing more
    <!-- within -->                         before a block: it works with a menu
"""

import re
import sys
from pathlib import Path

import yaml

CHECKED = re.compile(r"^(\s*)WScript\.Echo (.+?)\s+' -> (.*)$")
BLOCK = re.compile(r"(?:<!-- (not run|within)[^>]*-->\n+)?```vbscript\n(.*?)```", re.S)
DEFINITION = re.compile(r"^(Sub|Function)\b.*?^End \1$\n?", re.S | re.M)

HEAD = """\
' Made by tests/docs/examples.py.
Dim ghosthand, host, checked_failures
Set ghosthand = CreateObject("Ghosthand.Ghosthand")
ghosthand.AllowMouseBlocks = False
Set host = ghosthand.MainWindow("sample_host", "", "", 0, 60)
"""
TAIL = '''\
If checked_failures = 0 Then WScript.Echo "Done"

Sub Check(where, actual, wanted)
    If RTrim("" & actual) <> wanted Then Fail where & ": """ & actual & """ instead of """ & wanted & """"
End Sub

Sub Fail(reason)
    checked_failures = checked_failures + 1
    WScript.Echo "FAILED: " & reason
End Sub

' An example leaves no dialog behind.
Sub CleanUp()
    Dim dialog
    Do
        Set dialog = host.ActiveDialog(0)
        If dialog Is Nothing Then Exit Do
        dialog.Close
    Loop
End Sub
'''


class Script:
    def __init__(self):
        self.text, self.definitions, self.count = HEAD, "", 0

    def add(self, where, example, is_run=True):
        self.definitions += "".join(match.group(0) for match in DEFINITION.finditer(example))
        example = DEFINITION.sub("", example)
        checks = [CHECKED.sub(lambda match: self._check(where, match), line) for line in example.splitlines()]
        for line in checks + self.definitions.splitlines():
            if "' -> " in line:
                raise ValueError(f"{where}: what this line writes cannot be checked: {line.strip()}")
        self.count += 1
        name = f"Example{self.count}"
        body = "\n".join(f"    {line}" for line in checks)
        self.definitions += f"\nSub {name}()\n{body}\nEnd Sub\n"
        if is_run:
            self.text += (f"\nWScript.Echo \"{where}\"\nOn Error Resume Next\n{name}\n"
                          f"If Err.Number <> 0 Then Fail \"{where}: error \" & Hex(Err.Number) & \" \" & Err.Description\n"
                          "Err.Clear\nCleanUp\nOn Error GoTo 0\n")

    @staticmethod
    def _check(where, match):
        indent, expression, wanted = match.groups()
        wanted = wanted.replace('"', '""')
        return f'{indent}Check "{where}", {expression}, "{wanted}"'

    def write(self, path):
        if self.count:
            script = f"{self.text}\n{TAIL}{self.definitions}"
            path.write_bytes(script.replace("\n", "\r\n").encode("cp1252"))


def page_scripts(name, page):
    outside, within = Script(), Script()
    for member, text in page["members"].items():
        script = within if text.get("within") else outside
        script.add(f"{name}.{member}", page.get("setup", "") + text["example"], "not_run" not in text)
    return outside, within


def guide_scripts(name, text):
    """The blocks of a guide go on from each other, as a reader would have it."""
    outside, within = Script(), Script()
    parts = {False: "", True: ""}
    for number, (kind, block) in enumerate(BLOCK.findall(text), 1):
        if kind == "not run":
            outside.add(f"{name}, block {number}", block, is_run=False)
        else:
            parts[kind == "within"] += block + "\n"
    for is_within, script in ((False, outside), (True, within)):
        if parts[is_within]:
            script.add(name, parts[is_within])
    return outside, within


def main(members, docs, output):
    output = Path(output)
    output.mkdir(parents=True, exist_ok=True)
    for old in output.glob("*.vbs"):
        old.unlink()
    texts = yaml.safe_load(Path(members).read_text(encoding="utf-8"))
    pages = {name: page_scripts(name, page) for name, page in texts["interfaces"].items()}
    pages |= {path.stem: guide_scripts(path.stem, path.read_text(encoding="utf-8"))
              for path in sorted(Path(docs).glob("*.md"))}
    for name, (outside, within) in pages.items():
        outside.write(output / f"{name}.vbs")
        within.write(output / f"{name}.within.vbs")


if __name__ == "__main__":
    main(*sys.argv[1:])

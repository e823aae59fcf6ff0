"""Makes trace folders as docs/trace-format.md describes them.

    sample_trace.py KIND FOLDER      KIND: one of the functions in KINDS
"""

import json
import random
import struct
import sys
import zlib
from pathlib import Path

DESKTOP = [0, 0, 1280, 1024]
DIALOG = [330, 262, 812, 640]
# What text may do to a page: end its script, start a comment, break a line in old scripts, run backwards.
HOSTILE = '</script><script>document.title="broken"</script><!--\u2028\u2029"\'&amp;\\ \u202eabc\u202c Größe \u65e5\u672c'


def png(width, height, rectangles):
    """A picture with filled rectangles: (left, top, right, bottom, (red, green, blue))."""
    rows = [bytearray(b"\x2b\x5c\x73" * width) for _ in range(height)]
    for left, top, right, bottom, colour in rectangles:
        for row in rows[top:bottom]:
            row[3 * left : 3 * right] = bytes(colour) * (right - left)

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    pixels = zlib.compress(b"".join(b"\0" + bytes(row) for row in rows), 6)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", pixels) + chunk(b"IEND", b"")


def desktop_picture():
    left, top, right, bottom = DIALOG
    return png(1280, 1024, [
        (60, 40, 1180, 920, (240, 240, 240)),
        (60, 40, 1180, 68, (60, 90, 140)),
        (70, 100, 300, 910, (255, 255, 255)),
        (310, 100, 1170, 910, (205, 216, 226)),
        (left, top, right, bottom, (236, 236, 236)),
        (left, top, right, top + 26, (0, 90, 180)),
        (620, 590, 700, 616, (200, 200, 200)),
        (712, 590, 792, 616, (200, 200, 200)),
    ])


class Trace:
    """The file of one process. Times go on by themselves; a script's own time passes with `script`."""

    def __init__(self, folder, process=4660, program="C:\\Windows\\System32\\cscript.exe",
                 command_line="cscript.exe //nologo box.vbs", time="2026-11-25T20:14:02.123+01:00"):
        folder.mkdir(parents=True, exist_ok=True)
        self.folder = folder
        self.process = process
        self.path = folder / f"trace-{process}.jsonl"
        self.lines = []
        self.t = 0.0
        self.calls = 0
        self.steps = 0
        self.write("start", version=1, process=process, program=program, commandLine=command_line,
                   time=time, module="1.0.0")

    def write(self, event, **members):
        if event != "start":
            members = {"t": round(self.t, 1), **members}
        self.lines.append(json.dumps({"event": event, **members}, ensure_ascii=False, separators=(",", ":")))

    def script(self, milliseconds):
        self.t += milliseconds

    def begin(self, on, member, *arguments, kind="method"):
        self.calls += 1
        def vb(value):
            if isinstance(value, str):
                return '"' + value.replace('"', '""') + '"'
            return f"&H{value:X}" if isinstance(value, int) and value >= 0x40 and value % 0x40 == 0 else str(value)
        text = f"{on}.{member}"
        if kind == "put":
            text += " = " + vb(arguments[0])
        elif arguments:
            text += "(" + ", ".join(map(vb, arguments)) + ")"
        self.write("call", call=self.calls, thread=4664, object=on, member=member, kind=kind,
                   arguments=list(arguments), text=text)
        self.t += 0.2
        return text

    def step(self, kind, text, milliseconds, outcome=None, within=()):
        """`within`: steps that lie in this one, as arguments of this function."""
        self.steps += 1
        number = self.steps
        self.write("step", call=self.calls, step=number, kind=kind, text=text)
        for inner in within:
            self.step(*inner)
        self.t += milliseconds
        self.write("stepEnd", step=number, **({"outcome": outcome} if outcome else {}))

    def search(self, text, windows, rounds=1, found=True):
        self.write("search", call=self.calls, text=text, windows=windows, rounds=rounds, found=found)

    def synchronise(self, idle=30.0):
        self.step("synchronise", "wait until the program is ready", 0.4, None, [
            ("marker", "marker posted to the program's queue", 3.1),
            ("idle", "wait until thread 1204 waits for input", idle),
        ])

    def end(self, result, failed=False):
        self.write("end", call=self.calls, result=result, failed=failed)

    def find(self, on, member, *arguments, windows=40, took=1.5, result="BaseWindow"):
        text = self.begin(on, member, *arguments)
        self.t += took
        self.search(f"{member} {', '.join(map(repr, arguments))}", windows)
        self.end(result)
        return text

    def act(self, on, member, *arguments, idle=30.0, kind="method"):
        self.begin(on, member, *arguments, kind=kind)
        self.step("action", "real click at 412, 377", 8.0)
        self.synchronise(idle)
        self.end("True" if kind == "method" else "done")

    def fail(self, on, member, *arguments, wait=2000.0, what, misses, picture=True, windows=1302):
        self.begin(on, member, *arguments)
        self.step("wait", f"wait for {what}", wait, f"timed out after {wait / 1000:g} s")
        self.search(what, windows, 1 + int(wait / 100), False)
        for miss in misses:
            self.write("miss", call=self.calls, **miss)
        if picture:
            name = f"{self.process}-{self.calls}.png"
            (self.folder / name).write_bytes(picture if isinstance(picture, bytes) else desktop_picture())
            self.write("picture", call=self.calls, file=name, desktop=DESKTOP, frame=DIALOG)
            self.t += 42
        self.end("Nothing", True)

    def save(self, stop=True, tail=""):
        if stop:
            self.write("stop")
        self.path.write_bytes(("\n".join(self.lines) + "\n" + tail).encode())


DIALOG_CALL = 'gh.MainWindow("cad").ActiveDialog'
OK_MISSES = [
    {"name": "Button 'OK' id 1", "reasons": ["is disabled"],
     "hint": "wait until the dialog has taken the name, or leave out &H100",
     "line": DIALOG_CALL + '.Button("OK", 1)', "rectangle": [620, 590, 700, 616]},
    {"name": "Button 'Ok to all' id 1207", "reasons": ["caption 'Ok to all' does not contain 'OK'"],
     "hint": 'write "Ok" instead of "OK"', "line": DIALOG_CALL + '.Button("Ok", 1207, &H100)',
     "rectangle": [712, 590, 792, 616]},
    {"name": "Button 'OK' id 1", "reasons": ["is not a direct child", "found below a hidden parent"],
     "hint": "add &HC0 to the flags", "line": DIALOG_CALL + '.Button("OK", 1, &H1C0)',
     "rectangle": [900, 700, 980, 726]},
]


def story(trace):
    main = trace.find("gh", "MainWindow", "cad", windows=212)
    tree = trace.find(main, "TreeCtrl", 7, 0x40, windows=96, result="TreeControl")
    for part in ("Shaft", "Housing|Bearing left", "Housing|Bearing right", "Housing|Cover"):
        trace.script(4)
        item = trace.find(tree, "ItemByPath", f"Gearbox|{part}", windows=0, took=14, result="TreeItem")
        trace.act(item, "Select", idle=60)
        trace.begin(item, "Text", kind="get")
        trace.step("action", "read in the program", 1.1)
        trace.end(f'"{part.split("|")[-1]}"')
    trace.script(900)
    trace.act(main, "Command", 601, idle=420)
    trace.begin("gh", "Wait", 500)
    trace.step("pause", "pause of 500 ms", 500)
    trace.end("done")
    trace.find(main, "ActiveDialog", windows=11, took=180)
    trace.find(DIALOG_CALL, "Edit", 1152, 0x40, windows=31, result="EditControl")
    trace.act(DIALOG_CALL + ".Edit(1152, &H40)", "Text", "Gearbox 12", kind="put", idle=45)


def finished_run(folder, exit_code, ended="2026-11-25T20:14:08.900+01:00"):
    line = {"event": "run", "commandLine": "cscript.exe //nologo box.vbs",
            "started": "2026-11-25T20:14:01.900+01:00", "ended": ended, "exitCode": exit_code}
    (folder / "run.jsonl").write_text(json.dumps(line) + "\n")


def failed(folder, picture=True):
    """A script that stopped because a button was disabled."""
    trace = Trace(folder)
    story(trace)
    trace.fail(DIALOG_CALL, "Button", "OK", 1, 0x100, what="enabled Button 'OK' id 1", misses=OK_MISSES,
               picture=picture)
    trace.save()
    finished_run(folder, 1)


def hang(folder):
    """Ended in the middle of a hang: a call within a call, in its innermost step."""
    trace = Trace(folder)
    story(trace)
    trace.begin(DIALOG_CALL, "Close")
    trace.step("action", "WM_CLOSE", 2.0)
    trace.write("step", call=trace.calls, step=900, kind="synchronise", text="wait until the program is ready")
    trace.t += 4
    trace.write("step", call=trace.calls, step=901, kind="idle", text="wait until thread 1204 waits for input")
    trace.save(stop=False)
    finished_run(folder, 259, "2026-11-25T20:15:05.000+01:00")


def cut(folder):
    """A hostile run: damaged lines, a line cut in the middle of a character, texts that would break a page."""
    trace = Trace(folder, command_line=f"cscript.exe {HOSTILE}")
    story(trace)
    trace.find("gh", "MainWindow", HOSTILE)
    trace.fail("gh", "MainWindow", HOSTILE, what=HOSTILE, misses=[
        {"name": HOSTILE, "reasons": [HOSTILE], "hint": HOSTILE, "line": HOSTILE, "rectangle": [-900, -50, -800, 9000]},
        {"name": "misses may lack everything else"},
    ])
    picture = folder / f"{trace.process}-{trace.calls}.png"
    picture.write_bytes(picture.read_bytes()[:20])
    trace.lines += ["no JSON </script> at all", "null", "[1,2]", '{"event":"end","call":777,"t":1}',
                    '{"event":"call"}', '{"event":"news","t":3}', "{\"event\":\"call\",\0}"]
    trace.write("lost", reason="the disk is full")
    trace.save(stop=False)
    with trace.path.open("ab") as file:
        file.write('{"event":"call","t":99,"call":9999,"text":"ü'.encode()[:-1])


def two(folder):
    """Two processes, the second begins a second later and fails."""
    first = Trace(folder)
    story(first)
    first.save()
    second = Trace(folder, 5012, "C:\\Python\\python.exe", "python.exe check.py", "2026-11-25T20:14:03.123+01:00")
    main = second.find("gh", "MainWindow", "cad", windows=212)
    second.fail(main, "StatusBar", 1090, what="StatusBar id 1090", misses=[], wait=1000.0)
    second.save()


def large(folder, calls=10000):
    """A night: 10,000 calls, one in fifty slow, one in a hundred failed, few with a picture."""
    chance = random.Random(14)
    trace = Trace(folder, command_line="cscript.exe //nologo night.vbs")
    main = trace.find("gh", "MainWindow", "cad", windows=212)
    tree = trace.find(main, "TreeCtrl", 7, 0x40, windows=96, result="TreeControl")
    while trace.calls < calls:
        trace.script(chance.uniform(0.1, 6))
        number = trace.calls + 1
        if number % 100 == 0:
            trace.fail(main, "Button", f"Apply {number}", wait=300.0, what=f"Button 'Apply {number}'", misses=OK_MISSES,
                       picture=number % 2500 == 0)
        elif number % 3 == 0:
            trace.act(f'{tree}.ItemByPath("Gearbox|Part {number}")', "Select",
                      idle=chance.uniform(400, 1500) if number % 50 == 1 else chance.uniform(5, 60))
        else:
            trace.find(tree, "ItemByPath", f"Gearbox|Part {number}", took=chance.uniform(2, 30), result="TreeItem")
    trace.save()


def empty(folder):
    """A process that made no call."""
    Trace(folder).save()


KINDS = {function.__name__: function for function in (failed, hang, cut, two, large, empty)}

if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in KINDS:
        sys.exit(__doc__ + "\nKinds: " + ", ".join(KINDS))
    KINDS[sys.argv[1]](Path(sys.argv[2]))

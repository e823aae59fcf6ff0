"""Has each peer do each job with a host of its own, in turn, and tells how long it took and what went wrong.

Started by "run", which prepares the desktop, the packages and the server.
"""

import argparse
import datetime
import os
import re
import signal
import subprocess
import sys
import threading
import time
from dataclasses import dataclass, field
from itertools import zip_longest
from pathlib import Path
from statistics import median

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
SCRIPTS = "Z:" + str(HERE / "scripts")
PYTHON = r"C:\python\python.exe"

PEERS = {
    "pywinauto": "pywinauto",
    "autoitx": "AutoItX",
    "autohotkey": "AutoHotkey",
    "python": "Ghosthand, Python",
    "vbscript": "Ghosthand, VBScript",
}
OWN = ("python", "vbscript")


def command_of(peer):
    """What starts a peer's script."""
    if peer == "autohotkey":
        return ["wine", os.environ["PEERS_AUTOHOTKEY"], "/ErrorStdOut", SCRIPTS + "/peer.ahk"]
    if peer == "vbscript":
        return ["wine", r"C:\windows\system32\cscript.exe", "//nologo", SCRIPTS + "/ghosthand_peer.vbs"]
    return ["wine", PYTHON, SCRIPTS + f"/{'ghosthand' if peer == 'python' else peer}_peer.py"]


@dataclass
class Job:
    """What is done, and what shows that it was: texts that the script has read, lines of the host's journal."""

    title: str
    texts: list = field(default_factory=list)
    journal: list = field(default_factory=list)
    host: tuple = ()
    limit: int = 60  # seconds
    counts: str = "runs"  # what is counted where something goes wrong
    cannot: tuple = ()  # peers that have nothing for it


def jobs(rounds):
    return {
        "find": Job("Find a control among 1,000 descendants and read its text, 20 times", texts=["the last one"],
                    host=("--many-children", "1000")),
        "list": Job("Read 1,000 texts of a list view", texts=[f"Row {row}" for row in range(1000)]),
        "tree": Job("Read 1,000 texts of a tree", texts=[f"Node {node}" for node in range(1000)]),
        "select": Job("Select a tree item by its path among 10,000",
                      journal=["selected Assembly 9|Part 9|Feature 99"]),
        "tools": Job("Press 50 tool bar buttons by their texts", journal=[f"tool {tool}" for tool in range(50)],
                     cannot=("autoitx",)),
        "menus": Job("Choose 50 menu commands", journal=[f"command {command}" for command in range(50)]),
        "form": Job("Fill a dialog of ten controls", journal=["form|Bracket|Housing|Flange|Shaft|1|1|1|3|1|4"]),
        "rounds": Job(f"{rounds} rounds of command, late dialog, typing, OK, late result",
                      texts=[f"{number}: value {number}" for number in range(1, rounds + 1)],
                      journal=[f"round {number}: value {number}" for number in range(1, rounds + 1)],
                      limit=60 + rounds, counts="rounds"),
    }


class Program:
    """A process started here, with what it writes."""

    def __init__(self, command):
        self.lines = []
        self.process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True, errors="replace", start_new_session=True)
        # On a thread: programs that stay behind may hold the pipe open.
        self.reader = threading.Thread(target=self._read, daemon=True)
        self.reader.start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\r\n"))

    def wait(self, seconds):
        """Whether it has ended by itself."""
        try:
            self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            return False
        self.reader.join(5)
        return True

    def end(self):
        if self.process.poll() is None:
            os.killpg(self.process.pid, signal.SIGKILL)  # of this very program: it has a session of its own
            self.process.wait(10)


@dataclass
class Outcome:
    """One run. `milliseconds` is None where the script did not get through; `wrong` says what went wrong."""

    milliseconds: float | None
    wrong: int
    reason: str = ""


def seen(job, journal):
    """The lines of the journal that are about the job; of a selection only the last counts."""
    words = {line.split()[0].split("|")[0] for line in job.journal}
    lines = [line for line in journal if line.split()[0].split("|")[0] in words]
    return lines[-1:] if "selected" in words else lines


def misses(wanted, got):
    """How many of the wanted lines are not in their place, and how many lines too many there are."""
    return sum(a != b for a, b in zip(wanted, got)) + abs(len(wanted) - len(got))


def first_miss(wanted, got):
    for a, b in zip_longest(wanted, got, fillvalue="nothing"):
        if a != b:
            return f", first {b!r} instead of {a!r}"
    return ""


def judge(job, lines, journal):
    """What a script's output and the host's journal are worth."""
    times = [float(line.split()[1]) for line in lines if re.fullmatch(r"time [\d.]+", line)]
    done = bool(times) and "Done" in lines
    texts = [line.removeprefix("text ") for line in lines if line.startswith("text ")]
    wrong = max(misses(job.texts, texts), misses(job.journal, seen(job, journal)))
    reason = ""
    if wrong:
        reason = f"{wrong} of {max(len(job.texts), len(job.journal))} wrong"
        reason += first_miss(job.journal, seen(job, journal)) or first_miss(job.texts, texts)
    if not done:
        reason = next((line for line in reversed(lines) if line.strip()), "no output")
        wrong = max(wrong, 1)
    return Outcome(times[0] if done else None, wrong if job.counts == "rounds" else min(wrong, 1), reason)


def run_script(job, command, read_journal):
    """Runs a peer's script. One that hangs is ended."""
    script = Program(command)
    try:
        ended = script.wait(job.limit)
    finally:
        script.end()
    # What was posted last may still be on its way.
    until = time.monotonic() + 2
    while misses(job.journal, seen(job, read_journal())) and time.monotonic() < until:
        time.sleep(0.1)
    outcome = judge(job, list(script.lines), read_journal())
    if not ended:
        outcome.milliseconds = None
        outcome.wrong = max(outcome.wrong, 1)
        outcome.reason = f"hung, ended after {job.limit} s"
    return outcome


def measure(name, job, peer, rounds, shot=None):
    """One run with a host of its own."""
    file = Path(os.environ["WINEPREFIX"]) / "journal.txt"
    file.unlink(missing_ok=True)

    def journal():
        return file.read_text(errors="replace").split("\n")[:-1] if file.exists() else []

    host = Program(["wine", os.environ["PEERS_HOST"], "--page", "peers", "--journal", "Z:" + str(file), *job.host])
    try:
        until = time.monotonic() + 60
        while "ready" not in [line.strip() for line in journal()]:
            if time.monotonic() > until or host.process.poll() is not None:
                return Outcome(None, 1, "the host did not start")
            time.sleep(0.05)
        if shot:
            threading.Timer(shot, lambda: subprocess.run(
                ["import", "-window", "root", ROOT / f"build/wine/peers-{name}-{peer}.png"], check=False)).start()
        return run_script(job, command_of(peer) + [name, str(rounds)],
                          lambda: [line.strip() for line in journal() if line.strip()])
    finally:
        host.end()


def versions():
    """The peers' versions, as pinned, and Wine's."""
    pinned = (ROOT / "tests/clients/windows_packages.txt").read_text() + (HERE / "windows_packages.txt").read_text()
    found = dict(re.findall(r"^([\w-]+)==(\S+)", pinned, re.MULTILINE))
    wine = subprocess.run(["wine", "--version"], capture_output=True, text=True, check=False).stdout.strip()
    return (f"pywinauto {found['pywinauto']}, AutoItX through pyautoit {found['pyautoit']}, AutoHotkey 2 from "
            f"ahk-binary {found['ahk-binary']}, pywin32 {found['pywin32']}, {wine}")


def number(milliseconds):
    return f"{milliseconds:,.0f}" if milliseconds >= 10 else f"{milliseconds:.1f}"


def cell(job, outcomes):
    """Median and failures of one peer with one job."""
    if outcomes is None:
        return "–"
    times = [outcome.milliseconds for outcome in outcomes if outcome.milliseconds is not None]
    wrong = sum(outcome.wrong for outcome in outcomes)
    text = number(median(times)) if times else "failed"
    return f"{text} ({wrong} {job.counts} wrong)" if wrong else text


def best(results, peers):
    """The best median of peers without a failure; None if there is none."""
    medians = [median(outcome.milliseconds for outcome in results[peer]) for peer in peers
               if results.get(peer) and not any(outcome.wrong for outcome in results[peer])]
    return min(medians, default=None)


def ratio(results):
    """How long Ghosthand takes against the best peer that got the job done without a fault."""
    own, other = best(results, OWN), best(results, [peer for peer in PEERS if peer not in OWN])
    if own is None:
        return "failed"
    return f"{own / other:.2f}" if other else "no peer did it"


def table(all_jobs, results):
    lines = ["| Job | " + " | ".join(PEERS.values()) + " | Ghosthand / best peer |",
             "| --- |" + " ---: |" * (len(PEERS) + 1)]
    for name, of_job in results.items():
        cells = [cell(all_jobs[name], of_job.get(peer)) for peer in PEERS]
        lines.append(f"| {all_jobs[name].title} | " + " | ".join(cells) + f" | {ratio(of_job)} |")
    return "\n".join(lines)


def put(file, text):
    """Writes a text between the marks of a document."""
    document = file.read_text(encoding="utf-8")
    changed, count = re.subn(r"(<!-- peers -->\n).*?(<!-- /peers -->)", lambda match: match[1] + text + "\n" + match[2],
                             document, flags=re.DOTALL)
    if count != 1:
        raise LookupError(f"{file}: the marks are missing")
    file.write_text(changed, encoding="utf-8")


def short(all_jobs, results):
    """The table's short form: the best of the others beside the better of our two scripts."""
    lines = ["| Milliseconds | Ghosthand | best of the others |", "| --- | ---: | ---: |"]
    others = [peer for peer in PEERS if peer not in OWN]
    for name, of_job in results.items():
        own, other = best(of_job, OWN), best(of_job, others)
        who = next((PEERS[peer] for peer in others if other and best(of_job, [peer]) == other), "none")
        lines.append(f"| {all_jobs[name].title} | {number(own) if own else 'failed'} | "
                     + (f"{number(other)} ({who}) |" if other else "none did it |"))
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--rounds", type=int, default=200)
    parser.add_argument("--jobs", default="")
    parser.add_argument("--peers", default=",".join(PEERS))
    parser.add_argument("--write", action="store_true", help="writes the table into docs/peers.md and README.md")
    parser.add_argument("--shot", type=float, help="takes a picture of each run after that many seconds")
    arguments = parser.parse_args()
    all_jobs = jobs(arguments.rounds)
    names = arguments.jobs.split(",") if arguments.jobs else list(all_jobs)
    peers = arguments.peers.split(",")
    results = {name: {peer: [] for peer in peers if peer not in all_jobs[name].cannot} for name in names}
    for run in range(arguments.runs):
        for name in names:
            # The peers take turns, and each run another one begins.
            for peer in peers[run % len(peers):] + peers[:run % len(peers)]:
                if peer not in results[name]:
                    continue
                outcome = measure(name, all_jobs[name], peer, arguments.rounds, arguments.shot)
                results[name][peer].append(outcome)
                took = "-" if outcome.milliseconds is None else f"{outcome.milliseconds:.1f} ms"
                print(f"{run + 1} {name:7} {peer:10} {took} {outcome.reason}", flush=True)
    text = table(all_jobs, results)
    about = (f"Milliseconds, medians of {arguments.runs} runs, {datetime.date.today()}, load of the machine "
             f"{os.getloadavg()[2]:.1f} on {os.cpu_count()} cores: {versions()}.")
    print("\n" + text + "\n\n" + about)
    if arguments.write:
        put(ROOT / "docs/peers.md", about + "\n\n" + text)
        put(ROOT / "README.md", short(all_jobs, results))
    return 0


if __name__ == "__main__":
    sys.exit(main())

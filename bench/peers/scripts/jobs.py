"""What the Python peers share: the clock, and how a script tells what it read."""

import sys
import time

# Commands and control ids of the window "Peers" (samples/host/host_ids.h).
FIRST_COMMAND, FORM, QUESTION = 4000, 4200, 4201
BAR, LIST, TREE, DEEP_TREE, RESULT = 1300, 1301, 1302, 1303, 1304
FIELD, EDIT = 1310, 1001
LAST_OF_MANY = 10999
FINDS, ROUNDS = 20, int(sys.argv[2]) if len(sys.argv) > 2 else 200

NAMES = ["Bracket", "Housing", "Flange", "Shaft"]


def run(jobs):
    """Runs the job that the command line names: prepare() gives what is measured, which answers the texts it read."""
    job = jobs[sys.argv[1]]()
    begin = time.perf_counter()
    texts = []
    try:
        for text in job() or ():
            texts.append(text)
        print("time", round((time.perf_counter() - begin) * 1000, 3))
    finally:
        print("\n".join(f"text {text}" for text in texts))
    print("Done", flush=True)

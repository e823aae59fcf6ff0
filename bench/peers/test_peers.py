"""The driver itself: what hangs is ended and counted, what went wrong is not taken for done."""

import sys
import time
import unittest

import peers


def script(text):
    return [sys.executable, "-c", text]


class DriverTest(unittest.TestCase):
    def setUp(self):
        self.job = peers.Job("", texts=["one", "two"], journal=["tool 0", "tool 1"], limit=20)
        self.journal = ["ready", "tool 0", "command 7", "tool 1"]

    def outcome(self, text):
        return peers.run_script(self.job, script(text), lambda: self.journal)

    def test_what_was_done_is_right(self):
        outcome = self.outcome("print('time 12.5\\ntext one\\ntext two\\nDone')")
        self.assertEqual((outcome.milliseconds, outcome.wrong), (12.5, 0))

    def test_a_script_that_hangs_is_ended_and_counted(self):
        self.job.limit = 1
        begin = time.monotonic()
        outcome = self.outcome("import time; print('time 1\\ntext one\\ntext two\\nDone', flush=True); time.sleep(60)")
        self.assertLess(time.monotonic() - begin, 30)
        self.assertEqual((outcome.milliseconds, outcome.wrong), (None, 1))

    def test_a_script_that_fails_is_counted(self):
        self.assertEqual(self.outcome("raise ValueError('no window')").milliseconds, None)
        self.assertEqual(self.outcome("raise ValueError('no window')").reason, "ValueError: no window")

    def test_a_wrong_text_is_counted(self):
        self.assertEqual(self.outcome("print('time 1\\ntext one\\ntext three\\nDone')").wrong, 1)
        self.assertEqual(self.outcome("print('time 1\\ntext one\\nDone')").wrong, 1)

    def test_what_the_host_did_not_see_is_counted(self):
        done = "print('time 1\\ntext one\\ntext two\\nDone')"
        self.journal.remove("tool 1")
        self.assertEqual(self.outcome(done).wrong, 1)
        self.journal += ["tool 1", "tool 1"]  # pressed twice
        self.assertEqual(self.outcome(done).wrong, 1)

    def test_each_wrong_round_counts(self):
        self.job.counts = "rounds"
        self.assertEqual(self.outcome("print('time 1\\ntext two\\ntext one\\nDone')").wrong, 2)

    def test_a_peer_with_a_fault_is_not_the_best(self):
        results = {"autohotkey": [peers.Outcome(1, 1)], "autoitx": [peers.Outcome(8, 0)],
                   "python": [peers.Outcome(4, 0)]}
        self.assertEqual(peers.ratio(results), "0.50")


if __name__ == "__main__":
    unittest.main()

"""How the program starts: with and without settings, a second time, twice at once, and after a crash."""

import signal
import subprocess
import time

from harness.conditions import wait_equal, wait_until
from harness.lives import BINARY, LivesTest, xdotool
from harness.owners import copy


class Start(LivesTest):
    def test_a_first_start_is_a_useful_one(self):
        program = self.start()
        place = xdotool("getwindowgeometry", "--shell", self.window(program))
        sizes = dict(line.split("=") for line in place.splitlines())
        self.assertTrue(950 <= int(sizes["WIDTH"]) <= 1000, sizes)
        self.assertTrue(700 <= int(sizes["HEIGHT"]) <= 750, sizes)
        self.assertEqual(xdotool("getwindowname", self.window(program)), f"Storage folder: {self.folder}")
        self.assertEqual(self.folder.stat().st_mode & 0o777, 0o700)
        self.assertEqual(self.settings()[18], "-1")
        self.assertEqual(self.settings()[26], "1")

    def test_an_old_file_of_four_lines_moves_the_window(self):
        self.write_settings_text("  1500\r\n3000\r\n9000\r\n10500\r\n")
        program = self.start()
        self.end(program)
        lines = self.settings()
        self.assertEqual(lines[1:5], ["1500", "3000", "9000", "10500"])
        self.assertEqual(lines[15], "Snipdeck_Contents.rtf")
        self.assertEqual(lines[37], "0")

    def test_the_placement_stays_over_many_runs(self):
        self.write_settings_text("1500\r\n3000\r\n9000\r\n10500\r\n")
        for _ in range(3):
            self.end(self.start())
        self.assertEqual(self.settings()[1:5], ["1500", "3000", "9000", "10500"])

    def test_values_of_other_windows_survive(self):
        kept = {"l5": "-7", "l6": "/tmp", "l7": "70", "l10": "-100000", "l15": "ä 漢.rtf", "l24": "/usr/bin/x y", "l40": "42"}
        self.write_settings(**kept)
        self.end(self.start())
        lines = self.settings()
        self.assertEqual({name: lines[int(name[1:])] for name in kept}, kept)

    def test_a_second_start_brings_the_first_window_forward(self):
        program = self.start()
        window = self.window(program)
        for hide in (["windowminimize", "--sync", window], ["set_desktop", "1"]):
            xdotool("set_num_desktops", "2")
            xdotool(*hide)
            wait_until("the window out of sight", lambda: xdotool("getactivewindow") != window)
            began = time.monotonic()
            self.assertEqual(self.start_another(), (0, ""))
            self.assertLess(time.monotonic() - began, 2)
            wait_equal("the active window", window, lambda: xdotool("getactivewindow"))

    def test_of_several_at_once_one_stays(self):
        for _ in range(3):
            started = [subprocess.Popen([BINARY], env=self.environment()) for _ in range(6)]
            wait_equal("ended starts", 5, lambda: sum(process.poll() is not None for process in started))
            time.sleep(0.2)
            running = [process for process in started if process.poll() is None]
            self.assertEqual(len(running), 1)
            self.assertEqual([process.returncode for process in started if process not in running], [0] * 5)
            # Killed, it leaves nothing that stops the next round.
            running[0].send_signal(signal.SIGKILL)
            running[0].wait()


class Cumulative(LivesTest):
    def test_it_opens_on_the_cumulative_text_and_captures(self):
        self.write_settings(l37=1, l18=-1)
        program = self.start("Cumulative clipboard text box")
        self.assertFalse(program.box(1).is_shown())
        copy("seen")
        wait_equal("the cumulative text", "seen\n", lambda: program.cumulative().text())

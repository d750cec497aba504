"""abuse.py MINUTES: the real program among bad clipboard owners, with the window's answer times and memory; see
scripts/clipboard_abuse.sh. Exit status 1 if the window answered too slowly or a well-behaved copy was lost."""

import os
import sys
import tempfile
import time

from harness.owners import Owner, copy
from harness.program import Program

BOUT = 5.0  # seconds that each owner gets
PAUSE = 0.005  # seconds between two questions to the window
CAPTURED_WITHIN = 10.0  # seconds
LONGEST_ANSWER = 0.1  # seconds, for 999 of 1000 answers

TEXT = "UTF8_STRING:copy %d"
RTF = "text/rtf:{\\rtf1 copy %d}"
REPEATED = ["--count", "1000", "--interval"]
OWNERS = {
    "normal": [TEXT, RTF, *REPEATED, "200"],
    "fast": [TEXT, *REPEATED, "20"],
    "slow": [TEXT, RTF, "--mode", "slow", "--delay", "300", *REPEATED, "900"],
    "one byte at a time": [TEXT, "--mode", "trickle", "--delay", "1", "--size", "5000", *REPEATED, "2000"],
    "hangs": [TEXT, "--mode", "hang", *REPEATED, "500"],
    "dies in the middle": [TEXT, RTF, "--mode", "die", "--new-process", "--count", "5", "--interval", "900"],
    "announces 2 GB": [TEXT, "--mode", "announce-huge", *REPEATED, "700"],
    "refuses": [TEXT, RTF, "--mode", "refuse", *REPEATED, "50"],
    "lies": [TEXT, RTF, "--mode", "lie", *REPEATED, "50"],
    "changes while it is read": [TEXT, RTF, "--mode", "change", *REPEATED, "400"],
    "thousands of strange targets": [TEXT, "--strange", "3000", *REPEATED, "1000"],
    "a format of its own": ["application/x-of-its-own:x", *REPEATED, "50"],
    "secret": [TEXT, "x-kde-passwordManagerHint:secret", *REPEATED, "100"],
    "long texts": [TEXT, "--size", "100000", *REPEATED, "1000"],
    "random bytes": ["text/rtf={random}", "text/html={random}", *REPEATED, "500"],
    "braces without end": ["text/rtf={braces}", *REPEATED, "1000"],
}


def memory(process_id, field):
    """A line of the process's memory report, in MB."""
    with open(f"/proc/{process_id}/status", encoding="ascii") as status:
        return next(int(line.split()[1]) for line in status if line.startswith(field + ":")) / 1024


def percentile(times, share):
    return sorted(times)[min(len(times) - 1, int(len(times) * share))]


class Abuse:
    def __init__(self, program, files):
        self.program = program
        self.files = files
        self.times = {name: [] for name in OWNERS}
        self.lost = 0

    def bout(self, name):
        print(f"{time.strftime('%H:%M:%S')} {name}", flush=True)
        arguments = [argument.format(**self.files) if argument.startswith("text/") and "=" in argument else argument
                     for argument in OWNERS[name]]
        with Owner(*arguments):
            self.watch(name, lambda: False, BOUT)
        text = f"after {name} {time.monotonic_ns()}"
        copy(text)
        if not self.watch(name, lambda: text in self.program.texts(), CAPTURED_WITHIN):
            self.lost += 1
            print(f"lost: the copy after the owner {name!r}", flush=True)

    def watch(self, name, condition, seconds):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            self.times[name].append(self.program.answer_time())
            if condition():
                return True
            time.sleep(PAUSE)
        return False

    def report(self):
        for name, times in self.times.items():
            if times:
                print(f"{name:30} {len(times):7} answers, longest {max(times) * 1000:7.1f} ms")
        times = [answer for part in self.times.values() for answer in part]
        slowest = percentile(times, 0.999)
        print(f"answers {len(times)}: median {percentile(times, 0.5) * 1000:.1f} ms, "
              f"99 % {percentile(times, 0.99) * 1000:.1f} ms, 99.9 % {slowest * 1000:.1f} ms, "
              f"longest {max(times) * 1000:.1f} ms; {self.lost} well-behaved copies lost")
        return slowest <= LONGEST_ANSWER and self.lost == 0


def run(minutes, folder):
    files = {}
    for name, data in {"random": b"{\\rtf1 " + os.urandom(100_000), "braces": b"{\\rtf1" + b"{" * 200_000}.items():
        files[name] = os.path.join(folder, name)
        with open(files[name], "wb") as file:
            file.write(data)
    program = Program(os.environ["SNIPDECK_BINARY"])
    abuse = Abuse(program, files)
    process = program.process_id()
    before = memory(process, "VmRSS")
    deadline = time.monotonic() + minutes * 60
    while time.monotonic() < deadline and program.is_running():
        for name in OWNERS:
            if time.monotonic() < deadline:
                abuse.bout(name)
    is_good = program.is_running() and abuse.report()
    if program.is_running():
        print(f"memory: {before:.1f} MB before, {memory(process, 'VmRSS'):.1f} MB after, "
              f"{memory(process, 'VmHWM'):.1f} MB at most")
    else:
        print("the program ended by itself")
    complaints = program.end()
    print(complaints, end="")
    return is_good


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as temporary:
        sys.exit(0 if run(float(sys.argv[1]), temporary) else 1)

"""demo.py PROGRAM FOLDER: shows on the present display what PROGRAM does while other programs copy.

It prints what each box holds, as a screen reader would read it from the running program, and puts screenshots into FOLDER.
"""

import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests/e2e"))
sys.dont_write_bytecode = True

from harness.conditions import wait_equal, wait_until  # noqa: E402
from harness.owners import copy  # noqa: E402
from harness.program import Program, click, press  # noqa: E402

PLAIN = "A line of plain text.\nAnd a second one, with ä, €, Привет and καλημέρα."
RTF = r"""{\rtf1\ansi\deff0{\fonttbl{\f0 Liberation Serif;}{\f1 Liberation Sans;}}
{\colortbl;\red180\green0\blue0;\red0\green70\blue160;}
\f1\fs32\b\cf2 Rich text\b0\cf0\par\f0\fs24 with {\b bold}, {\i italic}, {\ul underlined} and {\cf1 red} words,\par
\qr to the right,\par\qc and centred.\par}"""
HTML = """<h2>From a browser</h2><p>A <b>bold</b> word, an <i>italic</i> one and
<span style="color:#b00000">a red one</span>.</p><ul><li>one</li><li>two</li></ul>"""
FILES = "file:///usr/share/doc/dbus\r\nfile:///etc/os-release\r\n"


def picture():
    return subprocess.run(["convert", "-size", "200x120", "plasma:steelblue-gold", "png:-"], check=True,
                          capture_output=True).stdout


def copies():
    """(what is copied, its target, its data, the kind that the program names, the number of the box it fills)"""
    yield "plain text", "UTF8_STRING", PLAIN, "plain text", 1
    yield "rich text (RTF)", "text/rtf", RTF, "RTF text", 2
    yield "HTML, as browsers do", "text/html", HTML, "RTF text", 3
    yield "an image", "image/png", picture(), "image", None
    yield "a list of files", "text/uri-list", FILES, "file/folder names", None
    yield "the plain text again", "UTF8_STRING", PLAIN, "plain text", 4


def photograph(path):
    """A screenshot, taken until two in a row are the same: then everything has been painted."""
    def shot():
        return subprocess.run(["import", "-window", "root", "png24:-"], check=True, capture_output=True).stdout

    last = [shot()]

    def is_still():
        last.append(shot())
        return last[-1] == last[-2]

    wait_until("a still picture", is_still)
    path.write_bytes(last[-1])


def copy_everything(program):
    for what, target, data, kind, box in copies():
        copy(data, target)
        wait_equal(f"the kind of {what}", kind, program.kind)
        if box:
            wait_until(f"{what} in text box {box}", program.box(box).text)
        print(f'  copied: {what:22} Format: {kind:18} {f"-> text box {box}" if box else "(named only)"}')


def print_boxes(program):
    for number, text in enumerate(program.texts(), 1):
        print(f"  Text box {number:2}: {text!r}" if text else f"  Text box {number:2}: empty")
    print(f"  Cumulative clipboard text box: {len(program.cumulative().text())} characters")


def show_views(program, folder):
    photograph(folder / "1-boxes.png")
    press("ctrl+y")
    wait_until("the cumulative view", program.cumulative().is_shown)
    photograph(folder / "2-cumulative.png")
    press("ctrl+y")
    wait_until("the boxes", program.box(1).is_shown)
    click(program.box(2))
    wait_until("the keyboard in text box 2", program.box(2).is_focused)
    press("F5")
    wait_until("the large view", program.large_view().is_shown)
    photograph(folder / "3-enlarged.png")


def main(binary, folder):
    folder.mkdir(parents=True, exist_ok=True)
    program = Program(binary)
    try:
        print("Other programs copy:")
        copy_everything(program)
        print("What the program holds:")
        print_boxes(program)
        show_views(program, folder)
        if not program.is_running():
            sys.exit("The program ended by itself.")
    finally:
        complaints = program.end()
    if complaints:
        sys.exit(f"The program complained:\n{complaints}")
    print("Screenshots:")
    for path in sorted(folder.glob("*.png")):
        print(f"  {path}")


if __name__ == "__main__":
    main(sys.argv[1], Path(sys.argv[2]))

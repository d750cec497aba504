"""check_layers.py SRC: a folder of src/ may include folders of a lower rank, and itself; everything else fails.

check_layers.py --self-test proves on small made-up trees that it finds what it is there to find.
"""

import re
import sys
import tempfile
from pathlib import Path

RANKS = {
    "platform": 0,
    "richtext": 1,
    "platform/qt": 2,
    "platform/win32": 2,
    "platform/x11": 2,
    "storage": 2,
    "clipformats": 3,
    "layout": 3,
    "capture": 4,
    "navigation": 4,
    "editor": 5,
    "dialogs": 5,
    "app": 6,
}

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def folder_of(path):
    """The ranked folder in which a path, written from src/, lies; None if there is none."""
    parts = Path(path).parent.parts
    for length in range(len(parts), 0, -1):
        folder = "/".join(parts[:length])
        if folder in RANKS:
            return folder
    return None


def fault_of(source, included, src):
    """What is wrong with one #include line of the file `source`; None if nothing is."""
    here, there = folder_of(source), folder_of(included)
    if there is None or not (src / included).is_file():
        return f'includes "{included}", which is no file written from src/'
    if there != here and RANKS[there] >= RANKS[here]:
        return f'({here}, rank {RANKS[here]}) includes "{included}" (rank {RANKS[there]})'
    return None


def faults_in(src):
    """(files read, faults) of a source tree."""
    files = sorted(p for p in src.rglob("*") if p.suffix in {".h", ".cpp"})
    faults = []
    for file in files:
        source = file.relative_to(src).as_posix()
        if folder_of(source) is None:
            faults.append(f"{source} lies in a folder without a rank")
            continue
        for included in INCLUDE.findall(file.read_text(encoding="utf-8")):
            # Qt's generators write these into the build folder.
            if Path(included).name.startswith(("ui_", "moc_")) or included.endswith(".moc"):
                continue
            fault = fault_of(source, included, src)
            if fault:
                faults.append(f"{source} {fault}")
    return len(files), faults


SELF_TEST = [
    ("downwards and within the folder", {"capture/a.cpp": ["richtext/r.h", "capture/b.h"]}, 0),
    ("upwards", {"richtext/a.cpp": ["capture/b.h"]}, 1),
    ("sideways", {"platform/x11/a.cpp": ["platform/qt/q.h"]}, 1),
    ("from the interfaces to an adapter", {"platform/a.h": ["platform/qt/q.h"]}, 1),
    ("from an adapter to its interface", {"platform/qt/a.cpp": ["platform/p.h"]}, 0),
    ("not written from src/", {"capture/a.cpp": ["b.h"]}, 1),
    ("through a parent folder", {"richtext/a.cpp": ["../capture/b.h"]}, 1),
    ("a folder that has no rank", {"helpers/a.cpp": []}, 1),
    ("two faults in one file", {"richtext/a.cpp": ["capture/b.h", "platform/qt/q.h"]}, 2),
]


def self_test():
    headers = ["platform/p.h", "platform/qt/q.h", "richtext/r.h", "capture/b.h"]
    failed = []
    for title, files, expected in SELF_TEST:
        with tempfile.TemporaryDirectory() as folder:
            for name, includes in {**{h: [] for h in headers}, **files}.items():
                path = Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text("".join(f'#include "{i}"\n' for i in includes), encoding="utf-8")
            found = faults_in(Path(folder))[1]
        if len(found) != expected:
            failed.append(f"{title}: {expected} faults expected, found {found}")
    return len(SELF_TEST), failed


def main(argument):
    count, faults = self_test() if argument == "--self-test" else faults_in(Path(argument))
    for fault in faults:
        print(fault)
    print(f"{count} looked at, {len(faults)} faults")
    return 1 if faults or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))

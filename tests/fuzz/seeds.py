#!/usr/bin/env python3
"""seeds.py docx|xlsx CORPUS OUT: writes the XML parts of each DOCX or XLSX file below CORPUS as one input of the fuzz target of
that format into the folder OUT, and the words of these parts as a dictionary for libFuzzer into the file OUT.dict. Files of
more than 64 KB of XML are left out, since they slow a fuzzer down more than they teach it.
"""

import collections
import re
import sys
import zipfile
from pathlib import Path

# In the order in which the targets expect them.
PARTS = {
    "docx": (r"word/document\d*\.xml", r"word/styles\.xml", r"word/numbering\.xml", r"word/footnotes\.xml"),
    "xlsx": (r"xl/worksheets/sheet1\.xml", r"xl/styles\.xml", r"xl/sharedStrings\.xml"),
}
MARK = b"\n<?part?>\n"
MOST = 64 * 1024


def parts_of(path, patterns):
    """The parts of a file, empty where it has none; nothing for a file that is no archive."""
    try:
        with zipfile.ZipFile(path) as archive:
            names = archive.namelist()
            found = [next((n for n in names if re.fullmatch(p, n)), None) for p in patterns]
            return [archive.read(n) if n else b"" for n in found]
    except (zipfile.BadZipFile, NotImplementedError, RuntimeError, OSError, KeyError):
        return []


def main():
    kind, corpus, out = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
    out.mkdir(parents=True, exist_ok=True)
    words, count = collections.Counter(), 0
    for path in sorted(corpus.rglob("*." + kind)):
        seed = MARK.join(parts_of(path, PARTS[kind]))
        if not 0 < len(seed) <= MOST:
            continue
        (out / f"{count:04}-{path.stem}").write_bytes(seed)
        count += 1
        words.update(set(re.findall(rb"</?[\w:]+|[\w:]+=", seed)))
    lines = ['"' + word.decode("latin-1") + '"' for word, times in words.most_common(400) if times > 1]
    Path(f"{out}.dict").write_text("\n".join(lines) + "\n", encoding="latin-1")
    print(f"{count} inputs, {len(lines)} words")


if __name__ == "__main__":
    main()

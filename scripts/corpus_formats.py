#!/usr/bin/env python3
"""corpus_formats.py [CONVERTER]: reads every DOCX, HTML, XLSX, PDF and text document of the shared corpus with
richtext_convert and scores the words against what is expected, a line a format and kind of expectation; then writes some of
them in every format and compares their text as LibreOffice, pdftotext and xmllint see it, where those are installed.

LOW=10 lists the lowest of each line. Fails when a document makes the converter crash or hang, or when what was written cannot
be read. Expectations that other extractors derived, or that hold more than the text, are left out.
"""

import collections
import concurrent.futures
import csv
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CORPUS = Path(os.environ.get("SNIPDECK_CORPUS", ROOT.parent / "shared/corpus"))
CONVERTER = sys.argv[1] if len(sys.argv) > 1 else str(ROOT / "build/release/bin/richtext_convert")
CODES = {"text": 1, "html": 4, "docx": 13, "pdf": 12, "xlsx": 15}
KINDS = ("text", "pandoc-native", "markdown", "html", "must-contain-tsv")
SECONDS = 30


def run(*command):
    try:
        return subprocess.run(command, capture_output=True, timeout=SECONDS, check=False)
    except subprocess.TimeoutExpired as late:
        return subprocess.CompletedProcess(command, 124, b"", late.stderr or b"")


def convert(source, target, *options):
    return run(CONVERTER, *options, str(source), str(target)).returncode


def score(want, got):
    want, got = collections.Counter(want), collections.Counter(got)
    common = sum((want & got).values())
    return common / max(sum(want.values()), 1) if want else 1.0, common / max(sum(got.values()), 1) if got else 1.0


def words_of(text):
    return re.findall(r"\w+", text)


def expectations(row):
    """(kind, file) of what the document's text is compared with."""
    for kind, name in zip(row["expected_kind"].split(";"), row["expected"].split(";")):
        short = kind.split("(")[0]
        if short in KINDS and "snapshot" not in kind and (CORPUS / name).is_file():
            yield short, CORPUS / name


def compare(row, text, kind, expected):
    from words import words  # the corpus's own

    if kind == "must-contain-tsv":
        rows = [line.split("\t") for line in expected.read_text(encoding="utf-8").splitlines()]
        literals = [r[2] for r in rows if len(r) > 2 and r[1] in ("text", "ws") and row["path"].endswith("/" + r[0])]
        wanted = [" ".join(re.sub(r"\\[ntr]", " ", literal).split()) for literal in literals]
        shown = " ".join(text.split())
        return (sum(w in shown for w in wanted) / len(wanted), 1.0) if wanted else None
    if row["format"] == "text":
        same = expected.read_text(encoding="utf-8", errors="replace").split() == text.split()
        return (1.0, 1.0) if same else (0.0, 0.0)
    return score(words(str(expected)), words_of(text))


def read_corpus(out):
    with open(CORPUS / "INDEX.tsv", encoding="utf-8") as index:
        rows = [r for r in csv.DictReader(index, delimiter="\t") if r["format"] in CODES]

    def one(row):
        target = out / (row["path"].replace("/", "__") + ".txt")
        code = CODES[row["format"]]
        return row, convert(CORPUS / row["path"], target, "--from", str(code), "--to", "1", "--labels"), target

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(one, rows))


def report(results):
    scores, bad = collections.defaultdict(list), []
    for row, status, target in results:
        if status > 3:
            bad.append(f"{row['path']}: exit status {status}")
        text = target.read_text(encoding="utf-8", errors="replace") if target.is_file() else ""
        for kind, expected in expectations(row):
            if compared := compare(row, text, kind, expected):
                scores[row["format"], kind].append((*compared, row["path"]))
    for (name, kind), found in sorted(scores.items()):
        recall, precision = (sum(s[i] for s in found) / len(found) for i in (0, 1))
        print(f"{name:5} {kind:16} {len(found):3} docs  recall {recall:.3f}  precision {precision:.3f}")
        for entry in sorted(found)[: int(os.environ.get("LOW", "0"))]:
            print("      %.3f %.3f %s" % entry)
    return bad


def office_text(path, folder):
    """The text that LibreOffice shows for a file."""
    filters = "csv:Text - txt - csv (StarCalc):9,34,76" if path.suffix == ".xlsx" else "txt:Text (encoded):UTF8"
    run("soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", filters, "--outdir",
        str(folder / "office"), str(path))
    made = folder / "office" / (path.stem + (".csv" if path.suffix == ".xlsx" else ".txt"))
    return made.read_text(encoding="utf-8-sig", errors="replace") if made.is_file() else ""


def check_written(folder):
    """Writes a few documents in every format; returns what is wrong with them."""
    samples = sorted(CORPUS.glob("docx/pandoc/*.docx"))[3:63:6]
    totals, bad = collections.defaultdict(list), []
    for sample in samples:
        plain = folder / (sample.stem + ".ours.txt")
        convert(sample, plain, "--to", "1")
        want = words_of(plain.read_text(encoding="utf-8"))
        for end in (".docx", ".xlsx", ".pdf", ".html", ".xml"):
            target = folder / (sample.stem + end)
            if convert(sample, target) != 0:
                bad.append(f"{sample.name} cannot be written as {end}")
                continue
            if end == ".xml" and shutil.which("xmllint") and run("xmllint", "--noout", str(target)).returncode:
                bad.append(f"{target.name} is not well-formed")
            if end == ".pdf":
                if shutil.which("qpdf") and run("qpdf", "--check", str(target)).returncode:
                    bad.append(f"{target.name} is not sound")
                got = run("pdftotext", str(target), "-").stdout.decode() if shutil.which("pdftotext") else None
            elif end == ".xml":
                xhtml = target.rename(target.with_suffix(".xhtml"))
                got = office_text(xhtml, folder) if shutil.which("soffice") else None
            else:
                got = office_text(target, folder) if shutil.which("soffice") else None
            if got is not None:
                totals[end].append((score(want, words_of(got))[0], target.name))
    for end, found in totals.items():
        mean = sum(s for s, _ in found) / len(found)
        print(f"written {end:6} {len(found):3} docs  our words that others find {mean:.3f}  lowest {min(found)}")
    return bad


def main():
    if not (CORPUS / "INDEX.tsv").is_file():
        print(f"corpus_formats.py: skipped, there is no corpus in {CORPUS}")
        return 0
    sys.path.insert(0, str(CORPUS))
    os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        bad = report(read_corpus(folder)) + check_written(folder)
    for fault in bad:
        print(fault, file=sys.stderr)
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())

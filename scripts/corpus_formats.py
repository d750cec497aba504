#!/usr/bin/env python3
"""corpus_formats.py [CONVERTER]: reads every DOCX, HTML, XLSX, PDF and text document of the shared corpus with
richtext_convert and scores the words against what is expected, a line a format and kind of expectation; then writes some of
them in every format and compares their text as LibreOffice, pdftotext and xmllint see it, where those are installed.

LOW=10 lists the lowest of each line; WRITTEN=120 writes about as many. Fails when a document makes the converter crash or hang, or when what was written cannot
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
import unicodedata
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CORPUS = Path(os.environ.get("SNIPDECK_CORPUS", ROOT.parent / "shared/corpus"))
CONVERTER = sys.argv[1] if len(sys.argv) > 1 else str(ROOT / "build/release/bin/richtext_convert")
CODES = {"text": 1, "html": 4, "docx": 13, "pdf": 12, "xlsx": 15}
KINDS = ("text", "pandoc-native", "markdown", "html", "must-contain-tsv")
# Expectations that hold what a text does not show; the lines are printed with them and without.
BEYOND = {
    "docx/docling/equations.docx": "formulas as LaTeX",
    "docx/docling/omml_func_log.docx": "formulas as LaTeX",
    "docx/docling/omml_multi_equation_paragraph.docx": "formulas as LaTeX",
    "docx/docling/word_tables.docx": "the text of merged cells in each of their places",
    "docx/docxjs/equation/document.docx": "the letters of formulas in the order of their layout",
    "docx/pandoc/comments.docx": "comments in the margin",
    "docx/pandoc/diagram.docx": "a word in place of a diagram",
    "docx/poi/Headers.docx": "headers of pages",
    "docx/pydocx/all_configured_styles.docx": "hidden text",
}
SOURCES = {"rtf": "5", "html": "4", "docx": "13", "xlsx": "15"}
WRITTEN = (".docx", ".xlsx", ".pdf", ".html", ".xml")
SECONDS = 30
LOW = int(os.environ.get("LOW", "0"))


def run(*command, seconds=SECONDS):
    try:
        return subprocess.run(command, capture_output=True, timeout=seconds, check=False)
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


def words_expected(kind, expected):
    from words import words  # the corpus's own

    if kind != "markdown":
        return words(str(expected))
    # Markdown marks pictures and boxes that are ticked by words of its own.
    return words_of(re.sub(r"<!--.*?-->|\[x\]", " ", expected.read_text(encoding="utf-8"), flags=re.S))


def compare(row, text, kind, expected):
    if kind == "must-contain-tsv":
        rows = [line.split("\t") for line in expected.read_text(encoding="utf-8").splitlines()]
        literals = [r[2] for r in rows if len(r) > 2 and r[1] in ("text", "ws") and row["path"].endswith("/" + r[0])]
        wanted = [" ".join(re.sub(r"\\[ntr]", " ", literal).split()) for literal in literals]
        shown = " ".join(text.split())
        return (sum(w in shown for w in wanted) / len(wanted), 1.0) if wanted else None
    if row["format"] == "text":
        same = expected.read_text(encoding="utf-8", errors="replace").split() == text.split()
        return (1.0, 1.0) if same else (0.0, 0.0)
    return score(words_expected(kind, expected), words_of(text))


def read_corpus(out):
    with open(CORPUS / "INDEX.tsv", encoding="utf-8") as index:
        rows = [r for r in csv.DictReader(index, delimiter="\t") if r["format"] in CODES]

    def one(row):
        target = out / (row["path"].replace("/", "__") + ".txt")
        code = CODES[row["format"]]
        return row, convert(CORPUS / row["path"], target, "--from", str(code), "--to", "1", "--labels"), target

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(one, rows))


def print_line(title, found):
    recall, precision = (sum(s[i] for s in found) / len(found) for i in (0, 1))
    print(f"{title:22} {len(found):3} docs  recall {recall:.3f}  precision {precision:.3f}")


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
        print_line(f"{name:5} {kind:16}", found)
        for entry in sorted(found)[:LOW]:
            print("      %.3f %.3f %s" % entry)
    for name in sorted({name for name, _ in scores}):
        found = [entry for (of, _), entries in scores.items() if of == name for entry in entries]
        print_line(f"{name:5} all", found)
        shown = [entry for entry in found if entry[2] not in BEYOND]
        if len(shown) < len(found):
            print_line(f"{name:5} all that show", shown)
    return bad


def write_samples(folder, count):
    """Writes some of the documents that are not hostile in every format; returns (file, words of the text) for each."""
    with open(CORPUS / "INDEX.tsv", encoding="utf-8") as index:
        rows = [r for r in csv.DictReader(index, delimiter="\t") if r["format"] in SOURCES and r["hostile"] != "1"]
    chosen = rows[:: max(len(rows) // count, 1)]

    def one(numbered):
        number, row = numbered
        source, name = CORPUS / row["path"], f"{number:03}-{Path(row['path']).stem}"
        code, plain = SOURCES[row["format"]], folder / f"{name}.ours"
        if convert(source, plain, "--from", code, "--to", "1"):
            return []
        want = words_of(plain.read_text(encoding="utf-8"))
        ends = [end for end in WRITTEN if convert(source, folder / (name + end), "--from", code) == 0]
        return [(folder / (name + end), want) for end in ends if want]

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return [written for group in pool.map(one, enumerate(chosen)) for written in group]


def open_with_office(folder, files, end):
    """The text that LibreOffice shows for each of the files, which it opens one after the other."""
    filters = "csv:Text - txt - csv (StarCalc):9,34,76" if end == ".xlsx" else "txt:Text (encoded):UTF8"
    out = folder / "office" / end.strip(".")
    for at in range(0, len(files), 25):
        run("soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", filters, "--outdir",
            str(out), *map(str, files[at : at + 25]), seconds=300)
    made = [out / (path.stem + "." + filters.split(":")[0]) for path in files]
    return [path.read_text(encoding="utf-8-sig", errors="replace") if path.is_file() else None for path in made]


def shown_text(folder, files, end):
    """What others see in the files; nothing where the program that would look is not installed."""
    if end == ".pdf":
        return [run("pdftotext", str(p), "-").stdout.decode() for p in files] if shutil.which("pdftotext") else []
    return open_with_office(folder, files, end) if shutil.which("soffice") else []


def words_on_paper(text):
    """Words as letters on paper tell them: neither capitals nor the joined shapes of letters count."""
    return words_of(unicodedata.normalize("NFKC", text).casefold())


def lacks_font(words):
    """Whether the text has Chinese, Japanese or Korean letters, and no font on this machine has them."""
    return bool(re.search("[\u3040-\u9fff\uac00-\ud7ff]", " ".join(words))) and not run("fc-list", ":charset=6f22").stdout


def faults_of(path):
    """What a validator has against the file."""
    for end, *check in ((".xml", "xmllint", "--noout"), (".pdf", "qpdf", "--check")):
        if path.suffix == end and shutil.which(check[0]) and run(*check, str(path)).returncode:
            return [f"{path.name}: {check[0]} says that it is not sound"]
    return []


def check_written(folder, count):
    """Writes documents in every format and prints how many of our words others find; returns what is wrong with them."""
    written, bad = write_samples(folder, count), []
    for end in WRITTEN:
        these = [(path, want) for path, want in written if path.suffix == end]
        for path, _ in these:
            bad += faults_of(path)
        files = [path for path, _ in these]
        if end == ".xml":  # LibreOffice goes by the name
            files = [Path(shutil.copy(path, path.with_suffix(".xhtml"))) for path in files]
        texts = shown_text(folder, files, end)
        bad += [f"{path.name} does not open" for path, text in zip(files, texts) if text is None]
        found = []
        for (path, want), text in zip(these, texts):
            if end == ".pdf" and text is not None and not lacks_font(want):
                found.append((score(words_on_paper(" ".join(want)), words_on_paper(text))[0], path.name))
            elif end != ".pdf" and text is not None:
                found.append((score(want, words_of(text))[0], path.name))
        found.sort()
        if found:
            mean = sum(part for part, _ in found) / len(found)
            print(f"written {end:6} {len(found):3} docs  our words that others find {mean:.3f}")
            for entry in found[:LOW]:
                print("      %.3f %s" % entry)
    return bad


def main():
    if not (CORPUS / "INDEX.tsv").is_file():
        print(f"corpus_formats.py: skipped, there is no corpus in {CORPUS}")
        return 0
    sys.path.insert(0, str(CORPUS))
    os.environ.setdefault("QT_QPA_PLATFORM", "offscreen")
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        bad = report(read_corpus(folder)) + check_written(folder, int(os.environ.get("WRITTEN", "40")))
    for fault in bad:
        print(fault, file=sys.stderr)
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())

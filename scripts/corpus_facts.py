#!/usr/bin/env python3
"""corpus_facts.py CORPUS CONVERTER: checks what the corpus says about formats (*.props.tsv: where, what, value).

Each RTF document is turned into HTML and into text by richtext_convert, and the facts are looked up there. Facts about
things that neither can show are counted as such. Fails when a fact does not hold.
"""
import glob
import html.parser
import os
import re
import subprocess
import sys

ALIGNMENTS = {"centre": "center", "left": "left", "right": "right", "justify": "justify"}


class Page(html.parser.HTMLParser):
    """The paragraphs of our HTML: their attributes and their runs (text, style, link)."""

    def __init__(self, source):
        super().__init__()
        self.paragraphs, self.rows, self.style, self.link = [], [], "", ""
        self.feed(source)

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag in ("p", "li") or re.fullmatch("h[1-6]", tag):
            self.paragraphs.append((values, []))
        elif tag == "span":
            self.style = values.get("style", "")
        elif tag == "a":
            self.link = values.get("href", "")
        elif tag == "tr":
            self.rows.append([])
        elif tag == "td":
            self.rows[-1].append("")

    def handle_endtag(self, tag):
        self.style = "" if tag == "span" else self.style
        self.link = "" if tag == "a" else self.link

    def handle_data(self, data):
        if not self.paragraphs or data == "\n":
            return
        self.paragraphs[-1][1].append((data, self.style, self.link))
        if self.rows:
            self.rows[-1][-1] += data

    def characters(self):
        """A style for each character; a paragraph's mark has none that HTML could tell."""
        styles = []
        for _, runs in self.paragraphs:
            styles += [style for text, style, _ in runs for _ in text] + [None]
        return styles[:-1]


def numbers(where):
    first, last = (re.findall(r"\d+", where) * 2)[:2]
    return range(int(first), int(last) + 1)


def holds(page, text, labels, where, what, value):
    """True, False, or None where HTML and text cannot tell."""
    shown = [page.characters()[i] for i in numbers(where) if i < len(page.characters())] if "char" in where else []
    shown = [style for style in shown if style is not None]
    if what == "font" or what == "font, size":
        family, _, size = value.partition(" ")
        return all(f"'{family}'" in s and (not size or f"font-size:{size}pt" in s) for s in shown) if shown else None
    if what == "size pt" and shown:
        return all(f"font-size:{value}pt" in style for style in shown)
    if what == "link":
        wanted = where.split('"')[1]
        return any(run.strip() == wanted and link == value.split(" ")[0]
                   for _, runs in page.paragraphs for run, _, link in runs)
    if what == "alignment":
        style = page.paragraphs[numbers(where)[0] - 1][0]["style"]
        found = re.search("text-align:([a-z]+)", style)
        return (found.group(1) if found else "left") == ALIGNMENTS[value]
    if what == "rtl":
        return (page.paragraphs[numbers(where)[0] - 1][0].get("dir") == "rtl") == (value == "1")
    if what == "cells":
        return page.rows[numbers(where)[0] - 1] == value.split("|")
    if what == "visible text":
        return text.strip() == value.strip()
    if what == "must not contain":
        return value not in text
    if what == "numbering start":
        return labels.startswith(value + ".")
    if what == "numbering":
        return all(re.match(r"\d+\.\t", line) for line in labels.splitlines()[: len(numbers(where))])
    if "must not appear" in what:
        return not re.match(r"\d", text)
    return len(text.strip()) > 0 if what == "result" else None


def main(corpus, converter):
    counts = {True: 0, False: 0, None: 0}
    for facts in sorted(glob.glob(os.path.join(corpus, "rtf", "*", "*.props.tsv"))):
        def convert(*options):
            command = [converter, "--from", "5", *options, facts[: -len(".props.tsv")], "-"]
            return subprocess.run(command, capture_output=True, check=True, timeout=20).stdout.decode()

        page, text, labels = Page(convert("--to", "4")), convert("--to", "1"), convert("--to", "1", "--labels")
        for line in open(facts, encoding="utf-8"):
            fact = line.rstrip("\n").split("\t")
            if len(fact) != 3:
                continue
            result = holds(page, text, labels, *fact)
            counts[result] += 1
            if result is not True:
                name = os.path.relpath(facts, corpus)
                print(f"{'does not hold' if result is False else 'not to be seen'}: {name}: {' | '.join(fact)}")
    print(f"facts: {counts[True]} hold, {counts[False]} do not, {counts[None]} cannot be seen in HTML or text")
    return 1 if counts[False] else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

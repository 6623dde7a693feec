#!/usr/bin/env python3
"""check_pages.py [SITE]: the pages of docs/ and those at the top of the repository.

- Every relative link leads to a file, every anchor to a heading; pages of docs/ link to no file outside of
  it, since the site has none. An anchor has to be what both a code host and MkDocs make of the heading.
- What the two read differently isn't there: a list or table without a blank line before it, a list two
  blanks deep, an escaped bar in a table.
- Every page of docs/ stands in mkdocs.yml.
- The records that the glossary names are on the pages of their formats.
- With SITE, the folder that MkDocs has built: its pages ask no other host for anything.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")


def lines_of(page):
    """The lines of a page, those of code blocks emptied."""
    lines, fenced, previous = [], False, ""
    for line in page.read_text(encoding="utf-8").splitlines():
        fence = line.startswith("```")
        indented = line.startswith("    ") and (not previous.strip() or previous.startswith("    "))
        lines.append("" if fence or fenced or indented else line)
        fenced ^= fence
        previous = line
    return lines


def anchors_of(page):
    anchors = set()
    for line in lines_of(page):
        heading = re.fullmatch(r"#+ (.*)", line)
        if heading:
            words = re.sub(r"[^\w\s-]", "", heading[1].replace("`", "")).strip().lower()
            host, site = words.replace(" ", "-"), re.sub(r"[-\s]+", "-", words)
            if host == site:
                anchors.add(host)
    return anchors


def check_link(page, target):
    path, _, anchor = target.partition("#")
    file = (page.parent / path).resolve() if path else page
    docs = ROOT / "docs"
    if not file.exists():
        return "leads nowhere"
    if docs in page.parents and (docs not in file.parents or file.is_dir()):
        return "has no page on the site"
    if anchor and anchor not in anchors_of(file):
        return "has no such heading"
    return None


def check_page(page):
    name, previous = page.relative_to(ROOT), ""
    for number, line in enumerate(lines_of(page), 1):
        where = f"{name}:{number}: "
        for target in LINK.findall(re.sub(r"`[^`]*`", "", line)):
            problem = None if re.match(r"[a-z]+:", target) else check_link(page, target)
            if problem:
                yield where + target + " " + problem
        begins = re.match(r"- |1\. |\|", line)
        if begins and previous.strip() and not re.match(r"- |\d+\. |\||  ", previous):
            yield where + "needs a blank line before it"
        if re.match(r" {1,3}(- |\d+\. )", line):
            yield where + "a list within a list is four blanks deep"
        if line.startswith("|") and r"\|" in line:
            yield where + "MkDocs shows the mark before the bar"
        previous = line


def check_nav():
    named = re.findall(r": ([\w./-]+\.md)$", (ROOT / "mkdocs.yml").read_text(encoding="utf-8"), re.M)
    there = [page.relative_to(ROOT / "docs").as_posix() for page in (ROOT / "docs").rglob("*.md")]
    for page in sorted(set(named) ^ set(there)):
        yield f"docs/{page}: in the folder or in mkdocs.yml, but not in both"


def check_glossary():
    """Of "raw TR, SS `DR`; DC B4" the records TR, SS and B4; what stands between backticks is a field."""
    def found(pattern, *pages):
        text = "\n".join((ROOT / "docs/formats" / page).read_text(encoding="utf-8") for page in pages)
        return set(re.findall(r"\w+", " ".join(re.findall(pattern, text, re.M))))

    known = {
        "raw": found(r"^\| ([A-Z, ]+) \|", "raw.md"),
        "DC": found(r"^(?:###|\|) (\w\w)[ ,]", "dc.md", "roads.md"),
        "ILJ": found(r"^\| \d+ \| (\w{5}) \|", "ilj.md"),
        "SDR": found(r"^\| (\d\d)\w\w \|", "sdr.md"),
        "RD5": found(r"^\| ([A-Z, ]+) \|", "roads.md"),
        "TP5": found(r"^\| (T[HS]) \|", "roads.md"),
    }
    forms = "|".join(known)
    named = re.compile(rf"\b({forms})\b((?:(?!\b(?:{forms}|JXL)\b).)*)")
    for number, line in enumerate((ROOT / "docs/glossary.md").read_text(encoding="utf-8").splitlines(), 1):
        where = re.sub(r"`[^`]*`|\]\([^)]*\)", "", line.split("|")[-2]) if line.startswith("|") else ""
        for form, words in named.findall(where):
            for record in re.findall(r"\b[A-Z]{2}\b|\b[A-Z]?\d{1,2}\b|\b[A-Z]{5}\b", words):
                if record not in known[form]:
                    yield f"docs/glossary.md:{number}: {form} {record} is on no page"


def check_site(site):
    asks = r"""<(?:link|script|img|iframe|source|use)\b[^>]*?(?:href|src)=["']?(?:https?:)?//[^"'>\s]*"""
    for file in sorted(site.rglob("*")):
        kinds = {".html": asks, ".css": r"""(?:url\(|@import)\s*["']?(?:https?:)?//[^"')\s]*"""}
        for found in re.findall(kinds.get(file.suffix, r"(?!)"), file.read_text(errors="ignore") if file.is_file() else ""):
            yield f"{file}: {found}"


def main():
    pages = [*ROOT.glob("*.md"), *(ROOT / "docs").rglob("*.md")]
    problems = [problem for page in sorted(pages) for problem in check_page(page)]
    problems += [*check_nav(), *check_glossary()]
    if len(sys.argv) > 1:
        problems += check_site(pathlib.Path(sys.argv[1]))
    sys.exit("\n".join(problems) or None)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Checks where the documents lead: links_test.py FOLDER

FOLDER is the source tree, or where the documents are installed.

Links lead to files that exist, and anchors to headings. README.md links to every document. The man pages
and files that man pages and documents name exist. The newest version of the changelog is the project's.
"""

import collections
import pathlib
import re
import sys
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
root = pathlib.Path(sys.argv[1]).resolve()
documents = [root / name for name in ("README.md", "CONTRIBUTING.md", "CHANGELOG.md")]
for folder in ("docs", "examples", "integrations"):
    documents += sorted((root / folder).rglob("*.md"))
man_pages = sorted((root / "docs").glob("*.[1-9]"))
problems = []


def without_blocks(document):
    return re.sub(r"^(```+|~~~+).*?^\1", "", document.read_text(), flags=re.M | re.S)


def anchors(document):
    """Returns the anchors of the headings as GitHub makes them."""
    counts = collections.Counter()
    for heading in re.findall(r"^#{1,6} +(.+?) *$", without_blocks(document), re.M):
        text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower()
        anchor = re.sub(r"[^\w\- ]", "", text).replace(" ", "-")
        yield f"{anchor}-{counts[anchor]}" if counts[anchor] else anchor
        counts[anchor] += 1


def links(document):
    text = re.sub(r"`[^`]*`", "", without_blocks(document))
    return re.findall(r"\]\(\s*([^)\s]+)|^\[[^\]]+\]:\s*(\S+)|(?:href|src)=\"([^\"]+)", text, re.M)


def check_link(document, link):
    """Returns the file to which the link leads, if it isn't a page of the web."""
    url = urllib.parse.urlsplit(link)
    if url.scheme == "https" and url.netloc:
        return None
    target = (document.parent / urllib.parse.unquote(url.path)).resolve() if url.path else document
    if url.scheme or not target.exists() or not target.is_relative_to(root):
        problems.append(f"{document.relative_to(root)}: {link} leads nowhere")
    elif url.fragment and (target.suffix != ".md" or url.fragment not in anchors(target)):
        problems.append(f"{document.relative_to(root)}: {link} has no such heading")
    return target


indexed = set()
for document in documents:
    targets = [check_link(document, "".join(groups)) for groups in links(document)]
    if document == root / "README.md":
        indexed = {document, *targets}
for document in documents + man_pages:
    if document not in indexed:
        problems.append(f"README.md doesn't link to {document.relative_to(root)}")
    text = document.read_text()
    pages = re.findall(r"\b(tav\w+)\(([1-9])\)|^\.Xr (\S+) ([1-9])", text, re.M)
    names = [".".join(filter(None, page)) for page in pages]
    for name in names + re.findall(r"^\.Pa (\S+\.md)", text, re.M):
        if not (root / "docs" / name).exists():
            problems.append(f"{document.relative_to(root)}: there is no {name}")

project = (ROOT / "CMakeLists.txt").read_text()
version = re.search(r"^project\(.* VERSION (\S+)", project, re.M)[1]
newest = re.search(r"^## \[(\d\S*)\]", (root / "CHANGELOG.md").read_text(), re.M)[1]
if newest != version:
    problems.append(f"CHANGELOG.md ends with version {newest}, and the project has {version}")
sys.exit("\n".join(problems) or None)

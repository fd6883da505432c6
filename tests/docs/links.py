"""Follows every link of the pages: links.py SOURCES

A relative link leads to a file of the tree, one with a # to a heading there; every page is reached from docs/README.md, leads
back to it, and begins with a sentence.
"""

import re
import sys
from pathlib import Path

root = Path(sys.argv[1])
pages = sorted([*root.glob("*.md"), *root.glob("docs/*.md")])


def prose(page):
    return re.sub(r"^```.*?^```$", "", page.read_text(encoding="utf-8"), flags=re.M | re.S)


def anchors(page):
    """Headings as GitHub names them."""
    for heading in re.findall(r"^#+ +(.+?) *$", prose(page), flags=re.M):
        yield re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def targets(page):
    return re.findall(r"\]\(([^)\s]+)\)", prose(page))


def faults():
    reached = {page: set() for page in pages}
    for page in pages:
        for target in targets(page):
            if re.match(r"[a-z]+:", target):
                continue
            path, _, anchor = target.partition("#")
            file = (page.parent / path).resolve() if path else page
            if not file.exists():
                yield page, f"{target} leads nowhere"
            elif anchor and anchor not in anchors(file):
                yield page, f"{target}: no such heading"
            reached[page].add(file)
    index = root / "docs" / "README.md"
    for page in root.glob("docs/*.md"):
        if page != index and page not in reached[index]:
            yield index, f"does not lead to {page.name}"
        if page != index and index not in reached[page]:
            yield page, "does not lead back to the index"
        if not re.match(r"# .+\n\n[A-Z`].*\w", page.read_text(encoding="utf-8")):
            yield page, "does not begin with a title and a sentence"


found = [f"{page.relative_to(root)}: {fault}" for page, fault in faults()]
print("\n".join(found) or f"{sum(len(targets(page)) for page in pages)} links on {len(pages)} pages")
sys.exit(bool(found))

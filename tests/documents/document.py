"""Reads the project's documents: what in them can be run or looked up, each with its line.

A comment directly in front of a block says how the block is to be read, as `<!-- key: value -->`. Readers do not see it.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path

from markdown_it import MarkdownIt

ROOT = Path(__file__).resolve().parents[2]
DOCUMENTS = sorted([ROOT / "README.md", ROOT / "CONTRIBUTING.md", *(ROOT / "docs").glob("*.md")])


@dataclass
class Fence:
    """A block of code: `kind` is the word behind the fence, `remark` the key and value of the comment before it."""
    line: int
    kind: str
    text: str
    remark: tuple = ("", "")


@dataclass
class Row:
    """A row of a table; `codes` holds what stands in code marks in each cell, the first of each."""
    line: int
    codes: list
    remark: tuple = ("", "")


@dataclass
class Document:
    path: Path
    fences: list = field(default_factory=list)
    rows: list = field(default_factory=list)
    codes: list = field(default_factory=list)  # (line, text) of all text in code marks
    links: list = field(default_factory=list)  # (line, target) of links and pictures
    anchors: set = field(default_factory=set)  # what links into this document may name

    @property
    def name(self):
        return str(self.path.relative_to(ROOT)) if self.path.is_relative_to(ROOT) else self.path.name


def anchor_of(heading):
    """The anchor that a heading gets: letters, digits, "-" and "_" in lower case, blanks as "-"."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def remark_in(html):
    found = re.fullmatch(r"<!--\s*([\w ]+?):(.*?)-->\s*", html, re.DOTALL)
    return (found[1], found[2].strip()) if found else ("", "")


def read(path, text=None):
    document = Document(Path(path))
    remark = ("", "")
    in_table = False
    row = None
    previous = None
    for token in MarkdownIt("commonmark").enable("table").parse(path.read_text() if text is None else text):
        line = token.map[0] + 1 if token.map else 0
        if token.type == "html_block":
            remark = remark_in(token.content)
        elif token.type == "fence":
            document.fences.append(Fence(line, token.info.strip(), token.content, remark))
            remark = ("", "")
        elif token.type == "table_open":
            in_table = True
        elif token.type == "table_close":
            in_table = False
            remark = ("", "")
        elif token.type == "tr_open" and in_table:
            row = Row(line, [], remark)
        elif token.type == "tr_close" and row and any(row.codes):
            document.rows.append(row)
        elif token.type == "inline":
            found = [child.content for child in token.children if child.type == "code_inline"]
            document.codes += [(line, code) for code in found]
            for child in token.children:
                target = child.attrs.get("href") or child.attrs.get("src")
                if target:
                    document.links.append((line, target))
            if previous.type in ("td_open", "th_open"):
                row.codes.append(found[0] if found else "")
            elif previous.type == "heading_open":
                document.anchors.add(anchor_of("".join(child.content for child in token.children)))
            else:
                remark = ("", "")
        previous = token
    return document

"""The pages of the documentation, and what stands in them: fenced blocks, inline code, links and anchors."""

import re
from typing import NamedTuple

from program import ROOT

FENCE = re.compile(r"( *)(`{3,}|~{3,})([\w-]*)\s*")
INLINE_CODE = re.compile(r"(`+)(.+?)\1")
LINK = re.compile(r"!?\[[^\]]*\]\(([^()\s]+)\)")
HEADING = re.compile(r"#{1,6} +(.*?)\s*")
ANCHOR = re.compile(r'<a id="([^"]+)"')


class Block(NamedTuple):
    """A fenced block: its language, its lines, and the line of the page that its content starts at, from 0."""
    page: str
    start: int
    language: str
    lines: tuple

    @property
    def text(self):
        return "\n".join(self.lines) + "\n"

    @property
    def place(self):
        return f"{self.page}:{self.start}"

    def opens_with(self, beginning):
        return self.lines[0].strip().startswith(beginning)


def pages():
    """Both READMEs, CONTRIBUTING and every page below docs, as paths from the repository's root."""
    below = sorted(path.relative_to(ROOT).as_posix() for path in (ROOT / "docs").rglob("*.md"))
    return ["README.md", "README.zh-CN.md", "CONTRIBUTING.md", *below]


def lines_of(page):
    return (ROOT / page).read_text(encoding="utf-8").split("\n")


def blocks_in(page, lines):
    blocks, opened = [], None
    for number, line in enumerate(lines):
        fence = FENCE.fullmatch(line)
        if opened is None and fence:
            opened = (number, *fence.groups())
        elif opened and fence and fence[2] == opened[2] and not fence[3]:
            start, indent, _, language = opened
            content = [text.removeprefix(indent) for text in lines[start + 1:number]]
            assert content, f"{page}:{start + 1}: an empty block"
            blocks.append(Block(page, start + 1, language, tuple(content)))
            opened = None
    assert opened is None, f"{page}:{opened[0] + 1}: a block that is not closed"
    return blocks


def blocks_of(page):
    return blocks_in(page, lines_of(page))


def prose_of(page):
    """The page's lines outside fenced blocks, with their numbers from 1."""
    fenced = set()
    for block in blocks_of(page):
        fenced.update(range(block.start - 1, block.start + len(block.lines) + 1))
    return [(number + 1, line) for number, line in enumerate(lines_of(page)) if number not in fenced]


def inline_code_of(page):
    """Inline code of a page with its lines; a span may run on into the next line."""
    lines = prose_of(page)
    text = "\n".join(line for _, line in lines)
    for span in INLINE_CODE.finditer(re.sub(r"\n(?=\n)", "\0", text)):
        if "\0" not in span[2]:
            yield lines[text.count("\n", 0, span.start())][0], span[2].replace("\n", " ").strip()


def links_of(page):
    for number, line in prose_of(page):
        for target in LINK.findall(INLINE_CODE.sub("", line.replace("[`", "[").replace("`]", "]"))):
            yield number, target


def anchors_of(page):
    """Names that links may jump to: explicit anchors and headings, as web pages of repositories form them."""
    names = []
    for _, line in prose_of(page):
        names += ANCHOR.findall(line)
        if heading := HEADING.fullmatch(line):
            plain = re.sub(r"[`*]|\]\([^)]*\)|!?\[", "", heading[1])
            slug = re.sub(r"[^\w\- ]", "", plain.lower()).replace(" ", "-")
            names.append(slug if slug not in names else f"{slug}-{names.count(slug)}")
    return names

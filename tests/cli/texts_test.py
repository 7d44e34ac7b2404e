"""The catalogue of texts: whole, and fit for what is put into its texts."""

import re
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
CATALOGUE = ROOT / "aluframe/texts/zh_CN.po"
MARKS = ["translated", "translatable", "translated_to:2"]


def unquoted(lines):
    """The text of a list of quoted lines of a catalogue."""
    text = "".join(line[line.index('"') + 1:line.rindex('"')] for line in lines)
    return text.replace('\\"', '"').replace("\\n", "\n").replace("\\\\", "\\")


def entries(catalogue):
    """The texts of a catalogue with their translations, without its header."""
    found = {}
    for block in catalogue.split("\n\n"):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        starts = [i for i, line in enumerate(lines) if line.startswith("msgstr")]
        if starts:
            found[unquoted(lines[:starts[0]])] = unquoted(lines[starts[0]:])
    found.pop("", None)
    return found


def texts_of_sources():
    """What the sources mark as texts for people."""
    sources = sorted(str(path.relative_to(ROOT)) for folder in ("aluframe", "apps")
                     for path in (ROOT / folder).rglob("*") if path.suffix in (".h", ".cpp"))
    extracted = subprocess.run(
        ["xgettext", "--from-code=UTF-8", "--language=C++", "--output=-", "--no-location",
         "--keyword", *(f"--keyword={mark}" for mark in MARKS), *sources],
        cwd=ROOT, check=True, capture_output=True, text=True).stdout
    return set(entries(extracted))


def placeholders(text):
    """What each argument of a format string is to look like: {0: ".3f"}."""
    found, place = {}, 0
    for number, form in re.findall(r"\{(\d*)(?::([^}]*))?\}", text.replace("{{", "").replace("}}", "")):
        found[int(number) if number else place] = form
        place += 1
    return found


@pytest.fixture(scope="module")
def catalogue():
    return entries(CATALOGUE.read_text(encoding="utf-8"))


def test_every_text_of_the_sources_is_translated_and_no_other(catalogue):
    texts = texts_of_sources()
    assert len(texts) > 40, "texts are found at all"
    assert sorted(texts - set(catalogue)) == [], "run tools/texts and translate these"
    assert sorted(set(catalogue) - texts) == [], "run tools/texts, these are gone"
    assert [text for text, chinese in catalogue.items() if not chinese] == []


def test_translations_take_the_same_arguments_in_the_same_form(catalogue):
    assert {text: chinese for text, chinese in catalogue.items()
            if placeholders(text) != placeholders(chinese)} == {}


def test_translations_end_as_their_texts_do(catalogue):
    """Indents and line ends are part of how texts are put together; single blanks are not, as
    Chinese brackets and colons have their own."""
    border = re.compile(r"^(\n*(?:  +)?).*?(\n*)$", re.S)
    assert [text for text, chinese in catalogue.items()
            if border.match(text).groups() != border.match(chinese).groups()] == []

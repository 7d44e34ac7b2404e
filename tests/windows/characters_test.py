"""The characters of reports by the code page of the system."""

import shutil
import subprocess

import pytest

import program_wine
from module_wine import missing
from program_wine import ROOT

program_wine.require()

FOOTBRIDGE = ROOT / "examples" / "footbridge.json"
TITLE = "强度验算"


@pytest.fixture(scope="module")
def locales(tmp_path_factory):
    """A folder of locales, whose languages decide on Wine's code page."""
    if missing("localedef"):
        pytest.skip("needs localedef, of the package locales")
    folder = tmp_path_factory.mktemp("locales")
    for name in ("zh_CN", "ko_KR"):
        subprocess.run(["localedef", "-i", name, "-f", "UTF-8", str(folder / f"{name}.UTF-8")], check=True)
    return folder


@pytest.fixture(scope="module")
def checked(machine, tmp_path_factory):
    folder = tmp_path_factory.mktemp("characters")
    shutil.copy(FOOTBRIDGE, folder)
    assert machine.run("check", "footbridge.json", folder=folder).status == 0
    return folder


def report(machine, folder, **locale):
    """The report by a locale of the system: its bytes, the readable copy, and what the run said."""
    done = machine.run("report", "footbridge.json", "--lang", "en", folder=folder, **locale)
    assert done.status == 0, done
    copy = (folder / "footbridge.txt").read_text(encoding="utf-8")
    return (folder / "footbridge.alu").read_bytes(), copy, done.err.decode()


def said_of(count):
    return (f'footbridge.alu: has "?" for {count} characters that the system\'s character set lacks; the readable '
            "copy has them all (LC_ALL=C.UTF-8 has them in the report too)\n") if count else ""


def lacking(text, page):
    return sum(1 for character in text if character.encode(page, "replace") == b"?" and character != "?")


@pytest.mark.parametrize("language, page", [("C", "cp1252"), ("zh_CN", "gbk"), ("ko_KR", "cp949")])
def test_a_report_is_whole_in_every_code_page_and_counts_what_that_lacks(machine, checked, locales, language, page):
    complete, readable, said = report(machine, checked)
    text = complete.decode("utf-8")
    assert said == "" and TITLE in readable
    narrowed, copy, said = report(machine, checked, LC_ALL=None, LANG=f"{language}.UTF-8", LOCPATH=str(locales))
    assert narrowed == text.encode(page, "replace")
    assert copy == readable
    assert said == said_of(lacking(text, page))


def test_the_titles_in_code_page_949_are_chinese_in_gbk(machine, checked, locales):
    narrowed, _, _ = report(machine, checked, LC_ALL=None, LANG="ko_KR.UTF-8", LOCPATH=str(locales))
    assert TITLE.encode("gbk") in narrowed

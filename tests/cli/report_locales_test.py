"""A report in the character set of the environment, whatever else its locale asks for."""

import json
import os
import re
import subprocess

import pytest
from program import ROOT

from report_grammar import READABLE, STORED
from report_model import ModelFacts
from report_reader import read_report

# By the name that the tests give it: the name among locales, its source and its character set.
LOCALES = {
    "UTF-8": ("en_US.UTF-8", "en_US", "UTF-8"),
    "949": ("ko_KR.CP949", "ko_KR", "CP949"),
    "grouping": ("de_DE.UTF-8", "de_DE", "UTF-8"),
}
VARIABLES = ("LC_ALL", "LC_CTYPE", "LC_NUMERIC", "LANG", "LANGUAGE", "LOCPATH")

# It reaches every text of a report, and has numbers above 999 in every place that shows one.
EVERYTHING = ROOT / "tests" / "golden" / "everything.json"


@pytest.fixture(scope="session")
def locales(tmp_path_factory):
    """Builds the three locales. Needs localedef and the locales' sources (Debian package locales)."""
    folder = tmp_path_factory.mktemp("locales")
    for name, source, charset in LOCALES.values():
        done = subprocess.run(["localedef", "-i", source, "-f", charset, folder / name], check=False,
                              capture_output=True, text=True)
        assert (folder / name / "LC_CTYPE").exists(), f"{name} was not built: {done.stderr}"
    return folder


@pytest.fixture
def frame(aluframe, monkeypatch):
    for name in VARIABLES:
        monkeypatch.delenv(name, raising=False)
    aluframe.model = json.loads(EVERYTHING.read_text(encoding="utf-8"))
    aluframe.write(aluframe.model)
    aluframe("check", "frame.json")
    return aluframe


def report(frame, *arguments, status=0, **environment):
    """Reports in an environment. @return the bytes of the report, if it is whole, and what was said"""
    done = subprocess.run([frame.path, "report", "frame.json", *arguments], cwd=frame.folder,
                          env={**os.environ, **environment}, capture_output=True, check=False, timeout=120)
    assert done.returncode == status, done.stderr
    written = (frame.folder / "frame.alu").read_bytes() if status == 0 else b""
    return written, done.stderr.decode("utf-8")


def in_locale(frame, locales, which, *arguments, status=0):
    return report(frame, *arguments, status=status, LOCPATH=str(locales), LC_ALL=LOCALES[which][0])


def read_as_gbk(written):
    """As an editor set to GBK shows it. Only the model's own names hold bytes that GBK does not have."""
    return written.decode("gbk", "replace")


# In which character set

def test_a_report_in_a_utf8_locale_decodes_to_the_stored_texts(frame, locales):
    written, said = in_locale(frame, locales, "UTF-8")
    assert said == ""
    facts = ModelFacts(frame.model)
    read = read_report(written.decode("utf-8"), STORED)
    assert read.rows == facts.header_rows()
    assert [member.number for member in read.members] == list(facts.elements)


def test_a_report_in_code_page_949_has_the_same_texts(frame, locales):
    written, said = in_locale(frame, locales, "949")
    assert said == ""
    assert written.decode("cp949") == in_locale(frame, locales, "UTF-8")[0].decode("utf-8")


def test_a_report_in_code_page_949_read_as_gbk_is_chinese(frame, locales):
    text = read_as_gbk(in_locale(frame, locales, "949")[0])
    titles = set(re.findall(r"^  \[\[\[\*\]\]\]   (.*)$", text, re.M))
    assert titles == {
        "荷载组合", "强度验算", "抗剪强度验算(Y向)", "抗剪强度验算(Z向)", "轴向稳定验算", "轴向稳定验算(Y向)",
        "轴向稳定验算(Z向)", "长细比验算"}
    described = set(re.findall(r"^   (.*[^\x00-\x7f].*)$", text, re.M))
    assert {"弯矩作用平面内稳定:", "弯矩作用平面外稳定:", "局部坐标系y轴方向的剪应力", "局部坐标系z轴方向的剪应力",
            "轴向受压构件长细比（kl/i验算）", "轴向受拉构件长细比（kl/i验算）"} <= described
    assert len(read_report(text, READABLE).members) == len(frame.model["elements"])


def test_the_seismic_factor_read_as_gbk_has_its_greek_letter(frame, locales):
    frame.model["settings"]["seismic"] = True
    frame.write(frame.model)
    frame("check", "frame.json")
    text = read_as_gbk(in_locale(frame, locales, "949")[0])
    assert "   <My= 1.200e+07, Mz=-1.000e+06, γRE=     0.750\n" in text
    read_report(text, READABLE, seismic=True)


def test_the_readable_copy_is_the_same_from_every_character_set(frame, locales):
    copies = []
    for which in LOCALES:
        in_locale(frame, locales, which, "--readable", f"{which}.txt")
        copies.append((frame.folder / f"{which}.txt").read_text(encoding="utf-8"))
    assert copies[0] == copies[1] == copies[2]
    read_report(copies[0].partition("\n\nSecond opinion (")[0], READABLE)


def test_a_name_beyond_the_character_set_is_lost_with_the_list_of_combinations_alone(frame, locales):
    frame.model["load_cases"][0]["name"] = "Größe"  # code page 949 has no ö
    frame.write(frame.model)
    frame("check", "frame.json")
    said = in_locale(frame, locales, "949", status=2)[1]
    assert said == ("the report failed: frame.alu: the report is incomplete: a character that the "
                    "environment's character set lacks, in 1 block (LC_ALL=C.UTF-8 has them all), or "
                    "writing failed for a moment; what was written is in frame.alu.partial; "
                    "the readable copy is whole: frame.txt\n")
    written = (frame.folder / "frame.alu.partial").read_bytes().decode("cp949")
    whole = in_locale(frame, locales, "UTF-8")[0].decode("utf-8")
    first_member = "=" * 100 + "\n  MEMBER NO = 1,"
    head, _, members = written.partition(first_member)
    copy = (frame.folder / "frame.txt").read_text(encoding="utf-8")
    read_report(copy.partition("\n\nSecond opinion (")[0], READABLE)
    assert "Größe( 1." in copy
    assert members == whole.partition(first_member)[2]
    assert head.startswith("=" * 100 + "\n  Aluminum Alloy Code Checking") and "Gr" not in head
    assert not (frame.folder / "frame.alu.partial").exists()


def test_a_readable_text_on_standard_output_lacks_nothing_in_any_character_set(frame, locales):
    frame.model["load_cases"][0]["name"] = "Größe"  # code page 949 has no ö
    frame.write(frame.model)
    frame("check", "frame.json")
    report(frame, LC_ALL="C.UTF-8")
    expected = (frame.folder / "frame.txt").read_bytes()
    for name in ("frame.alu", "frame.txt"):
        (frame.folder / name).unlink()
    done = subprocess.run([frame.path, "report", "frame.json", "--output", "-"], cwd=frame.folder,
                          env={**os.environ, "LOCPATH": str(locales), "LC_ALL": LOCALES["949"][0]},
                          capture_output=True, check=True, timeout=120)
    assert done.stdout == expected


# Numbers

def test_digits_are_never_grouped_and_the_decimal_sign_is_a_point(frame, locales):
    written, said = in_locale(frame, locales, "grouping")
    assert said == ""
    text = written.decode("utf-8")
    assert written == in_locale(frame, locales, "UTF-8")[0]
    for plain in ("MEMBER NO = 1011,", "MEMBER NO = 134217727,", "MATERIAL NO = 1003,",
                  "SECTION NO = 2009\n", "(LCB=1003, POS=", "N=-200000.000\n", "( 1000.500)\n"):
        assert plain in text
    assert not re.search(r"\d\.\d{3}[.,]\d", text)


def test_a_locale_of_numbers_alone_changes_nothing(frame, locales):
    plain = report(frame, LC_ALL="C.UTF-8")[0]
    mixed = report(frame, LOCPATH=str(locales), LC_CTYPE=LOCALES["UTF-8"][0],
                   LC_NUMERIC=LOCALES["grouping"][0])
    assert mixed == (plain, "")


# What decides on the character set

@pytest.mark.parametrize("variable", ["LC_ALL", "LC_CTYPE", "LANG"])
def test_the_character_set_is_that_of_the_environment(frame, locales, variable):
    expected = in_locale(frame, locales, "949")[0]
    assert report(frame, LOCPATH=str(locales), **{variable: LOCALES["949"][0]})[0] == expected


@pytest.mark.parametrize("environment", [
    {}, {"LC_ALL": "C"}, {"LC_ALL": "POSIX"}, {"LANG": "C"}, {"LC_CTYPE": "C", "LANG": "C.UTF-8"},
    {"LC_ALL": ""},
], ids=str)
def test_an_ascii_environment_gets_utf8_and_no_line_is_lost(frame, environment):
    expected = report(frame, LC_ALL="C.UTF-8")
    assert report(frame, "--readable", "frame.txt", **environment) == expected
    assert len(read_report(expected[0].decode("utf-8")).members) == len(frame.model["elements"])


@pytest.mark.parametrize("environment", [
    {"LC_ALL": "xx_YY.UTF-8"}, {"LANG": "xx_YY"}, {"LC_CTYPE": "nonsense", "LANG": "C.UTF-8"},
    {"LC_NUMERIC": "xx_YY.UTF-8", "LANG": "C.UTF-8"},
], ids=str)
def test_a_locale_that_the_machine_does_not_have_is_told_once_and_utf8_is_used(frame, environment):
    expected = report(frame, LC_ALL="C.UTF-8")[0]
    written, said = report(frame, "--readable", "frame.txt", **environment)
    assert written == expected
    assert said == (
        "the environment names a locale that this machine does not have; UTF-8 is used\n")

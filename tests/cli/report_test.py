"""`aluframe report`: what it writes, where it writes it, and what it says."""

import json
import os
import re

import pytest
from program import PIPE_AREA, PIPE_W, ROOT

from report_checks import ORDER, governing_by_element
from report_frames import checked_three_beams, elements_of, text_of
from report_model import ModelFacts
from report_reader import read_report

EXAMPLES = sorted((ROOT / "examples").glob("*.json"))


@pytest.fixture(autouse=True)
def utf8(monkeypatch):
    monkeypatch.setenv("LC_ALL", "C.UTF-8")


@pytest.fixture
def frame(aluframe, pipe_beam):
    """Three beams, checked; the first is also pulled by an earthquake. Numbers above 999."""
    return checked_three_beams(aluframe, pipe_beam)


# What it writes

def test_a_report_has_the_numbers_of_the_hand_calculation(frame):
    frame("report", "frame.json", "--elements", "1")
    # Aen = 0.85·2827.433, W = 57,962.4; N = 20 kN and My = 10 kN·m in combination 2 at the middle.
    ratio = 20000 / (0.85 * PIPE_AREA) / 200 + 1e7 / PIPE_W / 200
    assert f"""\
   Aen =   2403.318,  Weny= 57962.384,  Wenz= 57962.384
   f =    200.000
   Gammay=     1.000,  Gammaz=     1.000
   (LCB=2, POS=1/2)
   N= 20000.000,  My= 1.000e+07,  Mz=     0.000
   Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)={ratio:10.3f}<1.00 ----> OK
""" in text_of(frame)


def test_units_scale_what_has_units(frame):
    frame("report", "frame.json", "--elements", "1", "--units", "kN,m")
    text = text_of(frame)
    # 200 N/mm² are 200,000 kN/m²; 57,962.4 mm³ are 5.796e-5 m³; radii of 32.0156 mm shrink by 1e6.
    assert "   UNIT SYSTEM : m, kN\n" in text
    assert "iy=3.20156e-05" in text
    assert """\
   Aen =      0.002,  Weny= 5.796e-05,  Wenz= 5.796e-05
   f = 200000.000
   Gammay=     1.000,  Gammaz=     1.000
   (LCB=2, POS=1/2)
   N=    20.000,  My=    10.000,  Mz=     0.000
   Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)=     0.904<1.00 ----> OK
""" in text


@pytest.mark.parametrize("units, names", [
    ("N,mm", "mm, N"), ("kgf,cm", "cm, kgf"), ("tonf,m", "m, tonf"), ("lbf,in", "in, lbf"),
    ("kip,ft", "ft, kip"),
])
def test_units_are_named(frame, units, names):
    frame("report", "frame.json", "--units", units)
    assert text_of(frame).count(f"   UNIT SYSTEM : {names}\n") == 3


def test_all_elements_are_reported_in_the_order_of_the_model(frame):
    frame("report", "frame.json")
    assert elements_of(frame) == [1, 1002, 1003]


def test_elements_can_be_chosen(frame):
    frame("report", "frame.json", "--elements", "1003,1")
    assert elements_of(frame) == [1, 1003]


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.stem)
def test_every_printed_ratio_is_the_one_that_the_check_stored(aluframe, path):
    aluframe("check", path, "--output", "out.aluresult")
    aluframe("report", path, "--results", "out.aluresult", "--output", "out.alu")
    results = governing_by_element(aluframe.json("results", "out.aluresult"))
    seismic = ModelFacts(json.loads(path.read_text("utf-8"))).shows_seismic_factor
    elements, compared = len(results), 0
    for member in read_report(text_of(aluframe, "out.alu"), seismic=seismic).members:
        stored = results.pop(member.number)
        assert [block.item for block in member.blocks] == [item for item in ORDER if item in stored]
        for block in member.blocks:
            if block.variant == "without axial force":
                continue
            row = stored[block.item]
            ratio = row["demand"] if block.item == "slenderness" else row["ratio"]
            # Printed with three decimals in ten characters, below 0.001 with an exponent.
            kind = "f" if ratio == 0 or 0.001 <= abs(ratio) < 1e6 else "e"
            assert block.R.text == f"{ratio:10.3{kind}}", f"{member.number} {block.item}"
            compared += 1
    assert not results
    assert compared >= elements


@pytest.mark.parametrize("code", [*range(1, 17), 18, 100])
def test_moving_loads_are_named_under_every_code(frame, code):
    assert "          Lane( 1.000)" in row_of_moving_load(frame, code)


def test_moving_loads_have_a_blank_name_without_a_code(frame):
    # The name of the combination, its type 0, a blank, the lead of three blanks, 14 of the name.
    assert row_of_moving_load(frame, 0) == "     LANES  0 " + "   " + " " * 14 + "( 1.000)"


def row_of_moving_load(frame, code):
    frame.model["moving_load_code"] = code
    frame.model["load_cases"].append({"number": 3, "name": "Lane", "kind": "moving"})
    frame.model["combinations"].append({"number": 3, "name": "LANES", "terms": [{"case": 3}]})
    frame.write(frame.model)
    frame("check", "frame.json")
    frame("report", "frame.json")
    return next(line for line in text_of(frame).splitlines() if "LANES" in line)


# Where it writes

def test_the_path_of_the_report_is_told(frame):
    done = frame("report", "frame.json")
    assert done.stdout.startswith("Report of 3 elements, complete: frame.alu\n")
    assert done.stderr == ""


def test_one_element_is_told_as_one(frame):
    assert frame("report", "frame.json", "--elements", "1002").stdout.startswith(
        "Report of 1 element, complete: frame.alu\n")


def test_the_report_goes_where_it_is_wanted(frame):
    done = frame("report", "frame.json", "--output", "columns of axis A.alu")
    assert done.stdout.startswith("Report of 3 elements, complete: columns of axis A.alu\n")
    assert elements_of(frame, "columns of axis A.alu") == [1, 1002, 1003]
    assert not (frame.folder / "frame.alu").exists()


def test_results_may_stand_elsewhere(frame):
    os.rename(frame.folder / "frame.aluresult", frame.folder / "night run.aluresult")
    done = frame("report", "frame.json", "--results", "night run.aluresult")
    assert done.stderr == ""
    assert not (frame.folder / "frame.aluresult").exists()


def test_forces_from_csv_take_the_place_of_the_models(frame):
    (frame.folder / "forces.csv").write_text(
        "element,case,position,N,Fy,Fz,Mx,My,Mz\n"
        "1,1,0,-7,0,0,0,0,0\n1,1,4,-7,0,0,0,0,0\n1,2,0,0,0,0,0,0,0\n1,2,4,0,0,0,0,0,0\n")
    frame("check", "frame.json", "--forces", "forces.csv")
    frame("report", "frame.json", "--forces", "forces.csv", "--elements", "1")
    assert "   N= -7000.000\n   Rmax1=N/(f*Aen)=" in text_of(frame)


def test_a_second_report_to_the_path_is_the_same(frame):
    frame("report", "frame.json")
    first = text_of(frame)
    frame("report", "frame.json")
    assert text_of(frame) == first


def test_a_shorter_report_leaves_nothing_of_a_longer_one(frame):
    frame("report", "frame.json", "--elements", "1", "--output", "short.alu")
    frame("report", "frame.json")
    frame("report", "frame.json", "--elements", "1")
    assert text_of(frame) == text_of(frame, "short.alu")


def test_a_report_leaves_model_and_results_as_they_are(frame):
    before = {name: (frame.folder / name).read_bytes() for name in ("frame.json", "frame.aluresult")}
    frame("report", "frame.json")
    assert {name: (frame.folder / name).read_bytes() for name in before} == before
    assert sorted(os.listdir(frame.folder)) == [
        "frame.alu", "frame.aluresult", "frame.json", "frame.txt"]


def test_a_readable_copy_has_the_chinese_titles(frame):
    done = frame("report", "frame.json")
    assert done.stdout.startswith("Report of 3 elements, complete: frame.alu\n")
    assert done.stdout.endswith("Readable copy: frame.txt\n")
    # The second opinion behind it is no part of the report.
    readable = text_of(frame, "frame.txt").partition("\n\nSecond opinion (")[0]
    titles = re.findall(r"^  \[\[\[\*\]\]\]   (.*)$", readable, re.M)
    assert set(titles) == {"荷载组合", "强度验算", "抗剪强度验算(Y向)", "抗剪强度验算(Z向)", "轴向稳定验算",
                           "长细比验算"}
    assert "  Aluminum Alloy Code Checking [ GB 50429 – 2007 ]\n" in readable
    assert "   局部坐标系y轴方向的剪应力\n" in readable
    # All else is the same: what is ASCII in a line of one is so in the other.
    def ascii_of(text):
        return [re.sub(r"[^\x00-\x7f]+", "*", line) for line in text.splitlines()]
    assert ascii_of(readable) == ascii_of(text_of(frame))


# Wrong input

@pytest.mark.parametrize("arguments, words", [
    ([], "MODEL"), (["frame.json", "--nonsense"], "--nonsense"),
    (["frame.json", "more.json"], "more.json"),
    (["frame.json", "--units", "kN"], "--units: found 'kN'"),
    (["frame.json", "--units", "mm,N"], "--units: found 'mm,N'"),
    (["frame.json", "--lang", "fr"], "--lang"), (["frame.json", "--elements", "3-1"], "found '3-1'"),
    (["frame.json", "--elements", "1,7"], "--elements: there is no element 7"),
    (["frame.json", "--output"], "--output"),
    (["frame.json", "--combinations", "1"], "--combinations"),
    (["missing.json"], "missing.json"), (["frame.json", "--forces", "missing.csv"], "missing.csv"),
])
def test_wrong_input_ends_with_status_1_and_writes_nothing(frame, arguments, words):
    before = sorted(os.listdir(frame.folder))
    done = frame("report", *arguments, status=1)
    assert words in done.stderr and done.stdout == ""
    assert sorted(os.listdir(frame.folder)) == before


@pytest.mark.parametrize("language, text", [
    ("en", "the model has no load combination for design."),
    ("zh", "没有用于设计的荷载组合"),
])
def test_a_model_without_design_combinations_says_so_in_the_users_language(frame, language, text):
    for combination in frame.model["combinations"]:
        combination["design"] = False
    frame.write(frame.model)
    (frame.folder / "frame.aluresult").unlink()
    done = frame("report", "frame.json", "--lang", language, status=1)
    assert text in done.stderr
    assert not (frame.folder / "frame.alu").exists()

"""`aluframe report MODEL --html FILE`: the page is sound, says what the results say, and is written whole or not at all."""

import json
import math
import os
import re
import shutil
import signal
import subprocess
import time

import pytest

from document_page import Page
from program import PIPE_I, ROOT, Program
from loaded_beam import beam  # noqa: F401  a fixture

EXAMPLES = sorted(path.name for path in (ROOT / "examples").glob("*.json"))
EARLIER = ('<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8">\n'
           '<meta name="generator" content="AluFrame calculation document">\n')
BY_ELEMENT = "Governing ratios by element, the largest first"
HOSTILE = "<script>alert('1')</script> & \"quoted\" ]]> <!-- --> ‮"

# Headings of the ratios in the table of elements, by the items of `results`.
ITEMS = {"str.": "strength", "Vy": "shear y", "Vz": "shear z", "stab.": "stability",
         "comb. stab.": "combined stability", "λy": "slenderness y", "λz": "slenderness z"}


@pytest.fixture(scope="module", params=EXAMPLES)
def example(request, tmp_path_factory):
    """The program in a folder with a checked example and its document, as text and as a page."""
    program = Program(tmp_path_factory.mktemp("document"))
    shutil.copy(ROOT / "examples" / request.param, program.folder / "frame.json")
    program("check", "frame.json")
    program.done = program("report", "frame.json", "--html", "frame.html")
    program.text = (program.folder / "frame.html").read_text(encoding="utf-8")
    program.page = Page(program.text)
    return program


@pytest.fixture
def frame(aluframe, beam):  # noqa: F811
    """A checked beam."""
    aluframe.model = beam
    aluframe.write(beam)
    aluframe("check", "frame.json")
    return aluframe


def document(aluframe, *options, status=0):
    return Page(aluframe("report", "frame.json", "--html", "-", *options, status=status).stdout)


# The page

def test_ids_are_unique_and_every_link_leads_to_one(example):
    ids = example.page.attributes("id")
    assert len(ids) == len(set(ids))
    links = example.page.attributes("href")
    assert len(links) > 20
    assert {link.removeprefix("#") for link in links} <= set(ids)
    named = {name for names in example.page.attributes("aria-labelledby") for name in names.split()}
    assert named <= set(ids)


def test_nothing_is_loaded_and_nothing_runs(example):
    tags = {tag for tag, _ in example.page.elements}
    assert not tags & {"script", "link", "iframe", "object", "embed", "img", "image", "use", "base", "form"}
    names = {name for _, attributes in example.page.elements for name in attributes}
    assert not {name for name in names if name.startswith("on")} | (names & {"src", "xlink:href"})
    assert all(re.fullmatch(r"--depth: \d+", style) for style in example.page.attributes("style"))
    assert set(re.findall(r"https?://[^\"' <]*", example.text)) == {"http://www.w3.org/2000/svg"}
    assert "url(" not in example.text and "@import" not in example.text


def test_headings_go_down_one_level_at_a_time(example):
    levels = [int(tag[1]) for tag, _ in example.page.elements if re.fullmatch("h[1-6]", tag)]
    assert levels[0] == 1 and levels.count(1) == 1
    assert all(after <= before + 1 for before, after in zip(levels, levels[1:]))


def test_tables_and_drawings_can_be_read_without_seeing_them(example):
    for tag, attributes in example.page.elements:
        if tag == "th":
            assert attributes["scope"] in ("row", "col")
        if tag == "svg":
            assert attributes["role"] == "img"
    count = [tag for tag, _ in example.page.elements].count
    assert count("caption") == count("table") > 10
    assert count("figcaption") == count("figure") == count("svg") > 5
    assert all(text.strip() for text in example.page.texts["title"] + example.page.texts["caption"])
    assert ("html", {"lang": "en"}) in example.page.elements


def test_the_same_results_give_the_same_bytes(example):
    example("report", "frame.json", "--html", "again.html")
    assert (example.folder / "again.html").read_bytes() == example.text.encode()
    assert example("report", "frame.json", "--html", "-").stdout == example.text


def test_in_chinese_it_says_so_and_has_the_same_numbers(example):
    text = example("report", "frame.json", "--html", "-", "--lang", "zh").stdout
    page = Page(text)
    assert ("html", {"lang": "zh-CN"}) in page.elements
    assert "铝合金结构计算书" in text and "Summary" not in text
    rows = page.rows_of("各单元的控制应力比（由大到小）")
    assert [row["应力比"] for row in rows] == [row["Ratio"] for row in example.page.rows_of(BY_ELEMENT)]


# Its numbers

def test_every_ratio_of_the_elements_is_that_of_the_results(example):
    expected = {}
    for row in example.json("results", "frame.json"):
        expected.setdefault(row["element"], {})[row["item"]] = row
    rows = example.page.rows_of(BY_ELEMENT)
    assert sorted(int(row["Element"]) for row in rows) == sorted(expected)
    for row in rows:
        items = expected[int(row["Element"])]
        for heading, item in ITEMS.items():
            ratio = items[item]["ratio"] if item in items else None
            assert row[heading] == ("–" if ratio is None else f"{ratio:.4f}")
        worst = items[row["Check"]]
        assert float(row["Ratio"]) == max(float(row[heading]) for heading in ITEMS if row[heading] != "–")
        assert row["At"] == worst["position"]
        assert row["Combination"].split()[0] == str(worst["combination"])
        assert row["Safe ratio"] == f"{worst['safe_ratio']:.4f}"
        assert row["Verdict"] == ("fails" if worst["ratio"] > 1 else "holds")
    ratios = [float(row["Ratio"]) for row in rows]
    assert ratios == sorted(ratios, reverse=True)


def test_sections_and_combinations_have_the_worst_of_what_is_in_them(example):
    model = json.loads((example.folder / "frame.json").read_text(encoding="utf-8"))
    section_of = {element["number"]: element["section"] for element in model["elements"]}
    worst = {}
    for row in example.page.rows_of(BY_ELEMENT):
        section = section_of[int(row["Element"])]
        worst[section] = max(worst.get(section, 0), float(row["Ratio"]))
    rows = example.page.rows_of("Governing ratios by section")
    assert {int(row["Section"]): float(row["Ratio"]) for row in rows} == worst
    of_all = max(worst.values())
    combinations = example.page.rows_of("Largest ratio in each combination")
    assert max(float(row["Ratio"]) for row in combinations) == of_all


def test_the_ratio_of_a_combination_is_the_largest_of_its_checks(example):
    rows = example.page.rows_of("Largest ratio in each combination")
    for row in rows[:3]:
        number = row["Combination"].split()[0]
        checks = example.json("results", "frame.json", "--element", row["Element"],
                              "--combinations", number)
        ratios = [check["ratio"] for check in checks if check["ratio"] is not None]
        assert float(row["Ratio"]) <= max(ratios) + 5e-5  # an envelope's states share its number
        assert f"{max(ratios):.4f}" == max(
            (other["Ratio"] for other in rows if other["Combination"].split()[0] == number
             and other["Element"] == row["Element"]), key=float)


def test_reactions_are_those_of_the_analysis(example):
    done = example.json("analyse", "frame.json", "--show", "reactions")["reactions"] \
        if "Not known" not in example.text else []
    if not done:
        assert "forces are given" in example.text
        return
    rows = example.page.rows_of("Reactions of the supports, global axes")
    assert len(rows) == len(done)
    for row, reaction in zip(rows, done, strict=True):
        assert int(row["Node"]) == reaction["node"]
        values = [row[next(name for name in row if name.startswith(component.upper()))]
                  for component in ("Fx", "Fy", "Fz", "Mx", "My", "Mz")]
        for shown, component in zip(values, ("Fx", "Fy", "Fz", "Mx", "My", "Mz"), strict=True):
            assert float(shown) == pytest.approx(reaction[component], abs=5.1e-4)


# The cover

def test_the_project_stands_on_the_cover(frame):
    frame.model["project"] = {"name": "Hall 3", "client": "City", "engineer": "A. B.", "date": "May 2026"}
    frame.write(frame.model)
    page = document(frame)
    assert page.texts["h1"] == ["Hall 3"]
    assert page.tables["Project"] == [["Project", "Hall 3"], ["Client", "City"], ["Engineer", "A. B."],
                                      ["Date", "May 2026"]]


def test_without_a_project_the_model_gives_the_title_and_there_is_no_empty_table(frame):
    page = document(frame)
    assert page.texts["h1"] == [frame.model["title"]]
    assert "Project" not in page.tables


def test_texts_of_the_user_are_texts(frame):
    frame.model["title"] = HOSTILE.strip("‮ ")
    frame.model["description"] = HOSTILE + "\x1b[31m\n<b>second</b>"
    frame.model["project"] = {"name": HOSTILE.strip("‮ "), "client": "</td></tr></table>"}
    for kind in ("nodes", "sections", "elements", "combinations", "load_cases"):
        frame.model[kind][0]["name"] = HOSTILE.strip("‮ ")
    frame.write(frame.model)
    frame("check", "frame.json")
    done = frame("report", "frame.json", "--html", "-")
    page = Page(done.stdout)
    assert page.texts["h1"] == [HOSTILE.strip("‮ ")]
    assert "script" not in page.texts and "b" not in page.texts
    assert page.tables["Project"][1] == ["Client", "</td></tr></table>"]
    assert "\x1b" not in done.stdout and "‮" not in done.stdout
    assert page.rows_of("Nodes")[0]["Name"] == HOSTILE.strip("‮ ")


# What the results are of

def test_results_of_some_combinations_are_told_on_the_first_page(frame):
    frame("check", "frame.json", "--combinations", "1")
    done = frame("report", "frame.json", "--html", "frame.html")
    notice = "The results cover a part of the model: elements 1 of 1, combinations 1 of "
    assert done.stderr.startswith(notice)
    text = (frame.folder / "frame.html").read_text(encoding="utf-8")
    assert text.index(notice) < text.index("Contents")


def test_a_document_of_some_elements_says_so(example):
    number = example.page.rows_of(BY_ELEMENT)[-1]["Element"]
    done = example("report", "frame.json", "--html", "-", "--elements", number)
    page = Page(done.stdout)
    assert [row["Element"] for row in page.rows_of(BY_ELEMENT)] == [number]
    assert done.stderr == f"The document is of a part of the elements: {number}\n"
    assert f"The document is of a part of the elements: {number}" in page.texts["p"]


# What it refuses

def refused(frame, *options, status=1, html="frame.html"):
    (frame.folder / "frame.html").write_text(EARLIER, encoding="utf-8")
    before = {path.name: path.read_bytes() for path in frame.folder.iterdir()}
    done = frame("report", "frame.json", "--html", html, *options, status=status)
    assert {path.name: path.read_bytes() for path in frame.folder.iterdir()} == before
    assert done.stdout == "" and done.stderr.count("\n") == 1
    return done.stderr


def test_without_results_it_says_how_to_get_them(frame):
    (frame.folder / "frame.aluresult").unlink()
    assert refused(frame) == ("frame.aluresult: there is no such file; check the model first: "
                              "aluframe check frame.json\n")


def test_results_of_another_state_of_the_model_are_refused(frame):
    frame.model["nodes"][1]["x"] += 0.5
    frame.write(frame.model)
    assert refused(frame) == ("frame.aluresult: these results are of another state of frame.json or its "
                              "forces; check it again\n")


def test_the_model_and_the_results_are_not_written_over(frame):
    assert "frame.json: is the model, which the document would overwrite" in refused(frame, html="frame.json")
    assert "which the document would overwrite" in refused(frame, html="frame.aluresult")


@pytest.mark.parametrize("content", ["notes of mine", "<!DOCTYPE html><title>AluFrame</title>",
                                     "notes on <meta name=generator content='AluFrame calculation document'>"])
def test_another_file_is_not_written_over(frame, content):
    (frame.folder / "notes.html").write_text(content, encoding="utf-8")
    assert refused(frame, html="notes.html") == (
        "notes.html: is no calculation document, which would overwrite it; delete it, or name another file "
        "with --html\n")


def test_an_earlier_document_and_an_empty_file_are_written_over(frame):
    frame("report", "frame.json", "--html", "frame.html", "--detail", "summary")
    (frame.folder / "empty.html").touch()
    for name in ("frame.html", "empty.html"):
        frame("report", "frame.json", "--html", name, "--detail", "full")
        assert "4 Derivations" in Page((frame.folder / name).read_text(encoding="utf-8")).texts["h2"]


def test_a_title_that_fills_the_head_leaves_the_document_recognised(frame):
    frame.model["title"] = "long " * 400
    frame.write(frame.model)
    frame("check", "frame.json")
    for _ in range(2):
        frame("report", "frame.json", "--html", "frame.html")


def test_a_name_without_letters_is_one_message(frame):
    assert refused(frame, html="") == ("--html: the name of the file is empty; name one, or - for standard "
                                       "output\n")


@pytest.mark.parametrize("number", [signal.SIGINT, signal.SIGTERM])
def test_a_document_that_is_interrupted_leaves_the_earlier_file_alone(aluframe, number):
    shutil.copy(ROOT / "examples" / "dome.json", aluframe.folder / "frame.json")
    aluframe("check", "frame.json")
    aluframe.write(EARLIER, "frame.html")
    before = {path.name: path.read_bytes() for path in aluframe.folder.iterdir()}
    process = subprocess.Popen([aluframe.path, "report", "frame.json", "--html", "frame.html", "--detail", "full"],
                               cwd=aluframe.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    while process.poll() is None and {path.name for path in aluframe.folder.iterdir()} == set(before):
        time.sleep(0.002)
    process.send_signal(number)
    output = process.communicate(timeout=120)
    assert (process.returncode, *output) == (3, "", "frame.html: not written: cancelled\n")
    assert {path.name: path.read_bytes() for path in aluframe.folder.iterdir()} == before


def test_a_document_without_derivations_ends_soon_after_an_interruption(aluframe):
    shutil.copy(ROOT / "examples" / "dome.json", aluframe.folder / "frame.json")
    aluframe("check", "frame.json")
    process = subprocess.Popen([aluframe.path, "report", "frame.json", "--html", "-", "--detail", "summary"],
                               cwd=aluframe.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, bufsize=0)
    beginning = process.stdout.read(1)  # the pipe takes a small part of the page, in which the program waits
    process.send_signal(signal.SIGINT)
    rest, messages = process.communicate(timeout=120)
    assert (process.returncode, messages) == (3, b"-: not written: cancelled\n")
    assert beginning + rest[:14] == b"<!DOCTYPE html>"
    assert b'<h3 id="frame">' not in rest and b"</html>" not in rest


def test_what_a_killed_run_has_left_is_removed_by_the_next_document(frame):
    (frame.folder / ".frame.html.aluframe-new").write_text("<!DOCTYPE html>", encoding="utf-8")
    frame("report", "frame.json", "--html", "frame.html")
    assert {path.name for path in frame.folder.iterdir()} == {"frame.json", "frame.aluresult", "frame.html"}


def test_a_folder_that_takes_no_new_file_is_one_message(frame):
    (frame.folder / "kept").mkdir(mode=0o555)
    # Permissions to write count for the superuser, too, without this capability.
    under = ("setpriv", "--bounding-set=-dac_override") if os.geteuid() == 0 else ()
    done = subprocess.run([*under, frame.path, "report", "frame.json", "--html", "kept/frame.html"],
                          capture_output=True, text=True, check=False, cwd=frame.folder, timeout=120)
    assert (done.returncode, done.stdout) == (2, "")
    assert done.stderr == "kept/frame.html: cannot be written: Permission denied\n"
    assert list((frame.folder / "kept").iterdir()) == []


def test_a_place_that_cannot_be_written_is_one_message(frame):
    message = refused(frame, html="nowhere/frame.html", status=2)
    assert message.startswith("nowhere/frame.html: cannot be written: ")
    (frame.folder / "nowhere").mkdir()
    done = frame("report", "frame.json", "--html", "nowhere", status=2)
    assert done.stderr == "nowhere: cannot be written: is a folder\n"


def test_a_full_disk_is_a_failure(frame):
    done = frame("report", "frame.json", "--html", "/dev/full", status=2)
    assert done.stderr == "/dev/full: cannot be written: No space left on device\n"


@pytest.mark.parametrize("option", [("--output", "a.alu"), ("--readable", "a.txt"), ("--units", "kN,m"), ("--open",)])
def test_options_of_the_text_report_do_not_go_with_it(frame, option):
    assert option[0] + " excludes --html" in frame("report", "frame.json", "--html", "a.html", *option,
                                                   status=1).stderr


def test_it_ends_as_strictly_as_a_check(frame):
    for load in frame.model["load_cases"]:
        for uniform in load.get("span", []):
            uniform["value"] *= 100
    frame.write(frame.model)
    frame("check", "frame.json")
    page = document(frame, "--strict", status=4)
    assert any(text.startswith("1 element fails") for text in page.texts["p"])
    assert page.rows_of(BY_ELEMENT)[0]["Verdict"] == "fails"
    assert "; it exceeds 1 in 1 element, in 0 of which no check says so." in " ".join(sum(page.texts.values(), []))


def test_a_frame_that_buckles_is_not_called_sound(aluframe, beam):  # noqa: F811
    # Euler: the pipe of 4 m on two hinges buckles under π²·E·I/L².
    euler = math.pi**2 * 70000 * PIPE_I / 4000**2 / 1000  # kN
    beam["load_cases"] = [{"number": 1, "name": "P", "nodal": [{"nodes": [2], "Fx": -1.25 * euler}]}]
    beam["combinations"] = [{"number": 1, "name": "P", "terms": [{"case": 1}]}]
    aluframe.write(beam)
    aluframe("check", "frame.json")
    page = document(aluframe)
    # 1 / 1.25 = 0.8; less by the shear of the section.
    texts = [text for text in page.texts["li"] if "buckles: at" in text]
    assert len(texts) == 1
    assert float(texts[0].split()[4]) == pytest.approx(0.8, rel=0.02)


def test_safe_strictness_needs_a_second_opinion(frame):
    frame("check", "frame.json", "--second-opinion", "off")
    assert "has none: check the model again" in refused(frame, "--strict=safe")
    assert "The check was made without a second opinion." in document(frame).texts["li"]

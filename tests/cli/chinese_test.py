"""What a person reads is Chinese when it is asked for; what a program reads is not."""

import csv
import json
import os
import re
import shutil
import sqlite3
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
EXAMPLES = sorted((ROOT / "examples").glob("*.json"))
COMMANDS = ["check", "analyse", "buckling", "results", "explain", "validate", "members", "picture",
            "points", "report", "settings", "section"]

# Two English words in a row are a sentence that nobody translated.
ENGLISH = re.compile(r"[A-Za-z]{2,} [a-z]{2,}")


def run(*arguments, cwd=None, language="zh", expected=None):
    command = [os.environ["ALUFRAME"], *map(str, arguments)]
    if language:
        command += ["--lang", language]
    done = subprocess.run(command, cwd=cwd, capture_output=True, text=True, timeout=300,
                          env={**os.environ, "LC_ALL": "C.UTF-8"})
    if expected is not None:
        assert done.returncode in expected, done.stderr
    return done


def names_of(value):
    """Every text of a model: they stay as the user wrote them."""
    if isinstance(value, str):
        yield value
    elif isinstance(value, dict):
        for child in value.values():
            yield from names_of(child)
    elif isinstance(value, list):
        for child in value:
            yield from names_of(child)


def english_in(text, names=()):
    """Lines in which English is left, without what is no text of the program."""
    for name in sorted({name for name in names if len(name) > 2}, key=len, reverse=True):
        text = text.replace(name, "")
    text = re.sub(r"`[^`]*`|aluframe \w+|:[A-Z]+ in \[[^]]*\]|--[a-z-]+(=[A-Za-z]+)?|[\w./-]*\.(json|alu\w*|txt|csv|svg|md)\b|"
                  r"\"[a-z_]+\"(: ?\{?\"?[a-z_]+\"?\}?)*|https?://\S+|\x1b\[\d+m", "", text)
    return [line for line in text.splitlines() if ENGLISH.search(line)]


@pytest.fixture(scope="module", params=EXAMPLES, ids=lambda path: path.stem)
def checked(request, tmp_path_factory):
    """A checked copy of an example, and the names in it."""
    folder = tmp_path_factory.mktemp("chinese")
    model = folder / request.param.name
    shutil.copy(request.param, model)
    for other in (ROOT / "examples").glob("*.csv"):
        shutil.copy(other, folder)
    run("check", model, expected={0})
    return model, list(names_of(json.loads(model.read_text(encoding="utf-8"))))


def leave_out_slow(model, command):
    """The dome takes seconds to analyse: it stands for what its buckling modes have to say."""
    if model.stem == "dome" and command not in (["check"], ["members"], ["results"]):
        pytest.skip("the other examples show it")


@pytest.mark.parametrize("command", [
    ["check"], ["check", "--second-order"], ["check", "--no-buckling", "--second-opinion", "off"],
    ["results"], ["results", "--remarks"], ["results", "--not-checked"], ["results", "--buckling"],
    ["results", "--element", "1"], ["members"], ["validate"], ["settings"], ["buckling"],
    ["analyse", "--show", "summary"], ["explain", "--element", "1"], ["report", "--output", "-"],
    ["picture", "--svg", "-", "--nodes", "--elements", "--axes", "--loads", "1"],
    ["picture", "--svg", "-", "--colour", "ratio"],
], ids=" ".join)
def test_what_commands_show_is_chinese(checked, command):
    model, names = checked
    leave_out_slow(model, command)
    done = run(command[0], model, *command[1:])
    shown = done.stderr
    if command[0] == "report":  # the calculation report itself is that of the design module
        shown += done.stdout[done.stdout.find("docs/behaviour.md"):]
    elif command[0] == "picture":
        shown += "\n".join(re.findall(r">([^<>]+)<", done.stdout))
    else:
        shown += done.stdout
    assert shown.strip()
    assert english_in(shown, names) == []


NAME = "warping constant"  # a text of the program, and what the user calls things


@pytest.fixture(scope="module")
def column(tmp_path_factory):
    """A checked column that buckles, with a name of the user's for everything."""
    model = tmp_path_factory.mktemp("column") / "frame.json"
    model.write_text(json.dumps({
        "format": "aluframe-model", "version": 1, "title": NAME,
        "materials": [{"number": 1, "alloy": "6061-T6", "name": NAME}],
        "sections": [{"number": 1, "name": NAME, "shape": "P", "dimensions": {"D": 100, "t": 8}}],
        "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 2}],
        "supports": [{"node": 1, "restrained": "all"}],
        "elements": [{"number": 5, "nodes": [1, 2], "section": 1, "material": 1}],
        "load_cases": [{"number": 1, "name": NAME, "nodal": [{"nodes": [2], "Fx": 1, "Fz": -100000}]}],
        "combinations": [{"number": 3, "name": NAME, "terms": [{"case": 1}]}]}), encoding="utf-8")
    run("check", model, expected={0})
    return model


OF_A_COLUMN = [["check"], ["check", "--second-order"], ["results"], ["results", "--remarks"],
               ["results", "--not-checked"], ["explain", "--element", "5"], ["buckling"], ["members"], ["settings"],
               ["analyse", "--show", "summary"], ["report", "--html", "-"]]


@pytest.mark.parametrize("command", OF_A_COLUMN, ids=" ".join)
def test_names_of_the_user_stay_and_all_else_is_chinese(column, command):
    shown = {}
    for language in ("en", "zh"):
        done = run(command[0], column, *command[1:], language=language)
        shown[language] = done.stdout + done.stderr
    assert shown["zh"].count(NAME) == shown["en"].count(NAME)
    if "--html" not in command:  # of which other tests look at the texts alone
        assert english_in(shown["zh"], [NAME, str(column)]) == []


def test_kinds_of_remarks_are_chinese(column):
    shown = run("results", column, "--remarks", expected={0}).stdout
    assert "屈曲，单元 5：组合 3 下屈曲，框架失稳：" in shown and "buckling" not in shown
    kept = json.loads(run("results", column, "--remarks", "--format", "json", expected={0}).stdout)
    assert "buckling" in {remark["kind"] for remark in kept}


def test_the_notes_on_a_section_are_chinese_and_its_source_is_kept():
    shown = run("section", "H 300x150x8x12", expected={0}).stdout
    assert "尺寸取自名称，单位 mm" in shown and "dimensions" not in shown
    assert "Iw 的理论值为 0" in run("section", "P 100x3", expected={0}).stdout
    kept = json.loads(run("section", "H 300x150x8x12", "--format", "json", expected={0}).stdout)
    assert kept["source"] == "dimensions in mm, from the name"


def test_settings_are_on_or_off_in_chinese(column):
    shown = run("settings", column, expected={0}).stdout
    assert re.search(r"rib +(开启|关闭)", shown) and re.search(r"seismic +(开启|关闭)", shown)


@pytest.mark.parametrize("command", [[], *([name] for name in COMMANDS)], ids=" ".join)
def test_help_is_chinese(command):
    done = run(*command, "--help", expected={0})
    assert re.search(r"[\u4e00-\u9fff]{4}", done.stdout)
    words = ["MODEL", "FILE", "NUMBER", "VALUE", "OPTIONS", "SUBCOMMAND"]
    assert english_in(done.stdout, words) == []


@pytest.mark.parametrize("arguments", [
    ["check"], ["chek"], ["check", "missing.json"], ["check", "frame.json", "--elements", "x"],
    ["check", "frame.json", "--format", "xml"], ["check", "frame.json", "--unknown"],
    ["results", "frame.json", "--top", "-1"], ["results", "frame.json"],
    ["results", "frame.json", "--element", "1", "--sort", "ratio"],
    ["analyse", "frame.json", "--units", "kN"], ["analyse", "frame.json", "--cases", "99"],
    ["buckling", "frame.json", "--modes", "0"], ["explain", "frame.json"],
    ["explain", "frame.json", "--element", "1"], ["section"], ["section", "H 1x2"],
    ["picture", "frame.json", "--svg", "frame.json"], ["settings", "frame.json", "--set", "x=1"],
    ["report", "missing.json"], ["check", "broken.json"], ["check", "unstable.json"],
], ids=" ".join)
def test_refusals_are_chinese(arguments, tmp_path):
    frame = json.loads((ROOT / "examples/platform-roof.json").read_text(encoding="utf-8"))
    (tmp_path / "frame.json").write_text(json.dumps(frame), encoding="utf-8")
    names = list(names_of(frame))
    del frame["supports"]
    (tmp_path / "unstable.json").write_text(json.dumps(frame), encoding="utf-8")
    frame["nodes"][0]["x"] = "far"
    (tmp_path / "broken.json").write_text(json.dumps(frame), encoding="utf-8")
    done = run(*arguments, cwd=tmp_path)
    assert done.returncode != 0
    assert re.search(r"[\u4e00-\u9fff]{2}", done.stderr), done.stderr
    assert english_in(done.stderr, names) == []


def stored(file):
    """All that a result file says but how long it took and when."""
    with sqlite3.connect(file) as database:
        tables = [row[0] for row in database.execute(
            "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")]
        return {table: database.execute(f"SELECT * FROM {table}").fetchall() for table in tables}


def test_results_do_not_depend_on_the_language(checked, tmp_path):
    model, _ = checked
    run("check", model, "--output", tmp_path / "english.aluresult", language="en", expected={0})
    run("check", model, "--output", tmp_path / "chinese.aluresult", language="zh", expected={0})
    assert stored(tmp_path / "english.aluresult") == stored(tmp_path / "chinese.aluresult")


def without_time(text):
    """JSON or CSV without how long a check took."""
    text = re.sub(r'"seconds":[0-9.e-]+', "", text)
    heading = text.split("\n", 1)[0].split(",")
    if "seconds" not in heading:
        return text
    place = heading.index("seconds")
    return [row[:place] + row[place + 1:] for row in csv.reader(text.splitlines())]


@pytest.mark.parametrize("command", [
    ["check"], ["check", "--no-buckling", "--second-opinion", "off"],
    ["results"], ["results", "--remarks"], ["results", "--not-checked"], ["members"], ["buckling"],
    ["explain", "--element", "1"], ["settings"],
], ids=" ".join)
@pytest.mark.parametrize("form", ["json", "csv"])
def test_what_programs_read_is_the_same(checked, command, form):
    model, _ = checked
    leave_out_slow(model, command)
    arguments = [command[0], model, *command[1:], "--format", form]
    english, chinese = (run(*arguments, language=language) for language in ("en", "zh"))
    assert english.returncode == chinese.returncode
    assert without_time(english.stdout) == without_time(chinese.stdout)


def test_the_environment_says_which_language():
    for variable in ("LC_ALL", "LC_MESSAGES", "LANG"):
        environment = {key: value for key, value in os.environ.items()
                       if key not in ("LC_ALL", "LC_MESSAGES", "LANG")}
        done = subprocess.run([os.environ["ALUFRAME"], "--help"], capture_output=True, text=True,
                              env={**environment, variable: "zh_CN.UTF-8"}, check=True)
        assert "用法" in done.stdout

"""Results, reports and check points are the same to the byte on Windows and on Linux."""

import json
import re
import subprocess
import sys

import pytest

import program_wine
from module_wine import BUILD
from program_wine import EXAMPLES, ROOT, Both

program_wine.require()

sys.path.insert(0, str(ROOT / "tests" / "cli"))
from random_points import random_points  # noqa: E402

# Commands on a checked model. MODEL stands for its file.
COMMANDS = [
    "validate MODEL",
    "results MODEL",
    "results MODEL --sort ratio --format csv",
    "results MODEL --format json",
    "results MODEL --units kN,m",
    "results MODEL --not-checked",
    "results MODEL --remarks",
    "results MODEL --buckling --format json",
    "analyse MODEL",
    "analyse MODEL --format json",
    "deflections MODEL --format json",
    "buckling MODEL --format json",
    "members MODEL",
    "members MODEL --format json",
    "settings MODEL",
    "settings MODEL --format json",
    "picture MODEL --output -",
    "report MODEL --output -",
    "report MODEL --html - --detail governing",
]


@pytest.fixture(scope="module", params=EXAMPLES, ids=lambda path: path.stem)
def checked(request, machine, tmp_path_factory):
    """An example that both systems have checked."""
    both = Both(machine, tmp_path_factory.mktemp(request.param.stem))
    both.copy(request.param)
    both.model = request.param.name
    both.check = both.run("check", both.model)
    return both


def without_time(out):
    """What a check prints, but for how long it took."""
    text, count = re.subn(rb"(?m)^  time +.*\n", b"", out)
    assert count == 1, out
    return text


def test_a_check_ends_and_prints_alike(checked):
    windows, linux = checked.check
    assert (windows.status, windows.err) == (linux.status, linux.err)
    assert without_time(windows.out) == without_time(linux.out)


@pytest.mark.parametrize("command", COMMANDS)
def test_a_command_prints_alike(checked, command):
    done = checked.same(*(checked.model if word == "MODEL" else word for word in command.split()))
    assert done.out or done.err


def test_every_element_has_the_same_results(checked):
    model = json.loads((checked.linux / checked.model).read_text(encoding="utf-8"))
    numbers = [element["number"] for element in model["elements"]]
    for number in numbers[:: max(1, len(numbers) // 5)]:
        checked.same("results", checked.model, "--element", number, "--format", "json")


def test_a_report_and_its_readable_copy_are_the_same_files(checked):
    checked.same("report", checked.model)
    stem = checked.model.removesuffix(".json")
    assert checked.same_file(stem + ".alu")
    assert "强度验算".encode() in checked.same_file(stem + ".txt")


@pytest.mark.parametrize("name", ["H 300x150x8x12", "C 100x50x4x6", "T 100x80x6x8", "P 100x5"])
def test_the_constants_of_a_section_are_the_same(both, name):
    both.same("section", name)
    both.same("section", name, "--format", "json", "--svg", "section.svg")
    both.same_file("section.svg")


def test_the_profiles_are_the_same(both):
    both.same("section", "--list")


def test_twenty_thousand_check_points_have_the_same_answers(both):
    count = 20_000
    lines = "".join(json.dumps(point) + "\n" for point in random_points(count, seed=20071001))
    for folder in (both.windows, both.linux):
        (folder / "points.jsonl").write_text(lines, encoding="utf-8")
    windows, linux = both.run("points", "points.jsonl")
    assert linux.status == 0 and linux.out.count(b"\n") == count
    assert windows.err == linux.err and windows.status == linux.status
    assert windows.out == linux.out, program_wine.first_difference(windows.out, linux.out)


def test_points_come_and_go_through_pipes_as_they_are(both):
    done = both.same("points", "-", given=(ROOT / "examples" / "points.jsonl").read_bytes())
    assert done.out.count(b"\n") == 3 and b"\r" not in done.out


def test_wide_vectors_are_moved_without_alignment():
    """The stack of Windows is aligned to 16 bytes, and wider vectors that are put on it are not."""
    objects = list(BUILD.glob("aluframe/analysis/**/dense_tiles.cpp.obj"))
    assert len(objects) == 3
    for file in objects:
        code = subprocess.run(["x86_64-w64-mingw32-objdump", "-d", str(file)], capture_output=True, text=True,
                              check=True).stdout
        moves = re.findall(r"\tvmov(?:apd|aps|dqa\d*) .*\(.*", code)
        assert not moves, f"{file}: {moves[0]}"

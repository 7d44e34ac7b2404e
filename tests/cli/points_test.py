"""Bare check points, JSON Lines in and out."""

import json
import os
import subprocess

import pytest

from program import IS_SANITIZED, ROOT

# The points of docs/points.md; the first one is worked out there.
EXAMPLE = (ROOT / "examples" / "points.jsonl").read_text(encoding="utf-8").splitlines()[0]


def answers(text):
    return [json.loads(line) for line in text.splitlines()]


@pytest.fixture
def program(aluframe):
    """Runs the program on a text as its standard input."""
    def run(text, status=0):
        done = subprocess.run([aluframe.path, "points"], input=text, capture_output=True, text=True,
                              check=False, timeout=120)
        assert done.returncode == status, f"{done.returncode}\n{done.stdout}\n{done.stderr}"
        return done
    return run


def test_the_documented_example_gives_the_documented_results(program):
    # 50,000/(0.85·1256.637) = 46.8103; i = 40/4, λ = 1000/10 = 100; W = 125,663.7/20 = 6283.185.
    answer = answers(program(EXAMPLE + "\n").stdout)[0]
    assert answer["id"] == "tie" and answer["ret"] == 1
    strength, *unset, slender_y, slender_z = answer["items"]
    assert strength == pytest.approx([50000 / (0.85 * 1256.637), 200], rel=1e-14)
    assert unset == [[0, 0]] * 5
    assert slender_y == slender_z == pytest.approx([100, 400], rel=1e-14)
    assert answer["sectpara"] == pytest.approx([1256.637] + [6283.185] * 3 + [0] * 3, rel=1e-14)
    assert answer["report"][:4] == pytest.approx([400, 0.85 * 1256.637, 200, 0], rel=1e-14)


def test_a_file_is_read_as_standard_input_is(aluframe, program):
    aluframe.write(EXAMPLE + "\n" + EXAMPLE, "two.jsonl")
    from_file = aluframe("points", "two.jsonl").stdout
    assert from_file == program(EXAMPLE + "\n" + EXAMPLE).stdout
    assert len(answers(from_file)) == 2


def test_a_bad_line_is_told_with_its_number_and_the_others_are_checked(program):
    misspelt = EXAMPLE.replace("nShape", "nShap")
    done = program(f"{EXAMPLE}\n\n{misspelt}\n{EXAMPLE}\n", status=1)
    first, bad, last = answers(done.stdout)
    assert first == last and first["ret"] == 1
    assert bad == {"line": 3, "error": '/data/code/sect/nShap: unknown field, did you mean "nShape"?'}
    assert done.stderr == "standard input: 1 lines are no check points, 2 points were checked\n"


def test_a_grade_that_the_code_lacks_is_noted(program):
    done = program(EXAMPLE.replace("6061-T6", "6061-t6"))
    assert answers(done.stdout)[0]["items"][0][1] == pytest.approx(240 / 1.2)
    assert "internal inconsistency (src\\tz_alu\\alucode_gb50429_07:" in done.stderr


def test_what_is_not_finite_is_a_text(program):
    # Without a length factor the slenderness is 0, without an area it divides by nothing.
    point = json.loads(EXAMPLE)
    point["data"]["code"]["sect"]["dIyy"] = -1
    answer = answers(program(json.dumps(point)).stdout)[0]
    assert answer["items"][6] == ["nan", 400]


@pytest.mark.parametrize("path", ["missing.jsonl", "."])
def test_an_input_that_cannot_be_opened_is_named(aluframe, path):
    done = aluframe("points", path, status=1)
    assert done.stdout == "" and done.stderr.startswith(f"{path}: cannot be opened: ")


def test_a_full_disk_is_told(aluframe, program):
    with open("/dev/full", "w", encoding="utf-8") as full:
        done = subprocess.run([aluframe.path, "points"], input=EXAMPLE, stdout=full,
                              stderr=subprocess.PIPE, text=True, check=False, timeout=120)
    assert done.returncode == 2
    assert done.stderr == "standard output: cannot be written\n"


def test_a_script_can_talk_with_it_line_by_line(aluframe):
    with subprocess.Popen([aluframe.path, "points", "-"], stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE, text=True) as talk:
        for newtons in (1000, 2000):
            talk.stdin.write(EXAMPLE.replace("50000", str(newtons)) + "\n")
            talk.stdin.flush()
            demand = json.loads(talk.stdout.readline())["items"][0][0]
            assert demand == pytest.approx(newtons / (0.85 * 1256.637), rel=1e-14)
        talk.stdin.close()
        assert talk.wait(timeout=60) == 0


def peak_memory(program, lines):
    """Kilobytes that the program used at most for so many points."""
    with subprocess.Popen([program, "points"], stdin=subprocess.PIPE,
                          stdout=subprocess.DEVNULL) as run:
        block = (EXAMPLE + "\n").encode() * 100
        for _ in range(lines // 100):
            run.stdin.write(block)
        run.stdin.close()
        _, status, usage = os.wait4(run.pid, 0)
        run.returncode = os.waitstatus_to_exitcode(status)
    assert run.returncode == 0
    return usage.ru_maxrss


@pytest.mark.skipif(IS_SANITIZED, reason="sanitizers keep memory that is given back")
def test_memory_does_not_grow_with_the_input(aluframe):
    # 20,000 lines are 12 MB of text. Two runs of one size differ by well under 2 MB.
    assert peak_memory(aluframe.path, 20_000) < peak_memory(aluframe.path, 100) + 2_000

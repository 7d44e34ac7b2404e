"""A check that is taken up where an earlier one ended: the same file, to the last row, as one run makes.

Every expectation is what one run of the same command that nothing interrupted has made.
"""

import csv
import json
import re
import resource
import signal
import sqlite3
import subprocess
import time
from pathlib import Path

import pytest

from program import ROOT, Program
from tool_runner import run as run_tool

RESULTS = "frame.aluresult"
PARTIAL = f"{RESULTS}.partial"
INPUT_ERROR, FAILURE, CANCELLED = 1, 2, 3
OF_ELEMENTS = ("record", "governing", "not_checked", "safe", "unchecked", "assertion")


def rows_of(path):
    """All tables with all their rows, in the order of their keys."""
    with sqlite3.connect(path) as database:
        return list(database.iterdump())


def timeless(text):
    """What a run says, without how long it took."""
    text = re.sub(r"^  time .*\n", "", text, flags=re.M)
    text = re.sub(r'"seconds":[0-9.e+-]+', "", text)
    if text.startswith("outcome,"):
        header, *lines = csv.reader(text.splitlines())
        place = header.index("seconds")
        return [line[:place] + line[place + 1:] for line in lines]
    return text


def without_resumption(text):
    """Messages of a resumed run, without the line that says that it is one."""
    lines = text.splitlines(keepends=True)
    assert re.fullmatch(r"\S+: \d+ of \d+ elements? taken up, \d+ to be checked\n", lines[0]), text
    return "".join(lines[1:])


def reports_of(aluframe):
    aluframe("report", "frame.json", "--readable", "frame.txt")
    return [(aluframe.folder / name).read_bytes() for name in ("frame.alu", "frame.txt")]


def finished_in(path):
    with sqlite3.connect(path) as database:
        return [row[0] for row in database.execute("SELECT element FROM finished ORDER BY sequence")]


def cut(whole, partial, count):
    """What a run that was killed after so many elements leaves of the whole results."""
    partial.write_bytes(whole.read_bytes())
    with sqlite3.connect(partial) as database:
        database.execute("UPDATE run SET state = 'running'")
        database.execute("DELETE FROM seal")
        database.execute("DELETE FROM remark")
        database.execute("DELETE FROM finished WHERE sequence > ?", (count,))
        for table in OF_ELEMENTS:
            database.execute(f"DELETE FROM {table} WHERE element NOT IN (SELECT element FROM finished)")
        database.execute("DELETE FROM element WHERE number NOT IN (SELECT element FROM finished)")


class Case:
    """A model and a check of it, run once without an interruption."""

    def __init__(self, folder, model, *options):
        self.aluframe = Program(folder)
        self.folder = folder
        self.command = ("check", "frame.json", "--progress", "never", *options)
        self.aluframe.write(model)
        done = self.aluframe(*self.command)
        self.out, self.err = timeless(done.stdout), done.stderr
        self.results = folder / RESULTS
        self.partial = folder / PARTIAL
        self.whole = folder / "whole.aluresult"
        self.reports = reports_of(self.aluframe)
        self.aluframe(*self.command)  # a report may have added elements
        self.results.rename(self.whole)
        self.rows = rows_of(self.whole)

    def resume(self, *options):
        return self.aluframe(*self.command, "--resume", *options)

    def require_as_uninterrupted(self, done):
        assert timeless(done.stdout) == self.out
        assert without_resumption(done.stderr) == self.err
        assert rows_of(self.results) == self.rows
        assert not self.partial.exists()
        assert reports_of(self.aluframe) == self.reports


def example(name):
    return (ROOT / "examples" / name).read_text(encoding="utf-8")


def generated(kind, elements, combinations, tmp_path):
    run_tool("generate_model.py", "--kind", kind, "--elements", elements, "--combinations", combinations,
             "--output", tmp_path / "generated.json")
    return (tmp_path / "generated.json").read_text()


EXAMPLES = sorted(path.name for path in (ROOT / "examples").glob("*.json"))


@pytest.mark.parametrize("name", EXAMPLES)
def test_wherever_an_example_is_interrupted_the_end_is_that_of_one_run(tmp_path, name):
    case = Case(tmp_path, example(name))
    elements = finished_in(case.whole)
    counts = range(len(elements) + 1) if len(elements) < 12 else [0, 1, 2, len(elements) // 2, len(elements)]
    for count in counts:
        cut(case.whole, case.partial, count)
        done = case.resume()
        kept = min(count, len(elements) - 1)
        assert f"{kept} of {len(elements)} element" in done.stderr
        case.require_as_uninterrupted(done)


@pytest.mark.parametrize("options", [
    ("--second-opinion", "off"), ("--elements", "3,5-9,12"), ("--combinations", "1-3"), ("--second-order",),
    ("--format", "json"), ("--format", "csv")], ids=lambda options: options[0] + options[-1])
def test_a_check_with_options_is_resumed_with_them(tmp_path, options):
    case = Case(tmp_path, example("mullion-transom.json"), *options)
    for count in (1, 4, 6):
        cut(case.whole, case.partial, count)
        case.require_as_uninterrupted(case.resume())


# Torsion, shear alone, bending beside tension and noise: what remarks are made of, in several elements;
# the second has a section that the checks do not cover, the fourth no forces at all.
def beams_with_remarks(pipe_beam):
    model = json.loads(json.dumps(pipe_beam))
    model["nodes"] = [{"number": n, "x": n, "y": 0, "z": 3} for n in range(1, 10)]
    model["supports"] = [{"node": n, "restrained": ["Dx", "Dy", "Dz", "Rx"]} for n in range(1, 10)]
    model["elements"] = [{"number": n, "nodes": [n, n + 1], "section": 1, "material": 1} for n in range(1, 9)]
    states = {1: [0, 0, 10, 3, 5, 0], 2: [4, 0, 1, 0.5, 5, 0], 3: [0, 8, 0, 0, 0, 0], 5: [1e-6, 0, 1, 0, 7, 0],
              6: [30, 0, 1, 4, 5, 0], 7: [0, 0, 0, 6, 0, 0], 8: [-20, 0, 1, 0.1, 2, 1]}
    model["forces"] = [{"element": n, "case": case, "values": [[value * case for value in state]] * 5}
                       for n, state in states.items() for case in (1, 2)]
    return model


def test_remarks_and_what_is_not_checked_are_those_of_one_run(tmp_path, pipe_beam):
    case = Case(tmp_path, beams_with_remarks(pipe_beam))
    with sqlite3.connect(case.whole) as database:
        kinds = {row[0] for row in database.execute("SELECT kind FROM unchecked")}
        assert kinds == {"C1", "C2", "C5", "C6"}
        assert database.execute("SELECT count(*) FROM not_checked WHERE element = 4").fetchone() == (1,)
    for count in range(9):
        cut(case.whole, case.partial, count)
        case.require_as_uninterrupted(case.resume())


@pytest.fixture(scope="module")
def large(tmp_path_factory):
    """A check of about a second and a dozen transactions."""
    folder = tmp_path_factory.mktemp("large")
    return Case(folder, generated("grid", 2000, 30, folder))


def interrupt(case, number, seconds, *options):
    """A run that a signal ends."""
    process = subprocess.Popen([case.aluframe.path, *case.command, *options], cwd=case.folder,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    deadline = time.monotonic() + 60
    while not case.partial.exists() and process.poll() is None and time.monotonic() < deadline:
        time.sleep(0.002)
    if "--resume" in options:  # which has taken up what was there
        process.stderr.readline()
    time.sleep(seconds)
    process.send_signal(number)
    process.communicate(timeout=120)
    return process.returncode


def leave_partial(case, number, seconds, *options):
    """Runs until one that was interrupted has left something."""
    for _ in range(20):
        case.results.unlink(missing_ok=True)
        interrupt(case, number, seconds, *options)
        if case.partial.exists():
            return
        seconds *= 0.7
    pytest.fail("no run could be interrupted")


@pytest.mark.parametrize("number", [signal.SIGINT, signal.SIGTERM, signal.SIGKILL])
@pytest.mark.parametrize("seconds", [0.15, 0.4])
def test_a_run_that_a_signal_has_ended_is_resumed(large, number, seconds):
    leave_partial(large, number, seconds)
    large.require_as_uninterrupted(large.resume())


def test_a_resumed_run_that_is_interrupted_again_is_resumed_again(large):
    leave_partial(large, signal.SIGKILL, 0.15)
    counts = []
    for number in (signal.SIGINT, signal.SIGKILL, signal.SIGTERM):
        large.aluframe("results", PARTIAL)  # rolls back what a kill has left half written
        counts.append(len(finished_in(large.partial)))
        interrupt(large, number, 0.1, "--resume")
        if not large.partial.exists():
            pytest.skip("the machine is too fast: the run has ended")
    large.aluframe("results", PARTIAL)
    counts.append(len(finished_in(large.partial)))
    assert counts == sorted(counts)
    assert counts[-1] > counts[0]
    large.require_as_uninterrupted(large.resume())


def test_a_run_on_a_full_disk_is_resumed(large):
    large.results.unlink(missing_ok=True)
    size = large.whole.stat().st_size // 3
    done = subprocess.run([large.aluframe.path, *large.command], cwd=large.folder, capture_output=True, text=True,
                          check=False, timeout=120,
                          preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size)))
    assert done.returncode == FAILURE, done
    large.aluframe("results", PARTIAL)
    assert len(finished_in(large.partial)) > 100
    large.require_as_uninterrupted(large.resume())


def test_earlier_results_stay_until_the_resumed_run_is_whole(large):
    leave_partial(large, signal.SIGKILL, 0.2)
    large.results.write_bytes(large.whole.read_bytes())
    interrupt(large, signal.SIGKILL, 0.05, "--resume")
    assert large.results.read_bytes() == large.whole.read_bytes()
    if large.partial.exists():
        large.require_as_uninterrupted(large.resume())


def test_whole_results_that_could_not_be_put_in_place_are(tmp_path):
    case = Case(tmp_path, example("mullion-transom.json"))
    case.partial.write_bytes(case.whole.read_bytes())
    case.require_as_uninterrupted(case.resume())


def test_the_result_file_may_stand_elsewhere_and_be_waited_for(tmp_path):
    case = Case(tmp_path, example("mullion-transom.json"))
    (tmp_path / "elsewhere").mkdir()
    other = tmp_path / "elsewhere" / "other.aluresult"
    case.aluframe(*case.command, "--output", other)
    rows = rows_of(other)
    cut(other, Path(f"{other}.partial"), 5)
    other.unlink()
    done = case.resume("--output", other, "--wait")
    assert "5 of " in done.stderr
    assert rows_of(other) == rows


def test_a_check_without_the_option_begins_anew(tmp_path):
    case = Case(tmp_path, example("mullion-transom.json"))
    cut(case.whole, case.partial, 5)
    done = case.aluframe(*case.command)
    assert done.stderr == case.err
    assert rows_of(case.results) == case.rows and not case.partial.exists()


def test_elements_that_were_begun_are_checked_again(tmp_path):
    """Records without their end, as a run that fails in the middle of an element leaves them."""
    case = Case(tmp_path, example("mullion-transom.json"))
    cut(case.whole, case.partial, 5)
    following = finished_in(case.whole)[5]
    with sqlite3.connect(case.partial) as database:
        database.execute("ATTACH ? AS whole", (str(case.whole),))
        for table, key in (("element", "number"), ("record", "element")):
            database.execute(f"INSERT INTO {table} SELECT * FROM whole.{table} WHERE {key} = ?", (following,))
    done = case.resume()
    assert "5 of " in done.stderr
    case.require_as_uninterrupted(done)


# --- refusals ---

@pytest.fixture
def interrupted(tmp_path):
    case = Case(tmp_path, example("mullion-transom.json"))
    cut(case.whole, case.partial, 5)
    return case


def require_refused(case, message, *options, command=None):
    before = case.partial.read_bytes() if case.partial.exists() else None
    done = case.aluframe(*(command or case.command), "--resume", *options, status=INPUT_ERROR)
    assert done.stdout == ""
    assert re.fullmatch(message + "\n", done.stderr), done.stderr
    assert (case.partial.read_bytes() if case.partial.exists() else None) == before
    assert not case.results.exists()


def refusal(reason):
    return rf"frame\.aluresult\.partial: cannot be taken up: {reason}; check without --resume to begin anew"


@pytest.mark.parametrize("options, reason", [
    (("--elements", "1-9"), r"elements: found 1-\d+, wanted 1-9"),
    (("--combinations", "1"), r"combinations: found 1-.*, wanted 1"),
    (("--second-order",), "second order: found not asked for, wanted asked for"),
    (("--second-opinion", "off"), r"second opinion: found none, wanted off \(--second-opinion off\)"),
])
def test_other_options_are_refused(interrupted, options, reason):
    require_refused(interrupted, refusal(reason), *options)


def edited(case, edit):
    model = json.loads((case.folder / "frame.json").read_text(encoding="utf-8"))
    edit(model)
    case.aluframe.write(model)


def test_another_title_is_refused(interrupted):
    edited(interrupted, lambda model: model.update(title="Another"))
    require_refused(interrupted, refusal("title of the model: found .*, wanted Another"))


def test_another_setting_is_refused(interrupted):
    interrupted.aluframe("settings", "frame.json", "--set", "safety-class=1")
    require_refused(interrupted, refusal(r"safety class: found 2, gamma0 1 .*, wanted 1, gamma0 1\.1 \(given\)"))


def test_another_load_is_refused(interrupted):
    def change(model):
        model["load_cases"][0]["self_weight"] = 1.001
    edited(interrupted, change)
    require_refused(interrupted, refusal(
        "state of the model or its given forces: found [0-9a-f]{16}, wanted [0-9a-f]{16}"))


def test_another_name_of_a_combination_is_refused(interrupted):
    def change(model):
        model["combinations"][0]["name"] = "other"
    edited(interrupted, change)
    require_refused(interrupted, refusal('combination 1: found ".*", wanted "other"'))


def test_another_file_of_the_model_is_refused(interrupted):
    (interrupted.folder / "frame.json").rename(interrupted.folder / "other.json")
    command = ("check", "other.json", "--output", RESULTS)
    require_refused(interrupted, refusal("model file: found frame.json, wanted other.json"), command=command)


@pytest.mark.parametrize("column, reason", [
    ("program", r"program: found other \(build [0-9a-f]{16}\), wanted aluframe \S+ \(build [0-9a-f]{16}\)"),
    ("build", r"program: found aluframe \S+ \(build other\), wanted aluframe \S+ \(build [0-9a-f]{16}\)"),
    ("forces_digest", "state of the forces: found other, wanted [0-9a-f]{32}"),
    ("forces_file", "file of forces: found other, wanted none"),
    ("code", "code: found other, wanted GB 50429-2007"),
])
def test_a_run_of_another_kind_is_refused(interrupted, column, reason):
    with sqlite3.connect(interrupted.partial) as database:
        database.execute(f"UPDATE run SET {column} = 'other'")
    require_refused(interrupted, refusal(reason))


def test_where_nothing_is_left_the_message_says_so(interrupted):
    interrupted.partial.unlink()
    require_refused(interrupted, r"frame\.aluresult\.partial: there is no such file, no run has left anything to take "
                                 r"up; check without --resume")


def test_beside_whole_results_the_message_says_so(interrupted):
    interrupted.partial.unlink()
    interrupted.aluframe(*interrupted.command)
    done = interrupted.aluframe(*interrupted.command, "--resume", status=INPUT_ERROR)
    assert done.stderr == (
        "frame.aluresult.partial: there is no such file, no run has left anything to take up; frame.aluresult "
        "holds the results of a run that went through; check without --resume\n")


def test_a_partial_file_of_an_earlier_format_is_refused(interrupted):
    with sqlite3.connect(interrupted.partial) as database:
        database.execute("PRAGMA user_version = 4")
    require_refused(interrupted, refusal("is a result file of format version 4, this program reads version 6"))


@pytest.mark.parametrize("content, reason", [
    (b"", "its run ended before it had stored anything"), (b"a drawing", "is not a result file")])
def test_another_file_in_that_place_is_refused(interrupted, content, reason):
    interrupted.partial.write_bytes(content)
    require_refused(interrupted, refusal(reason))


DAMAGED = refusal("is damaged: .*")


@pytest.mark.parametrize("statement", [
    "UPDATE governing SET ratio = ratio * 1.5 WHERE element = 1",
    "UPDATE governing SET position = position + 1 WHERE element = 1",
    "DELETE FROM governing WHERE element = 2",
    "UPDATE safe SET safe_ratio = 0.1 WHERE element = 3",
    "UPDATE safe SET item_name = 'strength ' WHERE element = 3",
    "DELETE FROM safe WHERE element = 1",
    "UPDATE element SET records = records - 1 WHERE number = 2",
    "UPDATE element SET sequence = 99 WHERE number = 5",
    "UPDATE finished SET checked_positions = 1 WHERE element = 1",
    "UPDATE finished SET sequence = 9 WHERE element = 5",
    "DELETE FROM finished WHERE element = 2",
    "DELETE FROM record WHERE element = 2",
    "UPDATE record SET data = zeroblob(length(data)) WHERE element = 4",
    "INSERT INTO not_checked VALUES (NULL, 1, NULL, 'more', NULL, NULL, NULL, NULL, NULL)",
    "INSERT INTO assertion VALUES (1, 'a:1', 1)",
    "INSERT INTO unchecked VALUES (1, 9, 'C6', 1.0, 1, 0, 0.5, NULL, NULL, NULL, NULL)",
    "UPDATE run SET version = 7",
    "UPDATE run SET model_states = 1",
    "DELETE FROM envelope_state",
], ids=lambda statement: statement[:40])
def test_damage_is_refused(interrupted, statement):
    with sqlite3.connect(interrupted.partial) as database:
        changed = database.execute(statement).rowcount
    if changed == 0:
        pytest.skip("the example has no such row")
    require_refused(interrupted, DAMAGED)


def test_a_truncated_file_is_refused(interrupted):
    content = interrupted.partial.read_bytes()
    interrupted.partial.write_bytes(content[:len(content) * 2 // 3])
    done = interrupted.aluframe(*interrupted.command, "--resume", status=INPUT_ERROR)
    assert re.fullmatch(refusal("is (damaged.*|not a result file)") + "\n", done.stderr), done.stderr


def test_a_run_that_is_going_on_is_not_taken_up(large):
    large.results.unlink(missing_ok=True)
    process = subprocess.Popen([large.aluframe.path, *large.command], cwd=large.folder,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    while not large.partial.exists() and process.poll() is None:
        time.sleep(0.002)
    process.send_signal(signal.SIGSTOP)
    try:
        done = large.aluframe(*large.command, "--resume", status=FAILURE)
        assert "another run is writing this file" in done.stderr
    finally:
        process.send_signal(signal.SIGCONT)
        process.wait(timeout=120)
    assert rows_of(large.results) == large.rows


def test_what_is_refused_can_be_checked_anew(interrupted):
    require_refused(interrupted, refusal("elements: .*"), "--elements", "1-9")
    interrupted.aluframe(*interrupted.command, "--elements", "1-9")
    assert not interrupted.partial.exists() and interrupted.results.exists()

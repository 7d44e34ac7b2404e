"""Whatever ends a check, and however often, `check --resume` ends as one run does, or says why it cannot."""

import sqlite3
import time
from collections import Counter
from dataclasses import replace

import pytest

from faults import strange_ends
from flows import Flows, QUIET, ended
from workbench import IS_LONG, RESULTS, amount, chance_of, lay_out, run

PARTIAL = f"{RESULTS}.partial"
# Of a run that was killed before it had laid out its file.
NOTHING_YET = ("there is no such file", "its run ended before it had stored anything", "is not a result file",
               "is damaged")


def rows_of(path):
    with sqlite3.connect(path) as database:
        return list(database.iterdump())


@pytest.fixture(scope="module")
def check(tmp_path_factory):
    """A check of several transactions."""
    return Flows(tmp_path_factory.mktemp("rehearsal"), elements=1500, combinations=20).check


@pytest.fixture(scope="module")
def whole(check, tmp_path_factory):
    folder = tmp_path_factory.mktemp("whole")
    lay_out(folder, check.after)
    return rows_of(folder / RESULTS)


def resumed(flow):
    return replace(flow, command=(*flow.command, "--resume"))


def require_end_of_one_run(flow, folder, whole_rows):
    """@return how the check was brought to its end"""
    if (folder / RESULTS).read_bytes() == flow.after[RESULTS] and not (folder / PARTIAL).exists():
        return "had ended"
    done = run(folder, *flow.command, "--resume")
    if done.status == 1:
        assert any(text in done.err for text in NOTHING_YET), done
        run(folder, *flow.command, status=0)
        assert flow.has_cleaned_up(folder)
        return "began anew"
    assert done.status == 0 and done.err.splitlines()[1:] == flow.messages, done
    assert rows_of(folder / RESULTS) == whole_rows
    assert not (folder / PARTIAL).exists() and not (folder / f"{PARTIAL}-journal").exists()
    return "nothing was stored" if " 0 of " in done.err else "resumed"


def kill_during(flow, folder, seconds):
    """Kills a run so long after it has begun to write."""
    lock = folder / f".{RESULTS}.aluframe-lock"
    lock.unlink(missing_ok=True)  # of a killed run
    process = flow.start(folder, **QUIET)
    while not lock.exists() and process.poll() is None:
        time.sleep(0.001)
    time.sleep(seconds)
    process.kill()
    ended(process)


def test_a_killed_check_is_resumed_to_the_end_of_one_run(check, whole, tmp_path, tell):
    flow = check
    chance = chance_of("resumed kills")
    outcomes = Counter()
    for _ in range(amount(12, 400)):
        lay_out(tmp_path, flow.before)
        kill_during(flow, tmp_path, chance.uniform(0, 0.8 * flow.seconds))
        while (tmp_path / PARTIAL).exists() and chance.random() < 0.5:
            kill_during(resumed(flow), tmp_path, chance.uniform(0, 0.8 * flow.seconds))
        outcomes[require_end_of_one_run(flow, tmp_path, whole)] += 1
    tell(f"resumed after kills: {dict(outcomes)}")


def chosen(calls):
    return calls if IS_LONG else list({(call.name, call.file): call for call in calls}.values())


def half_done(flow, folder):
    """The folder with what a check leaves that was through with half of the elements."""
    lay_out(folder, flow.after)
    (folder / RESULTS).rename(folder / PARTIAL)
    with sqlite3.connect(folder / PARTIAL) as database:
        count = database.execute("SELECT count(*) / 2 FROM finished").fetchone()
        database.execute("UPDATE run SET state = 'running'")
        database.execute("DELETE FROM seal")
        database.execute("DELETE FROM finished WHERE sequence > ?", count)
        database.execute("DELETE FROM not_checked WHERE element NOT IN (SELECT element FROM finished)")
    partial = (folder / PARTIAL).read_bytes()
    return replace(resumed(flow), before=flow.before | {PARTIAL: partial})


@pytest.mark.parametrize("kind", ["kill", "EIO", "full"])
def test_a_fault_in_any_call_of_a_resumed_check_costs_no_result(small_flows, faulty, tell, kind):
    lay_out(faulty.folder, small_flows.check.after)
    whole_rows = rows_of(faulty.folder / RESULTS)
    flow = half_done(small_flows.check, faulty.folder)
    lay_out(faulty.folder, flow.before)
    done, calls = faulty(flow)
    assert done.status == 0 and rows_of(faulty.folder / RESULTS) == whole_rows, done
    outcomes = Counter()
    for call in chosen(calls):
        lay_out(faulty.folder, flow.before)
        done, _ = faulty(flow, call.number, kind)
        if kind != "kill":
            assert strange_ends(done) == [], (call, done)
        results = (faulty.folder / RESULTS).read_bytes()
        assert results == flow.before[RESULTS] or rows_of(faulty.folder / RESULTS) == whole_rows, (call, done)
        if done.status == 0:
            assert rows_of(faulty.folder / RESULTS) == whole_rows, (call, done)
            outcomes["done"] += 1
        elif (faulty.folder / PARTIAL).exists():
            assert run(faulty.folder, *flow.command, status=0).err, call
            assert rows_of(faulty.folder / RESULTS) == whole_rows, (call, done)
            outcomes["resumed"] += 1
        else:  # the fault came after the file had taken its place
            assert rows_of(faulty.folder / RESULTS) == whole_rows, (call, done)
            outcomes["in place"] += 1
    tell(f"a resumed check, {kind}: {dict(outcomes)}")


def test_a_flipped_bit_of_partial_results_is_found_or_changes_nothing(small_flows, tmp_path, tell):
    lay_out(tmp_path, small_flows.check.after)
    whole_rows = rows_of(tmp_path / RESULTS)
    flow = half_done(small_flows.check, tmp_path)
    partial = flow.before[PARTIAL]
    held = [place for place, byte in enumerate(partial) if byte != 0]
    chance = chance_of("flipped bits of partial results")
    outcomes = Counter()
    for number in range(amount(60, 1000)):
        place = chance.choice(held) if number % 4 else chance.randrange(len(partial))
        bit = 1 << chance.randrange(8)
        damaged = partial[:place] + bytes([partial[place] ^ bit]) + partial[place + 1:]
        lay_out(tmp_path, flow.before | {PARTIAL: damaged})
        done = run(tmp_path, *flow.command)
        if done.status == 0:
            assert rows_of(tmp_path / RESULTS) == whole_rows, (place, bit)
            assert not (tmp_path / PARTIAL).exists()
        else:
            assert done.status == 1 and len(done.err.splitlines()) == 1, (place, bit, done)
            assert (tmp_path / RESULTS).read_bytes() == flow.before[RESULTS]
        outcomes["refused" if done.status else "the same"] += 1
    tell(f"flipped bits of partial results: {dict(outcomes)}")

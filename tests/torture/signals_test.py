"""Signals at every stage of a run, readers that go away, and files that may not grow."""

import json
import resource
import signal
import subprocess
import time
from collections import Counter

import pytest

from workbench import PROGRAM, RESULTS, amount, chance_of, end_of, lay_out, run

PARTIAL = f"{RESULTS}.partial"
CANCELLED = 3
BEFORE_THE_RUN = "the signal came before the run"


def signal_during(flow, folder, number, seconds, **options):
    process = flow.start(folder, **options)
    time.sleep(seconds)
    process.send_signal(number)
    return end_of(process)


def governing(folder, file):
    """Rows of governing checks, without what the end of a run adds to them."""
    rows = json.loads(run(folder, "results", file, "--format", "json", status=0).out)
    return {(row["element"], row["item"], row["demand"], row["capacity"]) for row in rows}


def require_partial_of(folder, whole):
    """What was checked before the end has the results of the whole run."""
    if (folder / PARTIAL).exists():
        assert governing(folder, PARTIAL) <= whole


def require_end(flow, folder, number, done, whole):
    """@return how the run ended"""
    assert flow.problems_in(folder) == [], done
    if done.status == -number:  # not yet taken care of, as nothing is begun
        assert set(flow.before) == {path.name for path in folder.iterdir()}
        return BEFORE_THE_RUN
    if done.status == CANCELLED:
        assert (folder / RESULTS).read_bytes() == flow.before[RESULTS]
        assert sum("cancelled" in line for line in done.err.splitlines()) == 1, done
        require_partial_of(folder, whole)
        return "cancelled"
    assert done.status == 0 and flow.has_cleaned_up(folder), done
    return "done"


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])
def test_a_signal_cancels_and_keeps_the_earlier_results(long_flows, tmp_path, tell, number):
    flow = long_flows.check
    chance = chance_of(f"signal {number}")
    lay_out(tmp_path, flow.after)
    whole = governing(tmp_path, RESULTS)
    outcomes = Counter()
    for _ in range(amount(12, 100)):
        lay_out(tmp_path, flow.before)
        done = signal_during(flow, tmp_path, number, chance.uniform(0, 1.1 * flow.seconds))
        outcomes[require_end(flow, tmp_path, number, done, whole)] += 1
        run(tmp_path, *flow.command, status=0)
        assert flow.has_cleaned_up(tmp_path)
    tell(f"{signal.Signals(number).name}: {dict(outcomes)}")


def test_a_run_that_ignores_the_end_of_the_terminal_goes_on(long_flows, tmp_path):
    flow = long_flows.check
    chance = chance_of("nohup")
    for _ in range(amount(4, 30)):
        lay_out(tmp_path, flow.before)
        seconds = chance.uniform(0, 0.8 * flow.seconds)
        done = signal_during(flow, tmp_path, signal.SIGHUP, seconds,
                             preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        assert done.status == 0 and flow.has_cleaned_up(tmp_path), done


def test_a_reader_that_has_seen_enough_ends_no_command_by_a_signal(long_flows, tmp_path):
    lay_out(tmp_path, long_flows.check.after)
    line = f"'{PROGRAM}' results frame.json --format csv | head -1; echo ${{PIPESTATUS[0]}}"
    done = subprocess.run(["bash", "-c", line], cwd=tmp_path, capture_output=True, text=True, check=False,
                          timeout=120)
    header, status = done.stdout.splitlines()
    assert header.startswith("element,") and status == "2"
    assert done.stderr.endswith("standard output: cannot be written\n")


@pytest.mark.parametrize("name", ["check", "report", "settings", "results"])
def test_a_limit_on_file_sizes_is_told_and_costs_no_file(small_flows, tmp_path, name):
    flow = small_flows.named(name)
    largest = max(len(flow.after[output]) for output in flow.outputs)
    for limit in (0, 1000, largest // 3, largest - 1):
        lay_out(tmp_path, flow.before)
        done = end_of(flow.start(
            tmp_path, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))))
        assert done.status == 2 and flow.problems_in(tmp_path) == [], (limit, done)
        assert len([line for line in done.err.splitlines() if line not in flow.messages]) == 1, done

"""A run that is killed leaves the earlier file or the new one, whole, and the next run cleans up."""

import time
from collections import Counter

import pytest

from flows import QUIET, ended
from workbench import RESULTS, amount, chance_of, lay_out, run

KILLS = [("check", 12, 400), ("report", 12, 400), ("settings", 10, 200)]


def kill_during(flow, folder, seconds):
    process = flow.start(folder, **QUIET)
    time.sleep(seconds)
    process.kill()
    ended(process)


def outcome_of(flow, folder):
    """Which outputs are new, as letters: "-n" for an earlier one and a new one."""
    return "".join("n" if (folder / name).read_bytes() == flow.after[name] else "-" for name in flow.outputs)


def require_readable(folder):
    """Whole results are shown, partial ones too unless they were not laid out yet."""
    if (folder / RESULTS).exists():
        run(folder, "results", RESULTS, "--format", "json", status=0)
    if (folder / f"{RESULTS}.partial").exists():
        assert run(folder, "results", f"{RESULTS}.partial", "--format", "json").status in (0, 1)


def require_clean_next_run(flow, folder):
    # An output that is new already need not be written again, and the killed run's lock, which holds
    # nobody up, stays until it is.
    for name in flow.outputs:
        if (folder / name).exists() and (folder / name).read_bytes() == flow.after[name]:
            (folder / f".{name}.aluframe-lock").unlink(missing_ok=True)
    done = run(folder, *flow.command, status=0)
    assert flow.has_cleaned_up(folder), (sorted(path.name for path in folder.iterdir()), done.err)


@pytest.mark.parametrize("name, short, long", KILLS, ids=[row[0] for row in KILLS])
def test_a_kill_leaves_the_earlier_file_or_the_new_one(long_flows, tmp_path, tell, name, short, long):
    flow = long_flows.named(name)
    chance = chance_of(f"kill {name}")
    outcomes = Counter()
    for number in range(amount(short, long)):
        lay_out(tmp_path, flow.before)
        seconds = chance.uniform(0, 1.25 * flow.seconds)
        kill_during(flow, tmp_path, seconds)
        assert flow.problems_in(tmp_path) == [], f"kill {number}, after {seconds:.4f} s"
        outcomes[outcome_of(flow, tmp_path)] += 1
        require_readable(tmp_path)
        require_clean_next_run(flow, tmp_path)
    tell(f"{name}: {dict(outcomes)}")


def test_a_kill_without_an_earlier_file_leaves_none_or_the_new_one(long_flows, tmp_path):
    flow = long_flows.check
    chance = chance_of("kill first check")
    for number in range(amount(5, 50)):
        lay_out(tmp_path, {"frame.json": flow.before["frame.json"]})
        kill_during(flow, tmp_path, chance.uniform(0, 1.25 * flow.seconds))
        left = (tmp_path / RESULTS).read_bytes() if (tmp_path / RESULTS).exists() else None
        assert left in (None, flow.after[RESULTS]), f"kill {number}"
        require_clean_next_run(flow, tmp_path)

"""One file call of a run fails, or the run is killed there; every call of every writing command in turn."""

from collections import Counter

import pytest

from faults import ERRORS, strange_ends
from flows import ALL
from random_kills_test import require_clean_next_run, require_readable
from workbench import IS_LONG, RESULTS, files_of, lay_out, run

# Where a power cut would undo what the run has done, though it said that it was done.
SYNCS = ("fsync", "fdatasync")


def calls_of(faulty, flow):
    lay_out(faulty.folder, flow.before)
    done, calls = faulty(flow)
    assert done.status == 0 and flow.has_cleaned_up(faulty.folder), done
    return calls


def chosen(calls):
    """All calls in the long sweep, else the last of a kind on each file."""
    return calls if IS_LONG else list({(call.name, call.file): call for call in calls}.values())


def own_messages(done, flow):
    """What the run says beside what it says undisturbed."""
    return [line for line in done.err.splitlines() if line not in flow.messages]


def is_sync_of_an_output(call, flow):
    return call.name in SYNCS and (call.file in flow.outputs or flow.is_unfinished(call.file))


def problems_of_success(flow, folder, done, call, kind):
    problems = [] if flow.has_done_its_work(folder) else ["said that it was done"]
    if is_sync_of_an_output(call, flow) and kind in ("EIO", "ENOSPC", "full"):
        problems.append("said that the disk has it")
    if kind == "short" and own_messages(done, flow):
        problems.append(f"messages: {done.err!r}")
    return problems


def problems_of_failure(flow, folder, done, call):
    problems = []
    if len(own_messages(done, flow)) != 1:
        problems.append(f"messages: {done.err!r}")
    partial = f"{RESULTS}.partial"
    if (folder / partial).exists() and run(folder, "results", partial, "--format", "json").status != 0:
        problems.append("the partial results cannot be read")
    hidden = [name for name in files_of(folder) if name.startswith(".")]
    if hidden and call.file not in hidden:  # else that is the file which could not be removed
        problems.append(f"{hidden} are left")
    return problems


def problems_after(flow, folder, done, call, kind):
    problems = strange_ends(done) + flow.problems_in(folder)
    if done.status == 0:
        return problems + problems_of_success(flow, folder, done, call, kind)
    return problems + problems_of_failure(flow, folder, done, call)


def sweep(faulty, flow, kind, problems_of):
    """The outcomes of the flow with the fault in each call, and what went wrong where."""
    outcomes, problems = Counter(), []
    for call in chosen(calls_of(faulty, flow)):
        lay_out(faulty.folder, flow.before)
        done, _ = faulty(flow, call.number, kind)
        outcomes[done.status] += 1
        problems += [f"{kind} in call {call}: {text}" for text in problems_of(done, call)]
    return outcomes, problems


@pytest.mark.parametrize("kind", ERRORS if IS_LONG else ("EIO", "full"))
@pytest.mark.parametrize("name", ALL)
def test_a_failing_call_is_told_and_costs_no_file(small_flows, faulty, tell, name, kind):
    flow = small_flows.named(name)
    outcomes, problems = sweep(faulty, flow, kind,
                               lambda done, call: problems_after(flow, faulty.folder, done, call, kind))
    tell(f"{name}, {kind}: {sum(outcomes.values())} faults, by exit status {dict(outcomes)}")
    assert not problems, "\n".join(problems)


@pytest.mark.parametrize("name", ALL)
def test_a_kill_at_any_call_costs_no_file(small_flows, faulty, tell, name):
    flow = small_flows.named(name)

    def problems_of(_, call):
        problems = flow.problems_in(faulty.folder)
        if not problems:
            require_readable(faulty.folder)
            require_clean_next_run(flow, faulty.folder)
        return problems

    outcomes, problems = sweep(faulty, flow, "kill", problems_of)
    tell(f"{name}, kill: {sum(outcomes.values())} kills, by exit status {dict(outcomes)}")
    assert not problems, "\n".join(problems)

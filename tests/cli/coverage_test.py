"""Combinations are counted alike wherever they are counted: those of the model, and in brackets their states."""

import pytest


@pytest.fixture
def enveloped(aluframe, pipe_beam):
    """Combinations 1 and 2, and an envelope of three states, one of which combination 1 stands for."""
    pipe_beam["combinations"].append({
        "number": 7, "name": "Any", "kind": "envelope",
        "terms": [{"case": 1}, {"case": 2}, {"case": 2, "factor": -1}]})
    aluframe.write(pipe_beam)
    return aluframe


def covered(aluframe, command):
    out = aluframe(command, "frame.json").stdout
    return next(line for line in out.splitlines() if line.startswith("Covered: ")).partition("combinations ")[2]


# More than the combinations named: what `check` counts, and what results and report say of it.
@pytest.mark.parametrize("named, checked, of_results", [
    ([], "3 (as 4 states)", "3 of 3 (as 4 states)"),
    (["2"], "1; the model has 3 for design", "1 of 3"),
    (["7"], "2 (as 3 states); the model has 3 for design", "2 of 3 (as 3 of 4 states)"),
    (["7002"], "1 (as 1 state); the model has 3 for design", "1 of 3 (as 1 of 4 states)"),
])
def test_check_results_and_report_count_combinations_alike(enveloped, named, checked, of_results):
    more = ["--combinations", *named] if named else []
    assert f"  combinations  {checked}\n" in enveloped("check", "frame.json", *more).stdout
    for command in ("results", "report"):
        assert covered(enveloped, command) == f"{of_results}, forces: given forces"


def test_the_warning_of_a_report_counts_combinations_too(enveloped):
    enveloped("check", "frame.json", "--combinations", "7")
    assert ("frame.aluresult: covers combination 1, 7 alone, 2 of 3 (as 3 of 4 states), and the report goes by no "
            "other; check the model again for all\n") in enveloped("report", "frame.json").stderr


def test_one_state_left_out_is_not_the_whole(enveloped):
    enveloped("check", "frame.json", "--combinations", "1,2,7002")
    done = enveloped("results", "frame.json", "--format", "json")
    assert "combinations 3 of 3 (as 3 of 4 states)" in done.stderr

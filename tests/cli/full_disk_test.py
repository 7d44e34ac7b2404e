"""Output that does not arrive is a failure: a script must not take it for a short answer."""

import subprocess

import pytest


def run_into_a_full_disk(aluframe, *arguments):
    with open("/dev/full", "w", encoding="utf-8") as full:
        return subprocess.run([aluframe.path, *arguments], stdout=full, stderr=subprocess.PIPE,
                              text=True, check=False, cwd=aluframe.folder, timeout=120)


@pytest.mark.parametrize("arguments", [
    ["section", "P 100x3"], ["members", "frame.json"], ["check", "frame.json"],
    ["validate", "frame.json"], ["picture", "frame.json", "--svg", "-"], ["settings", "frame.json"], ["--help"]], ids=lambda a: a[0])
def test_lost_output_is_told_and_fails(aluframe, pipe_beam, arguments):
    aluframe.write(pipe_beam)
    done = run_into_a_full_disk(aluframe, *arguments)
    assert done.returncode == 2
    assert done.stderr.endswith("standard output: cannot be written\n")


def test_results_are_stored_though_the_summary_is_lost(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    run_into_a_full_disk(aluframe, "check", "frame.json")
    assert {row["element"] for row in aluframe.json("results", "frame.json")} == {1}


def test_a_report_that_is_lost_is_not_called_complete(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    done = run_into_a_full_disk(aluframe, "report", "frame.json", "--output", "-")
    assert (done.returncode, done.stderr) == (2, "standard output: cannot be written\n")


def test_a_document_that_is_lost_is_one_message(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    done = run_into_a_full_disk(aluframe, "report", "frame.json", "--html", "-")
    assert (done.returncode, done.stderr) == (2, "-: cannot be written: No space left on device\n")


def test_wrong_usage_keeps_its_message_and_status(aluframe):
    done = run_into_a_full_disk(aluframe, "check", "none.json")
    assert done.returncode == 1
    assert done.stderr.startswith("none.json: cannot be opened") and done.stderr.count("\n") == 1

"""The comparison of documents with the program tells what is the same from what is not."""

import pytest
from document_matching import refreshed, same_lines, same_number

PRINTED = ["Checked", "  ratio  0.7783", "  time   0.02 s (64492 positions/s)", "  over 1  0", "end"]


@pytest.mark.parametrize("shown, real", [
    ("0.7783", "0.77834"), ("0.778", "0.7783"), ("-1.967e+07", "-1.9672e+07"), ("12", "12"), ("46.81", "46.8099"),
])
def test_a_number_is_the_same_to_the_digits_that_are_shown(shown, real):
    assert same_number(shown, real)


@pytest.mark.parametrize("shown, real", [
    ("0.7783", "0.7784"), ("0.778", "0.7786"), ("-1.967e+07", "-1.968e+07"), ("12", "13"), ("0.5", "-0.5"),
])
def test_another_number_is_not_the_same(shown, real):
    assert not same_number(shown, real)


def test_what_is_printed_matches_itself():
    assert same_lines(PRINTED, PRINTED)


def test_the_time_of_a_run_does_not_matter():
    assert same_lines([line.replace("0.02 s (64492", "1.5 s (3") for line in PRINTED], PRINTED)


@pytest.mark.parametrize("changed", [
    PRINTED[:-1], PRINTED[1:], [*PRINTED, "more"], PRINTED[:2] + PRINTED[3:],
    [line.replace("0.7783", "0.7785") for line in PRINTED], [line.replace("ratio", "Ratio") for line in PRINTED],
    [line.replace("  ratio", " ratio") for line in PRINTED],
])
def test_a_line_that_is_changed_missing_or_added_is_seen(changed):
    assert not same_lines(changed, PRINTED)


@pytest.mark.parametrize("shown", [
    ["Checked", "...", "end"], ["...", "  over 1  0", "end"], ["Checked", "..."],
    ["Checked", "...", "  over 1  0", "...", "end"], ["Checked", "  ratio  ...", "..."],
])
def test_three_dots_stand_for_what_is_left_out(shown):
    assert same_lines(shown, PRINTED)


@pytest.mark.parametrize("shown", [
    ["Checked", "...", "over"], ["...", "Checked"], ["Checked", "...", "nothing", "...", "end"],
    ["Checked", "...", "end", "...", "  over 1  0"], ["Checked", "  ratio  ...", "end"],
])
def test_three_dots_hide_no_other_line(shown):
    assert not same_lines(shown, PRINTED)


def test_a_refreshed_block_has_what_is_printed_and_keeps_old_times():
    old = ["Checked", "  ratio  0.5", "  time   9 s (1 positions/s)", "end"]
    assert refreshed(old, PRINTED) == [*PRINTED[:2], old[2], *PRINTED[3:]]


def test_a_refreshed_block_keeps_its_elisions():
    assert refreshed(["Checked", "  ratio  0.5", "...", "  over 1  7", "end"], PRINTED) == [
        *PRINTED[:2], "...", *PRINTED[3:]]

"""One bit of a result file turns over: the file is refused, or shows what it showed before."""

from collections import Counter

import pytest

from workbench import RESULTS, amount, chance_of, lay_out, run

VIEWS = [("--format", "json"), ("--format", "table"), ("--element", "1", "--format", "json"),
         ("--remarks", "--format", "json"), ("--not-checked", "--format", "json")]
# What a refused file is called, in the words of the program and of its database.
REFUSALS = ("damaged", "is not a result file", "format version", "disk I/O error", "no such",
            "unable to open", "database")


def with_flipped_bit(content, place):
    changed = bytearray(content)
    changed[place // 8] ^= 1 << place % 8
    return bytes(changed)


@pytest.fixture(scope="module")
def checked(small_flows, tmp_path_factory):
    folder = tmp_path_factory.mktemp("checked")
    lay_out(folder, small_flows.check.after)
    shown = {view: run(folder, "results", RESULTS, *view, status=0).out for view in VIEWS}
    return small_flows.check.after, shown


def require_same_or_refused(done, shown, place):
    if done.status == 0:
        assert done.out == shown, f"bit {place} changed what is shown"
        return "the same"
    assert done.status in (1, 2) and done.out == "", f"bit {place}: {done}"
    lines = done.err.splitlines()
    assert any(word in lines[-1] for word in REFUSALS), f"bit {place}: {done.err}"
    return "refused"


def test_a_flipped_bit_is_found_or_changes_nothing(checked, tmp_path, tell):
    files, shown = checked
    whole = files[RESULTS]
    chance = chance_of("flipped bits")
    outcomes = Counter()
    for number in range(amount(60, 300)):
        place = chance.randrange(8 * len(whole))
        view = VIEWS[number % len(VIEWS)]
        lay_out(tmp_path, files | {RESULTS: with_flipped_bit(whole, place)})
        outcomes[require_same_or_refused(run(tmp_path, "results", RESULTS, *view), shown[view], place)] += 1
    tell(f"flipped bits of {len(whole)} bytes: {dict(outcomes)}")


def places_of_records(whole):
    """Bytes that hold something: most of a small database is empty."""
    return [place for place, byte in enumerate(whole) if byte != 0]


def test_a_flipped_bit_of_the_content_is_found_or_changes_nothing(checked, tmp_path, tell):
    files, shown = checked
    whole = files[RESULTS]
    chance = chance_of("flipped bits of the content")
    held = places_of_records(whole)
    outcomes = Counter()
    for number in range(amount(60, 300)):
        place = 8 * chance.choice(held) + chance.randrange(8)
        view = VIEWS[number % len(VIEWS)]
        lay_out(tmp_path, files | {RESULTS: with_flipped_bit(whole, place)})
        outcomes[require_same_or_refused(run(tmp_path, "results", RESULTS, *view), shown[view], place)] += 1
    tell(f"flipped bits of its content: {dict(outcomes)}")


def test_a_report_goes_by_no_damaged_results(checked, tmp_path):
    files, _ = checked
    whole = files[RESULTS]
    chance = chance_of("reports of flipped bits")
    lay_out(tmp_path, files)
    run(tmp_path, "report", "frame.json", status=0)
    report = (tmp_path / "frame.alu").read_bytes()
    held = places_of_records(whole)
    for _ in range(amount(15, 100)):
        place = 8 * chance.choice(held) + chance.randrange(8)
        lay_out(tmp_path, files | {RESULTS: with_flipped_bit(whole, place)})
        done = run(tmp_path, "report", "frame.json")
        assert done.status in (0, 1, 2), done
        assert (done.status == 0) == (tmp_path / "frame.alu").exists(), done
        assert done.status != 0 or (tmp_path / "frame.alu").read_bytes() == report, f"bit {place}"

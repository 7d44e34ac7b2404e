"""Of mutated models and result files no explanation and no document is shown that is not whole.

A run either refuses what it is given, in messages and without output, or ends with status 0 and all
of an explanation or a document. It crashes at none, and none keeps it for long.
"""

import json
from collections import Counter

import pytest

from flipped_bits_test import places_of_records, with_flipped_bit
from workbench import RESULTS, amount, chance_of, lay_out, run

RUN_LIMIT = 30  # seconds
DOCUMENT = "frame.html"
COMMANDS = {
    "explain": ("explain", "frame.json", "--element", "1"),
    "explain as JSON": ("explain", "frame.json", "--element", "2", "--format", "json"),
    "document": ("report", "frame.json", "--html", DOCUMENT, "--detail", "full"),
}
WRONG_VALUES = (None, True, -1, 0, 1e308, -1e-300, 7.5, 2**40, "", "x", "\u202e<script>&", [], {}, [[]], [0] * 7)


def output_of(folder, done):
    """What a run gave: its document, or what it printed."""
    file = folder / DOCUMENT
    return file.read_text(encoding="utf-8") if file.exists() else done.out


def require_whole(command, text):
    if command == "document":
        assert text.startswith("<!DOCTYPE html>") and text.rstrip().endswith("</html>")
        assert all(text.count(f"<{tag}") == text.count(f"</{tag}>") for tag in ("section", "table", "svg", "math"))
        assert '<h3 id="not-checked">' in text and '<h3 id="reactions">' in text
    elif command == "explain as JSON":
        assert json.loads(text)["element"] == 2
    else:
        assert text.startswith("Element 1 (") and len(text.splitlines()) > 3


def outcome_of(folder, command, what):
    """Runs a command on what stands in the folder. @return how it ended, and its output"""
    done = run(folder, *COMMANDS[command], time_limit=RUN_LIMIT)
    assert done.status in (0, 1, 2), f"{what}: {done.status} {done.err}"
    text = output_of(folder, done)
    if done.status == 0:
        require_whole(command, text)
        return "whole", text
    assert text == "", f"{what}: {done.err}"
    assert done.err.strip() and "internal" not in done.err, f"{what}: {done.err}"
    return "refused", ""


@pytest.fixture(scope="module")
def checked(small_flows, tmp_path_factory):
    """The files of a check, and what each command gives of them."""
    folder = tmp_path_factory.mktemp("checked")
    files = small_flows.check.after
    shown = {}
    for command in COMMANDS:
        lay_out(folder, files)
        outcome, shown[command] = outcome_of(folder, command, "as they are")
        assert outcome == "whole" and ratios_in(shown[command])
    return files, shown


@pytest.mark.parametrize("command", COMMANDS)
def test_a_flipped_bit_of_the_results_is_found_or_changes_nothing(checked, tmp_path, tell, command):
    files, shown = checked
    held = places_of_records(files[RESULTS])
    chance = chance_of(f"results of {command}")
    outcomes = Counter()
    for _ in range(amount(20, 300)):
        place = 8 * chance.choice(held) + chance.randrange(8)
        lay_out(tmp_path, files | {RESULTS: with_flipped_bit(files[RESULTS], place)})
        outcome, text = outcome_of(tmp_path, command, f"bit {place}")
        assert outcome == "refused" or text == shown[command], f"bit {place} changed what is shown"
        outcomes[outcome] += 1
    tell(f"{command}, flipped bits: {dict(outcomes)}")


@pytest.mark.parametrize("command", COMMANDS)
def test_results_that_end_early_are_refused(checked, tmp_path, command):
    files, _ = checked
    whole = files[RESULTS]
    chance = chance_of(f"short results of {command}")
    for length in [0, 1, 99, *(chance.randrange(len(whole) - 1) for _ in range(amount(5, 100)))]:
        lay_out(tmp_path, files | {RESULTS: whole[:length]})
        outcome, _ = outcome_of(tmp_path, command, f"{length} bytes")
        assert outcome == "refused", length


def place_in(model, chance):
    """Keys and indices that lead to something in a model: what stands high up is met as often as numbers."""
    path, value = [], model
    while isinstance(value, (dict, list)) and value and (not path or chance.random() < 0.8):
        path.append(chance.choice(list(value) if isinstance(value, dict) else range(len(value))))
        value = value[path[-1]]
    return path


def mutated(model, chance):
    """A copy with one thing in it gone, doubled, a little different or another; and which."""
    model = json.loads(json.dumps(model))
    *path, last = place_in(model, chance)
    parent = model
    for key in path:
        parent = parent[key]
    change = chance.choice(("gone", "doubled", "different", "another"))
    if change == "gone":
        del parent[last]
    elif change == "doubled" and isinstance(parent, list):
        parent.append(parent[last])
    elif change == "different" and isinstance(parent[last], (int, float)):
        parent[last] *= 1.01
    elif change == "different" and isinstance(parent[last], str):
        parent[last] += " ]]> <b>"
    else:
        parent[last] = chance.choice(WRONG_VALUES)
    return model, f"{'/'.join(map(str, (*path, last)))} is {change}"


def ratios_in(text):
    """The lines of an explanation, or of a document, that have its results."""
    return [line for line in text.splitlines()
            if line.startswith("ratio = ") or "data-result=" in line or '"result": ' in line]


@pytest.mark.parametrize("command", COMMANDS)
def test_a_mutated_model_is_not_that_of_the_results(checked, tmp_path, tell, command):
    """What is no input of a check, such as a title, may be another; all else is refused."""
    files, shown = checked
    model = json.loads(files["frame.json"])
    chance = chance_of(f"model of {command}")
    outcomes = Counter()
    for _ in range(amount(40, 400)):
        other, what = mutated(model, chance)
        lay_out(tmp_path, files | {"frame.json": json.dumps(other).encode()})
        outcome, text = outcome_of(tmp_path, command, what)
        assert outcome == "refused" or ratios_in(text) == ratios_in(shown[command]), what
        outcomes[outcome] += 1
    tell(f"{command}, mutated models: {dict(outcomes)}")


def test_a_mutated_model_is_checked_and_documented_or_refused(checked, tmp_path, tell):
    files, _ = checked
    model = json.loads(files["frame.json"])
    chance = chance_of("mutated and checked")
    outcomes = Counter()
    for _ in range(amount(40, 400)):
        other, what = mutated(model, chance)
        lay_out(tmp_path, {"frame.json": json.dumps(other).encode()})
        status = run(tmp_path, "check", "frame.json", time_limit=RUN_LIMIT).status
        assert status in (0, 1, 2), what
        outcome, _ = outcome_of(tmp_path, "document", what)
        # Without one whole result there is none that a document could go by.
        assert (outcome == "whole") == (status == 0), what
        outcomes[outcome] += 1
    tell(f"mutated models, checked: {dict(outcomes)}")


def test_a_cut_model_is_refused(checked, tmp_path):
    files, _ = checked
    whole = files["frame.json"]
    chance = chance_of("cut models")
    for length in [0, 1, *(chance.randrange(len(whole) - 2) for _ in range(amount(5, 100)))]:
        for command in COMMANDS:
            lay_out(tmp_path, files | {"frame.json": whole[:length]})
            assert outcome_of(tmp_path, command, f"{length} bytes")[0] == "refused"

"""Two runs that write one file at nearly the same time: one whole file, and each run knows its lot."""

import json
import time
from collections import Counter

import pytest

from workbench import RESULTS, amount, chance_of, changed, end_of, files_of, frame, lay_out, run, start, text_of

BOTH = "both.out"
COPY_OF_BOTH = "both.txt"
LATEST_START = 0.010  # seconds between the two
BUSY = "another run is writing this file"
# The second run may find the first one's results complete, also after it has waited for its end: they
# are those of another model.
OTHERS = "holds the results of a check of "


@pytest.fixture(scope="module")
def models():
    """Two models, the larger of which takes longer."""
    return {"a.json": text_of(changed(frame(60, 8), "Frame A", 1.0)),
            "b.json": text_of(changed(frame(80, 8), "Frame B", 0.8))}


@pytest.fixture(scope="module")
def alone(models, tmp_path_factory):
    """What each run writes when no other one is about, by command and model."""
    folder = tmp_path_factory.mktemp("alone")
    lay_out(folder, models)
    written = {}
    for model in models:
        run(folder, "check", model, "--output", BOTH, status=0)
        written["check", model] = (folder / BOTH).read_bytes()
        (folder / BOTH).unlink()
        run(folder, "check", model, status=0)
        run(folder, "report", model, "--output", BOTH, status=0)
        for of, name in (("report", BOTH), ("copy", COPY_OF_BOTH)):
            written[of, model] = (folder / name).read_bytes()
            (folder / name).unlink()
    return written


def run_both(folder, commands, chance):
    """Each run with its end, in the order of their ends as far as that can be told."""
    processes = []
    for command in chance.sample(commands, len(commands)):
        processes.append((command, start(folder, *command)))
        time.sleep(chance.uniform(0, LATEST_START))
    return {command: end_of(process) for command, process in processes}


def model_of(content, command, alone):
    """The model whose file the content is."""
    models = [model for (of, model), written in alone.items() if of == command and written == content]
    assert len(models) == 1, "the file is none of the two"
    return models[0]


def require_honest(ends, standing, refusals):
    """Who says that it is done has written the file, at least before the other one did."""
    assert ends[standing].status == 0, ends
    for done in ends.values():
        if done.status == 0:
            continue
        assert done.status in (1, 2) and any(text in done.err for text in refusals), ends
        assert sum(text in line for line in done.err.splitlines() for text in refusals) == 1, ends


def judge(folder, ends, alone, command, refusals):
    by_model = {words[1]: done for words, done in ends.items()}
    require_honest(by_model, model_of((folder / BOTH).read_bytes(), command, alone), refusals)
    return tuple(sorted(done.status for done in ends.values()))


def require_copy_of_the_report(folder, alone):
    of_report, of_copy = (model_of((folder / name).read_bytes(), of, alone)
                          for name, of in ((BOTH, "report"), (COPY_OF_BOTH, "copy")))
    assert of_copy == of_report, f"the report is that of {of_report}, its copy that of {of_copy}"


def commands_of(*pattern):
    return [tuple(model if word == "MODEL" else word for word in pattern) for model in ("a.json", "b.json")]


def names_in(folder):
    return set(files_of(folder))


def test_of_two_checks_of_two_models_one_is_refused(models, alone, tmp_path, tell):
    chance = chance_of("pairs of checks")
    outcomes = Counter()
    for _ in range(amount(15, 110)):
        lay_out(tmp_path, models)
        ends = run_both(tmp_path, commands_of("check", "MODEL", "--output", BOTH), chance)
        outcomes[judge(tmp_path, ends, alone, "check", (BUSY, OTHERS))] += 1
        assert names_in(tmp_path) == {*models, BOTH}
    assert set(outcomes) <= {(0, 1), (0, 2)}, outcomes
    tell(f"two checks: {dict(outcomes)}")


def test_a_check_that_waits_spares_what_the_other_has_left(models, alone, tmp_path, tell):
    chance = chance_of("pairs that wait")
    outcomes = Counter()
    for _ in range(amount(10, 60)):
        lay_out(tmp_path, models)
        ends = run_both(tmp_path, commands_of("check", "MODEL", "--wait", "--output", BOTH), chance)
        outcomes[judge(tmp_path, ends, alone, "check", (OTHERS,))] += 1
        assert names_in(tmp_path) == {*models, BOTH}
    assert set(outcomes) <= {(0, 1), (0, 2)}, outcomes
    tell(f"two checks with --wait: {dict(outcomes)}")


def test_checks_of_one_model_that_wait_are_all_done(models, tmp_path):
    chance = chance_of("waiting checks of one model")
    lay_out(tmp_path, {"a.json": models["a.json"]})
    run(tmp_path, "check", "a.json", status=0)
    whole = files_of(tmp_path)
    for _ in range(amount(5, 30)):
        ends = run_both(tmp_path, [("check", "a.json", "--wait"),
                                   ("check", "a.json", "--wait", "--progress", "never")], chance)
        assert [done.status for done in ends.values()] == [0, 0], ends
        assert files_of(tmp_path) == whole


def test_of_two_reports_one_is_refused_or_comes_later(models, alone, tmp_path, tell):
    chance = chance_of("pairs of reports")
    outcomes = Counter()
    lay_out(tmp_path, models)
    for model in models:
        run(tmp_path, "check", model, status=0)
    before = names_in(tmp_path)
    for _ in range(amount(15, 60)):
        for name in (BOTH, COPY_OF_BOTH):
            (tmp_path / name).unlink(missing_ok=True)
        ends = run_both(tmp_path, commands_of("report", "MODEL", "--output", BOTH), chance)
        outcomes[judge(tmp_path, ends, alone, "report", (BUSY,))] += 1
        require_copy_of_the_report(tmp_path, alone)
        assert names_in(tmp_path) == before | {BOTH, COPY_OF_BOTH}
    tell(f"two reports: {dict(outcomes)}")


def test_two_changes_of_a_models_settings_are_both_made(models, tmp_path):
    chance = chance_of("pairs of settings")
    commands = [("settings", "a.json", "--set", "safety-class=1"), ("settings", "a.json", "--set", "seismic=on")]
    for _ in range(amount(15, 70)):
        lay_out(tmp_path, {"a.json": models["a.json"]})
        ends = run_both(tmp_path, commands, chance)
        assert [done.status for done in ends.values()] == [0, 0], ends
        settings = json.loads((tmp_path / "a.json").read_bytes())["settings"]
        assert (settings["safety_class"], settings["seismic"]) == (1, True)
        assert names_in(tmp_path) == {"a.json"}


def test_a_check_and_a_report_of_one_model_do_not_meet_half_of_each_other(models, tmp_path):
    chance = chance_of("a check beside a report")
    lay_out(tmp_path, {"a.json": models["a.json"]})
    run(tmp_path, "check", "a.json", status=0)
    run(tmp_path, "report", "a.json", status=0)
    whole = files_of(tmp_path)
    assert RESULTS.replace("frame", "a") in whole
    for _ in range(amount(5, 30)):
        ends = run_both(tmp_path, [("check", "a.json"), ("report", "a.json")], chance)
        assert [done.status for done in ends.values()] == [0, 0], ends
        assert files_of(tmp_path) == whole

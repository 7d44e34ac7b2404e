"""Bad model files: one clear message with its place, exit status 1, old results untouched."""

import json

import pytest


def changed(path, value):
    """A fault: the value at a path of keys and indices is replaced."""

    def apply(model):
        at = model
        for key in path[:-1]:
            at = at[key]
        at[path[-1]] = value
        return model

    return apply


def appended(path, value):
    def apply(model):
        at = model
        for key in path:
            at = at[key]
        at.append(value)
        return model

    return apply


def nested_combinations(model):
    model["combinations"] += [
        {"number": n, "terms": [{"combination": n - 1, "factor": 1}]} for n in range(3, 10_003)]
    return model


def disconnected_member(model):
    model["nodes"] += [{"number": 3, "x": 9, "y": 0, "z": 3}, {"number": 4, "x": 12, "y": 0, "z": 3}]
    model["elements"].append({"number": 2, "nodes": [3, 4], "section": 1, "material": 1})
    model["members"] = [{"number": 1, "elements": [1, 2]}]
    return model


# fault, the place that the message must name, and words that it must say
FAULTS = {
    "wrong type": (changed(["nodes", 0, "x"], "far"), "/nodes/0/x", "far"),
    "unknown field": (changed(["nodes", 0, "w"], 1), "/nodes/0", "w"),
    "unknown alloy": (changed(["materials", 0, "alloy"], "6061-T9"), "/materials/0/alloy", "6061-T9"),
    "unknown shape": (changed(["sections", 0, "shape"], "Q"), "/sections/0/shape", "Q"),
    "missing node": (changed(["elements", 0, "nodes"], [1, 99]), "/elements/0/nodes/1", "99"),
    "duplicate number": (appended(["nodes"], {"number": 1, "x": 5, "y": 0, "z": 0}),
                         "/nodes/2/number", "1"),
    "member chain": (disconnected_member, "/members/0", "2"),
    "negative dimension": (changed(["sections", 0, "dimensions", "D"], -100),
                           "/sections/0/dimensions/D", "-100"),
    "itself": (changed(["combinations", 0, "terms"], [{"combination": 1, "factor": 1}]),
               "/combinations/0/terms/0", "itself"),
    "deep combinations": (nested_combinations, "/combinations/", "64"),
    "no elements": (changed(["elements"], []), "/elements", "at least one"),
    "wrong version": (changed(["version"], 2), "/version", "2"),
}

# whole texts of files, and words that the message must say
TEXTS = {
    "empty": ("", "empty"),
    "wrong JSON": ('{"format": "aluframe-model",\n "version": }', "line 2"),
    "NaN": ('{"format": "aluframe-model", "version": NaN}', "line 1"),
    "deep nesting": ("[" * 10_000 + "]" * 10_000, "64"),
    "deep objects": ('{"a":' * 10_000 + "1" + "}" * 10_000, "64"),
    "a number": ("5", "object"),
}


def refused(aluframe, text, command="check"):
    aluframe.write(text)
    error = aluframe(command, "frame.json", status=1).stderr
    assert error.startswith("frame.json: "), error
    assert len(error.strip().splitlines()) == 1, error
    return error


@pytest.mark.parametrize("fault, place, word", FAULTS.values(), ids=FAULTS.keys())
def test_a_fault_is_named_with_its_place_and_old_results_stay(
        aluframe, pipe_beam, fault, place, word):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    before = (aluframe.folder / "frame.aluresult").read_bytes()

    text = json.dumps(fault(pipe_beam))
    error = refused(aluframe, text)
    assert place in error and word in error, error
    assert (aluframe.folder / "frame.aluresult").read_bytes() == before
    assert refused(aluframe, text, "validate") == error


@pytest.mark.parametrize("text, word", TEXTS.values(), ids=TEXTS.keys())
def test_a_text_that_is_no_model_is_refused(aluframe, text, word):
    assert word in refused(aluframe, text)


def test_a_missing_file_and_a_folder_are_refused(aluframe):
    assert "nowhere.json" in aluframe("check", "nowhere.json", status=1).stderr
    assert "directory" in aluframe("check", ".", status=1).stderr


def test_a_good_model_is_called_valid_and_its_content_is_listed(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    out = aluframe("validate", "frame.json").stdout
    assert out.startswith("frame.json: valid")
    assert "2 nodes, 1 element, 0 members (0 found automatically), 1 section," in out

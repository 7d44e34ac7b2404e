"""No output of any command takes the place of an input, or of another model, catalogue or result."""

import json
import os

import pytest

CATALOGUE = "name,shape,D,t\nPost,P,100,10\n"
KEPT = ("frame.json", "other.json", "mine.csv", "other.csv", "forces.csv", "other.aluresult")

# command, its option for a file, and what that writes.
OUTPUTS = [
    (("check", "frame.json", "--forces", "forces.csv"), "--output", "the result file"),
    (("analyse", "loaded.json"), "--output", "the output"),
    (("results", "frame.json"), "--output", "the table"),
    (("report", "frame.json", "--forces", "forces.csv"), "--output", "the report"),
    (("report", "frame.json", "--forces", "forces.csv"), "--readable", "the readable copy"),
    (("report", "frame.json", "--forces", "forces.csv"), "--results", "the result file"),
    (("picture", "frame.json", "--forces", "forces.csv"), "--svg", "the picture"),
    (("section", "Post", "--catalogue", "mine.csv"), "--svg", "the drawing"),
]
IDS = [f"{command[0]} {option}" for command, option, _ in OUTPUTS]


@pytest.fixture
def folder(aluframe, pipe_beam):
    """A checked model with a catalogue and forces in files, and others' files beside it."""
    aluframe.write(CATALOGUE, "mine.csv")
    aluframe.write(CATALOGUE.replace("Post", "Rail"), "other.csv")
    rows = [[1, entry["case"], position, *values] for entry in pipe_beam["forces"]
            for position, values in enumerate(entry["values"])]
    aluframe.write("element,case,position,N,Fy,Fz,Mx,My,Mz\n"
                   + "".join(",".join(map(str, row)) + "\n" for row in rows), "forces.csv")
    pipe_beam["catalogues"] = ["mine.csv"]
    pipe_beam["sections"] = [{"number": 1, "profile": "Post"}]
    aluframe.write(pipe_beam)
    aluframe.write(pipe_beam, "other.json")
    del pipe_beam["forces"]
    pipe_beam["load_cases"] = [{"number": 1, "self_weight": 1}, {"number": 2, "self_weight": 2}]
    aluframe.write(pipe_beam, "loaded.json")
    aluframe("check", "frame.json", "--forces", "forces.csv")
    aluframe("check", "other.json")
    return aluframe


def contents(folder, names=KEPT):
    return {name: (folder.folder / name).read_bytes() for name in names}


def refused(folder, command, option, target):
    before = contents(folder)
    done = folder(*command, option, target, status=1)
    assert contents(folder) == before
    assert done.stdout == "" and len(done.stderr.splitlines()) == 1
    return done.stderr


@pytest.mark.parametrize("command, option, what", OUTPUTS, ids=IDS)
@pytest.mark.parametrize("target, kind", [("other.json", "a model"),
                                          ("other.csv", "a catalogue of profiles"),
                                          ("other.aluresult", "the results of a check")])
def test_no_output_takes_the_place_of_a_file_of_another_kind(
        folder, command, option, what, target, kind):
    if what == "the result file" and kind == "the results of a check":
        pytest.skip("a result file may take the place of an older one")
    assert refused(folder, command, option, target) == (
        f"{target}: holds {kind}, which {what} would overwrite; choose another file\n")


@pytest.mark.parametrize("command, option, what", OUTPUTS, ids=IDS)
def test_no_output_takes_the_place_of_a_catalogue_that_the_model_names(
        folder, command, option, what):
    assert "mine.csv: holds a catalogue" in refused(folder, command, option, "mine.csv")


@pytest.mark.parametrize("command, option, what",
                         [row for row in OUTPUTS if "--forces" in row[0]],
                         ids=[name for name, row in zip(IDS, OUTPUTS) if "--forces" in row[0]])
def test_no_output_takes_the_place_of_the_forces(folder, command, option, what):
    assert refused(folder, command, option, "forces.csv") == (
        f"forces.csv: is the table of forces, which {what} would overwrite; choose another file\n")


@pytest.mark.parametrize("make", [os.symlink, os.link])
@pytest.mark.parametrize("command, option, what", OUTPUTS, ids=IDS)
def test_a_link_protects_what_it_leads_to(folder, command, option, what, make):
    for target in ("frame.json", "mine.csv"):
        link = folder.folder / "linked.alu"
        make(folder.folder / target, link)
        assert "linked.alu: " in refused(folder, command, option, "linked.alu")
        link.unlink()


@pytest.mark.parametrize("command, option, what", OUTPUTS, ids=IDS)
def test_a_detour_leads_to_the_same_file(folder, command, option, what):
    detour = f"../{folder.folder.name}/./frame.json"
    assert "which " + what + " would overwrite" in refused(folder, command, option, detour)


def test_a_model_named_like_its_own_results_is_kept(aluframe, pipe_beam):
    aluframe.write(pipe_beam, "frame.aluresult")
    error = aluframe("check", "frame.aluresult", status=1).stderr
    assert error == ("frame.aluresult: is the model, which the result file would overwrite; "
                     "choose another file\n")
    assert json.loads((aluframe.folder / "frame.aluresult").read_text()) == pipe_beam


def of_another_model(target, model):
    return (f"{target}: holds the results of a check of {model}, which the result file would overwrite; "
            "choose another file, or delete this one\n")


def test_a_check_does_not_take_the_place_of_another_models_results(folder):
    assert refused(folder, ("check", "frame.json"), "--output", "other.aluresult") == of_another_model(
        "other.aluresult", "other.json")
    (folder.folder / "other.aluresult").unlink()
    folder("check", "frame.json", "--output", "other.aluresult")


def test_a_check_takes_the_place_of_its_own_results_also_of_a_changed_model(folder, pipe_beam):
    folder("check", "loaded.json", "--output", "named.aluresult")
    before = contents(folder, ["named.aluresult"])
    pipe_beam["load_cases"][0]["self_weight"] = 3
    folder.write(pipe_beam, "loaded.json")
    folder("check", "loaded.json", "--output", "named.aluresult")
    assert contents(folder, ["named.aluresult"]) != before


def test_results_are_their_models_however_both_are_reached(folder):
    (folder.folder / "kept").mkdir()
    os.symlink(folder.folder / "kept", folder.folder / "linked")
    os.symlink(folder.folder / "frame.json", folder.folder / "again.json")
    folder("check", "frame.json", "--output", "linked/a.aluresult")
    for model in ("frame.json", "again.json", f"../{folder.folder.name}/frame.json"):
        for results in ("linked/a.aluresult", "kept/a.aluresult"):
            folder("check", model, "--output", results)
    error = folder("check", "other.json", "--output", "kept/a.aluresult", status=1).stderr
    assert error == of_another_model("kept/a.aluresult", "frame.json")


def test_results_move_with_their_model_and_its_folder(folder):
    (folder.folder / "project").mkdir()
    for name in ("frame.json", "mine.csv"):
        (folder.folder / name).rename(folder.folder / "project" / name)
    folder("check", "project/frame.json", "--output", "project/a.aluresult")
    (folder.folder / "project").rename(folder.folder / "moved")
    folder("check", "moved/frame.json", "--output", "moved/a.aluresult")


def test_a_model_renamed_with_its_results_is_checked_again(folder):
    for end in ("json", "aluresult"):
        (folder.folder / f"other.{end}").rename(folder.folder / f"renamed.{end}")
    folder("check", "renamed.json")


def test_outputs_may_be_written_again(folder):
    for _ in range(2):
        folder("check", "frame.json", "--output", "again.aluresult")
        folder("analyse", "loaded.json", "--output", "analysis.txt")
        folder("results", "frame.json", "--format", "json", "--output", "table.json")
        folder("results", "frame.json", "--format", "csv", "--output", "table.csv")
        folder("report", "frame.json", "--output", "a.alu", "--readable", "a.txt")
        folder("section", "P 60x5", "--svg", "a.svg")


def test_an_output_may_be_a_device(folder):
    assert "<svg" in folder("section", "P 60x5", "--svg", "/dev/stdout").stdout

"""`aluframe settings`: the design settings and materials of a model, shown and changed."""

import csv
import io
import json
import re

import pytest

from settings_model import MODEL, OLD_EXTRUSION, OLD_SETTINGS, change, text_of


@pytest.fixture
def frame(aluframe):
    aluframe.write(MODEL)
    return aluframe


def material(frame, number):
    return next(m for m in frame.json("settings", "frame.json")["materials"] if m["number"] == number)


def refused(frame, *arguments):
    """The messages about a change that is refused, which must leave the file alone."""
    done = change(frame, *arguments, status=1)
    assert text_of(frame) == MODEL and done.stdout == ""
    return done.stderr


# Showing

def test_settings_and_materials_are_shown(frame):
    assert change(frame).stdout == """\
setting             value
------------------  ------------
code                GB50429-2007
rib                 on
rib_ratio           1.2
safety_class        2
strength_ratio      0.85
seismic             on
gamma_re_strength   0.8
gamma_re_stability  0.8

material  name       standard       grade    e      poisson  fu   f02_thin  f02_thick
--------  ---------  -------------  -------  -----  -------  ---  --------  ---------
       3  -          GB50429-07(A)  6061-T6  70000  0.3      265  240       240
       1  Extrusion  user           X1       70000  0.3      215  170       170
"""
    assert text_of(frame) == MODEL


def test_json_has_both_records(frame):
    shown = frame.json("settings", "frame.json")
    assert shown["settings"] == {
        "code": "GB50429-2007", "rib": True, "rib_ratio": 1.2, "safety_class": 2,
        "strength_ratio": 0.85, "seismic": True, "gamma_re_strength": 0.8, "gamma_re_stability": 0.8}
    assert shown["settings_given"] is True
    assert shown["materials"][1] == {
        "number": 1, "name": "Extrusion", "standard": "user", "grade": "X1", "e": 70000,
        "poisson": 0.3, "fu": 215, "f02_thin": 170, "f02_thick": 170}


def test_csv_has_a_value_a_row(frame):
    rows = list(csv.DictReader(io.StringIO(change(frame, "--format", "csv").stdout)))
    assert len(rows) == 8 + 2 * 8
    assert {"record": "settings", "number": "", "key": "safety_class", "value": "2"} in rows
    assert {"record": "material", "number": "1", "key": "fu", "value": "215"} in rows


def test_a_model_without_settings_shows_the_defaults_and_says_so(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    shown = aluframe.json("settings", "frame.json")
    assert shown["settings_given"] is False
    # The defaults of the model's format.
    assert shown["settings"] == {
        "code": "GB50429-2007", "rib": True, "rib_ratio": 1.2, "safety_class": 2,
        "strength_ratio": 0.85, "seismic": False, "gamma_re_strength": 0.75, "gamma_re_stability": 0.8}
    assert change(aluframe).stderr == "frame.json has no settings; these are the defaults\n"


# Changing the settings

def test_every_setting_can_be_changed_and_nothing_else_changes_in_the_file(frame):
    done = change(frame, *(
        word for pair in ("rib=off", "rib-ratio=1.1", "safety-class=1", "strength-ratio=0.9",
                          "seismic=0", "gamma-re-strength=0.75", "gamma-re-stability=0.7",
                          "code=GB50429-2007") for word in ("--set", pair)))
    assert done.stdout == """\
rib on -> off
rib_ratio 1.2 -> 1.1
safety_class 2 -> 1
strength_ratio 0.85 -> 0.9
seismic on -> off
gamma_re_strength 0.8 -> 0.75
gamma_re_stability 0.8 -> 0.7
"""
    assert done.stderr == ""
    assert text_of(frame) == MODEL.replace(OLD_SETTINGS, (
        '{ "code": "GB50429-2007",\n\t\t"gamma_re_strength": 0.75 , "seismic":false '
        ', "rib": false , "rib_ratio": 1.1 , "safety_class": 1 , "strength_ratio": 0.9 '
        ', "gamma_re_stability": 0.7 }'))


def test_a_setting_that_is_taken_back_leaves_the_file_as_it_was(frame):
    change(frame, "--set", "seismic=off")
    change(frame, "--set", "seismic=on")
    assert text_of(frame) == MODEL


@pytest.mark.parametrize("word, value", [("on", True), ("off", False), ("true", True),
                                         ("false", False), ("1", True), ("0", False)])
def test_switches_take_several_words(frame, word, value):
    change(frame, "--set", "rib=" + ("off" if value else "on"))
    change(frame, "--set", "rib=" + word)
    assert frame.json("settings", "frame.json")["settings"]["rib"] is value


def test_settings_may_be_named_as_in_the_file(frame):
    assert change(frame, "--set", "gamma_re_strength=0.7").stdout == "gamma_re_strength 0.8 -> 0.7\n"


def test_settings_that_the_file_lacks_come_behind_its_units(frame):
    bare = MODEL.replace(f'\t"settings": {OLD_SETTINGS},\n', "")
    frame.write(bare)
    change(frame, "--set", "safety-class=3")
    assert text_of(frame) == bare.replace('"force": "kN"},', (
        '"force": "kN"},\n\t"settings": {"code": "GB50429-2007", "safety_class": 3},'))


def test_line_ends_and_a_byte_order_mark_stay(frame):
    text = "\ufeff" + MODEL.replace("\n", "\r\n")
    (frame.folder / "frame.json").write_bytes(text.encode("utf-8"))
    change(frame, "--set", "rib=off")
    assert text_of(frame) == text.replace('"seismic":true }', '"seismic":true , "rib": false }')


# Changing a material

def test_a_grade_gives_all_values_of_an_alloy(frame):
    done = change(frame, "--material", "1", "--grade", "6063A-T5")
    # GB 50429-2007: f0.2 160 up to 10 mm and 150 above, fu 200.
    assert done.stdout == """\
material 1: standard user -> GB50429-07(A)
material 1: grade X1 -> 6063A-T5
material 1: fu 215 -> 200
material 1: f02_thin 170 -> 160
material 1: f02_thick 170 -> 150
"""
    assert text_of(frame) == MODEL.replace(
        OLD_EXTRUSION, '{"number": 1, "name": "Extrusion", "alloy": "6063A-T5"}')


def test_density_and_thermal_expansion_stay(frame):
    frame.write(MODEL.replace('"fu": 215.0', '"fu": 215.0, "density": 2.66e-6, "thermal_expansion": 2.4e-5'))
    change(frame, "--material", "1", "--grade", "6061-T6")
    entry = json.loads(text_of(frame))["materials"][1]
    assert (entry["standard"], entry["grade"]) == ("GB50429-07(A)", "6061-T6")
    assert (entry["density"], entry["thermal_expansion"]) == (2.66e-6, 2.4e-5)


def test_values_of_the_user_have_neither_standard_nor_grade(frame):
    done = change(frame, "--material", "3", "--name", "Post", "--e", "69000", "--poisson", "0.33",
                  "--fu", "250", "--f02-thin", "200", "--f02-thick", "190")
    assert "material 3: grade 6061-T6 -> \"\"\n" in done.stdout
    assert material(frame, 3) == {
        "number": 3, "name": "Post", "standard": "user", "grade": "", "e": 69000, "poisson": 0.33,
        "fu": 250, "f02_thin": 200, "f02_thick": 190}


def test_what_the_user_does_not_give_stays(frame):
    change(frame, "--material", "1", "--fu", "220")
    assert material(frame, 1) == {
        "number": 1, "name": "Extrusion", "standard": "user", "grade": "", "e": 70000,
        "poisson": 0.3, "fu": 220, "f02_thin": 170, "f02_thick": 170}


def test_an_alloy_without_a_name_goes_on_under_its_grade(frame):
    change(frame, "--material", "3", "--fu", "260")
    assert material(frame, 3)["name"] == "6061-T6"


def test_a_name_alone_leaves_the_alloy(frame):
    assert change(frame, "--material", "3", "--name", "立柱 A").stdout == (
        'material 3: name "" -> "立柱 A"\n')
    assert '{"number": 3, "name": "立柱 A", "alloy": "6061-T6"}' in text_of(frame)


def test_a_name_that_is_the_old_grades_follows_the_new_one(frame):
    frame.write(MODEL.replace('"alloy": "6061-T6"', '"alloy": "6061-T6", "name": "6061-T6"'))
    change(frame, "--material", "3", "--grade", "6063-T5")
    assert material(frame, 3)["name"] == "6063-T5"


def test_settings_and_a_material_are_saved_together(frame):
    change(frame, "--material", "3", "--grade", "6063-T6", "--set", "rib=off", "--set", "safety-class=3")
    shown = frame.json("settings", "frame.json")
    assert (shown["settings"]["rib"], shown["settings"]["safety_class"]) == (False, 3)
    assert shown["materials"][0]["grade"] == "6063-T6"


# What was changed, in other formats

def test_changes_are_told_as_json_and_csv(frame):
    told = frame.json("settings", "frame.json", "--set", "rib=off", "--material", "1", "--fu", "220")
    assert told == [
        {"record": "settings", "number": None, "key": "rib", "before": True, "after": False},
        {"record": "material", "number": 1, "key": "grade", "before": "X1", "after": ""},
        {"record": "material", "number": 1, "key": "fu", "before": 215, "after": 220}]
    assert change(frame, "--set", "rib=on", "--format", "csv").stdout == (
        "record,number,key,before,after\nsettings,,rib,false,true\n")


# What is refused

@pytest.mark.parametrize("pair, message", [
    ("rib-ratio=0", "--set rib-ratio: found 0, must be between 1e-06 and 1e+30"),
    ("strength-ratio=9e-7", "--set strength-ratio: found 9e-07, must be between 1e-06 and 1e+30"),
    ("gamma-re-strength=-1", "--set gamma-re-strength: found -1, must be between 1e-06 and 1e+30"),
    ("gamma-re-stability=nan", "--set gamma-re-stability: found nan, must be between 1e-06 and 1e+30"),
    ("rib-ratio=2e30", "--set rib-ratio: found 2e+30, must be between 1e-06 and 1e+30"),
    ("rib-ratio=1,2", "--set rib-ratio: found '1,2', must be a number"),
    ("rib-ratio=", "--set rib-ratio: found '', must be a number"),
    ("rib=maybe", "--set rib: found 'maybe', must be on or off"),
    ("safety-class=4", "--set safety-class: found 4, must be 1, 2 or 3"),
    ("safety-class=2.5", "--set safety-class: found '2.5', must be a whole number"),
    ("code=GB50068-2018", "--set code: found 'GB50068-2018', must be GB50429-2007"),
])
def test_a_setting_that_cannot_be_is_refused(frame, pair, message):
    assert refused(frame, "--set", pair) == message + "\n"


@pytest.mark.parametrize("words", ["ribs=on", "rib", "=1", ""])
def test_an_unknown_setting_is_refused_with_those_that_there_are(frame, words):
    assert refused(frame, "--set", words) == (
        f"--set: found '{words}', must be KEY=VALUE with a key of code, rib, rib-ratio, safety-class, "
        "strength-ratio, seismic, gamma-re-strength, gamma-re-stability\n")


def test_a_setting_is_given_once(frame):
    assert refused(frame, "--set", "rib=on", "--set", "rib=off") == "--set rib: given twice\n"


def test_one_wrong_change_keeps_all_others_from_being_made(frame):
    errors = refused(frame, "--set", "safety-class=1", "--set", "rib-ratio=0", "--material", "3",
                     "--f02-thin", "0", "--poisson", "0")
    assert errors.splitlines() == [
        "--set rib-ratio: found 0, must be between 1e-06 and 1e+30",
        "--poisson: found 0, must be above 0 and at most 1e+30",
        "--f02-thin: found 0, must be above 0 and at most 1e+30"]


def test_a_fault_of_the_file_that_the_reader_lets_pass_must_be_mended_too(frame):
    text = MODEL.replace('"gamma_re_strength": 0.8', '"gamma_re_strength": 1e-9')
    frame.write(text)
    assert change(frame, "--set", "rib=off", status=1).stderr == (
        "--set gamma-re-strength: found 1e-09, must be between 1e-06 and 1e+30\n")
    assert text_of(frame) == text
    change(frame, "--set", "rib=off", "--set", "gamma-re-strength=0.75")


@pytest.mark.parametrize("arguments, message", [
    (["--material", "2", "--fu", "1"], "--material: found '2', must be a material of the model: 1, 3"),
    (["--material", "x", "--fu", "1"], "--material: found 'x', must be a material of the model: 1, 3"),
    (["--material", "-1", "--fu", "1"], "--material: found '-1', must be a material of the model: 1, 3"),
    (["--material", "1"], "--material: give --grade, --name or values with it"),
    (["--material", "1", "--e", "7e"], "--e: found '7e', must be a number"),
    (["--material", "1", "--poisson", "-0.3"], "--poisson: found -0.3, must be above 0 and at most 1e+30"),
    (["--material", "3", "--fu", "9", "--name", ""],
     "--name: found none, values of the user must have a name"),
])
def test_a_material_that_cannot_be_is_refused(frame, arguments, message):
    assert refused(frame, *arguments) == message + "\n"


def test_an_unknown_grade_is_refused_with_those_that_there_are(frame):
    errors = refused(frame, "--material", "1", "--grade", "6061-t6")
    assert errors.startswith("--grade: found '6061-t6', must be one of 6061-T4, 6061-T6, ")


@pytest.mark.parametrize("arguments", [
    ["--grade", "6061-T6"], ["--fu", "200"], ["--name", "A"],
    ["--material", "1", "--grade", "6061-T6", "--fu", "200"],
    ["--format", "xml"], ["--rib", "on"]])
def test_options_that_do_not_go_together_are_refused(frame, arguments):
    assert refused(frame, *arguments) != ""


def test_a_file_that_is_no_model_is_refused_with_its_fault(frame):
    frame.write("{}")
    assert change(frame, "--set", "rib=off", status=1).stderr == 'frame.json: missing field "format"\n'
    assert text_of(frame) == "{}"
    assert "none.json" in frame("settings", "none.json", status=1).stderr

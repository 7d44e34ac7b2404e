"""Design envelopes are checked by the states that they contain; by their extremes only when the model says so."""

import copy
import csv
import io
import json
import random
import re
import sqlite3

import pytest
from program import PIPE_W
from typed_states import TypedStates

# The strength of the pipe in bending alone is |My| − Mz over W·f, W alike about both axes and f = 200 N/mm²:
# a positive Mz relieves. Moments in kN·m.
RESISTANCE = 200 * PIPE_W / 1e6
G, W = (8.0, -8.0), (0.4, 16.4)  # each 16 kN·m, more than the 11.59 of the pipe
# Their extremes are (8, 16.4) and (0.4, -8): 8.4 kN·m each, which would pass.
ALONE, EXTREMES = 16 / RESISTANCE, 8.4 / RESISTANCE


def bent(case, my, mz):
    return {"element": 1, "case": case, "values": [[0, 0, 0, 0, my, mz]] * 5}


@pytest.fixture
def enveloped(pipe_beam):
    """The pipe under G or W, as the envelope 7."""
    pipe_beam["load_cases"] = [{"number": 1, "name": "G"}, {"number": 2, "name": "W"}]
    pipe_beam["forces"] = [bent(1, *G), bent(2, *W)]
    pipe_beam["combinations"] = [
        {"number": 7, "name": "Extremes", "kind": "envelope", "terms": [{"case": 1}, {"case": 2}]}]
    return copy.deepcopy(pipe_beam)


def strengths(rows):
    """Ratios of strength by combination and name; they are alike at all positions."""
    return {(row["combination"], row["combination_name"]): pytest.approx(row["ratio"], rel=1e-5)
            for row in rows if row["item"] == "strength"}


def test_two_states_that_fail_do_not_pass_as_their_envelope(aluframe, enveloped):
    aluframe.write(enveloped)
    out = aluframe("check", "frame.json", "--strict", status=4).stdout
    assert "combinations  1 (as 2 states)" in out
    assert f"{ALONE:.4f} (strength), element 1, position I, combination 7 Extremes: G\n" in out
    assert strengths(aluframe.json("results", "frame.json", "--element", 1)) == {
        (7, "Extremes: G"): ALONE, (7, "Extremes: W"): ALONE}


def test_a_model_that_wants_extremes_gets_them(aluframe, enveloped):
    enveloped["envelopes"] = "extremes"
    aluframe.write(enveloped)
    done = aluframe("check", "frame.json", "--strict")
    assert f"{EXTREMES:.4f} (strength)" in done.stdout
    assert "combinations  1 (2 with both sides of envelopes)" in done.stdout
    rows = aluframe.json("results", "frame.json", "--element", 1)
    assert {row["side"] for row in rows} == {"max", "min"}


def test_a_model_checked_by_states_has_no_remark(aluframe, enveloped):
    aluframe.write(enveloped)
    assert "extremes" not in aluframe("check", "frame.json").stdout


@pytest.mark.parametrize("command", [("check",), ("results",)])
def test_tables_and_json_name_the_state_that_governs(aluframe, enveloped, command):
    enveloped["combinations"][0]["terms"][1]["factor"] = 1.5
    aluframe.write(enveloped)
    aluframe("check", "frame.json")
    row = aluframe.json(*command, "frame.json")[0]
    prefix = "worst_" if command == ("check",) else ""
    assert (row[prefix + "combination"], row[prefix + "combination_name"]) == (7, "Extremes: 1.5W")


def test_the_safe_ratio_of_a_state_stands_by_its_envelope_and_its_own_name(aluframe, enveloped):
    enveloped["combinations"][0]["terms"][1]["factor"] = 1.5
    aluframe.write(enveloped)
    checked = aluframe.json("check", "frame.json")[0]
    stored = aluframe.json("results", "frame.json")
    table = aluframe("results", "frame.json", "--format", "csv").stdout
    summary = aluframe("check", "frame.json", "--format", "csv").stdout
    for row in (checked, *stored, *csv.DictReader(io.StringIO(table)), *csv.DictReader(io.StringIO(summary))):
        assert (int(row["safe_combination"]), row["safe_combination_name"]) == (7, "Extremes: 1.5W")
    shown = aluframe("results", "frame.json", "--element", 1).stdout
    assert re.search(r"^Safe ratio .*, combination 7 Extremes: 1\.5W$", shown, re.MULTILINE)


def test_what_is_told_of_a_state_names_its_envelope(aluframe, enveloped):
    for forces in enveloped["forces"]:
        for values in forces["values"]:
            values[3] = 3.0  # torsion, which no check is for
    aluframe.write(enveloped)
    report = ("report", "frame.json", "--readable", "frame.txt")
    for command in (("check", "frame.json"), ("results", "frame.json"),
                    ("results", "frame.json", "--element", 1), report):
        shown = aluframe(*command).stdout
        assert re.search(r"largest Mx 3 kN·m at element 1, combination 7, position I\n"
                         r"      second opinion \d+\.\d{4} \(element 1, combination 7\)", shown), command


def test_a_list_of_remarks_names_the_envelope_of_a_state(aluframe, enveloped):
    for forces in enveloped["forces"]:
        for values in forces["values"]:
            values[0] = 5.0  # tension beside the bending, without a stability check
    aluframe.write(enveloped)
    aluframe("check", "frame.json")
    shown = aluframe("results", "frame.json", "--remarks").stdout
    assert re.search(r"C1, .*; second opinion \d+\.\d{4} \(element 1, combination 7\)\n", shown), shown


def test_the_overview_shows_the_envelope_and_its_state_side_by_side(aluframe, enveloped):
    aluframe.write(enveloped)
    aluframe("check", "frame.json")
    assert aluframe("results", "frame.json").stdout.splitlines()[2].split()[-7:-2] == [
        "I", "7", "Extremes:", "G", "-"]


def test_nested_envelopes_are_checked_in_every_choice(aluframe, enveloped):
    enveloped["combinations"] = [
        {"number": 1, "name": "Dead", "kind": "envelope", "design": False,
         "terms": [{"case": 1}, {"case": 1, "factor": 1.35}]},
        {"number": 2, "name": "Wind", "kind": "envelope", "design": False,
         "terms": [{"case": 2, "factor": 1.5}, {"case": 2, "factor": -1.5}]},
        {"number": 3, "name": "All", "terms": [{"combination": 1}, {"combination": 2, "factor": 0.6}]}]
    aluframe.write(enveloped)
    assert "combinations  1 (as 4 states)" in aluframe("check", "frame.json").stdout
    # |My| − Mz of dead load times 1 or 1.35 with wind times ±0.9, by hand from G and W above.
    by_hand = {f"All: {name}": abs(abs(g * G[0] + w * W[0]) - (g * G[1] + w * W[1])) / RESISTANCE
               for name, g, w in [("G+0.9W", 1, 0.9), ("G-0.9W", 1, -0.9),
                                  ("1.35G+0.9W", 1.35, 0.9), ("1.35G-0.9W", 1.35, -0.9)]}
    assert strengths(aluframe.json("results", "frame.json", "--element", 1)) == {
        (3, name): ratio for name, ratio in by_hand.items()}


def any_combinations(numbers):
    """Dead load alone, and five of load cases and of those before them, the last three for design."""
    combinations = [{"number": 1, "terms": [{"case": 1}]}]
    for number in range(2, 7):
        terms = [numbers.choice([{"case": numbers.randint(1, 3)}, {"combination": numbers.randint(1, number - 1)}])
                 | {"factor": numbers.choice([-1.5, -1, 0, 0.7, 1, 1.3])} for _ in range(numbers.randint(1, 3))]
        combinations.append({
            "number": number, "kind": numbers.choice(["linear", "envelope"]), "design": number > 3,
            "seismic": numbers.random() < 0.2, "terms": terms})
    return combinations


def any_forces(numbers, case):
    sizes = (200, 10, 10, 0, 12, 12)
    return {"element": 1, "case": case,
            "values": [[numbers.uniform(-size, size) for size in sizes] for _ in range(5)]}


@pytest.mark.parametrize("seed", range(12))
def test_states_have_the_results_of_the_same_sums_typed_as_combinations(aluframe, enveloped, seed):
    numbers = random.Random(seed)
    enveloped["settings"] = {"seismic": True}
    enveloped["load_cases"].append({"number": 3, "name": "E", "kind": "seismic_static"})
    enveloped["forces"] = [any_forces(numbers, case) for case in (1, 2, 3)]
    enveloped["combinations"] = any_combinations(numbers)
    typed = TypedStates(enveloped)
    aluframe.write(enveloped, "states.json")
    aluframe.write(typed.model, "typed.json")
    for name in ("states.json", "typed.json"):
        aluframe("check", name)
    found = aluframe.json("results", "states.json", "--element", 1)
    expected = aluframe.json("results", "typed.json", "--element", 1)
    for row in found:
        key = row["combination"], row["combination_name"]
        row["combination"] = typed.numbers.get(key, row["combination"])
    assert [without_name(row) for row in found] == [without_name(row) for row in expected]
    assert aluframe.json("check", "states.json")[0]["worst_ratio"] == max(
        (row["ratio"] for row in expected if row["ratio"] is not None), default=None)


def without_name(row):
    return {name: value for name, value in row.items() if name != "combination_name"}


def test_an_envelope_is_chosen_by_its_number(aluframe, enveloped):
    enveloped["combinations"].insert(0, {"number": 1, "name": "Dead", "terms": [{"case": 1}]})
    aluframe.write(enveloped)
    # The state G is combination 1, which stands for it.
    out = aluframe("check", "frame.json", "--combinations", 7).stdout
    assert "combinations  2 (as 2 states)" in out
    rows = aluframe.json("results", "frame.json", "--element", 1, "--combinations", 7)
    assert strengths(rows) == {(1, "Dead"): ALONE, (7, "Extremes: W"): ALONE}
    rows = aluframe.json("results", "frame.json", "--element", 1, "--combinations", 1)
    assert strengths(rows) == {(1, "Dead"): ALONE}


def test_one_state_alone_is_chosen_by_the_number_that_the_report_gives_it(aluframe, enveloped):
    aluframe.write(enveloped)
    out = aluframe("check", "frame.json", "--combinations", 7002).stdout
    assert "combinations  1 (as 1 state); the model has " in out
    assert strengths(aluframe.json("results", "frame.json", "--element", 1)) == {(7, "Extremes: W"): ALONE}


def test_the_report_lists_the_states_with_their_cases_and_numbers(aluframe, enveloped):
    enveloped["combinations"][0]["terms"][1]["factor"] = 1.5
    aluframe.write(enveloped)
    aluframe("check", "frame.json")
    aluframe("report", "frame.json", "--readable", "frame.txt")
    text = (aluframe.folder / "frame.txt").read_text(encoding="utf-8")
    assert "   7001 = 7 Extremes: G  0                 G( 1.000)\n" in text
    assert "   7002 = 7 Extremes: 1.5W  0                 W( 1.500)\n" in text
    assert "(LCB=7002, POS=I)" in text


def test_too_many_states_are_refused_with_their_number_and_a_way_out(aluframe, enveloped):
    # Ten choices of G times 1 or 1 + 2^-n: sums of different powers of two are 1024 different ones.
    enveloped["combinations"] = [
        {"number": n, "kind": "envelope", "design": False,
         "terms": [{"case": 1}, {"case": 1, "factor": 1 + 2.0**-n}]} for n in range(1, 11)]
    enveloped["combinations"].append(
        {"number": 20, "name": "Many", "terms": [{"combination": n} for n in range(1, 11)]})
    aluframe.write(enveloped)
    for command in ("check", "validate"):
        error = aluframe(command, "frame.json", status=1).stderr
        assert ("frame.json: /combinations/10: combination 20 contains up to 1024 states, more than the 999 that are "
                "checked one by one; nest fewer envelopes in it, or set \"envelopes\": \"extremes\"") in error
    enveloped["envelopes"] = "extremes"
    aluframe.write(enveloped)
    aluframe("check", "frame.json")


def test_seismic_factors_apply_to_the_states_with_an_earthquake_alone(aluframe, enveloped):
    enveloped["settings"] = {"seismic": True, "gamma_re_strength": 0.5}
    enveloped["load_cases"][1]["kind"] = "seismic_static"
    aluframe.write(enveloped)
    aluframe("check", "frame.json")
    assert strengths(aluframe.json("results", "frame.json", "--element", 1)) == {
        (7, "Extremes: G"): ALONE, (7, "Extremes: W"): ALONE / 2}


def test_an_element_without_forces_for_some_states_is_told_once_of_their_envelope(aluframe, enveloped):
    enveloped["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    enveloped["elements"].append({"number": 2, "nodes": [2, 3], "section": 1, "material": 1})
    enveloped["forces"].append({**bent(1, *G), "element": 2})
    enveloped["combinations"][0]["terms"].append({"case": 2, "factor": 1.5})
    aluframe.write(enveloped)
    out = aluframe("check", "frame.json").stdout
    assert out.count("element 2, combination 7: no forces (none for load case 2)") == 1
    assert "2 of 2 checked" in out


def test_second_order_analyses_each_state_also_where_a_sum_contains_an_envelope(aluframe, enveloped):
    del enveloped["forces"]
    enveloped["load_cases"] = [
        {"number": 1, "name": "G", "nodal": [{"nodes": [2], "Fx": -20}]},
        {"number": 2, "name": "W", "points": [{"elements": [1], "direction": "Z", "at": 0.5, "force": -4}]}]
    enveloped["combinations"] = [
        {"number": 1, "name": "Wind", "kind": "envelope", "design": False,
         "terms": [{"case": 2, "factor": 1.5}, {"case": 2, "factor": -1.5}]},
        {"number": 2, "name": "All", "terms": [{"case": 1}, {"combination": 1}]}]
    aluframe.write(enveloped)
    out = aluframe("check", "frame.json", "--second-order").stdout
    assert "2 second-order analyses" in out
    names = {name for _, name in strengths(aluframe.json("results", "frame.json", "--element", 1))}
    assert names == {"All: G+1.5W", "All: G-1.5W"}
    # The same sums as combinations of the model give the same ratios.
    by_states = aluframe.json("results", "frame.json", "--element", 1)
    enveloped["combinations"] = [
        {"number": 1, "terms": [{"case": 1}, {"case": 2, "factor": 1.5}]},
        {"number": 2, "terms": [{"case": 1}, {"case": 2, "factor": -1.5}]}]
    aluframe.write(enveloped)
    aluframe("check", "frame.json", "--second-order")
    typed = aluframe.json("results", "frame.json", "--element", 1)
    assert [row["ratio"] for row in by_states] == [row["ratio"] for row in typed]


def test_the_result_file_says_which_combinations_stand_for_an_envelope(aluframe, enveloped):
    enveloped["combinations"].insert(0, {"number": 1, "name": "Dead", "terms": [{"case": 1}]})
    aluframe.write(enveloped)
    aluframe("check", "frame.json")
    file = sqlite3.connect(aluframe.folder / "frame.aluresult")
    assert file.execute("SELECT number, name, state_of FROM combination ORDER BY sequence").fetchall() == [
        (1, "Dead", None), (7002, "Extremes: W", 7)]
    assert file.execute("SELECT envelope, combination FROM envelope_state ORDER BY sequence").fetchall() == [
        (7, 1), (7, 7002)]
    file.close()


def test_an_unknown_way_of_checking_envelopes_is_refused(aluframe, enveloped):
    enveloped["envelopes"] = "sides"
    aluframe.write(json.dumps(enveloped))
    error = aluframe("validate", "frame.json", status=1).stderr
    assert "/envelopes" in error and "states, extremes" in error

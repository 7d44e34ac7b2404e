"""The buckling of the whole frame, from end to end: columns whose factors are worked out by hand."""

import csv
import io
import math
import sqlite3

import pytest
from loaded_beam import beam, leaning_column  # noqa: F401
from program import PIPE_I

E, SPAN = 70000.0, 4000.0
# Of the pipe 100 × 10 of 4 m, clamped at its foot, kN. Its shear flexibility lowers it by less than 0.2 %.
CANTILEVER = math.pi**2 * E * PIPE_I / (4 * SPAN**2) / 1000


def upright(beam, **cases):  # noqa: F811
    """The pipe as a column, clamped at its foot, under axial loads on its top by load case, kN."""
    foot, top = beam["nodes"]
    top |= foot | {"number": top["number"], "z": foot["z"] + 4}
    beam["supports"] = [{"node": 1, "restrained": "all"}]
    beam["load_cases"] = [{"number": number, "name": name, "nodal": [{"nodes": [2], "Fz": -load}]}
                          for number, (name, load) in enumerate(cases.items(), 1)]
    return beam


def linear(number, name, *terms):
    return {"number": number, "name": name, "terms": [{"case": case, "factor": factor} for case, factor in terms]}


@pytest.fixture
def column(aluframe, beam):  # noqa: F811
    """Under 2 and 4 kN: one combination of both, one pulled, and an envelope of both cases."""
    model = upright(beam, G=2, Q=4)
    model["combinations"] = [linear(1, "both", (1, 1.3), (2, 1.5)), linear(2, "up", (1, -1.0)),
                             {"number": 3, "name": "either", "kind": "envelope", "terms": [
                                 {"case": 1, "factor": 2.0}, {"case": 2, "factor": 3.0}]}]
    aluframe.model = model
    aluframe.write(model)
    return aluframe


def near(value):
    return pytest.approx(value, rel=2e-3)


def test_the_factor_of_a_combination_is_that_of_its_axial_force(column):
    rows = column.json("buckling", "frame.json")
    assert [row["combination"] for row in rows] == [1, 2, 3]
    assert rows[0]["factor"] == near(CANTILEVER / (1.3 * 2 + 1.5 * 4))
    assert rows[1]["factor"] is None and rows[1]["shape"] == "nothing is compressed, or next to nothing"
    assert rows[2]["factor"] == near(CANTILEVER / 12), "the larger of its two states"
    assert rows[0]["elements"] == "1" and "node 2 moves along" in rows[0]["shape"]


def test_load_cases_and_loads_the_other_way_round(column):
    rows = column.json("buckling", "frame.json", "--cases", "2", "--reversed")
    assert [row["load_case"] for row in rows] == [2]
    assert rows[0]["factor"] == near(CANTILEVER / 4)
    rows = column.json("buckling", "frame.json", "--combinations", "2", "--reversed")
    assert rows[0]["factor"] is None
    assert rows[1]["mode"] == "reversed" and rows[1]["factor"] == near(-CANTILEVER / 2)


def test_higher_modes_are_those_of_three_quarters_of_a_wave(column):
    rows = column.json("buckling", "frame.json", "--combinations", "1", "--modes", "3")
    first = CANTILEVER / 8.6
    # About both axes of the pipe; the third by 9, lowered by shear a little more.
    assert [row["factor"] for row in rows] == [near(first), near(first), pytest.approx(9 * first, rel=2e-2)]


def test_a_frame_without_loads_or_with_a_wrong_number_is_refused(column):
    assert "9" in column("buckling", "frame.json", "--combinations", "9", status=1).stderr
    assert "--modes" in column("buckling", "frame.json", "--modes", "0", status=1).stderr
    assert "do not go together" in column(
        "buckling", "frame.json", "--cases", "1", "--combinations", "1", status=1).stderr


def test_check_tells_the_smallest_factor_and_stores_all(column):
    done = column("check", "frame.json")
    line = next(line for line in done.stdout.splitlines() if line.startswith("  buckling "))
    words = line.split()
    assert float(words[1]) == near(CANTILEVER / 12) and "combination 3" in line
    remark = next(row for row in column.json("results", "frame.json", "--remarks") if row["kind"] == "buckling")
    assert "combinations 1, 3 lie below the limit of 10" in remark["text"]
    assert "second order" in remark["text"] and remark["second_opinion"] is None
    rows = column.json("results", "frame.json", "--buckling")
    assert [(row["combination"], row["name"]) for row in rows] == [(1, "both"), (2, "up"), (3, "either")]
    assert rows[2]["factor"] == near(CANTILEVER / 12)
    assert f"\nBuckling: {words[1]} times the loads of combination 3" in column("results", "frame.json").stdout
    row = column.json("check", "frame.json")[0]
    assert (row["buckling"], row["buckling_combination"]) == ("on", 3)
    assert row["buckling_factor"] == rows[2]["factor"]
    table = next(csv.DictReader(io.StringIO(column("check", "frame.json", "--format", "csv").stdout)))
    assert float(table["buckling_factor"]) == rows[2]["factor"]


def test_a_combination_beyond_its_buckling_load_fails(column):
    model = column.model
    model["combinations"] = [linear(1, "too much", (2, 1.02 * CANTILEVER / 4))]
    # A length factor that hides it from the checks of the member.
    model["elements"][0]["design"] = {"length_factors": {"y": 0.1, "z": 0.1}}
    column.write(model)
    done = column("check", "frame.json")
    assert "combination 1 buckles the frame: 0.98 times the loads of combination 1" in done.stdout
    rows = column.json("results", "frame.json", "--remarks")
    assert [row["second_opinion"] for row in rows if row["kind"] == "buckling"] == [None]
    assert column.json("check", "frame.json")[0]["elements_over_1"] == 0
    assert column("check", "frame.json", "--strict", status=4)
    assert column("check", "frame.json", "--strict=safe", status=4)
    assert "not looked at (--no-buckling)" in column("check", "frame.json", "--no-buckling").stdout
    assert column.json("check", "frame.json", "--no-buckling")[0]["buckling"] == "off"
    assert "did not look at" in column("results", "frame.json", "--buckling", status=1).stderr


def test_the_limit_of_the_model_decides_on_the_remark(column):
    column.write(column.model | {"frame": {"buckling_limit": 1.1}})
    assert "lie below the limit" not in column("check", "frame.json").stdout
    column.write(column.model | {"frame": {"buckling_limit": 0}})
    assert "/frame/buckling_limit: found 0, must be positive" in column(
        "validate", "frame.json", status=1).stderr


def test_only_the_combinations_of_the_run_are_looked_at(column):
    column("check", "frame.json", "--combinations", "1")
    assert [row["combination"] for row in column.json("results", "frame.json", "--buckling")] == [1]


def test_given_forces_have_no_factor_and_that_is_said(column):
    model = column.model
    model["forces"] = [{"element": 1, "case": 2, "values": [[-20, 0, 0, 0, 0, 0]] * 5}]
    column.write(model)
    done = column("check", "frame.json")
    assert "unknown of combination 1, 3: load case 2 has given forces" in done.stdout
    rows = column.json("results", "frame.json", "--buckling")
    assert rows[0]["factor"] is None and "given forces" in rows[0]["shape"]
    # Of the envelope, the state without given forces is known.
    assert rows[2]["factor"] == near(CANTILEVER / 4) and "unknown of other states" in rows[2]["shape"]
    assert [row["factor"] for row in column.json("buckling", "frame.json", "--combinations", "1")] == [None]


def test_an_envelope_within_a_sum_has_the_factor_of_its_worst_state(column):
    model = column.model | {"envelopes": "extremes"}
    model["combinations"] = [{"number": 1, "name": "wind", "kind": "envelope", "design": False, "terms": [
        {"case": 1, "factor": 1.0}, {"case": 2, "factor": 1.0}]},
        {"number": 2, "name": "sum", "terms": [{"combination": 1, "factor": 2.0}, {"case": 1, "factor": 1.0}]}]
    column.write(model)
    rows = column.json("buckling", "frame.json")
    assert [row["factor"] for row in rows] == [near(CANTILEVER / (2 * 4 + 2))]
    column("check", "frame.json")
    assert column.json("results", "frame.json", "--buckling")[0]["factor"] == rows[0]["factor"]


def test_a_load_between_the_nodes_presses_the_stub_below_it(column):
    """A tenth of the column alone, as with a node at the load: the checks' own factor is hidden."""
    model = column.model
    model["load_cases"] = [{"number": 1, "name": "bracket", "points": [
        {"elements": [1], "direction": "Z", "at": 0.1, "force": -1.05 * CANTILEVER * 100}]}]
    model["combinations"] = [linear(1, "stub", (1, 1.0))]
    model["elements"][0]["design"] = {"length_factors": {"y": 0.1, "z": 0.1}}
    column.write(model)
    # Shear lowers the load of so short a stub.
    assert 0.75 < column.json("buckling", "frame.json")[0]["factor"] < 1 / 1.05
    column("check", "frame.json", "--strict", status=4)


def test_second_order_names_the_factor_of_loads_without_equilibrium(aluframe, beam):  # noqa: F811
    buckling_load = math.pi**2 * E * 8e6 / (4 * SPAN**2) / 1000
    aluframe.write(beam | leaning_column(1.25 * buckling_load))
    done = aluframe("analyse", "frame.json", "--second-order", "--cases", "1", status=1)
    assert "by forces of first order the factor of these loads is 0.8" in done.stderr


def test_a_report_on_a_model_that_was_never_checked_stores_the_factors(column):
    column("report", "frame.json")
    with sqlite3.connect(column.folder / "frame.aluresult") as database:
        rows = dict(database.execute("SELECT combination, factor FROM buckling"))
    assert rows[3] == near(CANTILEVER / 12) and rows[2] is None

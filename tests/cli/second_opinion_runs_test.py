"""Second opinions of whole runs: members under several numbers, given forces, reports."""

import copy
import re

import pytest

from second_opinion_models import beam, with_forces

# A column of 6 m in two pieces, compressed all along and bent at its head alone.
COLUMN = {
    "format": "aluframe-model", "version": 1, "units": {"force": "kN", "length": "m"},
    "materials": [{"number": 1, "alloy": "6061-T6"}],
    "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 5}}],
    "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 3},
              {"number": 3, "x": 0, "y": 0, "z": 6}],
    "supports": [{"node": 1, "restrained": "all"}, {"node": 3, "restrained": ["Dx", "Dy"]}],
    "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
                 {"number": 2, "nodes": [2, 3], "section": 1, "material": 1}],
    "members": [{"number": 1, "elements": [1, 2], "length_factors": {"y": 1, "z": 1}}],
    "load_cases": [{"number": 1}],
    "combinations": [{"number": 1, "terms": [{"case": 1}]}],
    # N is largest at the foot, My at the head.
    "forces": [{"element": 1, "case": 1, "values": [[-12, 0, 0, 0, 0.1, 0]] * 5},
               {"element": 2, "case": 1, "values": [[-4, 0, 0, 0, 2 + i / 2, 0] for i in range(5)]}],
}


def safe_of(aluframe, model):
    return aluframe.json("check", aluframe.write(model))[0]["safe_ratio"]


def test_the_largest_forces_of_a_member_meet_whatever_number_its_sections_have(aluframe):
    twin = copy.deepcopy(COLUMN)
    twin["sections"].append({**COLUMN["sections"][0], "number": 2, "name": "the same"})
    twin["materials"].append({**COLUMN["materials"][0], "number": 2, "name": "the same"})
    twin["elements"][1].update(section=2, material=2)
    one = aluframe.json("check", aluframe.write(COLUMN))[0]
    assert "C7" in one["safe_rules"]
    assert safe_of(aluframe, twin) == pytest.approx(one["safe_ratio"], rel=1e-12)


def test_another_section_of_the_member_says_nothing_of_this_one(aluframe):
    other = copy.deepcopy(COLUMN)
    other["sections"].append({"number": 2, "shape": "P", "dimensions": {"D": 140, "t": 8}})
    other["elements"][1]["section"] = 2
    assert safe_of(aluframe, other) < safe_of(aluframe, COLUMN)


def peaked():
    """The forces of a point load of 4.9 kN at 3/8 of 4 m, at the five positions, without the load."""
    # V = 4.9·2.5/4 = 3.0625 up to the load and −1.8375 behind it; M = V·x and 1.8375·(4 − x).
    rows = [(3.0625, 0), (3.0625, 3.0625), (-1.8375, 3.675), (-1.8375, 1.8375), (-1.8375, 0)]
    model = beam("B 150x60x3x3", 4, "6063-T5")
    return with_forces(model, *[[0, 0, v, 0, m, 0] for v, m in rows])


def test_peaks_of_given_forces_without_their_load_are_called_an_estimate(aluframe):
    text = aluframe("check", aluframe.write(peaked())).stdout
    assert re.search(r"^    P, element 1: given forces of load case 1 do not follow from loads", text, re.M)


def of_kind(aluframe, model, kind):
    return [row for row in aluframe.json("check", aluframe.write(model))[0]["remarks"] if row["kind"] == kind]


def test_peaks_between_positions_have_one_remark_a_run(aluframe):
    # Two cases of the point load, and one of unsigned maxima, which no load makes.
    model = peaked()
    rows = model["forces"][0]["values"]
    model["load_cases"] += [{"number": 2}, {"number": 3, "kind": "response_spectrum"}]
    model["forces"] += [{"element": 1, "case": 2, "values": rows},
                        {"element": 1, "case": 3, "values": [[abs(one) for one in row] for row in rows]}]
    model["combinations"][0]["terms"] += [{"case": 2}, {"case": 3}]
    remark, = of_kind(aluframe, model, "P")
    assert "given forces of load case 3 follow from no load" in remark["text"]
    assert "five positions is unknown (element 1); given" in remark["text"]
    assert "given forces of load case 1-2 do not follow from loads of the model" in remark["text"]
    aluframe("check", "frame.json", "--combinations", "1")
    aluframe("report", "frame.json")
    assert aluframe("results", "frame.json").stdout.count("    P, element 1: ") == 1


def test_forces_given_at_two_ends_are_not_said_to_peak_between_five_positions(aluframe):
    model = with_forces(beam("P 100x10", 4), [1, 0, 10, 0, -2, 0], [1, 0, -10, 0, -2, 0])
    assert len(of_kind(aluframe, model, "ends")) == 1
    assert of_kind(aluframe, model, "P") == []


def test_computed_forces_follow_from_their_loads_however_many_elements_there_are(aluframe):
    # At the tip forces are the rounding of those at the support.
    model = beam("H 200x100x8x10", 4)
    pieces = 2000
    model["nodes"] = [{"number": n + 1, "x": 4 * n / pieces, "y": 0, "z": 3} for n in range(pieces + 1)]
    model["elements"] = [{**model["elements"][0], "number": n, "nodes": [n, n + 1]}
                         for n in range(1, pieces + 1)]
    model["supports"] = [{"node": 1, "restrained": "all"}]
    model["load_cases"][0]["self_weight"] = 1
    assert of_kind(aluframe, model, "P") == []


def test_elements_checked_for_a_report_have_a_second_opinion_too(aluframe):
    aluframe.write(COLUMN)
    aluframe("check", "frame.json")
    whole = aluframe.json("results", "frame.json")
    (aluframe.folder / "frame.aluresult").unlink()
    aluframe("check", "frame.json", "--elements", 1)
    aluframe("report", "frame.json")
    added = aluframe.json("results", "frame.json")
    assert {row["element"]: row["safe_ratio"] for row in added} == pytest.approx(
        {row["element"]: row["safe_ratio"] for row in whole}, rel=1e-12)


def test_the_readable_copy_of_a_report_ends_with_the_second_opinion(aluframe):
    aluframe.write(COLUMN)
    aluframe("check", "frame.json")
    aluframe("report", "frame.json", "--readable", "frame.txt")
    report = (aluframe.folder / "frame.alu").read_bytes()
    readable = (aluframe.folder / "frame.txt").read_text(encoding="utf-8")
    assert b"Second opinion" not in report
    ending = readable.partition("Second opinion (no part of the calculation report")[2]
    assert re.search(r"^ +1 +\d\.\d{4} +\d\.\d{4} +\w+.* C7", ending, re.M), ending


@pytest.mark.parametrize("command", [["results", "frame.json", "--output"], ["report", "frame.json", "--output"],
                                     ["report", "frame.json", "--readable"], ["section", "P 100x5", "--svg"]])
def test_a_table_of_forces_is_not_written_over(aluframe, command):
    model = copy.deepcopy(COLUMN)
    rows = [[f["element"], 1, i, *row] for f in model.pop("forces") for i, row in enumerate(f["values"])]
    table = "element,case,position,N,Fy,Fz,Mx,My,Mz\n" + "".join(",".join(map(str, r)) + "\n" for r in rows)
    aluframe.write(table, "forces.csv")
    aluframe.write(model)
    aluframe("check", "frame.json", "--forces", "forces.csv")
    done = aluframe(*command, "forces.csv", status=1)
    assert "forces.csv: holds a table of element forces" in done.stderr
    assert (aluframe.folder / "forces.csv").read_text() == table


@pytest.mark.parametrize("first", [1, 2])
def test_the_worst_second_opinion_of_torsion_stays_when_a_report_adds_elements(aluframe, first):
    # Pipes with σ = 138.02; of the second τ = 12e6·50/5,796,238 = 103.51: √(σ² + 3·τ²)/200 = 1.1313.
    model = with_forces(beam("P 100x10", 4), [0, 0, 0, 4, 8, 0])
    model["nodes"] += [{"number": 3, "x": 0, "y": 9, "z": 3}, {"number": 4, "x": 4, "y": 9, "z": 3}]
    model["supports"] = model["supports"] + [{**one, "node": one["node"] + 2} for one in model["supports"]]
    model["elements"].append({**model["elements"][0], "number": 2, "nodes": [3, 4]})
    model["forces"].append({"element": 2, "case": 1, "values": [[0, 0, 0, 12, 8, 0]] * 5})
    aluframe("check", aluframe.write(model), "--elements", str(first))
    told = "largest Mx 12 kN·m at element 2, combination 1, position I\n      second opinion 1.1313 (element 2"
    assert told in aluframe("report", "frame.json", "--readable", "frame.txt").stdout
    assert told in aluframe("results", "frame.json").stdout
    assert told in (aluframe.folder / "frame.txt").read_text(encoding="utf-8")
    rows = aluframe.json("results", "frame.json", "--not-checked")
    assert [row["second_opinion"] for row in rows if row["force"] == "Mx"] == [pytest.approx(1.1313, rel=1e-4)]


def tee_of_two_elements(pipe_beam, *forces):
    """A tee as a member of two elements, each under one axial force and one moment throughout, kN and kN·m."""
    return pipe_beam | {
        "sections": [{"number": 1, "profile": "T 100x100x8x8"}],
        "nodes": [{"number": n, "x": n - 1, "y": 0, "z": 0} for n in (1, 2, 3)],
        "supports": [{"node": 1, "restrained": "all"}, {"node": 3, "restrained": ["Dy", "Dz"]}],
        "elements": [{"number": n, "nodes": [n, n + 1], "section": 1, "material": 1} for n in (1, 2)],
        "members": [{"number": 1, "elements": [1, 2]}],
        "load_cases": [{"number": 1}],
        "combinations": [{"number": 1, "terms": [{"case": 1}]}],
        "forces": [{"element": e, "case": 1, "values": [[n, 0, 0, 0, my, 0]] * 5}
                   for e, (n, my) in enumerate(forces, 1)]}


def test_the_largest_axial_force_meets_the_moment_of_either_sign(aluframe, pipe_beam):
    """Hogging compresses the stem of a tee. Acting together from the start, both forces have the ratio that a member
    with each of them in one element must have."""
    def safe_of(*forces):
        return aluframe.json("check", aluframe.write(tee_of_two_elements(pipe_beam, *forces)))[0]
    apart = safe_of((-20, 0.1), (-1, -1.5))
    together = safe_of((-20, -1.5), (-20, -1.5))
    assert "C7" in apart["safe_rules"]
    assert apart["safe_ratio"] == pytest.approx(together["safe_ratio"], rel=1e-6)

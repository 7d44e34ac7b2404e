"""Area loads from end to end: whatever a command does with loads, it does with those of areas as well.

The same frame once with area loads and once with the line loads written out that these become: every command gives
the same. What area loads become is compared with work by hand in tests/verification.
"""

import copy
import json

import pytest
from loaded_beam import beam  # noqa: F401
from program import by_path

NODES = [(x, y, z) for z in (0.0, 3.0) for y in (0.0, 4.0) for x in (0.0, 5.0)]
# Four columns, a ring of beams on top.
ELEMENTS = [(1, 5), (2, 6), (3, 7), (4, 8), (5, 6), (7, 8), (5, 7), (6, 8)]
ROOF = {"region": {"nodes": [5, 6, 8, 7]}}
WALL = {"region": {"nodes": [1, 2, 6, 5]}}


def bay():
    return copy.deepcopy({
        "format": "aluframe-model", "version": 1, "title": "Bay",
        "materials": [{"number": 1, "alloy": "6061-T6"}],
        "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 150, "t": 8}}],
        "nodes": [{"number": number, "x": x, "y": y, "z": z} for number, (x, y, z) in enumerate(NODES, 1)],
        "supports": [{"node": number, "restrained": "all"} for number in range(1, 5)],
        "elements": [{"number": number, "nodes": list(ends), "section": 1, "material": 1}
                     for number, ends in enumerate(ELEMENTS, 1)],
        "load_cases": [
            {"number": 1, "name": "G", "self_weight": 1},
            {"number": 2, "name": "S", "area": [ROOF | {"span": "two_way", "snow": {"s0": 0.5, "mu_r": 1}}]},
            {"number": 3, "name": "W", "area": [
                WALL | {"span": "X", "direction": "Y",
                        "wind": {"w0": 0.45, "roughness": "B", "height": 12, "mu_s": 0.8, "beta_z": 1.5}},
                {"elements": [3, 4], "spacing": 2.5, "direction": "Y", "pressure": 0.4},
                ROOF | {"span": "Y", "direction": "normal", "pressure": 0.3}]}],
        "combinations": [{"number": 1, "name": "ULS", "terms": [
            {"case": 1, "factor": 1.3}, {"case": 2, "factor": 1.5}, {"case": 3, "factor": 0.9}]}],
    })


def written_out(aluframe, model):
    """The model with line loads in place of area loads."""
    aluframe.write(model)
    rows = aluframe.json("analyse", "frame.json", "--show", "line_loads")["line_loads"]
    assert len(rows) > 10
    model = copy.deepcopy(model)
    for case in model["load_cases"]:
        if case.pop("area", None) is None:
            continue
        case["span"] = [{"elements": [row["element"]], "direction": row["along"],
                         "values": [row["from_value"], row["to_value"]], "from": row["from"], "to": row["to"]}
                        for row in rows if row["case"] == case["number"]]
    return model


def same(one, other):
    """Equal but for rounding, and for the names of files and the residuals of equations."""
    if isinstance(one, dict):
        assert one.keys() == other.keys()
        for key in one.keys() - {"residual", "force_error"}:
            same(one[key], other[key])
    elif isinstance(one, list):
        assert len(one) == len(other)
        for left, right in zip(one, other):
            same(left, right)
    elif isinstance(one, float):
        assert one == pytest.approx(other, rel=1e-6, abs=1e-9)
    else:
        assert one == other


def tables(aluframe, model, *command):
    aluframe.write(model)
    out = aluframe.json(*command)
    for name in ("area_loads", "pressures", "line_loads"):
        if isinstance(out, dict):
            out.pop(name, None)
    return out


@pytest.mark.parametrize("command", [
    ["analyse", "frame.json"],
    ["analyse", "frame.json", "--combinations", "1"],
    ["analyse", "frame.json", "--second-order"],
    ["analyse", "frame.json", "--large-displacements", "--combinations", "1"],
    ["buckling", "frame.json"],
    ["buckling", "frame.json", "--cases", "2"],
], ids=" ".join)
def test_an_analysis_takes_area_loads_as_the_line_loads_that_they_become(aluframe, command):
    model = bay()
    same(tables(aluframe, model, *command), tables(aluframe, written_out(aluframe, model), *command))


@pytest.mark.parametrize("options", [[], ["--second-order"]], ids=["first order", "second order"])
def test_a_check_takes_them_so_too(aluframe, options):
    model = bay()
    results = []
    for each in (model, written_out(aluframe, model)):
        aluframe.write(each)
        aluframe("check", "frame.json", *options)
        results.append(aluframe.json("results", "frame.json"))
    same(*results)
    assert max(row["ratio"] for row in results[0] if isinstance(row.get("ratio"), float)) > 0.01


def test_the_reactions_are_pressure_times_area(aluframe):
    aluframe.write(bay())
    out = aluframe.json("analyse", "frame.json")
    sums = {row["case"]: [row["Fx"], row["Fy"], row["Fz"]] for row in out["summary"]}
    # 0.5 on 5·4 m² from above; the normal of corners 5, 6, 8, 7 looks up.
    assert sums[2] == pytest.approx([0, 0, 10], abs=1e-9)
    mu_z = 1.2**0.3
    wall = 1.5 * 0.8 * mu_z * 0.45 * 15 + 2 * 3 * 2.5 * 0.4
    assert sums[3] == pytest.approx([0, -wall, -6], rel=1e-9, abs=1e-9)


def test_models_without_area_loads_show_no_tables_of_them(aluframe, beam):
    aluframe.write(beam)
    assert list(aluframe.json("analyse", "frame.json")) == ["summary", "displacements", "reactions", "forces"]
    assert aluframe.json("analyse", "frame.json", "--show", "area_loads,line_loads") == {
        "area_loads": [], "line_loads": []}


def test_only_the_cases_that_are_analysed_are_worked_out(aluframe):
    aluframe.write(bay())
    out = aluframe.json("analyse", "frame.json", "--cases", "3", "--show", "area_loads,pressures")
    assert {row["case"] for row in out["area_loads"]} == {3}
    assert [row["symbol"] for row in out["pressures"]] == ["μz", "βz", "wk"]


def test_validate_counts_them(aluframe):
    aluframe.write(bay())
    # Snow: triangles of two pieces on two beams, trapezoids of three on two; the others on two elements each.
    assert "  4 area loads on 16 pieces of elements, worked out by aluframe analyse" in aluframe(
        "validate", "frame.json").stdout


def test_a_fault_is_told_by_its_path_and_nothing_is_analysed(aluframe):
    model = bay()
    model["load_cases"][1]["area"][0]["region"]["nodes"] = [5, 6, 7, 8]
    aluframe.write(model)
    for command in ("validate", "analyse", "check"):
        done = aluframe(command, "frame.json", status=1)
        assert by_path(done.stderr).splitlines()[0] == (
            "frame.json: /load_cases/1/area/0/region: crosses or touches itself: its edges from "
            "corner to corner 2-3 and 4-1 meet")


def test_the_document_lists_area_loads_their_pressures_and_their_line_loads(aluframe):
    aluframe.write(bay())
    aluframe("check", "frame.json")
    aluframe("report", "frame.json", "--html", "frame.html")
    page = (aluframe.folder / "frame.html").read_text(encoding="utf-8")
    for text in ("area load 1", "region of nodes 5-6-8-7", "line load of area load 3", "Pressures of load case 3",
                 "GB 50009-2012, 8.2.1", "square to the surface", "spacing 2.5 m", "Z, per projected area"):
        assert text in page, text


def test_the_words_are_chinese_when_the_user_is(aluframe):
    aluframe.write(bay())
    out = aluframe("--lang", "zh", "analyse", "frame.json", "--show", "area_loads,pressures").stdout
    assert "主要受力结构风荷载" in out and "节点 5-6-8-7 的区域" in out and "双向" in out


def test_a_picture_shows_them_as_line_loads(aluframe):
    model = bay()
    pictures = []
    for each in (model, written_out(aluframe, model)):
        aluframe.write(each)
        pictures.append(aluframe("picture", "frame.json", "--loads", "2", "--svg", "-").stdout)
    # Snow on a panel of 5 m by 4 m: trapezoids and triangles of 0.5·2 = 1 kN/m at most.
    assert "1 kN/m" in pictures[0]
    assert pictures[0].count("kN/m") > 0 and len(pictures[0]) > 0.5 * len(pictures[1])


def test_saved_settings_leave_area_loads_as_they_are_written(aluframe):
    path = aluframe.write(bay())
    before = path.read_text(encoding="utf-8")
    aluframe("settings", "frame.json", "--set", "safety_class=1")
    after = path.read_text(encoding="utf-8")
    assert after != before
    assert json.loads(after)["load_cases"] == bay()["load_cases"]
    start = before.index('"load_cases"')
    assert before[start:before.index('"combinations"')] in after

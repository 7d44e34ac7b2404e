"""Forces given at the two ends of elements, beside forces at five positions."""

import copy
import json
import re

from program import ROOT

# 4 m without a load: Fz = 2 kN all along, My from -3 to 5 kN·m.
UNLOADED = [[0, 0, 2, 0, -3, 0], [0, 0, 2, 0, 5, 0]]
LOADED = [[20, 0, 10, 0, 0, 0], [20, 0, -10, 0, 0, 0]]


def documented_example():
    text = (ROOT / "docs" / "model-file.md").read_text(encoding="utf-8")
    return json.loads(re.search(r"```json\n(.*?)```", text, re.DOTALL).group(1))



def test_the_example_of_the_documents_is_checked_where_its_moment_is(aluframe):
    path = aluframe.write(documented_example())
    assert re.search(r"worst ratio   1\.\d+ \(stability\), element 1, position 1/2", aluframe("check", path).stdout)


def test_two_rows_of_a_loaded_element_do_not_hide_five(aluframe):
    """The self-weight of the example's mullion at its two ends: its axial force differs between them."""
    model = documented_example()
    model["forces"][0]["values"] = [[-1.2, 0, 0, 0, 0, 0], [-0.9, 0, 0, 0, 0, 0]]
    message = aluframe("check", aluframe.write(model), status=1).stderr
    assert "frame.json: forces of element 1 in load case 1" in message
    assert "combination 1 adds them to forces at five positions; give them at five positions too" in message


def test_two_rows_without_a_load_are_those_of_a_straight_line(aluframe, pipe_beam):
    straight = copy.deepcopy(pipe_beam)
    start, end = UNLOADED
    straight["forces"][1]["values"] = [
        [a + (b - a) * i / 4 for a, b in zip(start, end)] for i in range(5)]
    pipe_beam["forces"][1]["values"] = UNLOADED
    of_ends = aluframe("check", aluframe.write(pipe_beam)).stdout
    of_line = aluframe("check", aluframe.write(straight)).stdout
    worst_of = re.compile(r"worst ratio .*")
    assert worst_of.search(of_ends).group() == worst_of.search(of_line).group()
    # 10 kN·m in the middle and 1 of the second case; at 3/4 7.5 and 3.
    assert "position 1/2" in worst_of.search(of_ends).group()


def test_a_table_of_forces_follows_the_same_rule(aluframe, pipe_beam):
    path = aluframe.write(pipe_beam)
    rows = ["element,case,position,N,Fy,Fz,Mx,My,Mz"]
    rows += [f"1,1,{i},0,0,{10 - 5 * i},0,{m},0" for i, m in enumerate([0, 7.5, 10, 7.5, 0])]
    rows += [f"1,2,{4 * i}," + ",".join(map(str, LOADED[i])) for i in (0, 1)]
    (aluframe.folder / "forces.csv").write_text("\n".join(rows), encoding="utf-8")
    message = aluframe("check", path, "--forces", "forces.csv", status=1).stderr
    assert "forces of element 1 in load case 2" in message


def test_two_rows_of_a_loaded_element_alone_are_checked_at_its_ends(aluframe, pipe_beam):
    pipe_beam["forces"] = [{"element": 1, "case": 1, "values": LOADED}]
    pipe_beam["combinations"] = pipe_beam["combinations"][:1]
    assert "2 positions" in aluframe("check", aluframe.write(pipe_beam)).stdout

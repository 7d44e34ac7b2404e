"""The frame analysis beside the program, against closed forms and hand calculation."""

import json
import math

import pytest
from tool_runner import run

from frame_analysis import forces_of
from frame_elements import FrameError
from section_properties import properties_of
from shear_areas import shear_areas_of

AREA, IT, IYY, IZZ = 2000.0, 3e6, 8e6, 2e6
E, G, DENSITY = 70000.0, 70000.0 / 2.6, 2.7e-6

CANTILEVER = [{"node": 1, "restrained": "all"}]
SIMPLE = [
    {"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
    {"node": 2, "restrained": ["Dy", "Dz"]},
]
CLAMPED = [{"node": 1, "restrained": "all"}, {"node": 2, "restrained": "all"}]
DOWN = {"span": [{"elements": [1], "direction": "Z", "value": -6.0}]}  # kN/m


def frame(points, elements, supports):
    """A model of one section and material; elements are pairs of node numbers with more fields."""
    return {
        "materials": [{"number": 1, "alloy": "6061-T6"}],
        "sections": [{"number": 1, "shape": "UP", "properties": {
            "area": AREA, "it": IT, "iyy": IYY, "izz": IZZ}}],
        "nodes": [{"number": i, **dict(zip("xyz", p))} for i, p in enumerate(points, 1)],
        "supports": supports,
        "elements": [{"number": i, "nodes": list(ends), "section": 1, "material": 1, **more}
                     for i, (ends, more) in enumerate(elements, 1)],
    }


def beam(supports, end=(4, 0, 0), **more):
    return frame([(0, 0, 0), end], [((1, 2), more)], supports)


def solve(model, loads):
    """Rows of forces by element number."""
    return {f["element"]: f["values"] for f in forces_of(loaded(model, loads))}


def loaded(model, loads):
    return model | {"load_cases": [{"number": 1, **loads}]}


def near(*expected):
    """To the last digit written: 1 mN and 1 N·mm."""
    return pytest.approx(expected, abs=2e-6)


def column(rows, name):
    return [row[("N", "Fy", "Fz", "Mx", "My", "Mz").index(name)] for row in rows]


# Closed forms of beams, L = 4 m.


def test_a_cantilever_carries_its_end_loads_to_the_root():
    end = {"nodes": [2], "Fx": 3, "Fy": 1, "Fz": -2, "Mx": 0.5}
    rows = solve(beam(CANTILEVER), {"nodal": [end]})[1]
    # Load × arm: the top is in tension, the side y > 0 that it is pushed towards is compressed.
    assert rows[0] == near(3, -1, 2, 0.5, -8, 4)
    assert rows[2] == near(3, -1, 2, 0.5, -4, 2)
    assert rows[4] == near(3, -1, 2, 0.5, 0, 0)


def test_a_simple_beam_under_uniform_load_has_the_parabola_of_moments():
    rows = solve(beam(SIMPLE), DOWN)[1]
    # wL/2 = 12 kN; wL²/8 = 12 kN·m in the middle, 3/4 of it at the quarters.
    assert column(rows, "Fz") == near(12, 6, 0, -6, -12)
    assert column(rows, "My") == near(0, 9, 12, 9, 0)
    assert column(rows, "Mz") == near(0, 0, 0, 0, 0)


def test_a_propped_cantilever_has_its_root_moment():
    supports = [CANTILEVER[0], {"node": 2, "restrained": ["Dz"]}]
    rows = solve(beam(supports), DOWN)[1]
    # −wL²/8 at the root, 5/8 and 3/8 of wL as reactions, wL²/16 in the middle.
    assert column(rows, "Fz") == near(15, 9, 3, -3, -9)
    assert column(rows, "My") == near(-12, 0, 6, 6, 0)


def test_a_clamped_beam_has_its_end_and_middle_moments():
    rows = solve(beam(CLAMPED), DOWN)[1]
    # −wL²/12 at the ends, wL²/24 in the middle.
    assert column(rows, "My") == near(-8, 1, 4, 1, -8)


def test_a_released_end_moment_makes_a_clamped_beam_a_propped_one():
    rows = solve(beam(CLAMPED, releases={"end": ["My"]}), DOWN)[1]
    assert column(rows, "My") == near(-12, 0, 6, 6, 0)


def test_both_end_moments_released_make_a_clamped_beam_a_simple_one():
    rows = solve(beam(CLAMPED, releases={"start": ["My"], "end": ["My"]}), DOWN)[1]
    assert column(rows, "My") == near(0, 9, 12, 9, 0)


def test_beta_turns_the_section_under_the_load():
    rows = solve(beam(SIMPLE, beta=90), DOWN)[1]
    # y points up, so the load compresses the side y > 0.
    assert column(rows, "Mz") == near(0, 9, 12, 9, 0)
    assert column(rows, "My") == near(0, 0, 0, 0, 0)


def test_a_skew_beta_splits_the_moment_between_both_axes():
    rows = solve(beam(SIMPLE, beta=30), DOWN)[1]
    # wL²/8 × cos 30° and × sin 30°.
    assert rows[2][4:] == near(12 * math.cos(math.radians(30)), 6)


def test_a_load_along_a_local_axis_follows_the_element():
    sideways = {"span": [{"elements": [1], "direction": "y", "value": 6.0}]}
    supports = [SIMPLE[0], {"node": 2, "restrained": ["Dx", "Dz", "Ry"]}]
    rows = solve(beam(supports, end=(0, 4, 0)), sideways)[1]
    # Pushed towards y > 0 in a simple span: that side is in tension.
    assert column(rows, "Mz") == near(0, -9, -12, -9, 0)


def test_a_column_pushed_along_x_is_compressed_on_that_side():
    rows = solve(beam(CANTILEVER, end=(0, 0, 4)), {"nodal": [{"nodes": [2], "Fx": 2}]})[1]
    # Its z points along −X, so the far side is the bottom fibre: My = −2 kN × 4 m at the foot.
    assert column(rows, "My") == near(-8, -6, -4, -2, 0)


def test_a_column_pushed_along_y_bends_about_its_z_axis():
    rows = solve(beam(CANTILEVER, end=(0, 0, 4)), {"nodal": [{"nodes": [2], "Fy": 2}]})[1]
    assert column(rows, "Mz") == near(8, 6, 4, 2, 0)


def test_self_weight_of_a_column_is_carried_at_its_foot():
    rows = solve(beam(CANTILEVER, end=(0, 0, 4)), {"self_weight": 1.0})[1]
    weight = AREA * DENSITY * 9.80665 * 4000 / 1000  # kN
    assert column(rows, "N") == near(*(-weight * part for part in (1, 0.75, 0.5, 0.25, 0)))


def test_a_held_element_that_warms_up_is_compressed():
    rows = solve(beam(CLAMPED), {"temperature": [{"elements": [1], "change": 30}]})[1]
    # −E·A·α·ΔT = −70000 · 2000 · 2.3e-5 · 30 N.
    assert column(rows, "N") == near(*[-96.6] * 5)


def test_a_load_per_projected_length_is_less_on_a_slope():
    snow = {"span": [{"elements": [1], "direction": "Z", "projected": True, "value": -6.0}]}
    rows = solve(beam(SIMPLE, end=(4, 0, 3)), snow)[1]
    # 24 kN on 4 m seen from above; moments as those of a level beam of that span.
    assert column(rows, "My") == near(0, 9, 12, 9, 0)


def test_the_weight_may_act_sideways():
    rows = solve(beam(SIMPLE), {"self_weight": {"Y": 0.5}})[1]
    # −qL²/8 with half of the weight: the side y > 0 is in tension.
    q = 0.5 * AREA * DENSITY * 9.80665  # kN/m
    assert column(rows, "Mz") == near(0, -1.5 * q, -2 * q, -1.5 * q, 0)


def test_a_propped_deep_beam_leaves_more_to_its_prop_because_shear_deforms_it():
    pipe = {"number": 1, "shape": "P", "dimensions": {"D": 300, "t": 10}}
    supports = [CANTILEVER[0], {"node": 2, "restrained": ["Dz"]}]
    model = beam(supports, end=(1, 0, 0)) | {"sections": [pipe]}
    rows = solve(model, DOWN)[1]
    # Deflections of the free end, with half of the pipe's area in shear:
    # q·L⁴/(8·EI) + q·L²/(2·G·As) = R·(L³/(3·EI) + L/(G·As)).
    ei = E * math.pi / 64 * (300**4 - 280**4)
    ga = G * math.pi / 4 * (300**2 - 280**2) / 2
    prop = 6 * (1000**4 / (8 * ei) + 1000**2 / (2 * ga)) / (1000**3 / (3 * ei) + 1000 / ga) / 1000
    assert prop > 2.25 * 1.04  # 3/8·q·L without shear flexibility: the effect is not small
    assert rows[4][2] == pytest.approx(-prop, abs=2e-6)


def test_a_bent_cantilever_twists_its_first_leg():
    model = frame([(0, 0, 0), (2, 0, 0), (2, 1, 0)], [((1, 2), {}), ((2, 3), {})], CANTILEVER)
    rows = solve(model, {"nodal": [{"nodes": [3], "Fz": -5}]})
    # The end piece hangs 1 m towards +Y: r × F = (−5, 0, 0) kN·m.
    assert rows[1][0] == near(0, 0, 5, -5, -10, 0)
    assert rows[2][0] == near(0, 0, 5, 0, -5, 0)


def test_two_elements_in_a_row_share_moments_by_their_stiffness():
    points = [(0, 0, 0), (2, 0, 0), (6, 0, 0)]
    supports = [{"node": 1, "restrained": "all"}, {"node": 3, "restrained": "all"},
                {"node": 2, "restrained": ["Dx", "Dy", "Dz"]}]
    model = frame(points, [((1, 2), {}), ((2, 3), {})], supports)
    rows = solve(model, {"nodal": [{"nodes": [2], "My": 9}]})
    # 4EI/L of 2 m and 4 m: 6 and 3 kN·m, half of each carried over to the far end.
    assert column(rows[1], "My")[::4] == near(3, -6)
    assert column(rows[2], "My")[::4] == near(3, -1.5)


def test_a_space_truss_takes_its_load_as_worked_out_by_hand():
    points = [(0, 0, 4), (3, 0, 0), (-3, 0, 0), (0, 3, 0)]
    legs = [((1, foot), {"kind": "truss"}) for foot in (2, 3, 4)]
    model = frame(points, legs, [{"node": n, "restrained": ["Dx", "Dy", "Dz"]} for n in (2, 3, 4)])
    down = solve(model, {"nodal": [{"nodes": [1], "Fz": -8}]})
    # Nothing balances a force of the third leg along Y; the others have 2 · N · 4/5 = −8.
    assert [down[n][0][0] for n in (1, 2, 3)] == near(-5, -5, 0)
    along = solve(model, {"nodal": [{"nodes": [1], "Fy": 6, "Fz": -8}]})
    # The load runs straight down the third leg.
    assert [along[n][0][0] for n in (1, 2, 3)] == near(0, 0, -10)


def test_a_truss_element_gives_its_weight_to_its_nodes():
    points = [(0, 0, 0), (3, 0, 4), (6, 0, 0)]
    feet = [{"node": n, "restrained": ["Dx", "Dy", "Dz"]} for n in (1, 3)]
    model = frame(points, [((1, 2), {"kind": "truss"}), ((3, 2), {"kind": "truss"})],
                  [*feet, {"node": 2, "restrained": ["Dy"]}])
    rows = solve(model, {"self_weight": 1.0})
    # The apex takes half of both: 2 · N · 4/5 = −weight of one leg of 5 m.
    weight = AREA * DENSITY * 9.80665 * 5
    assert rows[1] == [pytest.approx([-weight / 1.6, 0, 0, 0, 0, 0], abs=2e-6)] * 2


def test_a_mechanism_is_named_by_its_node():
    supports = [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]}]
    with pytest.raises(FrameError, match=r"mechanism: node 2 in direction"):
        solve(beam(supports), DOWN)


def test_releases_that_leave_nothing_are_refused():
    model = beam(CLAMPED, releases={"start": ["Mx"], "end": ["Mx"]})
    with pytest.raises(FrameError, match="element 1: its releases"):
        solve(model, DOWN)


def test_a_load_that_nothing_holds_is_refused():
    model = frame([(0, 0, 0), (4, 0, 0)], [((1, 2), {"kind": "truss"})], CANTILEVER)
    with pytest.raises(FrameError, match="node 2 in direction Dz is loaded"):
        solve(model, {"nodal": [{"nodes": [2], "Fz": -1}]})


# Section properties, by hand or by another formula.


@pytest.mark.parametrize("shape, dimensions, expected", [
    # A = 2·100·10 + 180·6; Iyy = (100·200³ − 94·180³)/12; Izz = (2·10·100³ + 180·6³)/12.
    ("H", {"H": 200, "B1": 100, "tw": 6, "tf1": 10}, (3080, 20982666.67, 1669906.67)),
    # Solid less hollow: (60·100³ − 52·90³)/12 and (100·60³ − 90·52³)/12.
    ("B", {"H": 100, "B": 60, "tw": 4, "tf1": 5}, (1320, 1841000, 745440)),
    # π/4·(100² − 80²), π/64·(100⁴ − 80⁴).
    ("P", {"D": 100, "t": 10}, (2827.433388, 2898119.223, 2898119.223)),
    ("SR", {"D": 20}, (314.1592654, 7853.981634, 7853.981634)),
    # Web 50 × 10 under a flange 60 × 10, centroid 25 + 30·600/1100 = 41.363636 from below:
    # Iyy = 60·10³/12 + 600·13.636364² + 10·50³/12 + 500·16.363636², Izz = (10·60³ + 50·10³)/12.
    ("T", {"H": 60, "B": 60, "tw": 10, "tf": 10}, (1100, 354621.2121, 184166.6667)),
    # (50·100³ − 44·80³)/12; yc = (2·500·25 + 480·3)/1480 = 17.864865;
    # Izz = (2·10·50³ + 80·6³)/3 − 1480·yc².
    ("C", {"H": 100, "B1": 50, "tw": 6, "tf1": 10}, (1480, 2289333.333, 366746.3063)),
    # Two of the channels before, each moved out by 10 + yc.
    ("2C", {"H": 100, "B": 50, "tw": 6, "tf": 10, "C": 20}, (2960, 4578666.667, 3031786.667)),
])
def test_section_properties_match_hand_calculation(shape, dimensions, expected):
    found = properties_of({"number": 1, "shape": shape, "dimensions": dimensions})
    # To the digits written here.
    assert (found.area, found.iyy, found.izz) == pytest.approx(expected, rel=1e-8)


def plate(length, thickness, free_ends):
    """A rectangle as Roark gives it, a free end at a time."""
    end = 0.105 * thickness**4 * (1 - thickness**4 / (12 * length**4))
    return length * thickness**3 / 3 - free_ends * end


@pytest.mark.parametrize("shape, dimensions, expected", [
    # By hand: flanges 100 × 10, clear web 180 × 6, circles D = 10 + 36/40 with
    # α = −0.042 + 0.2204·0.6 − 0.0725·0.36 = 0.06414.
    ("H", {"H": 200, "B1": 100, "tw": 6, "tf1": 10},
     2 * plate(100, 10, 2) + plate(180, 6, 0) + 2 * 0.06414 * 10.9**4),
    # Flanges 100 × 10 and 60 × 8 (D = 8 + 36/32, α = −0.042 + 0.2204·0.75 − 0.0725·0.5625), web 182 × 6.
    ("H", {"H": 200, "B1": 100, "tw": 6, "tf1": 10, "B2": 60, "tf2": 8},
     plate(100, 10, 2) + plate(60, 8, 2) + plate(182, 6, 0) + 0.06414 * 10.9**4 + 0.08251875 * 9.125**4),
    # Flange 60 × 10, web 50 × 10, D = 12.5, α = 0.1059.
    ("T", {"H": 60, "B": 60, "tw": 10, "tf": 10}, plate(60, 10, 2) + plate(50, 10, 1) + 0.1059 * 12.5**4),
    # A web thicker than the flange runs through it; 0.0302·t⁴ is what equal plates have beyond that:
    # 0.1059·1.25⁴ − 1/3 + 0.105.
    ("T", {"H": 60, "B": 60, "tw": 10, "tf": 5},
     plate(60, 5, 2) + plate(60, 10, 2) + (0.1059 * 1.25**4 - 1 / 3 + 0.105) * 5**4),
    # Flanges 50 × 10, web 90 × 6 between their middle lines.
    ("C", {"H": 100, "B1": 50, "tw": 6, "tf1": 10}, 2 * plate(50, 10, 2) + plate(90, 6, 0)),
    # A web thicker than the flanges is whole, and these start at its middle line.
    ("C", {"H": 100, "B1": 50, "tw": 10, "tf1": 6}, 2 * plate(45, 6, 1) + plate(100, 10, 2)),
    ("2C", {"H": 100, "B": 50, "tw": 6, "tf": 10, "C": 20},
     2 * (2 * plate(50, 10, 2) + plate(90, 6, 0))),
])
def test_an_open_section_twists_as_its_plates_and_their_junctions(shape, dimensions, expected):
    found = properties_of({"number": 1, "shape": shape, "dimensions": dimensions})
    assert found.it == pytest.approx(expected, rel=1e-12)


@pytest.mark.parametrize("shape, dimensions, expected", [
    # Along y: 5/6 of the flanges; along z: the web over 190 mm.
    ("H", {"H": 200, "B1": 100, "tw": 6, "tf1": 10}, (5 / 6 * 2000, 1140)),
    ("C", {"H": 100, "B1": 48, "tw": 6, "tf1": 10}, (800, 540)),
    ("2C", {"H": 100, "B": 48, "tw": 6, "tf": 10, "C": 20}, (1600, 1080)),
    ("T", {"H": 60, "B": 60, "tw": 10, "tf": 10}, (500, 500)),
    # Walls along middle lines: 2·5·56, 2·4·95.
    ("B", {"H": 100, "B": 60, "tw": 4, "tf1": 5}, (560, 760)),
    # Half of π/4·(100² − 80²); 0.9 of π·10².
    ("P", {"D": 100, "t": 10}, (450 * math.pi, 450 * math.pi)),
    ("SR", {"D": 20}, (90 * math.pi, 90 * math.pi)),
])
def test_shear_areas_match_hand_calculation(shape, dimensions, expected):
    found = shear_areas_of({"number": 1, "shape": shape, "dimensions": dimensions})
    assert found == pytest.approx(expected, rel=1e-12)


def test_a_section_of_given_properties_is_rigid_in_shear():
    assert shear_areas_of(frame([(0, 0, 0)], [], [])["sections"][0]) == (0, 0)


def test_a_square_box_twists_by_bredt():
    found = properties_of({"number": 1, "shape": "B",
                           "dimensions": {"H": 100, "B": 100, "tw": 5, "tf1": 5}})
    # Thin square tube: It = t·a³, a = 95 mm between centre lines.
    assert found.it == pytest.approx(5 * 95**3, rel=1e-12)


# As a program.


def test_frame_analysis_writes_a_model_with_forces(tmp_path):
    (tmp_path / "beam.json").write_text(json.dumps(loaded(beam(SIMPLE), DOWN)), encoding="utf-8")
    run("frame_analysis.py", tmp_path / "beam.json", "--output", tmp_path / "out.json")
    model = json.loads((tmp_path / "out.json").read_text(encoding="utf-8"))
    assert model["forces"][0]["values"][2] == near(0, 0, 0, 0, 12, 0)
    assert model["load_cases"] == [{"number": 1, **DOWN}]


def test_frame_analysis_works_in_the_units_of_the_file(tmp_path):
    model = beam(SIMPLE, end=(4000, 0, 0)) | {"units": {"force": "N", "length": "mm"}}
    rows = solve(model, {"span": [{"elements": "all", "direction": "Z", "value": -6.0}]})[1]
    # 6 N/mm on 4000 mm: wL²/8.
    assert rows[2][4] == pytest.approx(12e6, abs=1)


@pytest.mark.parametrize("loads, message", [
    ({"nodal": [{"nodes": [7], "Fz": 1}]}, "node 7 does not exist"),
    ({"span": [{"elements": [1], "direction": "up", "value": 1}]}, "direction 'up'"),
    ({"points": [{"elements": [1], "direction": "Z", "at": 0.5, "force": 1}]},
     "load case 1: loads of the kind 'points'"),
    ({"span": [{"elements": [1], "direction": "Z", "from": 0.5, "value": 1}]},
     "load case 1: 'from' of span loads"),
])
def test_frame_analysis_says_what_is_wrong_with_loads(tmp_path, loads, message):
    (tmp_path / "beam.json").write_text(json.dumps(loaded(beam(SIMPLE), loads)), encoding="utf-8")
    done = run("frame_analysis.py", tmp_path / "beam.json", status=1)
    assert message in done.stderr
    assert done.stdout == ""


@pytest.mark.parametrize("change, message", [
    ({"analysis": {"second_order": True}}, "second-order analysis"),
    ({"supports": [{"node": 1, "springs": {"Dz": 5}}]}, "support of node 1: springs"),
])
def test_frame_analysis_refuses_what_it_cannot_analyse(change, message):
    with pytest.raises(FrameError, match=message):
        solve(beam(SIMPLE) | change, DOWN)

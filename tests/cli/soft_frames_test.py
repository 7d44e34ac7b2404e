"""Frames that double precision alone does not suffice for are analysed and checked: a cantilever in 200
pieces, a beam in 300, a link ten thousand times as stiff as its neighbours; worked out by hand."""

import re

import pytest
from program import PIPE_AREA, PIPE_I
from loaded_beam import CANTILEVER

E = 70000.0
G = E / 2.6


def member(pipe_beam, places, rise=0, sections=(1,)):
    """A straight member between places along X, m, with its sections in turn; it rises so much for 1."""
    del pipe_beam["forces"]
    return pipe_beam | {
        "nodes": [{"number": n, "x": x, "y": 0, "z": 3 + rise * x} for n, x in enumerate(places, 1)],
        "elements": [{"number": n, "nodes": [n, n + 1], "section": sections[(n - 1) % len(sections)],
                      "material": 1} for n in range(1, len(places))],
        "combinations": [{"number": 1, "name": "ULS", "terms": [{"case": 1}]}]}


@pytest.fixture
def long_cantilever(pipe_beam):
    """50 m in 200 pieces, rising 3 on 4 m, under 0.01 kN square to it at its tip."""
    return member(pipe_beam, [40 * n / 200 for n in range(201)], rise=0.75) | {
        "supports": CANTILEVER,
        "load_cases": [{"number": 1, "nodal": [{"nodes": [201], "Fx": 0.006, "Fz": -0.008}]}]}


@pytest.fixture
def fine_beam(pipe_beam):
    """6 m in 300 pieces under 1 kN/m."""
    return member(pipe_beam, [6 * n / 300 for n in range(301)]) | {
        "supports": [{"node": 1, "restrained": ["Dx", "Dy", "Dz", "Rx"]},
                     {"node": 301, "restrained": ["Dy", "Dz"]}],
        "load_cases": [{"number": 1, "span": [
            {"elements": list(range(1, 301)), "direction": "Z", "value": -1}]}]}


STIFFER = 1e4


@pytest.fixture
def stiff_link(pipe_beam):
    """A cantilever under 0.1 kN: 2 m, a link of 50 mm and 10⁴·EI, and 2 m."""
    model = member(pipe_beam, [0, 2, 2.05, 4.05], sections=(1, 2, 1)) | {
        "supports": CANTILEVER,
        "load_cases": [{"number": 1, "nodal": [{"nodes": [4], "Fz": -0.1}]}]}
    constants = {"area": PIPE_AREA * STIFFER, "it": 2 * PIPE_I * STIFFER, "iyy": PIPE_I * STIFFER,
                 "izz": PIPE_I * STIFFER, "point_y": [-50, 50, 50, -50], "point_z": [50, 50, -50, -50]}
    model["sections"] = [
        {"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 10}},
        {"number": 2, "shape": "UP", "properties": constants}]
    return model


FRAMES = ["long_cantilever", "fine_beam", "stiff_link"]


@pytest.fixture
def tables(aluframe, request):
    def run(name, *options):
        aluframe.write(request.getfixturevalue(name))
        return aluframe.json("analyse", "frame.json", *options)
    return run


def force(tables, element, position, component):
    return next(row[component] for row in tables["forces"]
                if row["element"] == element and row["position"] == position)


def vertical_displacement(tables, node):
    return next(row["Dz"] for row in tables["displacements"] if row["node"] == node)


# Forces are kept in single precision, 6e-8 of each.
near = {"rel": 1e-7}

SECOND_ORDER = pytest.mark.parametrize("options", [(), ("--second-order",)],
                                       ids=["first order", "second order"])


@SECOND_ORDER
def test_a_cantilever_in_200_pieces_has_the_forces_of_statics(tables, options):
    shown = tables("long_cantilever", *options)
    assert force(shown, 1, 0, "My") == pytest.approx(-0.01 * 50, **near)
    assert force(shown, 100, 4, "My") == pytest.approx(-0.01 * 25, **near)
    assert force(shown, 200, 0, "Fz") == pytest.approx(0.01, **near)
    # PL³/(3·EI) + PL/(G·As), with half of a pipe's area in shear; 0.8 of it downwards.
    bends = 10 * 50000**3 / (3 * E * PIPE_I) + 10 * 50000 / (G * PIPE_AREA / 2)
    assert vertical_displacement(shown, 201) == pytest.approx(-0.8 * bends / 1000, rel=1e-8)


@SECOND_ORDER
def test_a_beam_in_300_pieces_has_its_parabola_of_moments(tables, options):
    shown = tables("fine_beam", *options)
    assert force(shown, 150, 4, "My") == pytest.approx(6**2 / 8, **near)
    assert force(shown, 75, 4, "My") == pytest.approx(0.75 * 6**2 / 8, **near)
    assert force(shown, 1, 0, "Fz") == pytest.approx(3, **near)
    # 5·qL⁴/(384·EI) + qL²/(8·G·As).
    sinks = 5 * 6000**4 / (384 * E * PIPE_I) + 6000**2 / (8 * G * PIPE_AREA / 2)
    assert vertical_displacement(shown, 151) == pytest.approx(-sinks / 1000, rel=1e-8)


@SECOND_ORDER
def test_a_link_of_ten_thousand_times_the_stiffness_has_the_forces_of_statics(tables, options):
    shown = tables("stiff_link", *options)
    assert force(shown, 1, 0, "My") == pytest.approx(-0.405, **near)
    assert force(shown, 2, 0, "My") == pytest.approx(-0.205, **near)
    assert force(shown, 3, 0, "My") == pytest.approx(-0.2, **near)
    assert force(shown, 2, 2, "Fz") == pytest.approx(0.1, **near)


@pytest.mark.parametrize("name", FRAMES)
def test_the_summary_tells_the_error_of_the_forces(tables, name):
    assert 0 <= tables(name)["summary"][0]["force_error"] < 1e-7


@pytest.mark.parametrize("name", FRAMES)
@pytest.mark.parametrize("command", ["check", "validate"])
def test_they_are_checked_and_the_error_of_their_forces_is_told(aluframe, request, command, name):
    aluframe.write(request.getfixturevalue(name))
    done = aluframe(command, "frame.json")
    told = re.search(r"forces certain to (\S+)", done.stdout + done.stderr)
    assert told and float(told[1]) < 1e-7

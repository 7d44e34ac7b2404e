"""How a section stands: columns out of plumb, and orientations by a vector or a node."""

import pytest
from program import by_path

E = 70000.0
HEIGHT = 3000.0  # mm
FORCE = 5.0  # kN along X, at the top
# A lean of 1e-3 makes the column longer, and turns its load, by some of its square.
LEAN = 5e-6

# H 200x100x6x10 by hand, mm: the enclosing rectangle less the clear fields.
IYY = (100 * 200**3 - 94 * 180**3) / 12
IZZ = (2 * 10 * 100**3 + 180 * 6**3) / 12


def cantilever(lean=0.0, **element):
    """A column of 3 m on a clamped foot, its top `lean` mm off along Y; nodes 3 and 4 stand apart."""
    return {
        "format": "aluframe-model",
        "version": 1,
        "units": {"force": "kN", "length": "mm", "section": "mm"},
        "materials": [{"number": 1, "alloy": "6061-T6"}],
        "sections": [{"number": 1, "profile": "H 200x100x6x10"}],
        "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": lean, "z": HEIGHT},
                  {"number": 3, "x": 0, "y": 700, "z": -50}, {"number": 4, "x": 0, "y": 0, "z": 5000}],
        "supports": [{"node": 1, "restrained": "all"}],
        "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1, **element}],
        "load_cases": [{"number": 1, "nodal": [{"nodes": [2], "Fx": FORCE}]}],
    }


@pytest.fixture
def top(aluframe):
    """Displacement of the top along X, mm."""
    def run(model):
        aluframe.write(model)
        rows = aluframe.json("analyse", "frame.json", "--units", "N,mm")["displacements"]
        return next(row["Dx"] for row in rows if row["node"] == 2)
    return run


def bending(inertia):
    return FORCE * 1000 * HEIGHT**3 / (3 * E * inertia)


def by_hand(inertia):
    """Shear adds 12 mm² of 2·EI/(GA·L²) or so: below 5 % for this column either way."""
    return pytest.approx(bending(inertia), rel=0.05)


def test_a_column_bends_about_its_strong_axis_under_a_load_along_x(top):
    assert top(cantilever()) == by_hand(IYY)
    assert bending(IZZ) > 10 * bending(IYY)  # a section turned by 90° would not pass


@pytest.mark.parametrize("lean", [0.003, -0.003, 2.9])
def test_a_column_slightly_out_of_plumb_stands_as_the_plumb_one(top, lean):
    assert top(cantilever(lean)) == pytest.approx(top(cantilever()), rel=LEAN)


def test_a_column_beyond_the_limit_turns_its_section_to_its_lean(top):
    assert top(cantilever(3.1)) == by_hand(IZZ)


@pytest.mark.parametrize("orientation", [{"vector": [0, 2, 0]}, {"vector": [0, 1, 9]}, {"node": 3}])
def test_an_orientation_gives_the_same_as_the_beta_that_it_stands_for(top, orientation):
    # z of the column is -X; towards +Y it is turned by -90°.
    turned = top(cantilever(beta=-90))
    assert turned == by_hand(IZZ)
    assert top(cantilever(orientation=orientation)) == pytest.approx(turned, rel=1e-6)
    assert top(cantilever(orientation=orientation, beta=90)) == pytest.approx(top(cantilever()), rel=1e-6)


def test_an_orientation_does_not_depend_on_the_lean(top):
    along_x = {"vector": [1, 0, 0]}
    for lean in (0.0, 2.9, 3.1):
        assert top(cantilever(lean, orientation=along_x)) == pytest.approx(top(cantilever()), rel=LEAN)


@pytest.mark.parametrize("orientation, words", [
    ({"vector": [0.0005, 0, -1]}, "the direction (0.0005, 0, -1) lies along the element's axis: the sine "
                                  "of the angle between them is 0.0005, must be 0.001 or more"),
    ({"node": 4}, "the direction (0, 0, 5000) mm to the node lies along the element's axis"),
    ({}, 'one of "vector" and "node" is needed, found neither'),
])
def test_an_orientation_along_the_axis_is_refused_with_its_place(aluframe, orientation, words):
    aluframe.write(cantilever(orientation=orientation))
    done = aluframe("validate", "frame.json", status=1)
    assert f"frame.json: /elements/0/orientation: {words}" in by_path(done.stderr)


def test_sway_follows_the_real_axes_of_an_oriented_section(aluframe):
    """The checks take an orientation for the beta that it stands for: the same table of results."""
    def results(**element):
        model = cantilever(**element) | {
            "frame": {"braced_a": True},
            "combinations": [{"number": 1, "terms": [{"case": 1}, {"case": 2}]}]}
        model["load_cases"].append(
            {"number": 2, "nodal": [{"nodes": [2], "Fy": 1.0, "Fz": -20.0}]})
        aluframe.write(model)
        aluframe("check", "frame.json")
        return aluframe("results", "frame.json", "--element", "1", "--format", "csv").stdout

    assert results(orientation={"vector": [0, 1, 0]}) == results(beta=-90)
    assert results(orientation={"vector": [0, 1, 0]}) != results()

"""Dimensions and properties of sections without measure: one message, at once, wherever they stand."""

import subprocess

import pytest
from program import by_path, in_memory

RANGE = "must be between 0.001 and 100000 mm"
# Numbers of a dimension that is not allowed, as a designation writes them.
WILD = ["1000000000000", "1" + "0" * 20, "1" + "0" * 38, "100000.01", "0.0009", "0." + "0" * 300 + "1",
        "0", "-60", "nan", "inf", "-inf"]


def refused(aluframe, *arguments):
    """The one message, which comes within seconds and without more than 1 GB of memory."""
    done = subprocess.run([*in_memory(1_000_000), aluframe.path, *map(str, arguments)], cwd=aluframe.folder, capture_output=True,
                          text=True, check=False, timeout=20)
    assert done.returncode == 1, done.stderr
    assert done.stdout == "" and len(done.stderr.splitlines()) == 1
    return by_path(done.stderr)


@pytest.mark.parametrize("number", WILD)
@pytest.mark.parametrize("name", ["B {}x60x3x3", "H {}x150x8x12", "H 300x150x{}x12", "P {}x5",
                                  "P 60x{}", "SR {}", "C 200x80x6x{}", "T 180x{}x8x10",
                                  "2C 200x80x{}x10x12"])
def test_a_name_with_a_wild_dimension_is_refused(aluframe, name, number):
    error = refused(aluframe, "section", name.format(number))
    assert error.startswith("NAME: found ") and "must" in error


def test_the_measured_names_say_what_is_allowed(aluframe):
    assert refused(aluframe, "section", "B 1000000000000x60x3x3") == (
        "NAME: found 'B 1000000000000x60x3x3', which cannot be built: "
        f"H is 1000000000000 mm: {RANGE}\n")
    name = "H 1" + "0" * 20 + "x150x8x12"
    assert refused(aluframe, "section", name) == (
        f"NAME: found '{name}', which cannot be built: H is 1e+20 mm: {RANGE}\n")


@pytest.mark.parametrize("number, message", [
    ("1e20", f'line 2: "A" cannot be built: H is 1e+20 mm: {RANGE}'),
    ("1e-308", f'line 2: "A" cannot be built: H is 1e-308 mm: {RANGE}'),
    ("-1", 'line 2: "A" cannot be built: H is -1 mm: must be more than 0'),
    ("1e308", 'line 2: H: found "1e308", must be between -1e30 and 1e30'),
    ("nan", 'line 2: H: found "nan", must be between -1e30 and 1e30'),
    ("inf", 'line 2: H: found "inf", must be between -1e30 and 1e30'),
    ("1e400", 'line 2: H: found "1e400", must be between -1e30 and 1e30'),
])
def test_a_catalogue_with_a_wild_dimension_is_refused(aluframe, pipe_beam, number, message):
    aluframe.write(f"name,shape,H,B1,tw,tf1\nA,H,{number},150,8,12\n", "mine.csv")
    assert refused(aluframe, "section", "A", "--catalogue", "mine.csv") == f"mine.csv: {message}\n"
    assert refused(aluframe, "section", "--list", "--catalogue", "mine.csv") == (
        f"mine.csv: {message}\n")
    pipe_beam["catalogues"] = ["mine.csv"]
    aluframe.write(pipe_beam)
    assert refused(aluframe, "check", "frame.json") == (
        f"frame.json: /catalogues/0: mine.csv: {message}\n")


@pytest.mark.parametrize("command", ["check", "validate", "analyse", "settings", "members"])
@pytest.mark.parametrize("number", [1e20, 1e-308, 2e30, 1e308, 0, -5, "text"])
def test_a_model_with_a_wild_dimension_is_refused(aluframe, pipe_beam, number, command):
    pipe_beam["sections"][0]["dimensions"]["D"] = number
    aluframe.write(pipe_beam)
    error = refused(aluframe, command, "frame.json")
    assert error.startswith("frame.json: /sections/0/dimensions/D: ") and "must" in error


def test_a_model_that_names_a_wild_section_is_refused(aluframe, pipe_beam):
    pipe_beam["sections"] = [{"number": 1, "profile": "B 1000000000000x60x3x3"}]
    aluframe.write(pipe_beam)
    error = refused(aluframe, "check", "frame.json")
    assert error.startswith("frame.json: /sections/0/profile: ") and RANGE in error


@pytest.mark.parametrize("field, number", [
    ("area", 1e30), ("area", 1e-300), ("area", -1), ("iyy", 1e30), ("izz", 1e-300), ("it", 1e30),
    ("qyb", 1e30), ("qzb", -1), ("iw", 1.5e30), ("shear_centre_z", 1e30),
    ("point_y", [0, 0, 1e30, 0]), ("point_y", [1e-300] * 4), ("point_z", [1, 1e-300, -1, -1]),
])
def test_a_model_with_a_wild_property_is_refused(aluframe, pipe_beam, field, number):
    pipe_beam["sections"][0]["properties"] = {field: number}
    aluframe.write(pipe_beam)
    error = refused(aluframe, "check", "frame.json")
    assert error.startswith(f"frame.json: /sections/0/properties/{field}") and "must" in error


# The largest and the smallest plates that may meet: the mesh stays small, and says nothing that
# rounding made up.
@pytest.mark.parametrize("mesh", [1, 4, 16])
@pytest.mark.parametrize("name", [
    "H 100000x100000x0.001x0.001", "H 100000x100000x0.001x30000x50000x30000",
    "B 100000x100000x49999.999x49999.999", "B 100000x100000x30000x30000x30000.002x0.001",
    "T 100000x100000x0.001x50000", "C 100000x100000x0.001x30000", "2C 100000x100000x0.001x0.001",
    "P 100000x0.001", "P 100000x50000", "SR 0.001", "SR 100000"])
def test_any_ratio_of_plates_is_shown_in_little_memory(aluframe, name, mesh):
    done = subprocess.run([*in_memory(2_000_000), aluframe.path, "section",
                           name, "--mesh", str(mesh), "--svg", "a.svg"], cwd=aluframe.folder,
                          capture_output=True, text=True, check=False, timeout=60)
    assert done.returncode == 0, done.stderr
    assert "nan" not in done.stdout and "inf" not in done.stdout


def test_a_mesh_says_nothing_of_walls_that_rounding_hides(aluframe):
    # By the formula It is 2 mm4, 2.5e-9 of Iyy + Izz; rounding alone leaves about 1e-6 of that sum.
    found = aluframe.json("section", "H 3000x1500x0.1x0.1")
    # Free ends and junctions of plates change it by about t/b, less than 1/1000.
    assert found["formula"]["it"] == pytest.approx((2 * 1500 + 2999.9) * 0.1**3 / 3, rel=1e-3)
    assert found["mesh"]["it"] is None

"""Messages that say what is wrong, and not what it looks like from inside."""

import pytest

from loaded_beam import RIGID_IN_SHEAR, beam  # noqa: F401 (a fixture)
from program import by_path

REASON = ("element 1: the checks do not cover the shape of section 1 \"Odd\": no check was made, judge it by hand\n")


@pytest.fixture
def odd(aluframe, beam):  # noqa: F811
    """A shape that the checks do not cover, beside a pipe."""
    beam["sections"] = [RIGID_IN_SHEAR | {"name": "Odd"}, {**beam["sections"][0], "number": 2}]
    beam["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    beam["supports"].append({"node": 3, "restrained": "all"})
    beam["elements"].append({"number": 2, "nodes": [2, 3], "section": 2, "material": 1})
    aluframe.write(beam)
    return aluframe


def test_a_shape_that_is_not_covered_is_told_with_its_section_and_elements(odd):
    done = odd("check", "frame.json")
    assert "    " + REASON in done.stdout and "1 of 2 checked" in done.stdout
    assert "inconsistency" not in done.stderr
    odd("check", "frame.json", "--strict=safe", status=4)


def test_a_report_tells_of_it_likewise(odd):
    odd("check", "frame.json")
    done = odd("report", "frame.json")
    assert "    " + REASON in done.stdout and "inconsistency" not in done.stderr
    assert "no check to show: element 1\n" in done.stderr


def test_a_report_without_any_check_is_a_failure(aluframe, beam):  # noqa: F811
    beam["sections"] = [RIGID_IN_SHEAR | {"name": "Odd"}]
    aluframe.write(beam)
    aluframe("check", "frame.json", status=2)
    assert "no check to show: element 1\n" in aluframe("report", "frame.json", status=2).stderr


def test_a_vector_without_length_is_not_called_parallel(aluframe, pipe_beam):
    pipe_beam["elements"][0]["orientation"] = {"vector": [0, 0, 0]}
    error = by_path(aluframe("validate", aluframe.write(pipe_beam), status=1).stderr)
    assert "/elements/0/orientation: the vector (0, 0, 0) has no length, so it gives no direction\n" in error
    assert "axis" not in error


@pytest.mark.parametrize("name", ["P 1e6x1", "P 100x1e1", "P 1E2x10"])
def test_dimensions_with_exponents_are_refused_for_their_exponent(aluframe, name):
    error = aluframe("section", name, status=1).stderr
    assert f"found '{name}', must be P Dxt with plain decimals in mm (12.5, no exponent)" in error


def test_elements_without_forces_are_named_with_their_load_case(aluframe, pipe_beam):
    pipe_beam["nodes"].append({"number": 3, "x": 8, "y": 0, "z": 3})
    pipe_beam["elements"].append({"number": 2, "nodes": [2, 3], "section": 1, "material": 1})
    out = aluframe("validate", aluframe.write(pipe_beam)).stdout
    cases = sorted({forces["case"] for forces in pipe_beam["forces"]})
    assert [line for line in out.splitlines() if "no forces" in line] == [
        f"  load case {case} has no forces for element 2" for case in cases]

"""The second opinion on 20,000 random points against tools/safe_ratios.py, which follows the documents alone.

Script and program share the plain checks only. Both multiply and divide a dozen numbers in different order, and
near the Euler load the amplification multiplies rounding by up to 1e5: 1e-9 relative.
"""

import json
import math
import os
import subprocess
import sys
from types import SimpleNamespace

import pytest
from random_points import T, random_points
from tool_runner import TOOLS

import check_points
from check_points import COMBINED, STABILITY, STRENGTH
from safe_ratios import asks_about_the_other_flange, safe_ratios

COUNT, SEED = 20_000, 12
TOLERANCE = 1e-9
ITEMS = range(8)


@pytest.fixture(scope="module")
def program():
    return os.environ["ALUFRAME"]


def second_opinions(program, points):
    text = "\n".join(map(json.dumps, points)) + "\n"
    done = subprocess.run([program, "points", "--second-opinion"], input=text, capture_output=True, text=True,
                          check=True, timeout=120)
    return [json.loads(line)["safe"] for line in done.stdout.splitlines()]


@pytest.fixture(scope="module")
def checked(program):
    """Every point with the program's answers and the script's."""
    points = random_points(COUNT, SEED)
    rows = zip(points, check_points.answered(program, points), second_opinions(program, points), strict=True)
    return [SimpleNamespace(point=point, answers=answers, safe=safe, ratio=float(safe["ratio"]),
                            code=check_points.code_ratio(answers["own"]), script=safe_ratios(point, answers))
            for point, answers, safe in rows]


def agree(one, other):
    return math.isclose(one, other, rel_tol=TOLERANCE)


def bends_another_flange(row):
    """Welded, slender H of unequal flanges: the program also takes the magnitude of a negative My (see
    second_opinion_together_test.py)."""
    return (asks_about_the_other_flange(row.point, row.answers) and not check_points.is_symmetric(row.point)
            and "C3" in row.script)


def lacks_strength_of_the_other_flange(row):
    """Welded, slender H of equal flanges, bending alone: the program asks W3 for Mz > 0 only (see there)."""
    n, _, mz = check_points.forces(row.point)
    return asks_about_the_other_flange(row.point, row.answers) and check_points.is_symmetric(row.point) and (
        abs(n) <= check_points.NO_FORCE and mz <= 0)


def is_noise_alone(row):
    """Stresses under 1e-9·f: the checks cannot tell how they change over a web's height."""
    return row.code < 1e-9


def reproducing(rows):
    return "\n".join(f"{len(rows)} points, the first:" if not index else json.dumps(row.point | {"safe": row.safe})
                     for index, row in enumerate([None, *rows[:3]]))


def assert_none(rows):
    assert not rows, reproducing(rows)


def test_the_safe_ratio_is_never_below_the_checks_own(checked):
    assert_none([row for row in checked if math.isfinite(row.code) and row.code > 0 and row.ratio < row.code])


def test_the_ratio_of_the_checks_is_the_largest_of_their_items(checked):
    assert_none([row for row in checked
                 if not agree(float(row.safe["code"]), row.code)
                 and not (math.isnan(row.code) and row.safe["code"] == "nan")])


def test_where_no_rule_applies_both_ratios_are_one(checked):
    untouched = [row for row in checked if not row.script and math.isfinite(row.code)]
    assert len(untouched) > COUNT / 20
    assert_none([row for row in untouched if row.ratio != row.code])


def largest(row, item):
    """The largest of the checks and of all rules that the script follows."""
    own = check_points.ratio(row.answers["own"], item)
    return max([own, *(answer[item] for answer in row.script.values() if item in answer)])


def largest_of_program(row, item):
    own = check_points.ratio(row.answers["own"], item)
    return max([own, *(float(answer["ratio"]) for answer in row.safe["answers"]
                       if answer["item"] == item and not math.isnan(float(answer["ratio"])))])


def judged(rows):
    return [row for row in rows if math.isfinite(row.code) and not is_noise_alone(row)
            and not bends_another_flange(row)]


def test_the_safe_ratio_is_the_largest_answer_of_the_documented_rules(checked):
    rows = [row for row in judged(checked) if not lacks_strength_of_the_other_flange(row)]
    assert len(rows) > 0.7 * COUNT
    assert_none([row for row in rows if not agree(row.ratio, max(largest(row, item) for item in ITEMS))])


# How many points at least have a rule that stands beside others: enough of each to meet its cases.
@pytest.mark.parametrize(("rule", "least"), [("F4", 300), ("W3", 300), ("B1", 1000), ("S14", 1000)])
@pytest.mark.parametrize("item", [STRENGTH, STABILITY, COMBINED])
def test_every_item_has_the_largest_answer_of_the_documented_rules(checked, item, rule, least):
    assert sum(rule in row.script for row in checked) > least
    rows = [row for row in judged(checked) if rule in row.script
            and not (item == STRENGTH and lacks_strength_of_the_other_flange(row))]
    assert_none([row for row in rows if not agree(largest_of_program(row, item), largest(row, item))])


def answers_of(rule, row):
    """The program's answers in which the rule takes part, by item."""
    return {answer["item"]: float(answer["ratio"]) for answer in row.safe["answers"]
            if rule in answer["rules"].split(", ") and not math.isnan(float(answer["ratio"]))}


def answers_by_script(rule, row):
    """C4 has the last word on stability in bending: it adds Mz to what C1 and C3 give."""
    answer = row.script.get(rule, {})
    return row.script["C4"] if rule in ("C1", "C3") and answer and "C4" in row.script else answer


# How many points at least have the rule among the 20,000: the forces are drawn so that each is met often.
@pytest.mark.parametrize(("rule", "least"), [("F1", 500), ("F2", 2000), ("C1", 500), ("C3", 500), ("C4", 500),
                                             ("C5", 5000), ("S2", 5000), ("S14", 1000)])
def test_the_answer_of_a_rule_is_that_of_the_document(checked, rule, least):
    pairs = [(row, answers_of(rule, row), answers_by_script(rule, row)) for row in checked
             if not is_noise_alone(row) and not bends_another_flange(row)]
    assert sum(bool(documented) for _, _, documented in pairs) > least
    assert_none([row for row, found, documented in pairs
                 if found.keys() != documented.keys()
                 or not all(agree(value, documented[item]) for item, value in found.items())])


def test_all_seven_shapes_are_met_welded_and_not(checked):
    met = {(check_points.section(row.point)["nShape"], check_points.section(row.point)["bWelded"]) for row in checked}
    assert len(met) == 14 and (T, 1) in met


def test_the_script_gives_the_shear_of_a_column_as_by_hand(program):
    # H200 of behaviour.md: 30,000·1322/1,674,347 = 23.69 against fv = 115.
    sect = {"nShape": 1, "dSize": [200, 8, 100, 10, 100, 10, 0, 0], "dArea": 3440, "dIyy": 21954667, "dIzz": 1674347,
            "dIxx": 99093, "dIw": 1.504e10, "dQyb": 15925, "dQzb": 1322, "dShearCtr": 0, "dPtY": [-50, 50, 50, -50],
            "dPtZ": [100, 100, -100, -100], "bWelded": 0}
    material = {"strStandard": "GB50429-07(A)", "strGrade": "6061-T6", "nElast": 70000, "dPoisson": 0.3,
                "dF02Thin": 240, "dF02Thick": 240}
    para = {"dGamma0": 1, "dKy": 1, "dKz": 1}
    point = {"id": "foot", "force": {"dForce": [-1000, 30000, 0, 0, 0, 0]},
             "data": {"nMembType": 1, "dMembLength": 1000, "code": {"sect": sect, "matl": material, "para": para}}}
    done = subprocess.run([sys.executable, TOOLS / "safe_ratios.py", program], input=json.dumps(point),
                          capture_output=True, text=True, check=True, timeout=60)
    answer = json.loads(done.stdout)
    assert answer["id"] == "foot"
    assert answer["safe"]["C5"] == {"1": pytest.approx(30000 * 1322 / 1674347 / 115, rel=1e-12)}

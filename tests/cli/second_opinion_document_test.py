"""The example of docs/points.md on second opinions by the hand calculation that stands there, and its promises."""

import json
import math
import re
import subprocess

import pytest
from program import ROOT

SECTION = (ROOT / "docs" / "points.md").read_text(encoding="utf-8").split("## Second opinion\n")[1].split("\n## ")[0]
POINT = json.loads(re.search(r"```json\n(.*?)```", SECTION, re.S).group(1))
SAFE = json.loads(re.search(r'"safe":(.*)}\n```', SECTION, re.S).group(1))
DIGITS = 5e-6  # the document has five decimals


@pytest.fixture
def answer(aluframe):
    def ask(**data):
        point = POINT | {"data": POINT["data"] | data}
        done = subprocess.run([aluframe.path, "points", "--second-opinion"], input=json.dumps(point),
                              capture_output=True, text=True, check=True, timeout=60)
        return json.loads(done.stdout)
    return ask


def rounded(value):
    return pytest.approx(value, abs=DIGITS)


def test_the_documented_answer_is_that_by_hand(answer):
    given = answer()
    phi_b = given["report"][9]
    of_my, of_mz = 8e6 / 219546.67, 1e6 / (1.05 * 33486.94)
    corner, lateral = of_my + of_mz, of_my / phi_b + of_mz
    shear = 50000 * 10 / 99093 + 10000 * 15925 / 21954667
    assert phi_b == pytest.approx(0.5668, abs=5e-5)
    assert [SAFE["answers"][1]["ratio"], SAFE["ratio"], SAFE["torsion"]] == [
        rounded(corner / 200), rounded(lateral / 200), rounded(math.hypot(corner, math.sqrt(3) * shear) / 200)]


def test_it_is_asked_whatever_the_switches_say(answer):
    switched_off = answer(nCheckFlag=[0] * 8)
    assert switched_off["items"] == [[0, 0]] * 8
    assert switched_off["safe"]["ratio"] == answer()["safe"]["ratio"]


def test_a_point_that_is_not_checked_has_none(answer):
    code = POINT["data"]["code"]
    unchecked = answer(code=code | {"sect": code["sect"] | {"dArea": 0}})
    assert unchecked["ret"] == 0 and "safe" not in unchecked

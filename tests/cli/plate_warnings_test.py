"""Warnings of slender plates that count in full, and of loads that would bend trusses."""

import pytest

from second_opinion_models import beam


def warned(aluframe, model, command="validate"):
    return aluframe(command, aluframe.write(model)).stdout


def loaded(model):
    """Under 1 kN/m downwards."""
    model["load_cases"] = [{"number": 1, "name": "L", "span": [{"elements": [1], "direction": "Z", "value": -1}]}]
    return model


@pytest.mark.parametrize("command", ["validate", "check"])
def test_a_pipe_over_its_limit_is_warned_of(aluframe, command):
    # D/t = 200/2 against 12000/240 = 50.
    text = warned(aluframe, loaded(beam("P 200x2", 4)), command)
    assert "B12" in text and "the wall of section 1" in text and "has 2 times its limit" in text


def test_a_box_with_slender_webs_is_warned_of(aluframe):
    # (200 − 2·3)/2 = 97 against 21.5·√5.97 = 52.5, and above 60.
    text = warned(aluframe, loaded(beam("B 200x60x2x3", 4)))
    assert "B2" in text and "has 1.85 times its limit" in text and "h/t up to 97" in text


def test_a_load_across_a_truss_is_warned_of_and_none_along_it(aluframe):
    truss = loaded(beam("P 100x10", 4, kind="truss"))
    assert "loads between the ends of trusses go to their nodes" in warned(aluframe, truss)
    truss["load_cases"][0]["span"][0]["direction"] = "X"
    assert "trusses" not in warned(aluframe, truss)


def test_a_box_with_ordinary_webs_is_not_warned_of(aluframe):
    # Web (140 − 2·5)/5 = 26 of 17·√(240/110)·√5.97 = 61.
    assert "slender" not in warned(aluframe, loaded(beam("B 140x60x5x5", 3, "6063-T5")))

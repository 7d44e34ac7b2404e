"""The JSON Schema of the model file: sound itself, true to every example, and strict."""

import copy
import json
import re
from pathlib import Path

import jsonschema
import pytest

ROOT = Path(__file__).resolve().parents[2]
SCHEMA = json.loads((ROOT / "schema" / "aluframe-model.schema.json").read_text(encoding="utf-8"))
EXAMPLES = sorted((ROOT / "examples").glob("*.json"))
VALIDATOR = jsonschema.Draft202012Validator(SCHEMA)


def documented_example():
    text = (ROOT / "docs" / "model-file.md").read_text(encoding="utf-8")
    return json.loads(re.search(r"```json\n(.*?)```", text, re.DOTALL).group(1))


# A model with every field that a file may have.
FULL = {
    "$schema": "../schema/aluframe-model.schema.json",
    "format": "aluframe-model",
    "version": 1,
    "title": "All",
    "description": "Every field",
    "project": {"name": "Hall 3", "number": "24-017", "client": "City", "location": "Quay 1",
                "engineer": "A", "checker": "B", "approver": "C", "revision": "2", "date": "2026-05-01"},
    "units": {"force": "kip", "length": "ft", "section": "in"},
    "settings": {"code": "GB50429-2007", "rib": False, "rib_ratio": 1.1, "safety_class": 3,
                 "strength_ratio": 0.9, "seismic": True, "gamma_re_strength": 0.7,
                 "gamma_re_stability": 0.75},
    "frame": {"braced_a": True, "braced_b": False, "length_factors": "one"},
    "analysis": {"second_order": False},
    "envelopes": "extremes",
    "catalogues": [],
    "materials": [
        {"number": 1, "name": "M", "alloy": "5083-O/F"},
        {"number": 2, "grade": "X", "standard": "S", "f02_thin": 110, "f02_thick": 100, "fu": 160,
         "e": 69000, "poisson": 0.33, "density": 2.8e-6, "thermal_expansion": 2.4e-5}],
    "sections": [
        {"number": 1, "shape": "C", "welded": True,
         "dimensions": {"H": 8, "B1": 3, "tw": 0.3, "tf1": 0.4, "B2": 2, "tf2": 0.3, "r1": 0, "r2": 0}},
        {"number": 2, "shape": "H", "dimensions": {"H": 8, "B1": 3, "tw": 0.3, "tf1": 0.4}},
        {"number": 3, "shape": "T", "dimensions": {"H": 8, "B": 3, "tw": 0.3, "tf": 0.4}},
        {"number": 4, "shape": "B",
         "dimensions": {"H": 8, "B": 3, "tw": 0.3, "tf1": 0.4, "C": 2, "tf2": 0.3}},
        {"number": 5, "shape": "P", "dimensions": {"D": 8, "t": 0.3}},
        {"number": 6, "shape": "2C", "dimensions": {"H": 8, "B": 3, "tw": 0.3, "tf": 0.4, "C": 0}},
        {"number": 7, "shape": "SR", "dimensions": {"D": 2}},
        {"number": 8, "shape": "UP", "name": "given",
         "properties": {"area": 1, "it": 0, "iyy": 1, "izz": 1, "qyb": 1, "qzb": 1, "iw": 0,
                        "shear_centre_z": -1, "point_y": [-1, 1, 1, -1], "point_z": [1, 1, -1, -1]}},
        {"number": 9, "profile": "AA I 6x4.03", "welded": True, "properties": {"it": 1}}],
    "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0},
              {"number": 2, "name": "top", "x": 0.5, "y": -1, "z": 1e3},
              {"number": 3, "x": 1, "y": 0, "z": 0}, {"number": 4, "x": 2, "y": 0, "z": 0},
              {"number": 5, "x": 0, "y": 50, "z": 0}, {"number": 6, "x": 4, "y": 50, "z": 0},
              {"number": 7, "x": 0, "y": 53, "z": 0}, {"number": 8, "x": 4, "y": 53, "z": 0}],
    "supports": [{"node": 1, "restrained": "all"},
                 {"node": 2, "restrained": ["Dx", "Dy", "Dz", "Rx", "Ry", "Rz"]},
                 {"node": 3, "restrained": ["Dx"], "springs": {"Dy": 1, "Dz": 2, "Rx": 3, "Ry": 4, "Rz": 5}},
                 {"node": 4, "springs": {"Dx": 0.5}}, {"node": 5, "restrained": "all"}],
    "elements": [{
        "number": 134217727, "name": "E", "nodes": [1, 2], "section": 1, "material": 2, "beta": -90,
        "orientation": {"vector": [0, 1, 0.5]},
        "kind": "truss", "member_type": "brace",
        "releases": {"start": ["Fy", "Fz"], "end": ["Mx", "My", "Mz"]},
        "design": {
            "stability_coefficients": {"y": 0.5, "z": 0.6}, "rib": {"stiffened": True, "ratio": 1.2},
            "weld_coefficient": 0.9, "haz_width": 1,
            "moment_factors": {"y": {"value": -0.5}, "z": {"loading": 3}},
            "length_factors": {"y": 2, "z": 1}, "slenderness_limits": {
                "checked": False, "compression": 0, "tension": 350}}},
        {"number": 1, "nodes": [3, 4], "section": 2, "material": 1, "releases": {"start": ["N"]},
         "orientation": {"node": 2}},
        {"number": 2, "nodes": [5, 6], "section": 2, "material": 1},
        {"number": 3, "nodes": [7, 8], "section": 2, "material": 1},
        {"number": 4, "nodes": [5, 7], "section": 2, "material": 1},
        {"number": 5, "nodes": [6, 8], "section": 2, "material": 1}],
    "members": [{"number": 1, "name": "m", "elements": [134217727],
                 "length_factors": {"y": 1, "z": 0.7}}],
    "load_cases": [
        {"number": 1, "name": "DL", "kind": "settlement", "self_weight": 1,
         "nodal": [{"nodes": [3, 4], "Fx": 1, "Fy": -2, "Fz": 3, "Mx": 4, "My": 5, "Mz": 0},
                   {"nodes": "all", "Fx": 1}],
         "span": [{"elements": "all", "direction": "z", "value": -1.2},
                  {"elements": [1, 134217727], "direction": "Z", "projected": True,
                   "values": [0, 2.5], "from": 0.25, "to": 0.75}],
         "points": [{"elements": "all", "direction": "X", "at": 0, "force": -10},
                    {"elements": [1], "direction": "y", "at": 1, "moment": 2}],
         "temperature": [{"elements": [1], "change": 30, "difference_y": -5, "difference_z": 0},
                         {"elements": "all", "change": -20}],
         "settlements": [
             {"node": 1, "Dx": 0, "Dy": 1, "Dz": -2, "Rx": 1e-3, "Ry": 2e-3, "Rz": 3e-3},
             {"node": 3, "Dx": 0.1}]},
        {"number": 2, "self_weight": {"X": 0.1, "Y": 0, "Z": -1}},
        {"number": 3, "area": [
            {"region": {"nodes": [5, 6, 8, 7]}, "elements": "all", "span": [1, 0, 0], "direction": "Z",
             "projected": True, "pressure": -0.5},
            {"region": {"points": [[0, 50, 0], [4, 50, 0], [4, 53, 0], [0, 53, 0]]}, "span": "Y",
             "direction": "normal", "wind": {
                 "w0": 0.05, "roughness": "A", "height": 30, "mu_sl": -1.2, "mu_z": 1.3, "beta_gz": 1.6, "profile": {
                     "mu_10": 1, "alpha": 0.1, "mu_min": 1, "gradient_height": 900, "lowest_height": 30,
                     "i_10": 0.1, "g": 2.5}}},
            {"elements": [2, 3, 4, 5], "span": "two_way", "direction": "Z", "wind": {
                "w0": 0.05, "roughness": "D", "height": 100, "mu_s": 0.8, "beta_z": 1.5}},
            {"elements": [2, 3], "spacing": 2, "direction": "z", "pressure": 1},
            {"elements": "all", "spacing": 2, "snow": {"s0": 0.01, "mu_r": 1}}]}],
    "combinations": [
        {"number": 1, "name": "c", "kind": "envelope", "seismic": True, "design": False,
         "terms": [{"case": 1, "factor": -1.3}, {"case": 2}]},
        {"number": 2, "terms": [{"combination": 1}]}],
    "forces": [{"element": 134217727, "case": 1, "values": [[1, 0, 0, 4, 5, 6]] * 2},
               {"element": 134217727, "case": 2, "values": [[0, 0, 0, 0, 0, 0.5]] * 5}],
}

# fault: the path of the value that is replaced (or added), and the value
BROKEN = {
    "other format": (["format"], "other"),
    "shape beside a profile": (["sections", 8, "shape"], "H"),
    "dimensions beside a profile": (["sections", 8, "dimensions"], {"H": 8}),
    "profile without a name": (["sections", 8, "profile"], ""),
    "profile beside a shape": (["sections", 1, "profile"], "AA I 6x4.03"),
    "catalogue without a name": (["catalogues"], [""]),
    "catalogue that is no list": (["catalogues"], "mine.csv"),
    "later version": (["version"], 2),
    "unknown field": (["colour"], "red"),
    "number as text": (["nodes", 0, "x"], "0"),
    "unknown unit": (["units", "length"], "km"),
    "unknown code": (["settings", "code"], "GB50017-2017"),
    "internal name of the code": (["settings", "code"], "GB50429-07(A)"),
    "unknown safety class": (["settings", "safety_class"], 4),
    "ratio of zero": (["settings", "rib_ratio"], 0),
    "unknown frame axis": (["frame", "braced_c"], True),
    "unknown analysis option": (["analysis", "order"], 2),
    "second order as a number": (["analysis", "second_order"], 2),
    "imperfections in first order": (["analysis", "imperfections"], {"sway": 0.005}),
    "unknown way of checking envelopes": (["envelopes"], "sides"),
    "unknown alloy": (["materials", 0, "alloy"], "6063-T7"),
    "alloy beside values": (["materials", 0, "fu"], 160),
    "strength of zero": (["materials", 1, "f02_thin"], 0),
    "poisson of zero": (["materials", 1, "poisson"], 0),
    "unknown shape": (["sections", 0, "shape"], "I"),
    "negative dimension": (["sections", 0, "dimensions", "tw"], -3),
    "negative radius": (["sections", 0, "dimensions", "r1"], -3),
    "dimension of another shape": (["sections", 2, "dimensions", "B1"], 60),
    "missing dimension of H": (["sections", 1, "dimensions"], {"H": 1, "B1": 1, "tw": 1}),
    "missing dimension of T": (["sections", 2, "dimensions"], {"H": 1, "B": 1, "tw": 1}),
    "missing dimension of B": (["sections", 3, "dimensions"], {"H": 1, "B": 1, "tw": 1}),
    "missing dimension of P": (["sections", 4, "dimensions"], {"D": 1}),
    "missing dimension of 2C": (["sections", 5, "dimensions"], {"H": 1, "B": 1, "tw": 1}),
    "missing dimension of SR": (["sections", 6, "dimensions"], {}),
    "dimensions of UP": (["sections", 7, "dimensions"], {"H": 1}),
    "missing properties of UP": (["sections", 7, "properties"], {"area": 1}),
    "three stress points": (["sections", 7, "properties", "point_y"], [1, 2, 3]),
    "negative area": (["sections", 7, "properties", "area"], -1),
    "number zero": (["nodes", 0, "number"], 0),
    "fraction as number": (["nodes", 0, "number"], 1.5),
    "number beyond the limit": (["nodes", 0, "number"], 134217728),
    "coordinate beyond the largest": (["nodes", 0, "x"], 2e30),
    "unknown direction": (["supports", 1, "restrained"], ["Tx"]),
    "direction given twice": (["supports", 1, "restrained"], ["Dx", "Dx"]),
    "unknown word for a support": (["supports", 0, "restrained"], "fixed"),
    "all in a list": (["supports", 0, "restrained"], ["all"]),
    "neither restrained nor spring": (["supports", 3], {"node": 4}),
    "no springs": (["supports", 3, "springs"], {}),
    "spring of zero": (["supports", 3, "springs", "Dx"], 0),
    "spring of a force": (["supports", 3, "springs"], {"Fx": 1}),
    "spring where all is restrained": (["supports", 0, "springs"], {"Dx": 1}),
    "no elements": (["elements"], []),
    "three nodes": (["elements", 0, "nodes"], [1, 2, 3]),
    "equal nodes": (["elements", 0, "nodes"], [1, 1]),
    "unknown kind of element": (["elements", 0, "kind"], "rod"),
    "unknown member type": (["elements", 0, "member_type"], "post"),
    "unknown release": (["elements", 0, "releases", "end"], ["Rz"]),
    "factor given and computed": (["elements", 0, "design", "moment_factors", "y"],
                                  {"value": 1, "loading": 0}),
    "factor neither given nor computed": (["elements", 0, "design", "moment_factors", "y"], {}),
    "unknown loading": (["elements", 0, "design", "moment_factors", "z", "loading"], 4),
    "length factor of zero": (["elements", 0, "design", "length_factors", "y"], 0),
    "negative limit": (["elements", 0, "design", "slenderness_limits", "tension"], -1),
    "empty member": (["members", 0, "elements"], []),
    "element twice in a member": (["members", 0, "elements"], [134217727, 134217727]),
    "unknown kind of case": (["load_cases", 0, "kind"], "dead"),
    "unknown list of loads": (["load_cases", 0, "spans"], []),
    "one load in place of a list": (["load_cases", 0, "nodal"], {"nodes": [3], "Fx": 1}),
    "self-weight of zero": (["load_cases", 0, "self_weight"], 0),
    "self-weight without factors": (["load_cases", 1, "self_weight"], {}),
    "self-weight of zero factors": (["load_cases", 1, "self_weight"], {"X": 0, "Z": 0}),
    "self-weight along a local axis": (["load_cases", 1, "self_weight"], {"z": 1}),
    "self-weight of a truth value": (["load_cases", 1, "self_weight"], True),
    "load on no nodes": (["load_cases", 0, "nodal", 0, "nodes"], []),
    "load on a node twice": (["load_cases", 0, "nodal", 0, "nodes"], [3, 3]),
    "load on an unknown word": (["load_cases", 0, "nodal", 0, "nodes"], "every"),
    "load on a number": (["load_cases", 0, "nodal", 0, "nodes"], 3),
    "nodal load without component": (["load_cases", 0, "nodal", 1], {"nodes": [3]}),
    "nodal load of zero": (["load_cases", 0, "nodal", 1], {"nodes": [3], "Fx": 0, "Mz": 0}),
    "nodal load in local axes": (["load_cases", 0, "nodal", 1], {"nodes": [3], "Fx": 1, "N": 1}),
    "nodal load beyond the largest": (["load_cases", 0, "nodal", 1, "Fx"], 2e30),
    "unknown direction of a load": (["load_cases", 0, "span", 0, "direction"], "-Z"),
    "load on a span of zero": (["load_cases", 0, "span", 0, "value"], 0),
    "values of zero": (["load_cases", 0, "span", 1, "values"], [0, 0]),
    "three values": (["load_cases", 0, "span", 1, "values"], [1, 2, 3]),
    "value beside values": (["load_cases", 0, "span", 1, "value"], 1),
    "projection of a local direction": (["load_cases", 0, "span", 0, "projected"], True),
    "beginning before the element": (["load_cases", 0, "span", 1, "from"], -0.1),
    "beginning at the end": (["load_cases", 0, "span", 0, "from"], 1),
    "end behind the element": (["load_cases", 0, "span", 1, "to"], 1.1),
    "end at the beginning": (["load_cases", 0, "span", 0, "to"], 0),
    "place behind the element": (["load_cases", 0, "points", 0, "at"], 1.5),
    "force of zero": (["load_cases", 0, "points", 0, "force"], 0),
    "moment of zero": (["load_cases", 0, "points", 1, "moment"], 0),
    "force and moment": (["load_cases", 0, "points", 0, "moment"], 1),
    "projected force": (["load_cases", 0, "points", 0, "projected"], True),
    "temperature of zero": (["load_cases", 0, "temperature", 1, "change"], 0),
    "temperature without value": (["load_cases", 0, "temperature", 1], {"elements": [1]}),
    "area load without a pressure": (["load_cases", 2, "area", 3], {"elements": [2], "spacing": 2, "direction": "z"}),
    "area load of zero": (["load_cases", 2, "area", 0, "pressure"], 0),
    "pressure beside wind": (["load_cases", 2, "area", 1, "pressure"], 1),
    "region beside a spacing": (["load_cases", 2, "area", 3, "region"], {"nodes": [5, 6, 7]}),
    "span beside a spacing": (["load_cases", 2, "area", 3, "span"], "X"),
    "surface along a local axis": (["load_cases", 2, "area", 0, "direction"], "z"),
    "spacing of elements with a normal": (["load_cases", 2, "area", 3, "direction"], "normal"),
    "spacing of zero": (["load_cases", 2, "area", 3, "spacing"], 0),
    "spacing below zero": (["load_cases", 2, "area", 3, "spacing"], -1.2),
    "projection of a normal": (["load_cases", 2, "area", 1, "projected"], True),
    "direction of snow": (["load_cases", 2, "area", 4, "direction"], "Z"),
    "region of two corners": (["load_cases", 2, "area", 0, "region", "nodes"], [5, 6]),
    "region of nodes and points": (["load_cases", 2, "area", 0, "region", "points"], [[0, 0, 0]] * 3),
    "unknown way of a surface": (["load_cases", 2, "area", 0, "span"], "x"),
    "span of no direction": (["load_cases", 2, "area", 0, "span"], [0, 0, 0]),
    "unknown roughness": (["load_cases", 2, "area", 1, "wind", "roughness"], "E"),
    "height of zero": (["load_cases", 2, "area", 1, "wind", "height"], 0),
    "shape factor beyond the largest": (["load_cases", 2, "area", 1, "wind", "mu_sl"], 11),
    "shape factor of zero": (["load_cases", 2, "area", 1, "wind", "mu_sl"], 0),
    "two shape factors": (["load_cases", 2, "area", 1, "wind", "mu_s"], 0.8),
    "structure without a vibration factor": (["load_cases", 2, "area", 2, "wind"], {
        "w0": 0.05, "roughness": "D", "height": 100, "mu_s": 0.8}),
    "gust factor of a structure": (["load_cases", 2, "area", 2, "wind", "beta_gz"], 1.5),
    "exponent above 1": (["load_cases", 2, "area", 1, "wind", "profile", "alpha"], 1.1),
    "snow of zero": (["load_cases", 2, "area", 4, "snow", "s0"], 0),
    "snow without a shape factor": (["load_cases", 2, "area", 4, "snow"], {"s0": 0.01}),
    "settlement of zero": (["load_cases", 0, "settlements", 1, "Dx"], 0),
    "settlement of a list of nodes": (["load_cases", 0, "settlements", 1, "node"], [3]),
    "unknown kind of combination": (["combinations", 0, "kind"], "srss"),
    "term with both": (["combinations", 1, "terms", 0, "case"], 1),
    "term with neither": (["combinations", 1, "terms", 0], {"factor": 1}),
    "no terms": (["combinations", 1, "terms"], []),
    "three rows": (["forces", 0, "values"], [[0] * 6] * 3),
    "five forces": (["forces", 0, "values"], [[0] * 5] * 2),
}

# A spring in each direction, restrained as well.
BROKEN |= {
    f"spring in the restrained direction {direction}": (
        ["supports", 2], {"node": 3, "restrained": [direction], "springs": {direction: 1}})
    for direction in ["Dx", "Dy", "Dz", "Rx", "Ry", "Rz"]}

IMPERFECT = {"sway": {"x": 0.005, "y": 0.1}, "bow": 0.004, "mode": {"amplitude": 0.5}}
BROKEN |= {name: (["analysis"], {"second_order": True, "imperfections": value}) for name, value in {
    "no imperfection": {},
    "unknown imperfection": IMPERFECT | {"lean": 0.005},
    "sway of zero": {"sway": {"x": 0}},
    "sway in degrees": {"sway": {"y": 0.3}},
    "sway along z": {"sway": {"x": 0.005, "z": 0.005}},
    "sway without a direction": {"sway": {}},
    "bow as a denominator": {"bow": 250},
    "bow without an axis": {"bow": {}},
    "bow about x": {"bow": {"x": 0.004}},
    "mode as a number": {"mode": 0.02},
    "mode without a size": {"mode": {}},
    "mode of zero": {"mode": {"amplitude": 0}},
}.items()}

REQUIRED = [
    ["format"], ["version"], ["materials"], ["sections"], ["nodes"], ["elements"],
    ["materials", 0, "number"], ["materials", 0, "alloy"], ["materials", 1, "grade"],
    ["materials", 1, "f02_thin"], ["materials", 1, "fu"], ["sections", 0, "shape"],
    ["sections", 0, "dimensions"], ["sections", 8, "profile"], ["sections", 7, "properties"], ["nodes", 1, "number"],
    ["nodes", 1, "x"], ["nodes", 1, "y"], ["nodes", 1, "z"], ["supports", 0, "node"],
    ["supports", 0, "restrained"], ["elements", 0, "number"], ["elements", 0, "nodes"],
    ["elements", 0, "section"], ["elements", 0, "material"], ["members", 0, "elements"],
    ["supports", 3, "springs"], ["load_cases", 0, "nodal", 0, "nodes"],
    ["load_cases", 0, "span", 0, "elements"], ["load_cases", 0, "span", 0, "direction"],
    ["load_cases", 0, "span", 0, "value"], ["load_cases", 0, "span", 1, "values"],
    ["load_cases", 0, "points", 0, "elements"], ["load_cases", 0, "points", 0, "direction"],
    ["load_cases", 0, "points", 0, "at"], ["load_cases", 0, "points", 0, "force"],
    ["load_cases", 0, "points", 1, "moment"], ["load_cases", 0, "temperature", 0, "elements"],
    ["load_cases", 2, "area", 0, "direction"], ["load_cases", 2, "area", 0, "span"],
    ["load_cases", 2, "area", 0, "region", "nodes"], ["load_cases", 2, "area", 0, "pressure"],
    ["load_cases", 2, "area", 1, "region"], ["load_cases", 2, "area", 1, "wind", "w0"],
    ["load_cases", 2, "area", 1, "wind", "roughness"], ["load_cases", 2, "area", 1, "wind", "height"],
    ["load_cases", 2, "area", 1, "wind", "mu_sl"], ["load_cases", 2, "area", 2, "wind", "beta_z"],
    ["load_cases", 2, "area", 4, "snow", "mu_r"],
    ["load_cases", 0, "settlements", 0, "node"], ["load_cases", 0, "number"], ["combinations", 0, "terms"], ["forces", 0, "element"],
    ["forces", 0, "case"], ["forces", 0, "values"],
]


def parent_of(model, path):
    for key in path[:-1]:
        model = model[key]
    return model


def without(path):
    model = copy.deepcopy(FULL)
    del parent_of(model, path)[path[-1]]
    return model


def replaced(path, value):
    model = copy.deepcopy(FULL)
    parent_of(model, path)[path[-1]] = value
    return model


def test_the_schema_is_a_valid_schema():
    jsonschema.Draft202012Validator.check_schema(SCHEMA)


def test_a_model_with_every_field_is_valid():
    VALIDATOR.validate(FULL)


@pytest.mark.parametrize("part", IMPERFECT)
def test_imperfections_are_valid_together_and_each_alone(part):
    for imperfections in [IMPERFECT, {part: IMPERFECT[part]}]:
        VALIDATOR.validate(replaced(["analysis"], {"second_order": True, "imperfections": imperfections}))


def test_the_documented_example_is_valid():
    VALIDATOR.validate(documented_example())


def test_there_are_examples():
    assert EXAMPLES


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.name)
def test_an_example_is_valid(path):
    VALIDATOR.validate(json.loads(path.read_text(encoding="utf-8")))


@pytest.mark.parametrize("path, value", BROKEN.values(), ids=BROKEN.keys())
def test_a_broken_model_is_not_valid(path, value):
    assert not VALIDATOR.is_valid(replaced(path, value))


@pytest.mark.parametrize("path", REQUIRED, ids=lambda path: "/".join(map(str, path)))
def test_a_model_without_a_required_field_is_not_valid(path):
    assert not VALIDATOR.is_valid(without(path))


@pytest.mark.parametrize("path", REQUIRED, ids=lambda path: "/".join(map(str, path)))
def test_the_reader_refuses_a_model_without_a_required_field(aluframe, path):
    aluframe.write(without(path))
    assert "frame.json: " in aluframe("validate", "frame.json", status=1).stderr


@pytest.mark.parametrize("path, value", BROKEN.values(), ids=BROKEN.keys())
def test_the_reader_refuses_what_the_schema_refuses(aluframe, path, value):
    aluframe.write(replaced(path, value))
    assert "frame.json: " in aluframe("validate", "frame.json", status=1).stderr


def test_values_of_ones_own_may_be_without_a_grade(aluframe):
    model = copy.deepcopy(FULL)
    model["materials"][1]["grade"] = ""
    VALIDATOR.validate(model)
    aluframe.write(model)
    aluframe("validate", "frame.json")


def test_the_reader_takes_the_model_with_every_field(aluframe):
    aluframe.write(FULL)
    assert "valid" in aluframe("validate", "frame.json").stdout

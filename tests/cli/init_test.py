"""Models to start from: sound as they stand, at every size that can be chosen, and never over another file."""

import json
import math
import random
import re

import pytest

G = 9.80665
# Kinds by their sizes: standard, least, most; whole numbers are counts.
KINDS = {
    "mullion": {"height": (3.6, 2.4, 4.5), "storeys": (2, 1, 6), "spacing": (1.2, 0.6, 2.0), "w0": (0.45, 0.3, 0.9)},
    "hall": {"span": (12.0, 6.0, 20.0), "height": (4.0, 2.5, 8.0), "rise": (1.2, 0.6, 4.0), "spacing": (3.0, 1.0, 6.0),
             "w0": (0.35, 0.3, 0.9), "s0": (0.3, 0.1, 1.0)},
    "footbridge": {"span": (16.0, 8.0, 30.0), "panels": (8, 4, 16), "width": (2.0, 1.2, 4.0), "height": (1.6, 1.0, 3.0)},
    "dome": {"span": (20.0, 8.0, 40.0), "rise": (5.0, 2.0, 15.0), "rings": (4, 2, 8), "sectors": (12, 6, 24),
             "s0": (0.3, 0.1, 1.0)},
}
SEED = 20070601


def made(aluframe, kind, **sizes):
    options = [f"--{name}={value}" for name, value in sizes.items()]
    aluframe("init", kind, "frame.json", "--force", *options)
    return json.loads((aluframe.folder / "frame.json").read_text(encoding="utf-8"))


def reactions(aluframe, case):
    """The sum over all supports of a load case, along X, Y and Z."""
    rows = [row for row in aluframe.json("analyse", "frame.json")["reactions"] if row["case"] == case]
    return [sum(row[key] or 0 for row in rows) for key in ("Fx", "Fy", "Fz")]


@pytest.mark.parametrize("kind", KINDS)
def test_a_model_to_start_from_is_sound_and_every_ratio_is_below_one(aluframe, kind):
    done = aluframe("init", kind, "frame.json")
    assert done.stdout == "" and "frame.json: " in done.stderr
    said = aluframe("validate", "frame.json")
    assert "remarks" not in said.stdout and "units, " not in said.stdout and said.stderr == ""
    assert "automatically" in said.stdout
    aluframe("check", "frame.json", "--strict=safe")
    model = json.loads((aluframe.folder / "frame.json").read_text(encoding="utf-8"))
    assert "combinations" in model and "rule" in model["combinations"]
    assert all(entity["name"] for part in ("sections", "nodes", "elements", "load_cases") for entity in model[part])
    assert "Change: " in model["description"]


@pytest.mark.parametrize("kind, number", [(kind, number) for kind in KINDS for number in range(6)])
def test_every_size_in_its_range_makes_a_model_that_is_checked_in_equilibrium(aluframe, kind, number):
    """The first two at the ends of all ranges, the others at random."""
    rng = random.Random(f"{SEED} {kind} {number}")
    sizes = {}
    for name, (standard, least, most) in KINDS[kind].items():
        draw = rng.randint(least, most) if isinstance(standard, int) else round(rng.uniform(least, most), 3)
        sizes[name] = {0: least, 1: most}.get(number, draw)
    if kind == "dome":
        sizes["rise"] = min(sizes["rise"], math.floor(sizes["span"] * 500) / 1000)
    made(aluframe, kind, **sizes)
    said = aluframe("validate", "frame.json").stdout
    assert "units, " not in said, (sizes, said)
    assert float(re.search(r"residual ([^,]+)", said)[1]) < 1e-9, (sizes, said)
    checked = aluframe("check", "frame.json")
    assert re.search(r"elements +(\d+) of \1 checked", checked.stdout), (sizes, checked.stdout)
    assert checked.stderr == "Finished: Aluminium design\n"


def test_a_mullion_by_hand(aluframe):
    """3 storeys of 3 m, 1.5 m apart: wk by GB 50009-2012 at 50 m, roughness C; box 140x65x3x4 of 2.7e-6 kg/mm3."""
    model = made(aluframe, "mullion", height=3, storeys=3, spacing=1.5, w0=0.5)
    assert (len(model["nodes"]), len(model["elements"]), len(model["supports"])) == (4, 3, 4)
    mu_z = 0.544 * 5**0.44
    gust = 1 + 2 * 2.5 * 0.23 * 5**-0.22
    area = 2 * 65 * 4 + 2 * (140 - 8) * 3
    weight = 2.7e-6 * area * 9000 * G / 1000 + 0.5 * 1.5 * 9
    assert reactions(aluframe, 1) == pytest.approx([0, 0, weight], abs=1e-3)
    assert reactions(aluframe, 2) == pytest.approx([0, -gust * 1.2 * mu_z * 0.5 * 1.5 * 9, 0], abs=1e-3)
    assert reactions(aluframe, 3) == pytest.approx([0, gust * 1.4 * mu_z * 0.5 * 1.5 * 9, 0], abs=1e-3)
    # The moment of a beam over three equal spans at its inner supports: q L^2 / 10, but for the shear flexibility of
    # the box, which evens spans out by some thousandths.
    q = gust * 1.2 * mu_z * 0.5 * 1.5
    forces = aluframe.json("analyse", "frame.json", "--cases", "2")["forces"]
    inner = next(row for row in forces if row["element"] == 1 and row["position"] == 4)
    assert abs(inner["My"]) == pytest.approx(q * 9 / 10, rel=5e-3)


def test_a_hall_by_hand(aluframe):
    model = made(aluframe, "hall", span=16, height=5, rise=2, spacing=4, s0=0.5, w0=0.4)
    # Two feet, two eaves, three purlins each side and the ridge; two columns and four pieces of each rafter.
    assert (len(model["nodes"]), len(model["elements"])) == (11, 10)
    rafters = 2 * math.hypot(8, 2)
    column = 200 * 120 - (200 - 16) * (120 - 12)
    rafter = 180 * 100 - (180 - 16) * (100 - 12)
    weight = 2.7e-6 * (column * 10_000 + rafter * rafters * 1000) * G / 1000 + 0.3 * 4 * rafters
    assert reactions(aluframe, 1) == pytest.approx([0, 0, weight], abs=1e-3)
    assert reactions(aluframe, 2) == pytest.approx([0, 0, 0.5 * 4 * 16], abs=1e-3)
    # Roughness B has mu_z = 1 below 10 m, the walls have 0.8 and 0.5 of it.
    blown = 0.4 * 4 * 5 * (0.8 + 0.5)
    assert reactions(aluframe, 3) == pytest.approx([-blown, 0, 0], abs=1e-3)
    assert reactions(aluframe, 4) == pytest.approx([blown, 0, 0], abs=1e-3)


def test_a_footbridge_by_hand(aluframe):
    model = made(aluframe, "footbridge", span=20, panels=10, width=2.5, height=2)
    # Four chords of eleven nodes; chords and diagonals 2 (3 · 10), posts 2 · 11, cross beams 11, bracing 10.
    assert (len(model["nodes"]), len(model["elements"])) == (44, 60 + 22 + 11 + 10)
    assert reactions(aluframe, 2) == pytest.approx([0, 0, 4 * 20 * 2.5], abs=1e-3)
    # On 0.4 m of four chords of 20 m.
    assert reactions(aluframe, 3) == pytest.approx([0, -0.5 * 0.4 * 4 * 20, 0], abs=1e-3)
    # Each support has a quarter of the crowd, but for the bracing, which slants one way.
    rows = [row for row in aluframe.json("analyse", "frame.json")["reactions"] if row["case"] == 2]
    assert [row["Fz"] for row in rows] == pytest.approx([50] * 4, rel=1e-3)


def test_a_dome_by_hand(aluframe):
    model = made(aluframe, "dome", span=24, rise=6, rings=3, sectors=8, s0=0.5)
    # Crown and three rings of eight; ribs and rings three times eight each, diagonals two times eight.
    assert (len(model["nodes"]), len(model["elements"])) == (25, 24 + 24 + 16)
    assert reactions(aluframe, 2) == pytest.approx([0, 0, 0.5 * math.pi * 12**2], abs=1e-3)
    # Cladding on the surface, 2·π·15·6, beside the pipes of 2700 kg/m³.
    nodes = {node["number"]: (node["x"], node["y"], node["z"]) for node in model["nodes"]}
    length = sum(math.dist(*(nodes[number] for number in element["nodes"])) for element in model["elements"])
    pipes = math.pi * (0.14**2 - 0.128**2) / 4 * length * 2700 * 9.80665 / 1000
    assert reactions(aluframe, 1) == pytest.approx([0, 0, 0.3 * 2 * math.pi * 15 * 6 + pipes], rel=2e-4)
    # All nodes lie on a sphere of radius (12^2 + 6^2) / (2 · 6) = 15 m.
    for node in model["nodes"]:
        assert math.hypot(node["x"], node["y"], node["z"] + 9) == pytest.approx(15, abs=1e-6)
    rows = [row for row in aluframe.json("analyse", "frame.json")["reactions"] if row["case"] == 2]
    assert [row["Fz"] for row in rows] == pytest.approx([0.5 * math.pi * 144 / 8] * 8, abs=1e-3)


def test_a_file_is_not_written_over(aluframe):
    path = aluframe.folder / "frame.json"
    path.write_text("mine", encoding="utf-8")
    done = aluframe("init", "hall", "frame.json", status=1)
    assert done.stderr == "frame.json: exists already; --force writes over it\n"
    assert path.read_text(encoding="utf-8") == "mine"
    aluframe("init", "dome", "other.json")
    aluframe("init", "hall", "other.json", "--force")
    assert json.loads((aluframe.folder / "other.json").read_text(encoding="utf-8"))["title"] == "Hall portal of 12 m"


@pytest.mark.parametrize("content", [b"mine", b"", b'{"my": "data"}', b"[1, 2]", bytes(range(256)) * 12])
def test_only_models_are_written_over_by_force(aluframe, content):
    path = aluframe.folder / "keep.json"
    path.write_bytes(content)
    done = aluframe("init", "hall", "keep.json", "--force", status=1)
    assert done.stderr == "keep.json: exists and is no model; --force writes over models only\n"
    assert path.read_bytes() == content


def test_results_are_not_written_over_by_force_either(aluframe):
    aluframe("init", "mullion", "frame.json")
    aluframe("check", "frame.json")
    path = aluframe.folder / "frame.aluresult"
    before = path.read_bytes()
    assert "frame.aluresult: " in aluframe("init", "hall", "frame.aluresult", "--force", status=1).stderr
    assert path.read_bytes() == before


@pytest.mark.parametrize("arguments, message", [
    (["tower", "a.json"], "found 'tower', must be one of mullion, hall, footbridge, dome"),
    (["hall", "a.json", "--span", "5.9"], "--span: found 5.9, must be between 6 and 20 m"),
    (["hall", "a.json", "--span", "nan"], "--span: found nan, must be between 6 and 20 m"),
    (["hall", "a.json", "--storeys", "2"], "--storeys: a hall has no such size"),
    (["dome", "a.json", "--rings", "9"], "--rings: found 9, must be between 2 and 8"),
    (["dome", "a.json", "--rise", "11"], "--rise: found 11, must be at most half of the span, 10 m"),
    (["dome", ""], "the file to write has no name"),
    (["dome", "a.json", "--rings", "2.5"], "--rings: found 2.5, must be a whole number"),
])
def test_wrong_sizes_are_refused_and_nothing_is_written(aluframe, arguments, message):
    assert aluframe("init", *arguments, status=1).stderr == message + "\n"
    assert not (aluframe.folder / "a.json").exists()

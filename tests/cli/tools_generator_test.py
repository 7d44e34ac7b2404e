"""Models of any size for load tests."""

import json
from collections import Counter

import pytest
from tool_runner import run


@pytest.fixture(scope="module", params=["dome", "grid"])
def generated(request, tmp_path_factory):
    path = tmp_path_factory.mktemp(request.param) / "model.json"
    run("generate_model.py", "--kind", request.param, "--elements", 1234, "--combinations", 700,
        "--cases", 4, "--envelopes", 3, "--output", path)
    return json.loads(path.read_text(encoding="utf-8"))


def test_a_generated_model_has_exactly_the_elements_asked_for(generated):
    assert len(generated["elements"]) == 1234
    ends = Counter(tuple(sorted(e["nodes"])) for e in generated["elements"])
    assert max(ends.values()) == 1
    assert all(a != b for a, b in ends)


def test_a_generated_model_hangs_together_and_stands_on_supports(generated):
    neighbours = {node["number"]: set() for node in generated["nodes"]}
    for a, b in (e["nodes"] for e in generated["elements"]):
        neighbours[a].add(b)
        neighbours[b].add(a)
    reached, waiting = set(), [generated["nodes"][0]["number"]]
    while waiting:
        node = waiting.pop()
        if node not in reached:
            reached.add(node)
            waiting.extend(neighbours[node])
    assert reached == set(neighbours)
    assert {s["node"] for s in generated["supports"]} & reached


def test_a_generated_model_has_exactly_the_one_sided_combinations_asked_for(generated):
    linear = [c for c in generated["combinations"] if c.get("kind", "linear") == "linear"]
    assert len(linear) == 700
    assert len({json.dumps(c["terms"]) for c in linear}) == 700
    assert len(generated["combinations"]) == 703


def test_a_generated_model_has_five_rows_for_every_element_and_case(generated):
    pairs = {(f["element"], f["case"]) for f in generated["forces"]}
    assert pairs == {(e, c) for e in range(1, 1235) for c in range(1, 5)}
    assert {len(f["values"]) for f in generated["forces"]} == {5}


def test_a_generated_model_mixes_shapes_and_alloys(generated):
    shape = {s["number"]: s["shape"] for s in generated["sections"]}
    assert len({shape[e["section"]] for e in generated["elements"]}) >= 3
    assert len({e["material"] for e in generated["elements"]}) == 4


def test_a_generated_model_says_that_its_forces_are_synthetic(generated):
    assert "synthetic" in generated["description"]


def test_the_same_seed_gives_the_same_model_and_another_seed_another(tmp_path):
    for name, seed in (("a", 5), ("b", 5), ("c", 6)):
        run("generate_model.py", "--kind", "dome", "--elements", 50, "--combinations", 2,
            "--seed", seed, "--output", tmp_path / name)
    a, b, c = ((tmp_path / name).read_bytes() for name in "abc")
    assert a == b
    assert a != c


@pytest.mark.parametrize("kind", ["dome", "grid"])
def test_a_single_element_can_be_generated(tmp_path, kind):
    run("generate_model.py", "--kind", kind, "--elements", 1, "--combinations", 1, "--cases", 1,
        "--output", tmp_path / "one.json")
    model = json.loads((tmp_path / "one.json").read_text(encoding="utf-8"))
    assert len(model["elements"]) == 1


def test_no_elements_is_refused(tmp_path):
    done = run("generate_model.py", "--kind", "dome", "--elements", 0, "--combinations", 1,
               "--output", tmp_path / "none.json", status=2)
    assert "0 is less than 1" in done.stderr
    assert not (tmp_path / "none.json").exists()

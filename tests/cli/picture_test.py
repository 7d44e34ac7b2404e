"""`aluframe picture`: what stands where in the drawing, what it says, and what it refuses."""

import math
import os
import re
import xml.etree.ElementTree as ElementTree

import pytest

from loaded_beam import CANTILEVER, SPAN, UNIFORM, cases
from loaded_beam import beam  # noqa: F401  a fixture
from program import PIPE_I, ROOT

SVG = "{http://www.w3.org/2000/svg}"


def drawn(aluframe, *options, model="frame.json"):
    """The picture's root, read back as XML."""
    return ElementTree.fromstring(aluframe("picture", model, "--svg", "-", *options).stdout.encode())


def layer(root, name):
    found = [group for group in root.iter(f"{SVG}g") if group.get("id") == f"picture-{name}"]
    return found[0] if found else ElementTree.Element("g")


def texts(root):
    return [text.text for text in root.iter(f"{SVG}text")]


def points(item):
    """The corners of a line, a polyline or a polygon."""
    if item.tag == f"{SVG}line":
        return [(float(item.get(f"x{i}")), float(item.get(f"y{i}"))) for i in (1, 2)]
    return [tuple(map(float, pair.split(","))) for pair in item.get("points").split()]


def element_line(root, number):
    return points(next(item for item in layer(root, "frame") if item.get("data-element") == str(number)))


@pytest.fixture
def frame(aluframe, beam):  # noqa: F811
    aluframe.write(beam)
    return beam


def test_the_beam_fills_the_sheet_on_a_white_ground(aluframe, frame):
    root = drawn(aluframe)
    (x1, y1), (x2, y2) = element_line(root, 1)
    assert x2 - x1 > 200 and y1 == y2
    ground = root.find(f"{SVG}rect")
    assert ground.get("fill") == "#ffffff"
    assert root.get("viewBox").split()[2:] == [ground.get("width"), ground.get("height")]
    assert {text for text in texts(root) if text} >= {"One pipe", "frame; view along Y (XZ)", "X", "Y", "Z"}


def test_supports_stand_under_their_nodes(aluframe, frame):
    root = drawn(aluframe)
    apexes = {item.get("data-node"): points(item)[0] for item in layer(root, "supports").iter(f"{SVG}polygon")}
    start, end = element_line(root, 1)
    assert apexes == {"1": start, "2": end}
    # The start is a pin; the end, free along X, stands on two wheels.
    assert [ring.get("data-node") for ring in layer(root, "supports").iter(f"{SVG}circle")] == ["2", "2"]


def test_a_uniform_load_has_arrows_over_the_beam_with_its_value(aluframe, frame):
    root = drawn(aluframe, "--loads", "1")
    start, end = element_line(root, 1)
    comb = points(next(layer(root, "loads").iter(f"{SVG}polygon")))
    assert [x for x, _ in comb] == pytest.approx([start[0], start[0], end[0], end[0]], abs=0.011)
    assert comb[0][1] < start[1] and comb[1][1] < comb[0][1]  # above, which is less in SVG
    assert "6 kN/m" in texts(layer(root, "loads"))
    assert 'loads, load case 1 "L1"; view along Y (XZ)' in texts(root)


def test_a_point_load_points_at_its_place(aluframe, frame):
    root = drawn(aluframe, "--loads", "2")
    start, end = element_line(root, 1)
    tip = points(next(layer(root, "loads").iter(f"{SVG}polygon")))[0]
    assert tip[0] == pytest.approx((start[0] + end[0]) / 2, abs=0.011)
    assert 0 <= start[1] - tip[1] < 1
    assert texts(layer(root, "loads")) == ["8 kN"]


def ordinates(root):
    """Where along the beam, from 0 to 1, how far below it: as a share of the largest."""
    start, end = element_line(root, 1)
    area = points(next(layer(root, "diagram").iter(f"{SVG}polygon")))[1:-1]
    largest = max((y - start[1] for _, y in area), key=abs)
    return [((x - start[0]) / (end[0] - start[0]), (y - start[1]) / largest) for x, y in area]


def test_moments_of_a_uniform_load_are_the_parabola_on_the_tension_side(aluframe, frame):
    root = drawn(aluframe, "--diagram", "My", "--case", "1")
    # By hand: q·L²/8 = 6·4²/8 = 12 kN·m in the middle, 4·part·(1 − part) of it elsewhere.
    assert "12" in texts(layer(root, "values"))
    assert any(text.startswith("My largest 12 kN·m (element 1)") for text in texts(root))
    found = ordinates(root)
    assert len(found) > 15
    # Coordinates are rounded to 0.01 mm, the largest ordinate is over 25 mm long.
    for part, share in found:
        assert share == pytest.approx(4 * part * (1 - part), abs=1e-3)
    area = points(next(layer(root, "diagram").iter(f"{SVG}polygon")))
    start, end = element_line(root, 1)
    assert max(y for _, y in area) - start[1] == pytest.approx(0.12 * (end[0] - start[0]), abs=0.02)


def test_shear_jumps_under_a_point_load(aluframe, frame):
    frame["load_cases"][1]["points"][0]["at"] = 0.3
    aluframe.write(frame)
    root = drawn(aluframe, "--diagram", "Vz", "--case", "2")
    # By hand: 8 kN at 0.3 of the length, 5.6 kN before and −2.4 kN behind it.
    assert sorted(texts(layer(root, "values"))) == ["5.6", "−2.4"]
    start, end = element_line(root, 1)
    steps = {round((x - start[0]) / (end[0] - start[0]), 3)
             for area in layer(root, "diagram").iter(f"{SVG}polygon") for x, _ in points(area)}
    assert 0.3 in steps


def test_combinations_have_the_factors_of_their_cases(aluframe, frame):
    # 1.3·12 + 1.5·8·4/4 = 27.6 kN·m in the middle.
    assert "27.6" in texts(layer(drawn(aluframe, "--diagram", "My", "--combination", "1"), "values"))


def test_envelopes_show_both_sides(aluframe, frame):
    root = drawn(aluframe, "--diagram", "My", "--combination", "2")
    # 12 kN·m of the uniform load and 8·4/4 = 8 kN·m of the point load, in the middle.
    assert {"12", "8"} <= set(texts(layer(root, "values")))
    assert "an envelope: its largest and its smallest values" in texts(root)


def test_given_forces_are_drawn_as_they_are(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    root = drawn(aluframe, "--diagram", "My", "--case", "1")
    assert "10" in texts(layer(root, "values"))
    assert any("given forces" in text for text in texts(root))
    # The case's forces of the other element and combination are its own.
    assert "20" in texts(layer(drawn(aluframe, "--diagram", "N", "--case", "2"), "values"))


def test_given_and_computed_forces_add_up_and_are_named(aluframe, pipe_beam):
    pipe_beam["forces"].pop()
    pipe_beam["load_cases"][1] = {"number": 2, "name": "LL", **UNIFORM}
    aluframe.write(pipe_beam)
    root = drawn(aluframe, "--diagram", "My", "--combination", "2")
    # 10 kN·m are given, 6·4²/8 = 12 kN·m follow from the load.
    assert "22" in texts(layer(root, "values"))
    assert any("linear analysis and given forces" in text for text in texts(root))


def test_second_order_moments_are_larger_and_named(aluframe, beam):  # noqa: F811
    # A cantilever column under 20 kN and 1 kN across: 4 kN·m in first order.
    beam |= {"supports": CANTILEVER,
             "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": SPAN}],
             "load_cases": cases({"nodal": [{"nodes": [2], "Fx": 1, "Fz": -20}]}),
             "combinations": [{"number": 1, "name": "ULS", "terms": [{"case": 1}]}]}
    aluframe.write(beam)

    def largest(*options):
        root = drawn(aluframe, "--diagram", "My", "--combination", "1", *options)
        value = next(re.search(r"(?:largest|smallest) −?([\d.]+) kN·m", text) for text in texts(root)
                     if text.startswith("My "))
        return float(value[1]), texts(root)[1], root
    first, title, _ = largest()
    assert first == pytest.approx(4.0) and "linear analysis" in title
    second, title, root = largest("--second-order")
    # The column's differential equation by hand: H·tan(k·L)/k, k² = N/(E·I), E 70 kN/mm². The force in shear, which
    # it leaves out, adds some thousandths.
    k = math.sqrt(20 / (70 * PIPE_I))
    assert second == pytest.approx(math.tan(4000 * k) / k / 1000, rel=0.005)
    assert "second-order analysis" in title
    # Up the column it is H·sin(k·(L − x))/(k·cos(k·L)).
    foot, top = element_line(root, 1)
    area = points(next(layer(root, "diagram").iter(f"{SVG}polygon")))[1:-1]
    largest_ordinate = max(abs(x - foot[0]) for x, _ in area)
    assert len(area) > 15
    for x, y in area:
        part = (y - foot[1]) / (top[1] - foot[1])
        expected = math.sin(4000 * k * (1 - part)) / math.sin(4000 * k)
        assert abs(x - foot[0]) / largest_ordinate == pytest.approx(expected, abs=2e-3)


def test_the_displaced_shape_sags_as_by_hand_between_nodes(aluframe, frame):
    root = drawn(aluframe, "--deformed", "1")
    # 5·q·L⁴/(384·E·I) of bending and q·L²/(8·G·A/2) of shear; a thin tube has half its area for shear.
    bending = 5 * 6 * 4000**4 / (384 * 70000 * PIPE_I)
    note = next(text for text in texts(root) if text.startswith("displacements "))
    factor, largest = map(float, re.match(r"displacements ([\d.]+) times as large; largest ([\d.]+) mm", note).groups())
    assert bending < largest < 1.02 * bending
    start, end = element_line(root, 1)
    line = points(next(layer(root, "deformed").iter(f"{SVG}polyline")))
    scale = (end[0] - start[0]) / 4000
    assert max(y for _, y in line) - start[1] == pytest.approx(factor * largest * scale, rel=0.01)
    assert line[0] == start and line[-1] == pytest.approx(end, abs=0.011)


def test_a_released_end_turns_freely_in_the_displaced_shape(aluframe, beam):  # noqa: F811
    """Both ends fixed in space, the moment released at both: it sags as on two supports, not as clamped."""
    beam["supports"] = [{"node": 1, "restrained": "all"}, {"node": 2, "restrained": "all"}]
    beam["elements"][0]["releases"] = {"start": ["My"], "end": ["My"]}
    beam["load_cases"] = cases(UNIFORM)
    beam["combinations"] = []
    aluframe.write(beam)
    root = drawn(aluframe, "--deformed", "1")
    bending = 5 * 6 * 4000**4 / (384 * 70000 * PIPE_I)
    largest = next(re.search(r"largest ([\d.]+) mm", text) for text in texts(root) if "times as large" in text)
    assert bending < float(largest[1]) < 1.02 * bending
    assert len(list(layer(root, "releases").iter(f"{SVG}circle"))) == 2


def test_numbers_are_those_that_are_asked_for(aluframe, frame):
    assert texts(layer(drawn(aluframe), "numbers")) == []
    assert texts(layer(drawn(aluframe, "--nodes"), "numbers")) == ["1", "2"]
    assert texts(layer(drawn(aluframe, "--nodes=2"), "numbers")) == ["2"]
    element = next(layer(drawn(aluframe, "--elements"), "numbers").iter(f"{SVG}text"))
    assert (element.text, element.get("data-element")) == ("1", "1")


def test_elements_are_coloured_by_the_ratios_of_the_check(aluframe, frame):
    aluframe("check", "frame.json")
    worst = aluframe.json("results", "frame.json")[0]
    ratio = max(value for key, value in worst.items() if key == "worst_ratio" or key == "ratio")
    root = drawn(aluframe, "--colour", "ratio")
    legend = texts(layer(root, "legend"))
    assert len(legend) == 6 and sum(int(text.split(": ")[1].split()[0]) for text in legend) == 1
    limits = [0, 0.25, 0.5, 0.75, 0.9, 1, float("inf")]
    counted = next(i for i, text in enumerate(legend) if ": 1 element" in text)
    assert limits[counted] < ratio <= limits[counted + 1]


def test_elements_without_a_result_are_dashed_and_counted(aluframe):
    model = (ROOT / "examples/portal-bracket.json").read_text(encoding="utf-8")
    aluframe.write(model)
    aluframe("check", "frame.json", "--elements", "1-5")
    root = drawn(aluframe, "--colour", "ratio")
    assert "without a result: 26 elements" in texts(layer(root, "legend"))
    dashed = [item.get("data-element") for item in layer(root, "frame") if item.get("stroke-dasharray")]
    assert dashed == [str(number) for number in range(6, 32)]
    assert any("elements 5 of 31" in text for text in texts(root))


def in_use(frame, limit):
    """The beam under its uniform load, limited to a part of its deflection by bending, 5·q·L⁴/(384·E·I)."""
    bending = 5 * 6 * 4000**4 / (384 * 70000 * PIPE_I)
    frame["combinations"].append({"number": 9, "terms": [{"case": 1}], "serviceability": True, "design": False})
    if limit is not None:
        frame["deflection_limit"] = {"absolute": limit * bending / 1000}
    return frame


def counted(root):
    """The classes of the legend that hold an element."""
    return [text.split(": ")[0] for text in texts(layer(root, "legend")) if ": 1 element" in text]


@pytest.mark.parametrize("limit, legend", [(2, "ratio 0.50 to 0.75"), (1.1, "ratio 0.90 to 1"), (0.5, "ratio over 1")])
def test_elements_are_coloured_by_their_deflection_over_its_limit(aluframe, frame, limit, legend):
    aluframe.write(in_use(frame, limit))
    aluframe("check", "frame.json")
    root = drawn(aluframe, "--colour", "deflection")
    assert counted(root) == [legend]
    assert "largest deflections over what they are limited to; view along Y (XZ)" in texts(root)
    # Shear adds less than 2 % to twice the limit.
    beside = [float(text) for text in texts(layer(root, "values"))]
    assert beside == ([pytest.approx(2.02, abs=0.021)] if limit == 0.5 else [])


def test_elements_without_a_limit_of_deflection_are_told_apart(aluframe, frame):
    aluframe.write(in_use(frame, None))
    aluframe("check", "frame.json")
    assert counted(drawn(aluframe, "--colour", "deflection")) == ["not limited"]


def test_the_document_has_the_frame_by_its_deflections_where_they_are_limited(aluframe, frame):
    for limit in (None, 2):
        aluframe.write(in_use(frame, limit))
        aluframe("check", "frame.json")
        aluframe("report", "frame.json", "--html", "page.html")
        page = (aluframe.folder / "page.html").read_text(encoding="utf-8")
        assert ("largest deflections over what they are limited to" in page) == (limit is not None)
        frame["combinations"].pop()


def test_results_of_another_state_are_told_in_the_picture_too(aluframe, frame):
    aluframe("check", "frame.json")
    frame["load_cases"][0]["span"][0]["value"] = -7
    aluframe.write(frame)
    done = aluframe("picture", "frame.json", "--colour", "ratio", "--svg", "a.svg")
    root = ElementTree.parse(aluframe.folder / "a.svg").getroot()
    assert "of another state of frame.json" in done.stderr and done.stderr.strip() in texts(root)


def test_sections_have_a_legend_with_counts(aluframe):
    aluframe.write((ROOT / "examples/footbridge.json").read_text(encoding="utf-8"))
    legend = texts(layer(drawn(aluframe, "--colour", "section"), "legend"))
    assert legend[0] == "section 1 Chord 2C 180x70: 28 elements"
    assert sum(int(text.rsplit(": ", 1)[1].split()[0]) for text in legend) == 88


@pytest.mark.parametrize("view, moved", [("xz", (0, 1)), ("xy", (0, 0)), ("yz", (0, 1)), ("iso", (0, 1))])
def test_a_column_is_upright_but_in_plan(aluframe, beam, view, moved):  # noqa: F811
    beam["nodes"][1] |= {"x": 0, "z": 7}
    beam["load_cases"], beam["combinations"], beam["supports"] = [], [], CANTILEVER
    aluframe.write(beam)
    (x1, y1), (x2, y2) = element_line(drawn(aluframe, "--view", view), 1)
    assert (x1 != x2, y1 > y2) == tuple(map(bool, moved))


HOSTILE = "</title><script>alert('&')</script>\"幕墙"


def test_names_are_shown_as_text(aluframe, frame):
    frame["title"] = HOSTILE
    frame["elements"][0]["name"] = HOSTILE
    frame["load_cases"][0]["name"] = HOSTILE
    frame["sections"][0]["name"] = HOSTILE
    aluframe.write(frame)
    root = drawn(aluframe, "--loads", "1", "--colour", "section")
    assert root.find(f"{SVG}title").text == HOSTILE
    assert {item.tag.removeprefix(SVG) for item in root.iter()} <= {
        "svg", "title", "desc", "rect", "g", "line", "polygon", "polyline", "path", "circle", "text"}
    assert any(HOSTILE in text for text in texts(layer(root, "legend")))


def test_the_picture_needs_no_style_sheet_and_is_the_same_again(aluframe, frame):
    arguments = ("picture", "frame.json", "--nodes", "--loads", "1", "--diagram", "My", "--case", "1", "--svg")
    aluframe(*arguments, "a.svg")
    aluframe(*arguments, "b.svg")
    text = (aluframe.folder / "a.svg").read_text(encoding="utf-8")
    assert text == (aluframe.folder / "b.svg").read_text(encoding="utf-8")
    assert text == aluframe(*arguments, "-").stdout
    assert "style" not in text and "class=" not in text
    ids = re.findall(r' id="([^"]+)"', text)
    assert len(ids) == len(set(ids)) and all(name.startswith("picture-") for name in ids)
    assert not re.search(r"\d\.\d{3}", text)  # two digits behind the point


@pytest.mark.parametrize("example", ["dome", "footbridge", "mullion-transom", "platform-roof", "portal-bracket"])
@pytest.mark.parametrize("view", ["iso", "xy", "xz", "yz"])
def test_every_example_can_be_drawn_from_everywhere(aluframe, example, view):
    aluframe.write((ROOT / f"examples/{example}.json").read_text(encoding="utf-8"))
    root = drawn(aluframe, "--view", view, "--loads", "1", "--nodes", "--elements", "--axes")
    width, height = map(float, root.get("viewBox").split()[2:])
    for item in root.iter():
        if item.tag in (f"{SVG}line", f"{SVG}polygon", f"{SVG}polyline"):
            assert all(0 <= x <= width and 0 <= y <= height for x, y in points(item))


MODEL_ERRORS = {
    "unknown load case": (["--loads", "9"], "frame.json: --loads: there is no load case 9"),
    "unknown case of a shape": (["--deformed", "9"], "frame.json: --deformed: there is no load case 9"),
    "unknown case of a diagram": (["--diagram", "N", "--case", "9"], "frame.json: --case: there is no load case 9"),
    "unknown combination": (["--diagram", "N", "--combination", "9"],
                            "frame.json: --combination: there is no combination 9"),
    "unknown element": (["--elements=1,7"], "frame.json: --elements: there is no element 7"),
    "unknown node": (["--nodes=3-5"], "frame.json: --nodes: there is no node 3-5"),
    "no case of a diagram": (["--diagram", "My"], "--diagram: needs --case or --combination, one of them"),
    "both of a diagram": (["--diagram", "My", "--case", "1", "--combination", "1"],
                          "--diagram: needs --case or --combination, one of them"),
    "case without a diagram": (["--case", "1"], "--case and --combination go with --diagram only"),
    "results without ratios": (["--results", "a.aluresult"], "--results goes with --colour ratio and --colour deflection only"),
    "shape without loads": (["--deformed", "3"], "frame.json: --deformed: load case 3 has no loads"),
    "diagram without loads": (["--diagram", "N", "--case", "3"],
                              "frame.json: --diagram: load case 3 \"None\" has neither loads nor forces"),
    "no results": (["--colour", "ratio"], "frame.aluresult: "),
    "wrong view": (["--view", "top"], "--view: found 'top', must be one of iso, xy, xz, yz"),
    "wrong force": (["--diagram", "Qz", "--case", "1"], "--diagram: found 'Qz', must be one of N, Vy, Vz, T, My, Mz"),
    "wrong colour": (["--colour", "red"], "--colour: found 'red', must be one of ratio, deflection, section, material"),
}


@pytest.mark.parametrize("arguments, message", MODEL_ERRORS.values(), ids=MODEL_ERRORS.keys())
def test_what_cannot_be_drawn_is_refused_with_its_reason(aluframe, frame, arguments, message):
    frame["load_cases"].append({"number": 3, "name": "None"})
    aluframe.write(frame)
    (aluframe.folder / "a.svg").write_text("older", encoding="utf-8")
    done = aluframe("picture", "frame.json", "--svg", "a.svg", *arguments, status=1)
    assert message in done.stderr and done.stdout == ""
    assert done.stderr.replace("Run with --help for more information.\n", "").count("\n") == 1
    assert (aluframe.folder / "a.svg").read_text(encoding="utf-8") == "older"


def test_a_frame_that_can_move_has_no_displaced_shape(aluframe, frame):
    frame["supports"].pop()
    aluframe.write(frame)
    done = aluframe("picture", "frame.json", "--deformed", "1", "--svg", "a.svg", status=1)
    assert done.stderr == ("frame.json: the supports do not hold the structure with nodes 1-2: "
                           "it can turn about an axis along Z\n")
    assert not (aluframe.folder / "a.svg").exists()


def test_the_picture_needs_a_place(aluframe, frame):
    assert "--svg" in aluframe("picture", "frame.json", status=1).stderr
    done = aluframe("picture", "frame.json", "--svg", "no/such/folder.svg", status=2)
    assert done.stderr == "no/such/folder.svg: cannot be written: No such file or directory\n"


def test_the_model_and_results_are_never_written_over(aluframe, frame):
    aluframe("check", "frame.json")
    for target in ("frame.json", "frame.aluresult"):
        before = (aluframe.folder / target).read_bytes()
        assert target in aluframe("picture", "frame.json", "--svg", target, status=1).stderr
        assert (aluframe.folder / target).read_bytes() == before


PAGE = ROOT / "docs/pictures.md"
SHOWN = re.findall(r"^aluframe (picture .*) --svg (\w+)\.svg$", PAGE.read_text(encoding="utf-8"), re.M)


@pytest.mark.parametrize("arguments, name", SHOWN, ids=[name for _, name in SHOWN])
def test_the_page_shows_what_its_commands_draw(aluframe, arguments, name):
    """REFRESH_DOCS=1 draws them anew."""
    shown = ROOT / f"docs/images/picture-{name}.svg"
    example = re.search(r"examples/[\w-]+\.json", arguments)[0]
    (aluframe.folder / "examples").mkdir()
    aluframe.write((ROOT / example).read_text(encoding="utf-8"), example)
    if "ratio" in arguments:
        aluframe("check", example)
    svg = aluframe(*arguments.split(), "--svg", "-").stdout
    if os.environ.get("REFRESH_DOCS"):
        shown.write_text(svg, encoding="utf-8")
    assert shown.read_text(encoding="utf-8") == svg
    assert f"](images/{shown.name})" in PAGE.read_text(encoding="utf-8")


def test_the_page_shows_three_pictures():
    assert len(SHOWN) == 3

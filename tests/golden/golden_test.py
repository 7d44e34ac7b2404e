"""Reports as they were read and approved, and why they are right."""

import json
from dataclasses import fields

import pytest

from golden_reports import GOLDEN, HERE, disagreements, model_of, write_report
from report_formulas import MemberFormulas
from report_grammar import READABLE, STORED, Texts, variants
from report_model import ModelFacts
from report_reader import Malformed, read_report

NAMES = [golden.name for golden in GOLDEN]
MADE_UP = [golden for golden in GOLDEN if golden.name.startswith("everything")]


@pytest.fixture(scope="session")
def written(tmp_path_factory):
    """Writes every report once. Gives its folder and its results."""
    folder = tmp_path_factory.mktemp("golden")
    return folder, {golden.name: write_report(golden, folder) for golden in GOLDEN}


def golden_text(name):
    return (HERE / f"{name}.alu").read_text(encoding="utf-8")


def readable(text):
    """The text with every stored text as it is meant, by the pairs that were typed by hand."""
    pairs = [(stored, meant) for field in fields(Texts)
             for stored, meant in zip(as_tuple(getattr(STORED, field.name)),
                                      as_tuple(getattr(READABLE, field.name)))]
    for stored, meant in sorted(pairs, key=lambda pair: -len(pair[0])):  # some stand within others
        text = text.replace(stored, meant)
    return text


def as_tuple(texts):
    return texts if isinstance(texts, tuple) else (texts,)


def golden_report(golden, texts=STORED):
    text = golden_text(golden.name)
    return read_report(text if texts is STORED else readable(text), texts,
                       ModelFacts(model_of(golden)).shows_seismic_factor)


@pytest.mark.parametrize("name", NAMES)
def test_a_report_is_its_golden_one_byte_for_byte(written, name):
    assert (written[0] / f"{name}.alu").read_bytes() == (HERE / f"{name}.alu").read_bytes()


@pytest.mark.parametrize("name", NAMES)
def test_a_readable_copy_is_the_golden_report_with_its_texts_as_they_are_meant(written, name):
    copy = (written[0] / f"{name}.txt").read_text(encoding="utf-8")
    # What stands behind it is no part of the report.
    assert copy.partition("\n\nSecond opinion (")[0] == readable(golden_text(name))


@pytest.mark.parametrize("golden", GOLDEN, ids=NAMES)
def test_a_golden_report_agrees_with_its_model_its_results_and_its_own_formulas(written, golden):
    text = (HERE / f"{golden.name}.alu").read_text(encoding="utf-8")
    assert disagreements(golden, text, written[1][golden.name]) == []


@pytest.mark.parametrize("golden", GOLDEN, ids=NAMES)
def test_a_readable_copy_says_what_the_report_says(golden):
    assert repr(golden_report(golden, READABLE)) == repr(golden_report(golden))


# That the made-up models reach everything.

def values_of(name, read):
    golden = next(golden for golden in GOLDEN if golden.name == name)
    return {read(block) for member in golden_report(golden).members for block in member.blocks}


@pytest.mark.parametrize("golden", MADE_UP, ids=lambda golden: golden.name)
def test_every_variant_of_every_block_is_reached(golden):
    found = values_of(golden.name, lambda block: (block.item, block.variant))
    assert found == {(variant.item, variant.name) for variant in variants(STORED, False)}


@pytest.mark.parametrize("golden", MADE_UP, ids=lambda golden: golden.name)
def test_every_shape_and_type_of_element_is_reached(golden):
    members = golden_report(golden).members
    assert {member.shape for member in members} == {"C", "H", "T", "B", "P", "2C", "SR"}
    assert {member.type for member in members} == {"Column", "Beam", "Brace", "Truss"}


def test_every_position_is_reached():
    positions = values_of("everything", lambda block: block.position) - {None}
    assert positions == {"I", "1/4", "1/2", "3/4", "J"}


def test_every_check_is_reached_with_both_verdicts():
    verdicts = values_of("everything", lambda block: (block.item, block.passes))
    verdicts -= {("slenderness", None)}
    items = {variant.item for variant in variants(STORED, False)}
    assert verdicts == {(item, passes) for item in items for passes in (True, False)}


def test_both_sides_of_the_top_govern_somewhere():
    sides = values_of("everything", lambda block: block.variant == "top compressed"
                      and block.item == "stability" and block.R211.value > block.R212.value)
    assert sides == {True, False}


def test_seismic_factors_stand_where_they_are_switched_on_and_apply_to_earthquakes_alone():
    factors = values_of("everything-seismic", lambda block: (
        block.item, block.RE.value if "RE" in block.values else None))
    assert factors == {("strength", 0.75), ("shear y", 0.75), ("shear z", 0.75), ("stability", 0.8),
                       ("combined stability", 0.8), ("slenderness", None)}
    golden = next(golden for golden in GOLDEN if golden.name == "everything-seismic")
    facts = ModelFacts(model_of(golden))
    governing = values_of(golden.name, lambda block: block.combination) - {None}
    assert {facts.is_earthquake(number) for number in governing} == {True, False}


def test_every_kind_of_load_case_and_of_term_is_listed():
    model = json.loads((HERE / "everything.json").read_text(encoding="utf-8"))
    kinds = {case["number"]: case.get("kind", "static") for case in model["load_cases"]}
    terms = [term for entry in model["combinations"] if entry.get("design", True)
             for term in entry["terms"] if term.get("factor", 1.0) != 0]
    assert {kinds[term["case"]] for term in terms if "case" in term} == {
        "static", "seismic_static", "response_spectrum", "eccentric_spectrum", "time_history", "moving",
        "settlement", "crane"}
    assert any("combination" in term for term in terms)


def test_the_list_of_combinations_reads_as_typed_here():
    # Typed by hand: names of 7 and 14 characters, longer ones as they are, three terms a line, a
    # zero factor left out, a blank where a minus sign would stand, moving cases without a name.
    rows = golden_report(next(golden for golden in GOLDEN if golden.name == "everything")).rows
    assert rows == [
        "      DEAD  0              DEAD( 1.000)",
        "    1.3G+W  0              DEAD( 1.300) +          WIND(-1.200)",
        "      SEIS  0              DEAD( 1.200) +     EQ static( 1.300)",
        "      Both  1              DEAD( 1.000) +          WIND(-1.000) +        1.3G+W( 1.000)",
        "     Three  0          RS x(RS)( 1.000) +RS eccentric(ES)( 1.200) +       History(-1.200)",
        "      Four  0          RS x(RS)( 1.000) +RS eccentric(ES)( 1.200) +       History(-1.200)",
        "                +              ( 0.000)",
        "       Six  0              DEAD( 0.125) +          WIND( 0.250) +     EQ static( 0.375)",
        "                +      RS x(RS)( 0.500) +RS eccentric(ES)( 0.625) +       History( 0.750)",
        "     Seven  0              DEAD(-0.125) +          WIND(-0.250) +     EQ static(-0.375)",
        "                +      RS x(RS)(-0.500) +RS eccentric(ES)(-0.625) +       History(-0.750)",
        "                +              (-0.875)",
        "     Zeros  0              WIND( 1.000) +      RS x(RS)( 1.000)"
        " +Settlement of the whole row A( 1.000)",
        "               ",
        "   Zero last  0    Settlement of the whole row A( 1.000)"
        " +Part of another, not designed for( 1000.500)",
        "   Nothing but zeros  0 ",
        "   134217727  0    Part of another, not designed for( 1.000) +          1009( 1.000)"
        " +       SevenCh( 1.000)",
        "   SevenCh  1              1009( 1.000)",
        "      荷載組合  0          RS x(RS)( 1.500) +Crane, 14 char( 1.000) +           風荷載( 1.000)",
    ]


@pytest.mark.parametrize("name", ["everything", "everything-seismic"])
def test_every_kind_of_formula_is_recomputed_somewhere(name):
    golden = next(golden for golden in GOLDEN if golden.name == name)
    facts = ModelFacts(model_of(golden))
    recomputed = {formula.what.split(", ", 1)[1] for member in golden_report(golden).members
                  for formula in MemberFormulas(member, facts).all()}
    assert recomputed == {
        "strength: Rmax1", "strength: Rmax1, at least that of the top fibre", "shear y: R1",
        "shear z: R2", "stability: Rmax2", "stability: Rmax21", "stability: Rmax211",
        "stability: Rmax212", "combined stability: Rmax22"}


# That the checks of the golden reports find what is wrong.

@pytest.mark.parametrize("right, wrong", [
    ("Rmax1=N/(f*Aen)=     0.321<", "Rmax1=N/(f*Aen)=     0.322<"),
    ("N=-200000.000\n", "N=200000.000\n"),
    ("N=-200000.000\n", "N=-200001.000\n"),
    ("Aen =   3116.694", "Aen =   3126.694"),
    ("f =    200.000", "f =    201.000"),
    ("(LCB=1, POS=I)", "(LCB=1, POS=J)"),
    ("(LCB=1, POS=I)", "(LCB=2, POS=I)"),
    ("ELEMENT TYPE = Column", "ELEMENT TYPE = Beam"),
    ("MATERIAL NO = 1,", "MATERIAL NO = 2,"),
    ("H=2.00000e+02, tw", "H=2.01000e+02, tw"),
    ("Area=4.28800e+03", "Area=4.28900e+03"),
    ("iy=8.24032e+01", "iy=8.24042e+01"),
    ("Phi=     0.195", "Phi=     0.198"),
    ("kl/i=   105.558<", "kl/i=   105.560<"),
    ("  150.000---->", "  200.000---->"),
    ("R2=Fz*Qyb/(Iyy*fv)=     0.042", "R2=Fz*Qyb/(Iyy*fv)=     0.044"),
    ("WIND(-1.200)", "WIND( 1.200)"),
])
def test_a_wrong_number_in_a_report_is_found(written, right, wrong):
    golden = next(golden for golden in GOLDEN if golden.name == "everything")
    text = (HERE / "everything.alu").read_text(encoding="utf-8")
    assert right in text
    assert disagreements(golden, text.replace(right, wrong, 1), written[1]["everything"]) != []


@pytest.mark.parametrize("right, wrong", [
    ("   Section Properties: \n", "   Section Properties:\n"),
    (", Iyy= ", ", Iyy="),
    ("<1.00 ----> OK", "<1.00 ---->OK"),
    ("<1.00 ----> OK", "<1.00 ----> Not Acceptable!"),
    ("---->OK", "----> OK"),
    ("   Aen = ", "  Aen = "),
    ("N_Ey')}=", "N_Ey')]}="),
    ("\uf91a", "\u99f1"),
    ("=" * 100, "=" * 99),
    ("Phi=     0.195", "Phi=    0.195"),
    ("Phi=     0.195", "Phi= 1.950e-01"),
    ("Ae=      2520", "Ae=  2520.000"),
    ("H=2.00000e+02, tw", "H=200.00000, tw"),
    ("   N=-200000.000\n", "   N=-200000.000\n\n"),
])
def test_a_wrong_text_in_a_report_is_found(right, wrong):
    text = (HERE / "everything.alu").read_text(encoding="utf-8")
    assert right in text
    with pytest.raises((Malformed, AssertionError)):
        read_report(text.replace(right, wrong, 1), STORED)

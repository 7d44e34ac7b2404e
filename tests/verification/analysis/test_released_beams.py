"""The data file of released beams is what its derivation gives."""

import released_beams


def test_the_data_file_is_what_its_derivation_writes():
    assert released_beams.FILE.read_text(encoding="utf-8") == released_beams.text()


def test_a_hinge_leaves_an_eighth_at_the_other_end():
    # qL²/8 and 5/8 qL of the propped cantilever, by any textbook.
    shear, moment = released_beams.bend(released_beams.BENDING[0], (("end", "My"),))
    assert (shear, moment) == (4500, -2160000)

"""The characters of reports by the code page of the system, and what the console is given."""

import shutil

import pytest

import program_wine
from program_wine import EXAMPLES, ROOT

program_wine.require()

FOOTBRIDGE = ROOT / "examples" / "footbridge.json"
STRENGTH_IN_949 = "强度验算".encode("gbk")  # what an editor set to GBK shows


@pytest.fixture(scope="module")
def checked(machine, tmp_path_factory):
    folder = tmp_path_factory.mktemp("characters")
    shutil.copy(FOOTBRIDGE, folder)
    assert machine.run("check", "footbridge.json", folder=folder).status == 0
    return folder


def report(machine, folder, **locale):
    """The report by a locale of the system: its bytes, the readable copy, and what the run said."""
    done = machine.run("report", "footbridge.json", folder=folder, **locale)
    assert done.status == 0, done
    return (folder / "footbridge.alu").read_bytes(), (folder / "footbridge.txt").read_text("utf-8"), done.err.decode()


def test_a_report_that_lacks_characters_is_whole_and_counts_them(machine, checked):
    """The system's code page is that of western Europe, which has none of the stored titles."""
    complete, readable, said = report(machine, checked)
    assert said == "" and "强度验算" in readable
    lacking, copy, said = report(machine, checked, LC_ALL=None, LANG="C.UTF-8")
    characters = complete.decode("utf-8")
    replaced = sum(1 for c in characters if c not in characters.encode("cp1252", "ignore").decode("cp1252"))
    assert lacking == characters.encode("cp1252", "replace")
    assert said == (f'footbridge.alu: has "?" for {replaced} characters that the system\'s character set lacks; the '
                    "readable copy has them all (LC_ALL=C.UTF-8 has them in the report too)\n")
    assert copy == readable

"""What the tests of the program on Windows share."""

import pytest

import program_wine


@pytest.fixture(scope="session")
def machine():
    made = program_wine.Machine()
    yield made
    made.end()


@pytest.fixture
def both(machine, tmp_path):
    return program_wine.Both(machine, tmp_path)

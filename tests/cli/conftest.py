"""The program, and small models worked out by hand, as the end-to-end tests are given them."""

import copy

import pytest
from program import PIPE_BEAM, Program


@pytest.fixture
def aluframe(tmp_path):
    return Program(tmp_path)


@pytest.fixture
def pipe_beam():
    return copy.deepcopy(PIPE_BEAM)

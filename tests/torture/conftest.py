import pytest

from faults import FaultyRuns, build
from flows import Flows


@pytest.fixture(scope="session")
def long_flows(tmp_path_factory):
    """Flows that take some tenths of a second, and several transactions."""
    return Flows(tmp_path_factory.mktemp("rehearsal"), elements=300, combinations=20)


@pytest.fixture(scope="session")
def small_flows(tmp_path_factory):
    """Flows of as few file calls as show everything."""
    return Flows(tmp_path_factory.mktemp("rehearsal"), elements=6, combinations=3)


@pytest.fixture(scope="module")
def library(tmp_path_factory):
    return build(tmp_path_factory.mktemp("library"))


@pytest.fixture
def faulty(library, tmp_path):
    folder = tmp_path / "frame"
    folder.mkdir()
    return FaultyRuns(library, folder)


@pytest.fixture
def tell(capsys):
    """Prints a line on the outcome of a test, also when the test passes."""

    def print_line(text):
        with capsys.disabled():
            print(f"\n  {text}")

    return print_line

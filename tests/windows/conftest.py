"""What the tests of the program on Windows share."""

import pytest

import module_wine
import program_wine


@pytest.fixture(scope="session")
def machine():
    made = program_wine.Machine()
    yield made
    made.end()


@pytest.fixture
def both(machine, tmp_path):
    return program_wine.Both(machine, tmp_path)


@pytest.fixture(scope="module")
def screen():
    shown = module_wine.Screen()
    yield shown
    shown.end()


@pytest.fixture(scope="module")
def wine(screen):
    """A Windows on that screen."""
    folder, made = module_wine.temporary_wine(screen.display)
    # Nobody manages the windows of this screen, so that waiting for him would take seconds.
    made.set_value(r"HKCU\Software\Wine\X11 Driver", "Managed", "N")
    yield made
    made.end()
    folder.cleanup()

"""`aluframe report --open`: the report in the user's editor."""

import pytest

from report_frames import checked_three_beams, elements_of


@pytest.fixture(autouse=True)
def utf8(monkeypatch):
    monkeypatch.setenv("LC_ALL", "C.UTF-8")


@pytest.fixture
def frame(aluframe, pipe_beam):
    """Three beams, checked; the first is also pulled by an earthquake. Numbers above 999."""
    return checked_three_beams(aluframe, pipe_beam)


@pytest.fixture
def editor(tmp_path, monkeypatch):
    """A script that notes what it is called with; gives its path and what it has noted."""
    for name in ("VISUAL", "EDITOR"):
        monkeypatch.delenv(name, raising=False)
    script, notes = tmp_path / "my editor", tmp_path / "notes"
    script.write_text(f'#!/bin/sh\nprintf "%s\\n" "$@" >> "{notes}"\n')
    script.chmod(0o755)
    return script, lambda: notes.read_text().splitlines() if notes.exists() else []


@pytest.mark.parametrize("name", ["VISUAL", "EDITOR"])
def test_the_report_opens_in_the_users_editor(frame, editor, monkeypatch, name):
    monkeypatch.setenv(name, f"'{editor[0]}'")
    done = frame("report", "frame.json", "--output", "it's \"A\" $HOME.alu", "--open")
    assert editor[1]() == ["it's \"A\" $HOME.txt"]
    assert done.stderr == ""


def test_visual_goes_before_editor_unless_it_is_empty(frame, editor, monkeypatch):
    monkeypatch.setenv("EDITOR", f"'{editor[0]}' plain")
    monkeypatch.setenv("VISUAL", f"'{editor[0]}' visual")
    frame("report", "frame.json", "--open")
    monkeypatch.setenv("VISUAL", "")
    frame("report", "frame.json", "--open")
    assert editor[1]() == ["visual", "frame.txt", "plain", "frame.txt"]


def test_without_open_no_editor_is_started(frame, editor, monkeypatch):
    monkeypatch.setenv("VISUAL", f"'{editor[0]}'")
    frame("report", "frame.json")
    assert editor[1]() == []


@pytest.mark.parametrize("command, words", [
    ("false", "ended with an error: false"),
    ("no-such-editor", "ended with an error: no-such-editor"),
])
def test_an_editor_that_fails_ends_with_status_2_and_keeps_the_report(
        frame, editor, monkeypatch, command, words):
    assert editor[1]() == []
    monkeypatch.setenv("VISUAL", command)
    done = frame("report", "frame.json", "--open", status=2)
    assert "--open: " in done.stderr and words in done.stderr
    assert done.stdout.startswith("Report of 3 elements, complete: frame.alu\n")
    assert elements_of(frame) == [1, 1002, 1003]


def test_open_without_an_editor_is_refused_before_anything_is_written(frame, editor):
    assert editor[1]() == []
    done = frame("report", "frame.json", "--open", status=1)
    assert done.stderr == "--open: set VISUAL or EDITOR to a text editor\n"
    assert not (frame.folder / "frame.alu").exists()

"""Models that come from elsewhere than a file: pipes are read, what has no end is refused at once."""

import os
import subprocess
import time

import pytest


@pytest.mark.parametrize("device", ["/dev/zero", "/dev/urandom", "/dev/full"])
def test_a_device_without_an_end_is_refused_at_once(aluframe, device):
    begin = time.monotonic()
    done = aluframe("validate", device, status=1)
    assert done.stderr == f"{device}: is a device without an end\n"
    assert time.monotonic() - begin < 5  # two gigabytes of it take longer to read than to refuse


def test_a_link_to_such_a_device_is_refused_too(aluframe):
    os.symlink("/dev/zero", aluframe.folder / "frame.json")
    assert aluframe("check", "frame.json", status=1).stderr == "frame.json: is a device without an end\n"


def test_a_pipe_that_nobody_writes_to_is_called_so(aluframe):
    os.mkfifo(aluframe.folder / "frame.json")
    done = aluframe("validate", "frame.json", status=1)
    assert done.stderr == "frame.json: is a pipe that nobody writes to\n"


def test_the_device_that_keeps_nothing_is_an_empty_file(aluframe):
    assert "/dev/null: is empty" in aluframe("validate", "/dev/null", status=1).stderr


def test_pipes_are_read_to_their_end(aluframe, pipe_beam):
    model = aluframe.folder / aluframe.write(pipe_beam)
    program = os.environ["ALUFRAME"]
    for command in ('cat "$2" | "$1" validate /dev/stdin', '"$1" validate <(cat "$2")'):
        done = subprocess.run(["bash", "-c", command, "bash", program, str(model)],
                              capture_output=True, text=True, check=False)
        assert (done.returncode, done.stderr) == (0, "") and "valid" in done.stdout

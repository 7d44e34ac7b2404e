"""What several of the report's tests share: a model of three beams, and a look at its report."""

import re


def three_beams(pipe_beam):
    """The pipe beam with two more beside it, 1002 and 1003, under 2 and 3 times its load."""
    pipe_beam["nodes"] += [{"number": n, "x": 4 * (n - 1), "y": 0, "z": 3} for n in (3, 4)]
    load = pipe_beam["forces"][0]["values"]
    for number, factor in ((1002, 2), (1003, 3)):
        at = number - 1000
        pipe_beam["elements"].append(
            {"number": number, "nodes": [at, at + 1], "section": 1, "material": 1})
        pipe_beam["forces"].append({
            "element": number, "case": 1,
            "values": [[value * factor for value in row] for row in load]})
    return pipe_beam


def checked_three_beams(aluframe, pipe_beam):
    """The program in a folder with the three beams and their results; its `model` may be changed."""
    aluframe.model = three_beams(pipe_beam)
    aluframe.write(aluframe.model)
    aluframe("check", "frame.json")
    return aluframe


def text_of(frame, name="frame.alu"):
    return (frame.folder / name).read_text(encoding="utf-8")


def elements_of(frame, name="frame.alu"):
    return [int(number) for number in re.findall(r"^  MEMBER NO = (\d+),", text_of(frame, name), re.M)]

"""A user who changes a design attribute of the example and saves it."""

from desktop_user import wait_for


def open_model(start, model, **variables):
    program = start(model, **variables)
    program.sees("^0 elements selected$")
    program.focus("portal.json")
    return program


def with_haz_width(text, elements, width):
    """The model's text with another width of the zone beside welds, and nothing else."""
    lines = text.split("\n")
    for number in elements:
        found = [i for i, line in enumerate(lines)
                 if line.startswith(f'    {{"number": {number}, ') and '"haz_width": 25' in line]
        assert len(found) == 1, f"element {number} has the width in the example"
        lines[found[0]] = lines[found[0]].replace('"haz_width": 25', f'"haz_width": {width}')
    return "\n".join(lines)


def edit_haz_width(program, width):
    program.find("page tab", "^Design attributes$").click()
    field = program.find("text", "^Heat-affected width beside welds")
    panel = program.find("frame", "^Design attributes$").area
    # The panel scrolls over its left edge, where no field is.
    while field.middle[1] > panel[1] + panel[3] - 40:
        before = field.middle
        program.xdotool("mousemove", panel[0] + 4, panel[1] + panel[3] // 2, "click", 5)
        wait_for(lambda: field.middle != before, "a panel that scrolls")
    field.click(None, 3)
    program.write(width)
    program.press("Return")


def save(program, model, expected):
    """Ctrl+S, and the file as it must become."""
    program.focus("portal.json")
    program.press("ctrl+s")
    wait_for(lambda: model.read_text(encoding="utf-8") == expected,
             lambda: "the file as edited; it differs in "
                     f"{set(expected.splitlines()) ^ set(model.read_text('utf-8').splitlines())}")


def save_undo_and_redo(program, model, first, edited, redo):
    """The file follows each of them when it is saved."""
    save(program, model, edited)
    program.press("ctrl+z")
    save(program, model, first)
    program.press(redo)
    save(program, model, edited)

"""Tables of the documentation that list all of something: columns of the result file, options of a command."""

import re
import sqlite3

from documents import INLINE_CODE, lines_of


def rows_of(page, heading):
    """Rows of the first table behind a line that begins so, as lists of cells; without its two head lines."""
    lines = lines_of(page)
    start = next(at for at, line in enumerate(lines) if line.startswith(heading))
    table = next(at for at in range(start, len(lines)) if lines[at].startswith("|"))
    end = next(at for at in range(table, len(lines)) if not lines[at].startswith("|"))
    return [[cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]] for line in lines[table + 2:end]]


def codes(cell):
    return [code for _, code in INLINE_CODE.findall(cell)]


def documented_columns():
    columns, table = set(), None
    for name, column, _ in rows_of("docs/result-file.md", "## Tables"):
        table = codes(name)[0] if name else table
        columns.update((table, code) for code in codes(column))
    return columns


def test_the_page_of_the_result_file_lists_every_column(aluframe, pipe_beam):
    aluframe.write(pipe_beam)
    aluframe("check", "frame.json")
    with sqlite3.connect(aluframe.folder / "frame.aluresult") as database:
        tables = [name for name, in database.execute("SELECT name FROM sqlite_master WHERE type = 'table'")]
        stored = {(table, row[1]) for table in tables for row in database.execute(f"PRAGMA table_info({table})")}
    assert documented_columns() == stored


def test_the_page_of_the_report_lists_every_option(aluframe):
    listed = {codes(option)[0].split()[0] for option, *_ in rows_of("docs/report.md", "| option")}
    told = set(re.findall(r"^  (--[a-z-]+)", aluframe("report", "--help").stdout, re.M))
    assert listed == told


def test_the_page_of_the_settings_lists_every_key(aluframe):
    listed = {codes(key)[0] for key, *_ in rows_of("docs/settings.md", "## Settings")}
    text = aluframe("settings", "--help").stdout
    told = re.search(r"--set KEY=VALUE +Change a setting: ([a-z, -]+)", text)[1].split(", ")
    assert listed == set(told)

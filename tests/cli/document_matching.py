"""Compares what a page shows with what the program prints.

Texts are compared as they are, numbers to the digits that are shown: a shown 0.7783 stands for 0.77834. A line
"..." stands for any lines, "..." within a line for anything. Values that change from run to run or from machine
to machine are left out (VOLATILE).
"""

import difflib
import re

NUMBER = r"(?<![\w.])-?\d+(?:\.\d+)?(?:[eE][+-]?\d+)?(?![\w.]*\w)"
TOKEN = re.compile(rf"{NUMBER}|\.\.\.|\w+|\s+|.")
REAL = r"\d+(?:\.\d+)?(?:e[+-]?\d+)?"
VOLATILE = [
    (re.compile(rf"\b{REAL} s \({REAL} positions/s\)"), "TIME"),  # the machine and what else it does
    (re.compile(rf"\b{REAL} s（每秒 {REAL} 个位置）"), "TIME"),
    (re.compile(rf"\bresidual {REAL}"), "RESIDUAL"),  # rounding, at 1e-15 of the loads
    (re.compile(rf"\bforces certain to {REAL}"), "ESTIMATE"),  # rounding as well
]
ELISION = "..."


def without_volatile(line):
    for pattern, name in VOLATILE:
        line = pattern.sub(name, line)
    return line.rstrip()


def is_number(token):
    return re.fullmatch(NUMBER, token) is not None


def same_number(shown, real):
    """True when a number is the shown one, rounded to the shown digits."""
    digits, _, exponent = shown.lower().partition("e")
    unit = 10.0 ** (int(exponent or 0) - len(digits.partition(".")[2]))
    # A half of the last shown digit; the rest is the rounding of this comparison itself.
    return abs(float(shown) - float(real)) <= unit * (0.5 + 1e-9)


def same_token(shown, real):
    return shown == real or (is_number(shown) and is_number(real) and same_number(shown, real))


def same_line(shown, real):
    return same_sequence(TOKEN.findall(without_volatile(shown)), TOKEN.findall(without_volatile(real)),
                         same_token)


def same_lines(shown, real):
    """True when the printed lines are the shown ones."""
    return same_sequence([line.strip() if line.strip() == ELISION else line for line in shown], real, same_line)


def same_sequence(shown, real, same):
    """True when each item is the same as the one beside it, where the item "..." stands for any number of them."""
    head, *others = parts_between_elisions(shown)
    if not others:
        return len(head) == len(real) and stands_at(head, real, 0, same)
    if not stands_at(head, real, 0, same):
        return False
    at, tail = len(head), others.pop()
    for part in others:
        at = next((start for start in range(at, len(real)) if stands_at(part, real, start, same)), None)
        if at is None:
            return False
        at += len(part)
    return at <= len(real) - len(tail) and stands_at(tail, real, len(real) - len(tail), same)


def parts_between_elisions(items):
    parts = [[]]
    for item in items:
        if item == ELISION:
            parts.append([])
        else:
            parts[-1].append(item)
    return parts


def stands_at(part, real, start, same):
    return start + len(part) <= len(real) and all(same(*pair) for pair in zip(part, real[start:]))


def difference(shown, real):
    return "\n".join(difflib.unified_diff(
        list(map(without_volatile, shown)), list(map(without_volatile, real)),
        "shown", "printed", lineterm="", n=1))


def label(line):
    """A line without its numbers and its widths."""
    tokens = TOKEN.findall(without_volatile(line))
    return " ".join("".join("#" if is_number(token) else token for token in tokens).split())


def line_like(line, real, start, otherwise):
    """Where a line stands that differs from the given one in its numbers only."""
    return next((at for at in range(start, len(real)) if label(real[at]) == label(line)), otherwise)


def refreshed(shown, real):
    """The lines to show in place of the shown ones: as printed, with the elisions of before.

    What stands between elisions is found again by its first and last line. Lines that differ in nothing but
    volatile values or the digits that are shown stay as they are.
    """
    parts = parts_between_elisions([line.strip() if line.strip() == ELISION else line for line in shown])
    lines, at = [], 0
    for number, part in enumerate(parts):
        lines += [ELISION] if number else []
        if part or len(parts) == 1:
            start = line_like(part[0], real, at, max(at, len(real) - len(part))) if number else 0
            at = (len(real) if number == len(parts) - 1
                  else line_like(part[-1], real, start, start + len(part) - 1) + 1)
            lines += [next((old for old in part if same_line(old, line)), line) for line in real[start:at]]
    return [line.rstrip() for line in lines]

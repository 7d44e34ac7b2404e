"""Reads derivations written as HTML, and works out their formulas from the MathML itself, apart from the program."""

import math
import re
import xml.etree.ElementTree as ET
from typing import NamedTuple

from explain_lines import FUNCTIONS

APPLIED = "\u2061"
GROUPS = {"math", "mrow", "mtable", "mtr", "mtd"}


class Row(NamedTuple):
    symbol: str
    result: str
    unit: str
    name: str  # how the symbol is typeset
    formula: ET.Element | None
    numbers: ET.Element | None
    alttext: str | None
    words: str
    clause: str


def symbol_name(element):
    """How a symbol is typeset, as a text of its own: "φ_by", "λ¯_y", "N_Ey′"."""
    if element.tag in ("mi", "mn", "mo", "mtext"):
        return element.text
    parts = [symbol_name(child) for child in element]
    return parts[0] + ("_" if element.tag in ("msub", "msubsup") else "") + "".join(parts[1:])


def is_power(element):
    return element.tag == "msup" or (element.tag == "msubsup" and element[2].tag == "mn")


def powered(element, values):
    """A power, also of a symbol whose exponent stands over what stands below it."""
    if element.tag == "msup":
        return worked_out(element[0], values) ** worked_out(element[1], values)
    return values[f"{symbol_name(element[0])}_{symbol_name(element[1])}"] ** int(element[2].text)


def tokens_of(element, values):
    """Operators as texts and all else as numbers, or as a name with a function behind it."""
    if element.tag in GROUPS:
        return [token for child in element for token in tokens_of(child, values)]
    if element.tag == "mo":
        return [element.text]
    if element.tag == "mn":
        return [float(element.text)]
    if element.tag == "mfrac":
        return [worked_out(element[0], values) / worked_out(element[1], values)]
    if element.tag == "msqrt":
        return [math.sqrt(worked_out(element, values))]
    if is_power(element):
        return [powered(element, values)]
    assert element.tag in ("mi", "msub", "msubsup", "mtext"), element.tag
    name = symbol_name(element)
    if name in FUNCTIONS:
        return [FUNCTIONS[name]]
    return [{"π": math.pi, "∞": math.inf, "nan": math.nan}.get(name) or values[name]]


class Reader:
    def __init__(self, tokens):
        self.tokens, self.at = tokens, 0

    def value(self):
        result = self.sum()
        assert self.at == len(self.tokens), f"left over: {self.tokens[self.at:]}"
        return result

    def peek(self):
        return self.tokens[self.at] if self.at < len(self.tokens) else None

    def take(self, wanted=None):
        token = self.tokens[self.at]
        assert wanted in (None, token), f"wanted {wanted!r}, found {token!r}"
        self.at += 1
        return token

    def sum(self):
        if self.peek() == "−":
            self.take()
            result = -self.product()
        else:
            result = self.product()
        while self.peek() in ("+", "−"):
            sign = self.take()
            term = self.product()
            result = result + term if sign == "+" else result - term
        return result

    def product(self):
        result = self.factor()
        while self.peek() == "·":
            self.take()
            result *= self.factor()
        return result

    def factor(self):
        token = self.take()
        if token == "(":
            return self.closed(")")
        if token == "|":
            return abs(self.closed("|"))
        if callable(token):
            self.take(APPLIED)
            self.take("(")
            arguments = [self.sum()]
            while self.peek() == ",":
                self.take()
                arguments.append(self.sum())
            self.take(")")
            return token(*arguments)
        assert isinstance(token, float), f"found {token!r}"
        return token

    def closed(self, end):
        result = self.sum()
        self.take(end)
        return result


def worked_out(element, values=None):
    """What a formula comes to; its symbols are worth what `values` has by `symbol_name`."""
    tokens = tokens_of(element, values or {}) if element.tag in GROUPS else [
        token for child in ([element] if element.tag != "msqrt" else element)
        for token in tokens_of(child, values or {})]
    return Reader(tokens).value()


def side_behind_equals(math_element):
    """A formula without what stands in front of its equals sign."""
    place = next(i for i, child in enumerate(math_element) if child.tag == "mo" and child.text == "=")
    rest = ET.Element("mrow")
    rest.extend(math_element[place + 1:])
    return rest


def row_of(tr):
    cell, clause = tr.find("th"), tr.find("td")
    sides = cell.findall("./div[@class='calculation']//math")
    numbers = next((side for side in sides if side.get("class") == "numbers"), None)
    is_derived = tr.get("class") == "derived"
    return Row(
        tr.get("data-symbol"), tr.get("data-result"), tr.get("data-unit"), symbol_name(sides[0][0]),
        side_behind_equals(sides[0]) if is_derived else None,
        side_behind_equals(numbers) if numbers is not None else None,
        numbers.get("alttext") if numbers is not None else None,
        "".join(cell.find("./div[@class='what']").itertext()), clause.text or "")


def rows_of(html):
    """The steps of all derivations of a page."""
    tables = re.findall(r'<table class="derivation">.*?</table>', html, re.S)
    assert tables
    return [[row_of(tr) for tr in ET.fromstring(table).findall("./tbody/tr")] for table in tables]


def texts_of(html):
    """Everything on a page that is said in words."""
    body = re.sub(r"<math.*?</math>|<style>.*?</style>", " ", html, flags=re.S)
    return re.sub(r"<[^>]*>", "\n", body).replace("&quot;", '"').replace("&#39;", "'").replace(
        "&lt;", "<").replace("&gt;", ">").replace("&amp;", "&")

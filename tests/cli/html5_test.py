"""Documents are HTML 5 to a parser that follows the standard's own rules, with none of its parse errors."""

import shutil

import html5lib
import pytest

from program import ROOT, Program

EXAMPLES = sorted(path.name for path in (ROOT / "examples").glob("*.json"))
HTML = "{http://www.w3.org/1999/xhtml}"


def parsed(text):
    """The tree of a page. @raise html5lib.html5parser.ParseError of the first fault"""
    return html5lib.HTMLParser(strict=True).parse(text)


@pytest.fixture(scope="module", params=EXAMPLES)
def checked(request, tmp_path_factory):
    program = Program(tmp_path_factory.mktemp("html5"))
    shutil.copy(ROOT / "examples" / request.param, program.folder / "frame.json")
    program("check", "frame.json")
    return program


@pytest.mark.parametrize("language", ["en", "zh"])
def test_the_documents_of_the_examples_have_no_parse_error(checked, language):
    text = checked("report", "frame.json", "--html", "-", "--lang", language).stdout
    page = parsed(text)
    assert page.find(f"{HTML}head/{HTML}title").text
    # What a browser would move out of its place is not where the program has written it.
    body = page.find(f"{HTML}body")
    assert [child.tag.removeprefix(HTML) for child in body] == ["header", "nav", "main"]
    assert len(body.findall(f".//{HTML}table")) == text.count("<table")
    assert len(body.findall(".//{http://www.w3.org/2000/svg}svg")) == text.count("<svg")
    assert len(body.findall(".//{http://www.w3.org/1998/Math/MathML}math")) == text.count("<math")


@pytest.mark.parametrize("fault", ["<p>a</b></p>", "<table><p>a</p></table>", "<p id=a id=b>a</p>", "<ul><li>a</ul>&nosuch;",
                                   "<div><p>a</div></p>"])
def test_faults_are_found(fault):
    head = '<!DOCTYPE html><html lang="en"><head><title>a</title></head><body>'
    parsed(f"{head}<p>a</p></body></html>")
    with pytest.raises(html5lib.html5parser.ParseError):
        parsed(f"{head}{fault}</body></html>")

"""Pages are read so that no block of them stays unseen, and a block without a rule is an error."""

import pytest
from document_runs import run_block
from documents import blocks_in

PAGE = ["Text", "```console", "$ aluframe --version", "```", "- item", "  ```text", "  drawn", "  ```", "````text",
        "```", "````"]


def test_every_block_is_found_with_its_language_and_lines():
    assert [(block.start, block.language, block.lines) for block in blocks_in("page.md", PAGE)] == [
        (2, "console", ("$ aluframe --version",)), (6, "text", ("drawn",)), (9, "text", ("```",))]


@pytest.mark.parametrize("lines, told", [
    (["", "```sh", "ls"], "page.md:2: a block that is not closed"), (["```", "```"], "page.md:1: an empty block"),
])
def test_a_block_that_is_cut_short_is_told_with_its_place(lines, told):
    with pytest.raises(AssertionError) as fault:
        blocks_in("page.md", lines)
    assert told in str(fault.value)


@pytest.mark.parametrize("lines, told", [
    (["```", "ls", "```"], "found a block of language ''"), (["```java", "x", "```"], "language 'java'"),
    (["```text", "what is this", "```"], "no rule says what this text is"),
    (["```json", "{}", "```"], "neither a model nor a known part of one"),
    (["```csv", "a,b", "```"], "no table that the program reads"),
    (["```console", "output", "$ ls", "```"], "begins with a command"),
])
def test_a_block_without_a_rule_is_an_error(tmp_path, lines, told):
    with pytest.raises(AssertionError) as fault:
        run_block(blocks_in("page.md", lines)[0], tmp_path)
    assert told in str(fault.value)

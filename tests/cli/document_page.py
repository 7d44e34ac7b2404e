"""A page of the calculation document, read strictly: every element is closed, every id is there once."""

from html.parser import HTMLParser

VOID = {"meta", "br"}


class Page(HTMLParser):
    """Elements with their attributes and texts, tables by their caption."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.open = []
        self.elements = []  # (tag, attributes)
        self.texts = {}  # by tag, of all its elements
        self.tables = {}  # rows of texts by caption
        self.feed(text)
        self.close()
        assert self.open == [], self.open

    def handle_decl(self, decl):
        assert decl == "DOCTYPE html" and not self.elements

    def handle_comment(self, data):
        raise AssertionError(f"a comment: {data}")

    def handle_starttag(self, tag, attrs):
        names = [name for name, _ in attrs]
        assert len(names) == len(set(names)), (tag, attrs)
        assert all(value is not None for _, value in attrs), (tag, attrs)
        self.elements.append((tag, dict(attrs)))
        if tag in VOID:
            return
        self.open.append([tag, ""])
        if tag == "table":
            self.rows = []
        if tag == "tr":
            self.rows.append([])

    def handle_startendtag(self, tag, attrs):
        assert "svg" in [name for name, _ in self.open], f"<{tag}/> outside of a drawing"
        self.handle_starttag(tag, attrs)
        self.handle_endtag(tag)

    def handle_endtag(self, tag):
        assert self.open and self.open[-1][0] == tag, (tag, self.open)
        text = self.open.pop()[1]
        self.texts.setdefault(tag, []).append(text)
        if tag == "caption":
            self.caption = text
        if tag in ("th", "td"):
            self.rows[-1].append(text)
        if tag == "table":
            self.tables[self.caption] = self.rows

    def handle_data(self, data):
        for entry in self.open:
            entry[1] += data

    def attributes(self, name):
        return [attributes[name] for _, attributes in self.elements if name in attributes]

    def rows_of(self, caption):
        """The lines of a table as dictionaries by their headings."""
        head, *rows = self.tables[caption]
        assert len(head) == len(set(head))
        return [dict(zip(head, row, strict=True)) for row in rows]

"""Somebody who works the dialogs by keys and mouse on a screen in memory."""

from module_wine import wait_for

# Titles of the dialogs, and the size of one in dialog units.
CODE = "Alu Design Code"
MATERIALS = "Modify Alu Material"
MATERIALS_SIZE = (255, 239)


class User:
    """Somebody before the screen, who runs one program."""

    def __init__(self, wine, screen, *command, **options):
        self.screen = screen
        self.program = wine.start(*command, **options)

    def windows(self):
        """Titles of the windows that are shown."""
        return self.screen.do(
            "search", "--onlyvisible", "--name", ".", "getwindowname", "%@").splitlines()

    def sees(self, title):
        found = wait_for(lambda: title in self.windows())
        assert found, f"{title!r} is not among {self.windows()}"

    def does_not_see(self, title):
        assert wait_for(lambda: title not in self.windows()), title

    def press(self, *keys):
        self.screen.do("key", "--delay", "60", *keys)

    def type(self, text):
        self.screen.do("type", "--delay", "40", text)

    def place(self, title):
        """Left, top, width and height of a window."""
        shell = self.screen.do("search", "--onlyvisible", "--name", title, "getwindowgeometry",
                               "--shell")
        values = dict(line.split("=") for line in shell.splitlines())
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def click(self, title, size, x, y):
        """Clicks a dialog of `size` dialog units at a place in dialog units."""
        border, caption = 3, 22  # pixels
        left, top, width, height = self.place(title)
        horizontal = (width - 2 * border) / size[0]
        vertical = (height - border - caption) / size[1]
        self.screen.do("mousemove", round(left + border + horizontal * x),
                       round(top + caption + vertical * y), "click", "1")

    def ends(self):
        if self.program.poll() is None:
            self.program.terminate()
        self.program.wait(timeout=30)

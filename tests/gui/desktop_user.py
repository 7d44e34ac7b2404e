"""The running desktop program on a screen in memory, and a user who sees and works it from outside.

The user finds widgets as a reader of the screen does (AT-SPI), and works them by real mouse and
key events; pixels come from the memory of the screen.
"""

import os
import re
import shutil
import struct
import subprocess
import time
from pathlib import Path

try:
    import dbus
except ImportError:
    dbus = None

PATIENCE = 60  # s
TOOLS = ("Xvfb", "xdotool", "dbus-daemon")
MISSING = [name for name in TOOLS if shutil.which(name) is None]
if dbus is None:
    MISSING.append("python3-dbus")
if not Path("/usr/libexec/at-spi-bus-launcher").exists():
    MISSING.append("at-spi2-core")

ACCESSIBLE = "org.a11y.atspi.Accessible"
PROPERTIES = "org.freedesktop.DBus.Properties"
ENABLED, FOCUSED, SHOWING = 8, 12, 25  # places in an AT-SPI state set


def wait_for(what, told):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = what()
        if found:
            return found
        time.sleep(0.03)
    raise AssertionError(f"did not happen: {told() if callable(told) else told}")


class Screen:
    """A screen in memory whose number the server chooses, with its bus of accessible widgets."""

    def __init__(self, folder):
        self.folder = folder
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1500x950x24", "-nolisten", "tcp",
             "-noreset", "-fbdir", str(folder)],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as told:
            number = told.readline().strip()
        assert number, "Xvfb did not start"
        self.name = f":{number}"
        self.daemon = subprocess.Popen(
            ["dbus-daemon", "--session", "--nofork", "--print-address=1"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            env=os.environ | {"DISPLAY": self.name, "XDG_RUNTIME_DIR": str(folder)})
        self.address = self.daemon.stdout.readline().strip()
        session = dbus.bus.BusConnection(self.address)
        address = session.get_object("org.a11y.Bus", "/org/a11y/bus").GetAddress(
            dbus_interface="org.a11y.Bus")
        self.bus = dbus.bus.BusConnection(address)
        session.close()

    def end(self):
        self.bus.close()
        for process in (self.daemon, self.server):
            process.terminate()
            process.wait(timeout=PATIENCE)
        self.daemon.stdout.close()

    def pixels(self, colour, area):
        """Places of pixels of a colour (red, green, blue) in an area (x, y, width, height)."""
        data = (self.folder / "Xvfb_screen0").read_bytes()
        head = struct.unpack(">25I", data[:100])
        start, line = head[0] + 12 * head[19], head[12]
        wanted = bytes(reversed(colour))
        x0, y0, width, height = area
        found = []
        for y in range(y0, y0 + height):
            row = data[start + y * line + 4 * x0:start + y * line + 4 * (x0 + width)]
            found += [(x0 + at.start() // 4, y) for at in re.finditer(re.escape(wanted), row)
                      if at.start() % 4 == 0]
        return found


class Widget:
    """What a reader of the screen knows of a widget."""

    def __init__(self, program, name, path):
        self.program = program
        self.owner, self.path = name, path
        self.proxy = program.screen.bus.get_object(name, path, introspect=False)

    @property
    def name(self):
        return str(self.proxy.Get(ACCESSIBLE, "Name", dbus_interface=PROPERTIES))

    @property
    def role(self):
        return str(self.proxy.GetRoleName(dbus_interface=ACCESSIBLE))

    def has(self, state):
        low, high = self.proxy.GetState(dbus_interface=ACCESSIBLE)
        return bool((int(low) | int(high) << 32) >> state & 1)

    def children(self):
        return [Widget(self.program, owner, path)
                for owner, path in self.proxy.GetChildren(dbus_interface=ACCESSIBLE)]

    @property
    def area(self):
        return tuple(map(int, self.proxy.GetExtents(
            dbus.UInt32(0), dbus_interface="org.a11y.atspi.Component")))

    @property
    def middle(self):
        x, y, width, height = self.area
        return x + width // 2, y + height // 2

    @property
    def text(self):
        return str(self.proxy.GetText(0, -1, dbus_interface="org.a11y.atspi.Text"))

    def shown(self):
        """Itself and what is below it, of what is to be seen, except rows of tables."""
        if not self.has(SHOWING):
            return
        yield self
        if self.role in ("table", "tree", "list"):
            return
        for child in self.children():
            yield from child.shown()

    def click(self, *options):
        self.program.click(*self.middle, *options)

    def enter(self, text):
        """Puts a text into this field of a window that may still be on its way to its place."""
        def is_entered():
            if not self.has(FOCUSED):
                self.click()
            return self.has(FOCUSED)

        wait_for(is_entered, "the field's focus")
        self.program.press("ctrl+a")
        self.program.write(text)
        wait_for(lambda: self.text == text, f"a field with {text}")


class Program:
    """The running program and its user."""

    def __init__(self, screen, model, options=(), language="en", **variables):
        self.screen = screen
        self.home = model.parent / "home"
        self.home.mkdir(exist_ok=True)
        self.environment = {
            key: value for key, value in os.environ.items()
            if key not in ("QT_QPA_PLATFORM", "WAYLAND_DISPLAY")
        } | {
            "DISPLAY": screen.name, "DBUS_SESSION_BUS_ADDRESS": screen.address,
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "XDG_RUNTIME_DIR": str(screen.folder),
            "HOME": str(self.home), "XDG_CONFIG_HOME": str(self.home / "config"),
            "XDG_DATA_HOME": str(self.home / "data"), "LC_ALL": "C.UTF-8",
            "LIBGL_ALWAYS_SOFTWARE": "1", **variables,
        }
        self.told = (model.parent / "told").open("w+")
        self.process = subprocess.Popen(
            [os.environ["ALUFRAME_DESKTOP"], "--lang", language, *options, str(model)],
            env=self.environment, stderr=self.told)

    def errors(self):
        self.told.flush()
        return Path(self.told.name).read_text(encoding="utf-8")

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait(timeout=PATIENCE)
        self.told.close()

    # What the user sees.

    def windows(self):
        """Top windows that are shown, by the program's number as the bus knows it."""
        assert self.process.poll() is None, self.errors()
        root = Widget(self, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        daemon = self.screen.bus.get_object("org.freedesktop.DBus", "/org/freedesktop/DBus")
        found = []
        for application in root.children():
            try:
                number = daemon.GetConnectionUnixProcessID(
                    application.owner, dbus_interface="org.freedesktop.DBus")
                if int(number) == self.process.pid:
                    found += [window for window in application.children() if window.has(SHOWING)]
            except dbus.DBusException:
                continue  # it ended meanwhile
        return found

    def shown(self, role=None, name=None):
        """Widgets to be seen, windows last opened first."""
        found = []
        try:
            for window in reversed(self.windows()):
                found += [widget for widget in window.shown()
                          if widget.area[0] >= 0  # else in a tab that is behind another
                          and (role is None or re.fullmatch(role, widget.role))
                          and (name is None or re.search(name, widget.name))]
        except dbus.DBusException:
            return []  # a widget went while it was looked at
        return found

    def find(self, role, name):
        def told():
            return (f"a {role} {name!r} among "
                    f"{[(widget.role, widget.name) for widget in self.shown()]}")
        return wait_for(lambda: self.shown(role, name), told)[0]

    def rows(self, role, name):
        """Texts of the cells of a table, tree or list."""
        try:
            return [cell.name for cell in self.find(role, name).children()]
        except dbus.DBusException:
            return []  # it was filled anew meanwhile

    def sees(self, text):
        """Waits for a label with such a text."""
        return self.find("label", text)

    @staticmethod
    def steady(look):
        """What is seen, once it is there and does not change any more."""
        seen = []

        def is_steady():
            seen.append(look())
            return seen[-1] and seen[-4:] == 4 * [seen[-1]]

        wait_for(is_steady, "a picture that stays")
        return seen[-1]

    # What the user does.

    def xdotool(self, *arguments):
        done = subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, text=True,
                              capture_output=True, check=False, timeout=PATIENCE)
        return done.stdout.strip()

    def window(self, title):
        """The shown window with such a title."""
        def find():
            assert self.process.poll() is None, self.errors()
            found = self.xdotool("search", "--onlyvisible", "--pid", self.process.pid,
                                 "--name", title)
            return found.split("\n")[0]
        return wait_for(find, f"a window {title}")

    def focus(self, title):
        self.xdotool("windowfocus", "--sync", self.window(title))

    def press(self, *keys):
        self.xdotool("key", "--clearmodifiers", *keys)

    def write(self, text):
        self.xdotool("type", "--delay", 1, text)

    def click(self, x, y, modifier=None, count=1):
        actions = ["mousemove", x, y]
        if modifier:
            actions += ["keydown", modifier]
        actions += ["click", "--repeat", count, "--delay", 10, 1]
        if modifier:
            actions += ["keyup", modifier]
        self.xdotool(*actions)

    def drag(self, start, end):
        middle = [(a + b) // 2 for a, b in zip(start, end)]
        self.xdotool("mousemove", *start, "mousedown", 1, "mousemove", *middle,
                     "mousemove", *end, "mouseup", 1)

    def choose(self, menu, entry):
        """An entry of a menu, by mouse."""
        self.find("menu item", f"^{menu}$").click()
        self.find("menu item", f"^{entry}$").click()

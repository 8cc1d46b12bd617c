"""A screen in memory with assistive technology on it, and the hands and eyes of somebody who uses both.

What a screen reader tells comes through AT-SPI, keys go in as the keyboard's own events.
"""
import os
import pathlib
import socket
import struct
import subprocess
import tempfile
import time

import gi
from Xlib import X, XK, display, error
from Xlib.ext import xtest

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 20  # seconds until something that does not come is a failure
SCREEN = (1280, 1024)
AROUND = 6  # pixels of a control where its focus may show as well
ROWS = 12  # of a table, that are looked at
STATES = ("checked", "indeterminate", "expanded", "collapsed", "selected", "focused")
WINDOWS = ("dialog", "alert", "frame")
KEYS = {"Esc": "Escape", "PageDown": "Next", "PageUp": "Prior"}
SHIFTS = {"Alt": "Alt_L", "Ctrl": "Control_L", "Shift": "Shift_L"}


class Failure(Exception):
    pass


class Control:
    """One accessible, as it was when the tree was walked."""

    def __init__(self, accessible, depth):
        self.accessible, self.depth = accessible, depth
        self.role = accessible.get_role_name()
        self.name = accessible.get_name()
        self.description = accessible.get_description()
        states = accessible.get_state_set()
        self.states = {name for name in STATES if has(states, name)}
        self.focusable, self.enabled = has(states, "focusable"), has(states, "enabled")
        self.showing, self.editable = has(states, "showing"), has(states, "editable")
        self.default = has(states, "is_default")
        self.value = None
        interfaces = accessible.get_interfaces()
        if self.role == "combo box":  # its name is its value here; what it is for is said by its label
            self.value = self.name
            self.name = self.label()
        elif "Value" in interfaces:
            self.value = f"{Atspi.Value.get_current_value(accessible):g}"
        elif "Text" in interfaces:
            self.value = Atspi.Text.get_text(accessible, 0, -1)

    def label(self):
        for relation in self.accessible.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
        return ""

    def focused(self):
        return has(self.accessible.get_state_set(), "focused")

    def rectangle(self):
        box = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.SCREEN)
        left, top = max(0, box.x - AROUND), max(0, box.y - AROUND)
        right, bottom = box.x + box.width + AROUND, box.y + box.height + AROUND
        return left, top, min(right, SCREEN[0]) - left, min(bottom, SCREEN[1]) - top

    def __str__(self):
        words = [self.role, f'"{self.name}"']
        if self.value is not None:
            words.append(f'= "{self.value}"')
        if self.description and self.description != self.name:
            words.append(f"({self.description})")
        words += sorted(self.states)
        words += ["default"] if self.default else []
        words += [] if self.enabled else ["disabled"]
        return " ".join(words)


def has(states, name):
    return states.contains(getattr(Atspi.StateType, name.upper()))


def wait_for(what, look):
    """Until look() finds something. What it looks at may go under its eyes."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            found = look()
        except GLib.GError:
            found = None
        if found:
            return found
        if time.monotonic() > end:
            raise Failure(f"{what} did not come")
        time.sleep(0.005)


def write_key(path, number, key):
    """What lets a program into the display of that number."""
    def field(text):
        return struct.pack(">H", len(text)) + text
    local = struct.pack(">H", 256)
    path.write_bytes(local + b"".join(
        field(part) for part in (socket.gethostname().encode(), number.encode(), b"MIT-MAGIC-COOKIE-1", key)))


def answer_of(command, option, **settings):
    """Starts a program that runs on, and what it says first; the option has the number of the pipe for that."""
    reading, writing = os.pipe()
    process = subprocess.Popen([*command, option % writing], pass_fds=[writing], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, **settings)
    os.close(writing)
    with os.fdopen(reading) as answer:
        return process, answer.readline().strip()


class Desk:
    def __init__(self):
        self.folder = tempfile.TemporaryDirectory()
        os.environ["XDG_RUNTIME_DIR"] = self.folder.name  # where the bus of assistive technology has its address
        key_file, key = pathlib.Path(self.folder.name, "key"), os.urandom(16)
        write_key(key_file, "", key)  # else programs that once had a display of this number would come back to it
        self.server, number = answer_of(
            ["Xvfb", "-screen", "0", "%dx%dx24" % SCREEN, "-nolisten", "tcp", "-auth", key_file, "-displayfd"], "%d")
        self.name = ":" + number
        write_key(key_file, number, key)
        os.environ.update(XAUTHORITY=str(key_file), DISPLAY=self.name)
        self.bus, address = answer_of(["dbus-daemon", "--session", "--nofork"], "--print-address=%d")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = address
        self.display = display.Display(self.name)
        self.display.set_error_handler(lambda *_: None)  # a window that went meanwhile
        self.root = self.display.screen().root
        self.program = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()
        self.display.close()
        for process in (self.bus, self.server):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    def end(self):
        if self.program:
            self.program.kill()
            self.program.wait()

    def start(self, *command):
        """Starts a program and returns when assistive technology sees its window."""
        self.end()
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_STYLE_OVERRIDE="Fusion",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", HOME=self.folder.name,
                           LC_ALL="C.UTF-8")
        environment.pop("XDG_CURRENT_DESKTOP", None)
        self.program = subprocess.Popen(command, env=environment, cwd=self.folder.name)
        self.application = wait_for(command[0], self.find_application)
        self.application.set_cache_mask(Atspi.Cache.NONE)

    def find_application(self):
        if self.program.poll() is not None:
            raise Failure(f"the program ended with status {self.program.returncode}")
        for child in children(Atspi.get_desktop(0)):
            if child.get_process_id() == self.program.pid and child.get_child_count() > 0:
                return child
        return None

    def windows(self):
        """Those that show, the topmost last."""
        showing = [w for w in children(self.application) if has(w.get_state_set(), "showing")]
        return [w for w in showing if w.get_role_name() in WINDOWS]

    def wait_windows(self, count):
        """The topmost of that many, once it has the keyboard."""
        def active():
            settled, found = self.focus_top(), self.windows()
            return found[-1] if settled and len(found) == count and has(found[-1].get_state_set(), "active") else None
        return wait_for(f"window {count}", active)

    def focus_top(self):
        """What a window manager does: the topmost window has the keyboard. Whether it had it before."""
        def manages(window):
            attributes = window.get_attributes()
            return attributes.map_state == X.IsViewable and not attributes.override_redirect
        try:
            stacked = [w for w in self.root.query_tree().children if manages(w)]
        except error.XError:  # of a window that went meanwhile
            return False
        if not stacked or self.display.get_input_focus().focus == stacked[-1]:
            return bool(stacked)
        stacked[-1].set_input_focus(X.RevertToPointerRoot, X.CurrentTime)
        self.display.sync()
        return False

    def press(self, keys):
        """Keys in words, as "Alt+Down ... Tab space"; dots are a wait for what rolls out."""
        for word in keys.split():
            if word == "...":
                time.sleep(0.3)
                continue
            *shifts, key = word.split("+")
            codes = [self.code(SHIFTS[shift]) for shift in shifts] + [self.code(KEYS.get(key, key))]
            for code in codes:
                xtest.fake_input(self.display, X.KeyPress, code)
            for code in reversed(codes):
                xtest.fake_input(self.display, X.KeyRelease, code)
            self.display.sync()

    def code(self, name):
        return self.display.keysym_to_keycode(XK.string_to_keysym(name))

    def picture(self, rectangle):
        return self.root.get_image(*rectangle, X.ZPixmap, 0xFFFFFFFF).data


def children(accessible):
    for place in range(accessible.get_child_count()):
        child = accessible.get_child_at_index(place)
        if child:
            yield child


def controls(window):
    """What shows in a window, in the order of the tree; of a table its first cells."""
    found = []

    def walk(accessible, depth):
        control = Control(accessible, depth)
        if not control.showing:
            return
        found.append(control)
        for child in cells(accessible) if control.role == "table" else children(accessible):
            walk(child, depth + 1)

    wait_for("the window's controls", lambda: found.clear() or walk(window, 0) or True)
    return found


def cells(table):
    """What stands above it, the headers of the columns, then row by row."""
    columns = Atspi.Table.get_n_columns(table)
    yield from (table.get_child_at_index(place) for place in range(columns + 1))
    for row in range(min(ROWS, Atspi.Table.get_n_rows(table))):
        told = None
        for column in range(columns):
            cell = Atspi.Table.get_accessible_at(table, row, column)
            if cell != told:  # one may stand for the whole row
                yield cell
            told = cell

"""keyboard_tour.py LANGUAGE EXPECTED GRIDHOST UNLISTED: a tour through every dialog by the keyboard alone.

UNLISTED is the program of the dialogs that gridhost does not offer. What assistive technology is told on the way is compared with the files of the folder EXPECTED: each dialog as it opens,
its stops of the Tab key, and what its keys changed. VMG_UPDATE=1 writes these files anew, to be read before they are
committed.
"""
import difflib
import os
import pathlib
import sys
import time

from desk import Desk, Failure, controls, wait_for

UPDATE = bool(os.environ.get("VMG_UPDATE"))
SETTLES = 2 if UPDATE else 10  # seconds, at most
ENTRIES = ("list item", "table cell")  # of what has the focus
LEAST_PIXELS = 30  # that a focus mark has


class Scene:
    """A window: the keys that lead there, those that work in it, scenes on top of it, and the keys that leave it."""

    def __init__(self, name, opens, *work, leaves="Esc", on_top=True):
        self.name, self.opens, self.work, self.leaves, self.on_top = name, opens, work, leaves, on_top


DATA = pathlib.Path(__file__).with_name("trips.csv")
WALK = "Tab goes round"
MAIN = Scene("main", "", WALK, leaves="", on_top=False)
SORT = Scene("sort", "Tab space", WALK, "Alt+Down ... Down Down Down Return", "Tab Down Tab Down Down", leaves="Return")
GROUPS = Scene("groupby", "Tab space", WALK, "Down", "Tab Tab Tab Tab Tab Tab Tab space Tab space Tab space",
               leaves="Return")
MESSAGE = Scene("message", "Tab Return", WALK, leaves="space")
COLUMNS = Scene("columns", "Tab space", WALK, "Tab Tab Tab Tab space", MESSAGE, "Shift+Tab Shift+Tab Shift+Tab space",
                "Tab Tab Tab Down Down Tab space", leaves="Shift+Tab Return")
GENERAL = Scene("general", "Tab space", WALK, "End Tab 2 Tab space", leaves="Return")
NAME = Scene("condition-name", "Ctrl+a", WALK, "T o p", leaves="Return")
QUESTION = Scene("question", "Delete", WALK, leaves="Esc")
CONDITIONS = Scene("conditions", "Tab space", NAME, WALK, QUESTION, "Tab 3 Tab 4 Tab 3 0",
                   "Tab Tab Tab Tab Tab space", leaves="Return")
PREVIEW = Scene("preview", "Tab space", WALK, "Tab Tab Tab space")
EXPORT = Scene("export", "Tab space", WALK, "Tab space")
SUMMARY = Scene("summary", "Tab space", WALK, Scene("general-again", "space", WALK))
GRID = Scene("grid", "Tab", "slash", "Down Right", "Down", WALK, leaves="", on_top=False)
OF_GRIDHOST = (MAIN, SORT, GROUPS, COLUMNS, GENERAL, CONDITIONS, PREVIEW, EXPORT, SUMMARY, GRID)

VIEWS = Scene("views", "", WALK, "Alt_L", "Down", "Esc", "Esc", leaves="",
              on_top=False)
INSERT = Scene("name", "", WALK, "N e w", leaves="Return", on_top=False)
OF_NOBODY = (INSERT, VIEWS)


class Tour:
    def __init__(self, desk, expected):
        self.desk, self.expected, self.failures = desk, expected, []

    def play(self, scene, depth=1):
        """Above the topmost of `depth` windows, or in it."""
        self.desk.press(scene.opens)
        depth += scene.on_top
        page = Page(self, scene.name, self.desk.wait_windows(depth))
        page.show("as it opens")
        for step in scene.work:
            if isinstance(step, Scene):
                self.play(step, depth)
                page.window = self.desk.wait_windows(depth)
                page.show(f"after {step.name}")
            elif step == WALK:
                page.walk()
            else:
                self.desk.press(step)
                page.show(f"after {step}")
        page.close()
        if scene.leaves:
            self.desk.press(scene.leaves)
            wait_for(f"the end of {scene.name}", lambda: page.window not in self.desk.windows())


class Page:
    """The expectation of one scene, section by section, beside what is found."""

    def __init__(self, tour, name, window):
        self.tour, self.window, self.file = tour, window, tour.expected / f"{name}.txt"
        self.name, self.sections, self.before = name, [], []
        text = self.file.read_text(encoding="utf-8") if self.file.exists() else ""
        self.wanted = [tuple(part.split("\n", 1)) for part in text.split("# ")[1:]]

    def show(self, title):
        """The whole window the first time, later what became of it."""
        wanted = None if UPDATE else next(iter(self.wanted[len(self.sections):]), None)
        end = time.monotonic() + SETTLES
        while True:
            self.controls = controls(self.window)
            lines = ["  " * control.depth + str(control) for control in self.controls]
            changes = [line for line in difflib.unified_diff(self.before, lines, lineterm="", n=0)
                       if line[:2] not in ("--", "++", "@@")] if self.before else lines
            body = "".join(line + "\n" for line in changes)
            if (title, body) == wanted or time.monotonic() > end:
                break
            time.sleep(0.02)
        self.before = lines
        self.sections.append((title, body))
        for control in self.controls:
            if control.focusable and not control.name and control.role != "table cell":
                self.fail(f"a {control.role} without a name")

    def fail(self, what):
        self.tour.failures.append(f"{self.name}: {what}")

    def focused(self):
        return next((c for c in self.controls if c.focusable and c.role not in ENTRIES and c.focused()), None)

    def walk(self):
        """Once round by Tab: back where it began, and the focus is seen at every stop."""
        first = at = wait_for("the focus", self.focused)
        stops = [first]
        alone = sum(c.focusable and c.enabled and c.role != "label" for c in self.controls) == 1
        while not alone and len(stops) <= len(self.controls):
            left, at = at, self.step("Tab", at)
            if not self.sees_focus(left, at):
                self.fail(f"nobody sees the focus on {left}")
            if at is first:
                break
            stops.append(at)
        if len(stops) > len(self.controls):
            self.fail("Tab does not come round")
        self.sections.append((WALK, "".join(f'{c.role} "{c.name}"\n' for c in stops)))

    def step(self, key, left):
        self.tour.desk.press(key)
        return wait_for(f"a stop beyond {left}", lambda: self.moved(left))

    def sees_focus(self, left, at):
        """Whether a control looks another with the focus than without. The program may be slow to paint."""
        place = left.rectangle()
        for pause in (0.02, 0.1, 0.5):
            time.sleep(pause)
            without = self.tour.desk.picture(place)
            self.step("Shift+Tab", at)
            time.sleep(pause)
            focused = self.tour.desk.picture(place)
            self.step("Tab", left)
            if sum(focused[i:i + 4] != without[i:i + 4] for i in range(0, len(without), 4)) >= LEAST_PIXELS:
                return True
        return False

    def moved(self, left):
        now = self.focused()
        return now if now and now is not left else None

    def close(self):
        text = "".join(f"# {title}\n{body}" for title, body in self.sections)
        if UPDATE:
            self.file.parent.mkdir(parents=True, exist_ok=True)
            self.file.write_text(text, encoding="utf-8")
            return
        wanted = self.file.read_text(encoding="utf-8") if self.file.exists() else ""
        if text != wanted:
            self.fail("\n" + "\n".join(difflib.unified_diff(wanted.splitlines(), text.splitlines(), str(self.file),
                                                          "found", lineterm="", n=2)))


def main(language, expected, gridhost, unlisted):
    with Desk() as desk:
        tour = Tour(desk, pathlib.Path(expected) / language)
        for scenes, program in ((OF_GRIDHOST, (gridhost, "--data", str(DATA), "--language", language)),
                                (OF_NOBODY, (unlisted, language))):
            desk.start(*program)
            for scene in scenes:
                try:
                    tour.play(scene)
                except Failure as failure:
                    tour.failures.append(f"{scene.name}: {failure}")
                    break
    if tour.failures:
        sys.exit("\n".join(tour.failures))


if __name__ == "__main__":
    main(*sys.argv[1:])

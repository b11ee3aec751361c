#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Kelvora from start to end, the way a pupil with a screen reader works it.

The real `kelvora` executable runs from a scratch copy of its folder on a private X server, with a
private D-Bus session bus and the accessibility (AT-SPI) bus. This script reads the programme only
through AT-SPI (window captions, roles, accessible names, states, actions) and works it with real
key events alone, except for the options of the final test, which it clicks through their AT-SPI
actions. At the end it compares the three files the programme leaves in its folder byte for byte
with what the clicks made must give.

    tests/e2e/run.sh [path/to/kelvora] [--keep] [--verbose]

Exit status: 0 every check passed, 1 a check failed (one line per failed check), 77 this machine
cannot run the test (the reason is printed on one line).

The keyboard checks name the fault behind a failure ("cause: ...") and work around it, so that the
checks after them still run: Enter falls back to Space, Escape to the panel's own close button.
"""

import argparse
import datetime
import os
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SKIP = 77
HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE_ROOT = os.path.dirname(os.path.dirname(HERE))

# --------------------------------------------------------------------------------------------
# What the programme shows and writes

TITLE = "Kelvora"


def caption(title):
    """A window caption as screen readers read it: the caption bar pushes the screen's own title
    to its right end with a run of blanks, which the accessible name leaves out."""
    return f"{TITLE} – {title}"


START_CAPTION = TITLE
CONTROL_CENTRE_CAPTION = caption("Steuerzentrum")
END_PAGE_CAPTION = TITLE
WORKING_METHOD_CAPTION = caption("Arbeitsweise")
DISPLAY_MODE_CAPTION = caption("Bildschirmauflösung")
GRADE_SCALE_CAPTION = "Kelvora - Punktetabelle und Zensierung"


def page_caption(page):
    return caption(f"Seite {page}")


def caption_pattern(name):
    """The window's caption bar title for its accessible name, as a regular expression."""
    return "^" + " +".join(re.escape(part) for part in name.split(" – ")) + " *$"


CONTROL_CENTRE_TOPICS = [
    "Fragen 1 bis 5 - Seite 1", "Fragen 6 bis 10 - Seite 2", "Fragen 11 bis 15 - Seite 3",
    "Fragen 16 bis 20 - Seite 4", "Fragen 21 bis 25 - Seite 5", "Fragen 26 bis 30 - Seite 6",
    "Fragen 31 bis 35 - Seite 7", "Fragen 36 bis 40 - Seite 8", "Fragen 41 bis 45 - Seite 9",
    "Fragen 46 bis 50 - Seite 10", "Abschlusstest - Seite 11",
]

OVERVIEW_LINES = [
    "Seite 1 (Frage 1 -  5)", "Seite 2 (Frage 6 - 10)", "Seite 3 (Frage 11 - 15)",
    "Seite 4 (Frage 16 - 20)", "Seite 5 (Frage 21 - 25)", "Seite 6 (Frage 26 - 30)",
    "Seite 7 (Frage 31 - 35)", "Seite 8 (Frage 36 - 40)", "Seite 9 (Frage 41 - 45)",
    "Seite 10 (Frage 46 - 50)", "Seite 11 (Abschlusstest)",
]

# The opening words of the first question picture of each lesson page.
FIRST_QUESTION = {
    1: "1. Welche zwei Voraussetzungen müssen vorhanden sein, damit Strom fließt?",
    2: "6. In welchem Augenblick fließt durch eine Glühlampe der größte Strom",
    3: "11.", 4: "16.", 5: "21.", 6: "26.", 7: "31.", 8: "36.", 9: "41.", 10: "46.",
}

# Verdict pictures of the answers typed in this run: (page, question on the page, letter).
FEEDBACK = {
    (1, 1, "A"): "Falsch! Das elektrische Feld ist eine notwendige Voraussetzung für das Fließen "
                 "von Strom. Dieser Teil der Antwort ist richtig. Antworte noch einmal.",
    (1, 1, "B"): "Unvollständig und deshalb falsch! Elektrisches Feld und Spannungsquelle sind "
                 "fast dasselbe. Dieser Teil der Antwort ist richtig. Antworte noch einmal.",
    (1, 1, "C"): "Richtig!",
    (1, 2, "B"): "Richtig!",
    (1, 3, "A"): "Richtig!",
    (2, 1, "C"): "Richtig!",
}
VERDICT_OPENINGS = ("Richtig!", "Falsch!", "Unvollständig und deshalb falsch!",
                    "Du hast vergessen", "Du darfst nur")
PACE_NOTE_OPENING = "Hinweis: Damit du dir bei diesem Lernprogramm viel merken kannst"

# The final test: frame caption, question caption as the programme keeps it (and logs it), the
# four options, and the index of the right one(s).
TEST_QUESTIONS = [
    ("Aufgabe 1", "Welche Ladungsträger leiten in Metallen den Strom?",
     ["freie Elektronen", "freie Elektronen und Löcher", "Ionen", "Ionen und freie Elektronen"],
     {0}),
    ("Aufgabe 2", "Welche Ladungsträger leiten nach Stoß-   ionisation in Gasen den Strom?",
     ["freie Elektronen", "freie Elektronen und Löcher", "Ionen", "Ionen und freie Elektronen"],
     {3}),
    ("Aufgabe 3", "Welche Ladungsträger leiten in Halbleitern den Strom?",
     ["freie Elektronen", "freie Elektronen und Löcher", "Ionen", "Ionen und freie Elektronen"],
     {1}),
    ("Aufgabe 4", "Wie heißt der Vorgang, bei dem in einem Gas massenhaft und schnell Ladungs-"
                  "    träger erzeugt werden?",
     ["Glühemission", "Fotoemission", "Stoßionisation", "Induktion"], {2}),
    ("Aufgabe 5", "Selen sendet Elektronen aus, wenn es mit Licht bestrahlt wird. Wie heißt "
                  "dieser Vorgang?",
     ["Glühemission", "Fotoemission", "Stoßionisation", "Induktion"], {1}),
    ("Aufgabe 6", "Durch welchen Vorgang werden in einer Braunschen Röhre Ladungs- träger "
                  "erzeugt?",
     ["Glühemission", "Fotoemission", "Stoßionisation", "Induktion"], {0}),
    ("Aufgabe 7", "Wie ändert sich der Widerstand von Halbleitern, wenn sie erwärmt werden?",
     ["wird um ein Vielfaches größer", "wird größer", "wird kleiner", "bleibt gleich"], {2}),
    ("Aufgabe 8", "Welche Leitungsart entsteht in Halb- leitern, wenn Atome mit größerer An- "
                  "zahl an Außenelektronen eingebaut werden?",
     ["p-Leitung", "n-Leitung", "Eigenleitung", "andere Leitungsart"], {1}),
    ("Aufgabe 9", "Welche Funktion hat eine Halbleiterdiode?",
     ["Erzeugen von Wechselstrom", "Gleichrichten von Wechselstrom", "Verstärken von Signalen",
      "Schalter"], {1}),
    ("Aufgabe 10", "Welche Funktion hat ein Transistor?",
     ["Erzeugen von Wechselstrom", "Gleichrichten von Wechselstrom", "Verstärken von Signalen",
      "Schalter"], {2, 3}),
]

# The clicks of this run, question by question (question index, option text). Each question
# ends with its right option; the wrong ones before it are logged and cost points.
TEST_CLICKS = [
    (0, "Ionen"), (0, "freie Elektronen"),
    (1, "Ionen und freie Elektronen"),
    (2, "freie Elektronen und Löcher"),
    (3, "Stoßionisation"),
    (4, "Fotoemission"),
    (5, "Glühemission"),
    (6, "wird kleiner"),
    (7, "n-Leitung"),
    (8, "Gleichrichten von Wechselstrom"),
    (9, "Erzeugen von Wechselstrom"), (9, "Verstärken von Signalen"),
]

DEFAULT_GRADE_SCALE = (20, 40, 60, 80, 96)  # minimum percentages for grades 5, 4, 3, 2, 1


def question_on_screen(text):
    """A word broken by hand ("Stoß-   ionisation") is read whole on screen."""
    return re.sub(r"-\s+(?=[a-zäöüß])", "", text)


def is_right(question, option):
    frame, text, options, right = TEST_QUESTIONS[question]
    return options.index(option) in right


def print_number(n):
    """A number in the print style of the result and grade files: sign place, digits, blank."""
    return ("-" if n < 0 else " ") + str(abs(n)) + " "


def next_print_zone(line, zone=14):
    return line + " " * ((len(line) // zone + 1) * zone - len(line))


def grade_text(correct, answered, scale=DEFAULT_GRADE_SCALE):
    share = correct / answered
    grade = 6
    for number, minimum in zip((5, 4, 3, 2, 1), scale):
        if share >= minimum / 100:
            grade = number
    return f"Zensur:   {grade}"


def expected_result_lines(clicks):
    """The lines of the test log for the given clicks, up to the date line (not included)."""
    lines = [" " * 15 + "Test Kelvora", ""]
    heading_written = False
    correct = answered = 0
    for question, option in clicks:
        frame, text, options, right = TEST_QUESTIONS[question]
        answered += 1
        if not heading_written:
            lines += [frame, text]
        verdict = "Richtig" if is_right(question, option) else "Falsch"
        lines.append("    " + option + " - " + verdict)
        if verdict == "Richtig":
            correct += 1
            lines.append("")
            if question == 9:
                if heading_written:
                    lines.append("")
                lines.append(print_number(correct) + "Punkte von" + print_number(answered) +
                             "Punkten")
            heading_written = False
        else:
            heading_written = True
    return lines, correct, answered


def encode_lines(lines):
    return b"".join(line.encode("cp1252") + b"\r\n" for line in lines)


# --------------------------------------------------------------------------------------------
# Dates as the programme writes them, German whatever the locale it runs in.

def date_line(moment):
    return moment.strftime("%d.%m.%Y %H:%M:%S")


def date_lines_between(first, last):
    """Every date line the programme may have written between two moments (whole seconds)."""
    moment = first.replace(microsecond=0)
    candidates = []
    while moment <= last:
        candidates.append(date_line(moment))
        moment += datetime.timedelta(seconds=1)
    return candidates


# --------------------------------------------------------------------------------------------
# Check bookkeeping

EXPECTED_CAUSES = {
    "enter": "Enter, Return or keypad Enter does not press the focused push button",
    "escape": "Escape does not close the panel or screen in front",
    "exit-focus": "the exit frame does not open with the focus on \"Ich möchte nicht beenden\"",
    "overview-focus": "the overview does not open with the focus on \"Schließen\"",
}


class Abort(Exception):
    """The run cannot go on (a screen did not come); the checks so far stand."""


class Checks:
    def __init__(self, verbose):
        self.verbose = verbose
        self.passed = 0
        self.failed = []
        self.stage = ""
        self.started = time.monotonic()

    def section(self, name):
        self.stage = name
        print(f"-- {name} ({time.monotonic() - self.started:.1f} s)", flush=True)

    def check(self, ok, what, detail="", cause=None):
        if ok:
            self.passed += 1
            if self.verbose:
                print(f"   ok   {time.monotonic() - self.started:6.1f} {what}", flush=True)
            return True
        line = f"FAIL [{self.stage}] {what}"
        if detail:
            line += f": {detail}"
        if cause:
            line += f" (cause: {EXPECTED_CAUSES[cause]})"
        print(line, flush=True)
        self.failed.append((what, cause))
        return False

    def equal(self, actual, expected, what, cause=None):
        return self.check(actual == expected, what, f"got {actual!r}, want {expected!r}", cause)

    def info(self, text):
        print(f"   info {text}", flush=True)


# --------------------------------------------------------------------------------------------
# The isolated session: X server, window manager, D-Bus session bus, accessibility bus

class Skip(Exception):
    """This machine cannot run the test."""


def skip(reason):
    raise Skip(reason)


def read_line(stream_fd, timeout):
    """One line from a pipe, or None after the timeout."""
    data = b""
    end = time.monotonic() + timeout
    while not data.endswith(b"\n"):
        left = end - time.monotonic()
        if left <= 0:
            return None
        ready, _, _ = select.select([stream_fd], [], [], left)
        if not ready:
            return None
        chunk = os.read(stream_fd, 256)
        if not chunk:
            break
        data += chunk
    return data.decode().strip() or None


class Session:
    def __init__(self, scratch, verbose):
        self.scratch = scratch
        self.verbose = verbose
        self.processes = []  # (name, Popen) started here, each in its own process group
        self.xorg_state = None
        self.env = {k: v for k, v in os.environ.items()
                    if k not in ("DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS", "WAYLAND_DISPLAY",
                                 "XAUTHORITY", "SESSION_MANAGER", "QT_QPA_PLATFORM",
                                 "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "NO_AT_BRIDGE",
                                 "DISPLAY", "LANG", "LANGUAGE", "LC_ALL")}
        home = os.path.join(scratch, "home")
        runtime = os.path.join(scratch, "run")
        for folder in (home, runtime):
            os.makedirs(folder, mode=0o700, exist_ok=True)
        self.env.update(HOME=home, XDG_RUNTIME_DIR=runtime,
                        XDG_CONFIG_HOME=os.path.join(home, ".config"),
                        XDG_CACHE_HOME=os.path.join(home, ".cache"),
                        XDG_DATA_HOME=os.path.join(home, ".local", "share"))
        self.window_manager = None

    def log(self, text):
        if self.verbose:
            print(f"   setup {text}", flush=True)

    def spawn(self, name, argv, **kwargs):
        kwargs.setdefault("stdout", subprocess.DEVNULL)
        kwargs.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(argv, env=kwargs.pop("env", self.env), start_new_session=True,
                                   **kwargs)
        self.processes.append((name, process))
        return process

    def run(self, argv, timeout=10, **kwargs):
        return subprocess.run(argv, env=self.env, timeout=timeout, capture_output=True, text=True,
                              **kwargs)

    # X server -----------------------------------------------------------------------------

    def display_answers(self):
        try:
            return self.run(["xdotool", "getdisplaygeometry"], timeout=5).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def start_x(self):
        script = os.path.join(SOURCE_ROOT, "tests", "xorg-dummy.sh")
        config = os.path.join(SOURCE_ROOT, "tests", "xorg-dummy.conf")
        xorg = next((p for p in ("/usr/lib/xorg/Xorg", "/usr/libexec/Xorg", "/usr/bin/Xorg")
                     if os.access(p, os.X_OK)), None)
        reasons = []
        server = os.environ.get("KELVORA_E2E_SERVER", "")  # "xvfb" skips Xorg
        if server == "xvfb":
            reasons.append("Xorg not wanted (KELVORA_E2E_SERVER=xvfb)")
        elif os.geteuid() == 0 and xorg and os.path.exists(script):
            state = os.path.join(self.scratch, "xorg")
            result = subprocess.run([script, "start", state, config], capture_output=True,
                                    text=True, timeout=60)
            if result.returncode == 0:
                self.xorg_state = state
                with open(os.path.join(state, "display")) as f:
                    self.env["DISPLAY"] = f.read().strip()
                if self.display_answers():
                    self.log(f"Xorg with the dummy driver on {self.env['DISPLAY']}")
                    return "Xorg (dummy driver)"
                reasons.append("Xorg started but does not answer")
            else:
                reasons.append("Xorg: " + (result.stderr.strip().splitlines() or ["failed"])[-1])
        elif os.geteuid() != 0:
            reasons.append("Xorg with a private configuration needs root")
        if shutil.which("Xvfb"):
            read_end, write_end = os.pipe()
            self.spawn("Xvfb", ["Xvfb", "-displayfd", str(write_end), "-screen", "0",
                                "1024x768x24", "-nolisten", "tcp", "-noreset"],
                       pass_fds=(write_end,))
            os.close(write_end)
            number = read_line(read_end, 20)
            os.close(read_end)
            if number:
                self.env["DISPLAY"] = f":{number}"
                if self.display_answers():
                    self.log(f"Xvfb on {self.env['DISPLAY']}")
                    return "Xvfb"
            reasons.append("Xvfb did not start")
        else:
            reasons.append("no Xvfb")
        skip("no X server could be started (" + "; ".join(reasons) + ")")

    def start_window_manager(self):
        """A window manager gives the keyboard focus to the window that is shown or raised, as on
        any desktop; without one, the focus would stay on a closed message box's window."""
        if not shutil.which("openbox") or os.environ.get("KELVORA_E2E_WM") == "none":
            return None
        self.spawn("openbox", ["openbox", "--sm-disable"])
        end = time.monotonic() + 10
        while time.monotonic() < end:
            result = self.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], timeout=5) \
                if shutil.which("xprop") else None
            if result is None:
                time.sleep(1)
                break
            if "window id" in result.stdout:
                break
            time.sleep(0.1)
        self.window_manager = "openbox"
        self.log("window manager openbox")
        return "openbox"

    # D-Bus and the accessibility bus --------------------------------------------------------

    def start_session_bus(self):
        process = self.spawn("dbus-daemon", ["dbus-daemon", "--session", "--nofork",
                                             "--print-address=1"], stdout=subprocess.PIPE)
        address = read_line(process.stdout.fileno(), 10)
        if not address:
            skip("the D-Bus session bus did not start")
        self.env["DBUS_SESSION_BUS_ADDRESS"] = address
        self.log(f"session bus {address}")

    def bus_name_has_owner(self, name):
        result = self.run(["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus",
                           "/org/freedesktop/DBus", "org.freedesktop.DBus.NameHasOwner",
                           f"string:{name}"], timeout=5)
        return "boolean true" in result.stdout

    def start_accessibility_bus(self):
        launcher = next((p for p in ("/usr/libexec/at-spi-bus-launcher",
                                     "/usr/lib/at-spi2-core/at-spi-bus-launcher",
                                     "/usr/lib/at-spi2/at-spi-bus-launcher")
                         if os.access(p, os.X_OK)), None)
        if not launcher:
            skip("no at-spi-bus-launcher (package at-spi2-core)")
        self.spawn("at-spi-bus-launcher", [launcher, "--launch-immediately"])
        end = time.monotonic() + 15
        while not self.bus_name_has_owner("org.a11y.Bus"):
            if time.monotonic() > end:
                skip("the accessibility bus launcher did not register org.a11y.Bus")
            time.sleep(0.1)
        # What a desktop does when a screen reader runs: accessibility on for every toolkit.
        self.run(["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus",
                  "/org/a11y/bus", "org.freedesktop.DBus.Properties.Set",
                  "string:org.a11y.Status", "string:IsEnabled", "variant:boolean:true"])
        address = self.run(["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus",
                            "/org/a11y/bus", "org.a11y.Bus.GetAddress"]).stdout
        self.log("accessibility bus " + " ".join(address.split()[-1:]))

    def start_desktop(self):
        """X, the window manager and both buses, with this process's environment pointed at them
        (libatspi reads it when it first talks to the bus). Returns the display, the window
        manager, pyatspi and Atspi."""
        display = self.start_x()
        wm = self.start_window_manager()
        self.start_session_bus()
        self.start_accessibility_bus()
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "HOME", "XDG_RUNTIME_DIR"):
            os.environ[name] = self.env[name]
        os.environ.pop("AT_SPI_BUS_ADDRESS", None)
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        import pyatspi
        Atspi.set_timeout(5000, 20000)
        return display, wm, pyatspi, Atspi

    def stop(self):
        for name, process in reversed(self.processes):
            if process.poll() is None:
                try:
                    os.killpg(process.pid, signal.SIGTERM)
                except ProcessLookupError:
                    pass
                try:
                    process.wait(timeout=5)
                except subprocess.TimeoutExpired:
                    try:
                        os.killpg(process.pid, signal.SIGKILL)
                    except ProcessLookupError:
                        pass
                    process.wait(timeout=5)
            else:
                # The process itself is gone; helpers it left in its group go too.
                try:
                    os.killpg(process.pid, signal.SIGTERM)
                except (ProcessLookupError, PermissionError):
                    pass
        if self.xorg_state:
            subprocess.run([os.path.join(SOURCE_ROOT, "tests", "xorg-dummy.sh"), "stop",
                            self.xorg_state], capture_output=True, timeout=30)


# --------------------------------------------------------------------------------------------
# Reading the programme through AT-SPI and working it with the keyboard

class Node:
    """One accessible object read at one moment: role, name and states."""

    def __init__(self, acc, role, name, states):
        self.acc = acc
        self.role = role
        self.name = name
        self.states = states

    def __repr__(self):
        return f"{self.role} {self.name!r}"

    def has(self, *states):
        return all(s in self.states for s in states)

    def actions(self):
        try:
            action = self.acc.queryAction()
            return [action.getName(i) for i in range(action.nActions)]
        except Exception:
            return []

    def do(self, action_name):
        action = self.acc.queryAction()
        for i in range(action.nActions):
            if action.getName(i) == action_name:
                return action.doAction(i)
        raise Abort(f"{self!r} offers no action {action_name!r} (it offers {self.actions()})")

    def text(self):
        try:
            text = self.acc.queryText()
            return text.getText(0, -1)
        except Exception:
            return None

    def description(self):
        """What a screen reader says after the name and the role."""
        try:
            return self.acc.description or ""
        except Exception:
            return None


def describe(node):
    return "nothing" if node is None else f"{node.role} {node.name!r}"


class Ui:
    def __init__(self, pyatspi, atspi, session, process, checks):
        self.pyatspi = pyatspi
        self.atspi = atspi
        self.session = session
        self.process = process
        self.checks = checks
        self.app = None
        self.focus_fixes = 0
        self.snapshots = []

    # finding things -----------------------------------------------------------------------

    def node(self, acc):
        try:
            states = {self.pyatspi.stateToString(s) for s in acc.getState().getStates()}
            return Node(acc, acc.getRoleName(), acc.name or "", states)
        except Exception:
            return None

    def find_application(self, timeout=30):
        end = time.monotonic() + timeout
        while time.monotonic() < end:
            if self.process.poll() is not None:
                raise Abort(f"kelvora ended with status {self.process.returncode} before it "
                            "appeared on the accessibility bus")
            desktop = self.pyatspi.Registry.getDesktop(0)
            for i in range(desktop.childCount):
                try:
                    app = desktop.getChildAtIndex(i)
                    if app is not None and app.get_process_id() == self.process.pid:
                        # Read every property live: a cached state or name can lag behind.
                        app.set_cache_mask(self.atspi.Cache.NONE)
                        self.app = app
                        return app
                except Exception:
                    continue
            time.sleep(0.1)
        raise Abort("kelvora did not appear in the AT-SPI desktop tree")

    def children(self, acc):
        try:
            count = acc.childCount
        except Exception:
            return []
        kids = []
        for i in range(count):
            try:
                child = acc.getChildAtIndex(i)
            except Exception:
                child = None
            if child is not None:
                kids.append(child)
        return kids

    def walk(self, root, showing_only=True):
        """The shown descendants of root in reading order (hidden subtrees left out), or all of
        them. Reading a tree takes one D-Bus round trip per property, so the shown tree is read
        once and reused until the next key, action or wait."""
        acc = root.acc if isinstance(root, Node) else root
        if not showing_only:
            return list(self._walk(acc, False))
        for known, nodes in self.snapshots:
            if known is acc:
                return nodes
        nodes = list(self._walk(acc, True))
        self.snapshots.append((acc, nodes))
        return nodes

    def forget(self):
        self.snapshots = []

    def _walk(self, acc, showing_only):
        for child in self.children(acc):
            node = self.node(child)
            if node is None:
                continue
            if showing_only and "showing" not in node.states:
                continue
            yield node
            yield from self._walk(node.acc, showing_only)

    def children_nodes(self, node):
        return [n for n in (self.node(c) for c in self.children(node.acc)) if n is not None]

    def windows(self):
        result = []
        for child in self.children(self.app):
            node = self.node(child)
            if node is not None and node.has("visible"):
                result.append(node)
        return result

    def window(self, title, timeout=10, role=None):
        """Waits for a shown top-level window with exactly this caption."""
        found = self.wait(lambda: next((w for w in self.windows() if w.name == title and
                                        (role is None or w.role == role)), None), timeout)
        if found is None:
            shown = ", ".join(repr(w.name) for w in self.windows())
            raise Abort(f"no window {title!r} within {timeout} s (shown: {shown or 'none'})")
        return found

    def window_gone(self, title, timeout=5):
        return self.wait(lambda: all(w.name != title for w in self.windows()), timeout)

    def active_window(self):
        return next((w for w in self.windows() if w.has("active")), None)

    def all(self, root, role=None, name=None, showing_only=True, prefix=None):
        return [n for n in self.walk(root, showing_only)
                if (role is None or n.role == role) and (name is None or n.name == name) and
                (prefix is None or n.name.startswith(prefix))]

    def one(self, root, role, name, timeout=3):
        """The one shown control of this role and name, from the tree as last read if it is
        there, else waiting for it."""
        hits = self.all(root, role, name)
        if len(hits) == 1:
            return hits[0]
        found = self.wait(lambda: (lambda hits: hits[0] if len(hits) == 1 else None)(
            self.all(root, role, name)), timeout)
        if found is None:
            hits = self.all(root, role, name)
            raise Abort(f"expected one shown {role} {name!r}, found {len(hits)}")
        return found

    def focused(self, root=None):
        roots = [root] if root is not None else [w for w in self.windows() if w.has("active")]
        for r in roots:
            for n in self.walk(r):
                if n.has("focused") and n.role not in ("menu bar", "frame", "alert", "dialog"):
                    return n
        return None

    def wait(self, condition, timeout, interval=0.05):
        end = time.monotonic() + timeout
        while True:
            self.forget()
            if self.process.poll() is not None:
                raise Abort(f"kelvora ended unexpectedly with status {self.process.returncode}")
            try:
                value = condition()
            except Abort:
                raise
            except Exception:
                value = None
            if value:
                return value
            if time.monotonic() >= end:
                return None
            time.sleep(interval)

    # keys ----------------------------------------------------------------------------------

    def _focus_without_window_manager(self):
        """Without a window manager nobody gives the X input focus to a newly shown window; do
        what a window manager would do: focus the newest shown window of the programme."""
        if self.session.window_manager:
            return
        shown = self.windows()
        if not shown:
            return
        target = shown[-1].name
        current = self.session.run(["xdotool", "getwindowfocus", "getwindowname"]).stdout
        if current.rstrip("\n") == target:
            return
        ids = self.session.run(["xdotool", "search", "--onlyvisible", "--name",
                                caption_pattern(target)]).stdout.split()
        if ids:
            self.session.run(["xdotool", "windowfocus", "--sync", ids[-1]])
            self.focus_fixes += 1

    def key(self, *keys):
        self.forget()
        self._focus_without_window_manager()
        result = self.session.run(["xdotool", "key", "--delay", "40", *keys])
        if result.returncode != 0:
            raise Abort(f"xdotool key {' '.join(keys)} failed: {result.stderr.strip()}")
        time.sleep(0.08)
        self._focus_without_window_manager()  # the key may have closed a window
        self.forget()

    def type(self, text):
        self.forget()
        self._focus_without_window_manager()
        result = self.session.run(["xdotool", "type", "--delay", "60", text])
        if result.returncode != 0:
            raise Abort(f"xdotool type failed: {result.stderr.strip()}")
        time.sleep(0.08)
        self.forget()

    def tab_to(self, window, role, name, backwards=False, limit=30):
        """Moves the focus with Tab (or Shift+Tab) to the control; True when it got there."""
        passed = []
        for _ in range(limit):
            current = self.focused(window)
            if current is not None and current.role == role and current.name == name:
                return True
            passed.append(describe(current))
            self.key("shift+Tab" if backwards else "Tab")
        self.checks.check(False, f"Tab reaches {role} {name!r}",
                          "passed " + ", ".join(passed[:12]))
        return False


# --------------------------------------------------------------------------------------------
# The walk through the programme

class Run:
    def __init__(self, ui, checks, folder):
        self.ui = ui
        self.c = checks
        self.folder = folder
        self.points = (0, 0)

    # helpers ---------------------------------------------------------------------------------

    def settled(self, read, want, timeout=2.0):
        """What read() gives once it equals want, or its last value after the timeout."""
        value = self.ui.wait(lambda: (lambda v: v if v == want else None)(read()), timeout)
        return value if value is not None else read()

    def press_focused(self, window, role, name, done, what, key="Return"):
        """Presses the focused push button with Enter and checks that `done()` follows. When Enter
        does nothing, the failure is recorded and Space presses the button, so the run goes on."""
        ui = self.ui
        focus = ui.focused(window)
        if not (focus is not None and focus.role == role and focus.name == name):
            self.c.check(False, f"focus on {role} {name!r} before pressing it",
                         f"focus is on {describe(focus)}")
            if not ui.tab_to(window, role, name):
                raise Abort(f"cannot reach {name!r} with the keyboard")
        key_name = {"Return": "Return", "KP_Enter": "keypad Enter"}[key]
        ui.key(key)
        result = ui.wait(done, 1.5)
        self.c.check(bool(result), f"{key_name} presses the focused button {name!r} ({what})",
                     "nothing happened", cause="enter")
        if result:
            return result
        focus = ui.focused(window)
        if focus is None or focus.name != name:
            result = ui.wait(done, 2.0)
            if result:
                return result
            raise Abort(f"the focus left {name!r} and {what} did not happen")
        ui.key("space")
        result = ui.wait(done, 5.0)
        if not result:
            raise Abort(f"neither Enter nor Space pressed {name!r}")
        return result

    def expect_focus(self, window, role, name, what, cause=None, timeout=2.0):
        focus = self.ui.wait(lambda: (lambda f: f if f is not None and f.role == role and
                                      f.name == name else None)(self.ui.focused(window)),
                             timeout)
        if focus is None:
            focus = self.ui.focused(window)
        return self.c.check(focus is not None and focus.role == role and focus.name == name,
                            what, f"focus is on {describe(focus)}", cause)

    def check_names_readable(self, window, where):
        """Every control a screen reader stops at says what it is in words."""
        for n in self.ui.walk(window):
            if n.role in ("push button", "radio button", "check box", "text", "menu item"):
                self.c.check(re.search(r"[A-Za-zÄÖÜäöüß]", n.name) is not None,
                             f"{where}: {n.role} has a name in words", f"named {n.name!r}")

    def points_label(self, window):
        hits = [n for n in self.ui.walk(window)
                if n.role == "label" and re.fullmatch(r" \d+ von \d+", n.name)]
        return hits[0].name if len(hits) == 1 else f"<{len(hits)} points labels>"

    def feedback(self, window):
        return [n for n in self.ui.walk(window)
                if n.role == "label" and n.name.startswith(VERDICT_OPENINGS)]

    def question_picture(self, window):
        hits = [n for n in self.ui.walk(window)
                if n.role == "label" and re.match(r"\d+\. ", n.name)]
        return hits[0].name if len(hits) == 1 else f"<{len(hits)} question pictures>"

    def pace_note_shown(self, window):
        return any(n.name.startswith(PACE_NOTE_OPENING) for n in self.ui.walk(window))

    def answer(self, window, page, question, letter, typed, counts, hasty=False):
        """Types one letter into the answer field and checks field, verdict, points, buttons.
        hasty: the letter comes within the question's reading time, so the pace note shows."""
        ui = self.ui
        field = ui.one(window, "text", "Antwort")
        self.c.check(field.has("focused"), f"answer field focused before typing {typed!r}",
                     f"focus is on {describe(ui.focused(window))}")
        typed_at = time.monotonic()
        ui.type(typed)
        expected = FEEDBACK[(page, question, letter)]
        shown = ui.wait(lambda: (lambda f: f if len(f) == 1 else None)(self.feedback(window)), 3)
        if hasty:
            self.check_pace_note(window, typed_at)
        self.c.check(shown is not None and shown[0].name.startswith(expected),
                     f"page {page} question {question}, {typed!r}: verdict picture read",
                     f"read {[n.name for n in shown or self.feedback(window)]!r}, want it to "
                     f"begin {expected!r}")
        self.c.equal(ui.one(window, "text", "Antwort").text(), letter,
                     f"answer field holds the capital letter after {typed!r}")
        self.points = counts
        want = f" {counts[0]} von {counts[1]}"
        self.c.equal(ui.wait(lambda: (lambda p: p if p == want else None)(
            self.points_label(window)), 2) or self.points_label(window), want,
            f"points read after {typed!r}")
        right = expected.startswith("Richtig!")
        step = "Nächste Frage" if right else "Aufgabe wiederholen"
        other = "Aufgabe wiederholen" if right else "Nächste Frage"
        self.expect_focus(window, "push button", step,
                          f"focus on {step!r} after the verdict")
        self.c.check(ui.one(window, "push button", step).has("sensitive", "enabled"),
                     f"{step!r} is usable after the verdict")
        self.c.check(not ui.one(window, "push button", other).has("sensitive"),
                     f"{other!r} is unavailable after the verdict")
        return typed_at

    def check_pace_note(self, window, typed_at):
        """A verdict within the question's reading time brings the pace note for 5 s, and the
        page buttons are unavailable while it shows. Read in one pass of the tree, well inside
        the 5 s, so that the note's own timer cannot fall between the readings."""
        note = self.pace_note_shown(window)
        usable = {name: self.ui.one(window, "push button", name).has("sensitive")
                  for name in ("Eine Seite zurück", "Eine Seite weiter", "Beenden")}
        if time.monotonic() - typed_at > 4.0:
            self.c.info("the verdict came too late to read the pace note safely; not checked")
            return
        self.c.check(note, "pace note read after a hasty answer")
        for name, on in usable.items():
            self.c.check(not on, f"{name!r} unavailable while the pace note shows")

    def wait_page_buttons(self, window):
        """The pace note goes within 5 s and gives the page buttons back."""
        ok = self.ui.wait(lambda: not self.pace_note_shown(window) and all(
            self.ui.one(window, "push button", n).has("sensitive")
            for n in ("Eine Seite zurück", "Eine Seite weiter", "Beenden")), 7)
        self.c.check(bool(ok), "pace note gone and page buttons usable again within 5 s")

    def next_page(self, window, page, key="Return"):
        """">>" by keyboard; returns the next page's window."""
        ui = self.ui
        self.wait_page_buttons(window)
        ui.tab_to(window, "push button", "Eine Seite weiter",
                  backwards=ui.focused(window) is not None and
                  ui.focused(window).name == "Beenden")
        title = page_caption(page + 1)
        return self.press_focused(
            window, "push button", "Eine Seite weiter",
            lambda: next((w for w in ui.windows() if w.name == title), None),
            f"page {page + 1} opens", key=key)

    def open_overview(self, window, page):
        """Ansicht > Wo bin ich? by keyboard; returns the panel."""
        ui = self.ui
        ui.key("alt+a")
        menu = ui.wait(lambda: next((n for n in ui.walk(window) if n.role == "popup menu"), None),
                       3)
        if not self.c.check(menu is not None, "Alt+A opens the menu Ansicht"):
            raise Abort("the menu Ansicht did not open")
        entries = [n.name for n in ui.walk(menu) if n.role == "menu item"]
        want = ["Erklärung Steuerbuttons", "Punktanzeige", "Wo bin ich?"] if page <= 10 else \
            ["Erklärung Steuerbuttons", "Wo bin ich?"]
        self.c.equal(entries, want, "entries of the menu Ansicht")
        if page <= 10:
            punkte = next((n for n in ui.walk(menu) if n.name == "Punktanzeige"), None)
            self.c.check(punkte is not None and punkte.has("checked"),
                         "Punktanzeige is read as checked")
        ui.key("w")
        panel = ui.wait(lambda: next((n for n in ui.walk(window)
                                      if n.role == "panel" and n.name == "Wo bin ich?"), None), 3)
        if not self.c.check(panel is not None, "W opens the overview \"Wo bin ich?\""):
            raise Abort("the overview did not open")
        lines = [n.name for n in ui.walk(panel) if n.role == "push button"]
        self.c.equal(lines, OVERVIEW_LINES + ["Schließen"],
                     "overview lines and its close button, in reading order")
        self.c.check(any(n.role == "label" and n.name ==
                         "(Durch Anklicken einer Zeile kannst du dorthin springen.)"
                         for n in ui.walk(panel)), "overview note read")
        self.expect_focus(window, "push button", "Schließen",
                          "overview opens with the focus on \"Schließen\"", cause="overview-focus")
        return panel

    def reload_from_overview(self, window, page, points):
        """Enter right after opening the overview only closes it; the line of this page then loads
        the page afresh at its question 1 with `points` and no verdict. Returns the window."""
        ui = self.ui

        def overview_open():
            return any(n.name == "Wo bin ich?" for n in ui.walk(window))

        def seen():
            return (self.question_picture(window), self.points_label(window),
                    [n.name for n in self.feedback(window)])
        before = seen()
        self.open_overview(window, page)
        ui.key("Return")
        self.c.check(bool(ui.wait(lambda: not overview_open(), 2)),
                     "Enter right after opening the overview closes it")
        self.c.equal(seen(), before, f"question, points and verdict of page {page} kept")
        self.open_overview(window, page)
        line = OVERVIEW_LINES[page - 1]
        if not ui.tab_to(window, "push button", line):
            raise Abort(f"cannot reach the overview line {line!r}")
        ui.key("Return")
        want = f" {points[0]} von {points[1]}"
        window = ui.wait(lambda: next((w for w in ui.windows() if w.name == page_caption(page)),
                                      None), 3) or window
        fresh = ui.wait(lambda: not overview_open() and self.feedback(window) == [] and
                        self.points_label(window) == want and
                        self.question_picture(window).startswith(FIRST_QUESTION[page]), 3)
        self.c.check(bool(fresh), f"{line!r} loads page {page} afresh: question 1, {want!r}",
                     f"read {seen()!r}")
        self.expect_focus(window, "text", "Antwort", "answer field focused on the page afresh")
        return window

    def overview(self, window, page):
        """The overview, closed with Escape."""
        ui = self.ui
        self.open_overview(window, page)
        ui.key("Escape")
        closed = ui.wait(lambda: not any(n.name == "Wo bin ich?" for n in ui.walk(window)), 2)
        self.c.check(bool(closed), "Escape closes the overview", "it stays open",
                     cause="escape")
        if not closed:
            ui.tab_to(window, "push button", "Schließen")
            ui.key("space")
            if not ui.wait(lambda: not any(n.name == "Wo bin ich?" for n in ui.walk(window)), 3):
                raise Abort("the overview does not close with its button \"Schließen\"")

    def exit_frame(self, window):
        """The end button opens "Wie möchtest du beenden?"; Escape closes it again."""
        ui = self.ui
        self.wait_page_buttons(window)
        ui.tab_to(window, "push button", "Beenden")
        panel = self.press_focused(
            window, "push button", "Beenden",
            lambda: next((n for n in ui.walk(window)
                          if n.role == "panel" and n.name == "Wie möchtest du beenden?"), None),
            "the exit frame opens")
        buttons = [n.name for n in ui.walk(panel) if n.role == "push button"]
        self.c.equal(buttons, ["Ich möchte beim nächsten Programmstart hier weiterarbeiten",
                               "Ich möchte beim nächsten Programmstart von vorn beginnen",
                               "Ich möchte nicht beenden"], "exit frame buttons in reading order")
        self.c.check(any(n.role == "label" and n.name ==
                         "Ich möchte beim nächsten Programmstart ..." for n in ui.walk(panel)),
                     "exit frame heading read")
        self.expect_focus(window, "push button", "Ich möchte nicht beenden",
                          "exit frame opens with the focus on \"Ich möchte nicht beenden\"",
                          cause="exit-focus")
        ui.key("Escape")

        def frame_gone():
            return not any(n.name == "Wie möchtest du beenden?" for n in ui.walk(window))
        closed = ui.wait(frame_gone, 2)
        self.c.check(bool(closed), "Escape closes the exit frame", "it stays open",
                     cause="escape")
        if not closed:
            # Never Enter or Space on "... hier weiterarbeiten": that would end the programme.
            if not ui.tab_to(window, "push button", "Ich möchte nicht beenden"):
                raise Abort("cannot reach \"Ich möchte nicht beenden\"")
            ui.key("space")
            if not ui.wait(frame_gone, 3):
                raise Abort("the exit frame does not close")
        self.c.check(self.ui.process.poll() is None, "the programme still runs after the exit "
                     "frame was closed")
        self.c.check(not os.path.exists(os.path.join(self.folder, "StartQelB.txt")),
                     "closing the exit frame writes no start-position file")

    # the course ----------------------------------------------------------------------------

    def start(self):
        ui = self.ui
        self.c.section("start screen")
        app = ui.find_application()
        self.c.equal(app.name, "Kelvora", "application name")
        try:
            self.c.info(f"toolkit {app.get_toolkit_name()} {app.get_toolkit_version()}, "
                        f"process {app.get_process_id()}")
        except Exception:
            pass
        window = ui.window(START_CAPTION, timeout=20)
        self.c.equal(window.role, "frame", "start screen role")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == START_CAPTION, 5),
                     "start screen is the active window")
        labels = [n.name for n in ui.walk(window) if n.role == "label"]
        self.c.check("Ein Lernprogramm zum selbständigen Lernen und Üben" in labels,
                     "start screen subtitle read", f"labels {labels!r}")
        self.expect_focus(window, "push button", "Weiter", "focus on \"Weiter\" at start")
        return self.press_focused(window, "push button", "Weiter",
                                  lambda: next((w for w in ui.windows()
                                                if w.name == CONTROL_CENTRE_CAPTION), None),
                                  "the control centre opens")

    def control_centre(self, window):
        ui = self.ui
        self.c.section("control centre")
        self.c.check(ui.window_gone(START_CAPTION), "start screen closed")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == CONTROL_CENTRE_CAPTION, 5),
                     "control centre is the active window")
        topics = [n for n in ui.walk(window) if n.role == "radio button"]
        self.c.equal([n.name for n in topics], CONTROL_CENTRE_TOPICS,
                     "topics read as radio buttons, in order")
        self.c.check(not any(n.has("checked") for n in topics), "no topic is selected on arrival")
        self.c.check(any(n.role == "label" and n.name == "Wo möchtest du starten?"
                         for n in ui.walk(window)), "question \"Wo möchtest du starten?\" read")
        self.check_names_readable(window, "control centre")
        self.expect_focus(window, "push button", "Lernprogramm-Start",
                          "focus on \"Lernprogramm-Start\" on arrival")
        return self.press_focused(window, "push button", "Lernprogramm-Start",
                                  lambda: next((w for w in ui.windows()
                                                if w.name == page_caption(1)), None),
                                  "page 1 opens")

    def arrive(self, window, page, points):
        ui = self.ui
        self.c.section(f"page {page}")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == page_caption(page), 5),
                     f"page {page} is the active window",
                     f"active: {describe(ui.active_window())}")
        pages = [w.name for w in ui.windows() if re.fullmatch(r"Kelvora – Seite \d+", w.name)]
        self.c.equal(pages, [page_caption(page)], "exactly this page's window is shown")
        self.expect_focus(window, "text", "Antwort", "answer field focused on arrival")
        self.c.check(self.question_picture(window).startswith(FIRST_QUESTION[page]),
                     f"first question of page {page} read",
                     f"read {self.question_picture(window)!r}")
        want = f" {points[0]} von {points[1]}"
        self.c.equal(self.points_label(window), want, "points read on arrival")
        self.c.check(self.feedback(window) == [], "no verdict on arrival")
        names = [n.name for n in ui.walk(window) if n.role == "push button"]
        self.c.equal(names, ["Eine Seite zurück", "Nächste Frage", "Aufgabe wiederholen",
                             "Eine Seite weiter", "Beenden"],
                     "page buttons read by their function, in reading order")
        for name in ("Nächste Frage", "Aufgabe wiederholen"):
            self.c.check(not ui.one(window, "push button", name).has("sensitive"),
                         f"{name!r} unavailable before an answer")
        menus = [n.name for n in ui.walk(window) if n.role == "menu item"]
        self.c.equal(menus, ["Ansicht", "Info"], "menu bar entries")
        self.check_names_readable(window, f"page {page}")

    def page1(self, window):
        ui = self.ui
        self.arrive(window, 1, (0, 0))
        # Tab goes round in reading order; the step buttons are off before an answer.
        order = []
        for _ in range(4):
            ui.key("Tab")
            order.append(describe(ui.focused(window)))
        self.c.equal(order, ["push button 'Eine Seite zurück'",
                             "push button 'Eine Seite weiter'", "push button 'Beenden'",
                             "text 'Antwort'"], "Tab goes round page 1 in reading order")
        self.c.check(any(n.role == "label" and n.name ==
                         " Antworte mit A, B oder C; du kannst auch a, b oder c eingeben."
                         for n in ui.walk(window)), "answer instruction read")

        self.answer(window, 1, 1, "A", "a", (0, 1), hasty=True)
        window = self.reload_from_overview(window, 1, (0, 0))
        self.answer(window, 1, 1, "A", "a", (0, 1))
        repeat = "Aufgabe wiederholen"
        self.press_focused(window, "push button", repeat,
                           lambda: self.feedback(window) == [] and
                           ui.one(window, "text", "Antwort").has("focused"),
                           "the verdict goes and the answer field takes the focus")
        self.c.equal(ui.one(window, "text", "Antwort").text(), "", "answer field emptied")
        self.c.check(not ui.one(window, "push button", repeat).has("sensitive"),
                     f"{repeat!r} unavailable again")

        self.answer(window, 1, 1, "B", "B", (0, 2))
        self.press_focused(window, "push button", repeat,
                           lambda: self.feedback(window) == [], "the verdict goes", key="KP_Enter")

        ui.type("x")
        time.sleep(0.5)  # no event tells that the key was taken; give it time to be removed
        self.c.equal(ui.one(window, "text", "Antwort").text(), "",
                     "a letter other than A, B, C is removed")
        self.c.check(self.feedback(window) == [], "no verdict for \"x\"")
        self.c.equal(self.points_label(window), " 0 von 2", "\"x\" is not counted")

        self.answer(window, 1, 1, "C", "c", (1, 3))
        self.press_focused(window, "push button", "Nächste Frage",
                           lambda: self.question_picture(window).startswith("2. Wie sind "
                                                                            "Elektronen geladen?"),
                           "question 2 shows")
        self.expect_focus(window, "text", "Antwort", "answer field focused for question 2")
        self.c.check(not ui.one(window, "push button", "Nächste Frage").has("sensitive"),
                     "\"Nächste Frage\" unavailable for the new question")

        self.answer(window, 1, 2, "B", "b", (2, 4))
        self.press_focused(window, "push button", "Nächste Frage",
                           lambda: self.question_picture(window).startswith("3. Welche "
                                                                            "Ladungsträger"),
                           "question 3 shows")
        self.answer(window, 1, 3, "A", "a", (3, 5))

        self.overview(window, 1)
        self.expect_focus(window, "push button", "Nächste Frage",
                          "focus back on \"Nächste Frage\" after the overview")
        self.exit_frame(window)
        self.expect_focus(window, "push button", "Beenden",
                          "focus back on \"Beenden\" after the exit frame")
        self.c.equal(self.points_label(window), " 3 von 5", "points unchanged by the panels")
        return self.next_page(window, 1)

    def page2(self, window):
        ui = self.ui
        self.arrive(window, 2, (3, 5))
        self.answer(window, 2, 1, "C", "c", (4, 6), hasty=True)
        self.press_focused(window, "push button", "Nächste Frage",
                           lambda: self.question_picture(window).startswith("7. Welche "
                                                                            "Ladungsträger"),
                           "question 7 shows")

        # An information screen over the page: Info > Arbeitsweise, closed with Escape.
        ui.key("alt+i")
        if ui.wait(lambda: any(n.role == "popup menu" for n in ui.walk(window)), 3):
            ui.key("a")
        info = ui.window(WORKING_METHOD_CAPTION, timeout=5)
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == WORKING_METHOD_CAPTION, 5),
                     "information screen \"Arbeitsweise\" is the active window")
        self.expect_focus(info, "push button", "Schließen",
                          "information screen opens with the focus on \"Schließen\"")
        ui.key("Escape")
        closed = ui.window_gone(WORKING_METHOD_CAPTION, 2)
        self.c.check(bool(closed), "Escape closes the information screen", "it stays open",
                     cause="escape")
        if not closed:
            ui.key("Return")  # its close button is the window's default button
            if not ui.window_gone(WORKING_METHOD_CAPTION, 3):
                raise Abort("the information screen does not close")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == page_caption(2), 5),
                     "page 2 is active again after the information screen")
        self.expect_focus(window, "text", "Antwort",
                          "answer field focused again after the information screen")
        self.display_mode(window)
        return self.next_page(window, 2, key="KP_Enter")

    def display_mode(self, window):
        """Info > Bildschirmauflösung ändern: the current mode is chosen and there is nothing to
        change to; Escape closes the screen."""
        ui = self.ui
        ui.key("alt+i")
        if ui.wait(lambda: any(n.role == "popup menu" for n in ui.walk(window)), 3):
            ui.key("b")
        screen = ui.window(DISPLAY_MODE_CAPTION, timeout=5)
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == DISPLAY_MODE_CAPTION, 5),
                     "display-mode screen is the active window")
        self.expect_focus(screen, "list", "Bildschirmauflösung",
                          "display-mode screen opens with the focus on its list")
        size = " x ".join(self.ui.session.run(["xdotool", "getdisplaygeometry"]).stdout.split())
        chosen = [n.name for n in ui.walk(screen) if n.role == "list item" and n.has("selected")]
        self.c.equal(chosen, [size], "the current display mode is read as selected")
        change = ui.one(screen, "push button", "Auflösung ändern")
        self.c.check(not change.has("sensitive"), "\"Auflösung ändern\" unavailable on opening")
        self.c.equal([n.name for n in ui.walk(screen) if n.role == "push button"],
                     ["Auflösung ändern", "Schließen"], "display-mode screen buttons")
        ui.key("Escape")
        closed = ui.window_gone(DISPLAY_MODE_CAPTION, 2)
        self.c.check(bool(closed), "Escape closes the display-mode screen", "it stays open",
                     cause="escape")
        if not closed:
            ui.tab_to(screen, "push button", "Schließen")
            ui.key("space")
            if not ui.window_gone(DISPLAY_MODE_CAPTION, 3):
                raise Abort("the display-mode screen does not close")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == page_caption(2), 5),
                     "page 2 is active again after the display-mode screen")
        self.expect_focus(window, "text", "Antwort",
                          "answer field focused again after the display-mode screen")

    def later_pages(self, window):
        for page in range(3, 11):
            self.arrive(window, page, (4, 6))
            if page == 3:
                self.overview(window, 3)
                self.expect_focus(window, "text", "Antwort",
                                  "focus back in the empty answer field after the overview")
            window = self.next_page(window, page, key="KP_Enter" if page % 2 else "Return")
        return window

    # the final test --------------------------------------------------------------------------

    def test_panel(self, window, question):
        frame = TEST_QUESTIONS[question][0]
        return next((n for n in self.ui.walk(window)
                     if n.role == "panel" and n.name.startswith(frame + ": ")), None)

    def questions_shown(self, window):
        return [n.name.split(":")[0] for n in self.ui.walk(window) if n.role == "panel" and
                n.name.startswith("Aufgabe ")]

    def option_rows(self, panel):
        """The options of a question with the verdict label read after each."""
        rows = []
        for child in self.ui.children(panel.acc):
            node = self.ui.node(child)
            if node is None:
                continue
            if node.role == "radio button":
                rows.append([node, None])
            elif node.role == "label" and rows and node.name in ("Richtig", "Falsch"):
                rows[-1][1] = node
        return rows

    def scores(self, window):
        """The score panel as read: question, last click's points of tries, total of clicks."""
        labels = [n.name for n in self.ui.walk(window) if n.role == "label"]
        try:
            a = labels.index("Aufgabe")
            p = labels.index("Punkte:")
            g = labels.index("Gesamtpunkte:")
            return (labels[a + 1], labels[p + 1] + " von " + labels[p + 3],
                    labels[g + 1] + " von " + labels[g + 3])
        except (ValueError, IndexError):
            return ("?", "?", "?")

    def final_test(self, window):
        ui = self.ui
        self.c.section("page 11, final test")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == page_caption(11), 5),
                     "page 11 is the active window")
        self.c.check(any(n.role == "label" and n.name == "Abschlusstest"
                         for n in ui.walk(window)), "title \"Abschlusstest\" read")
        buttons = [n.name for n in ui.walk(window) if n.role == "push button"]
        self.c.equal(buttons, ["Zurück zu Seite 10", "Test neu beginnen", "Zensierung",
                               "Weiter zur Schlussseite", "Beenden"],
                     "page 11 buttons read by their function")
        for name in ("Test neu beginnen", "Zensierung", "Weiter zur Schlussseite"):
            self.c.check(not ui.one(window, "push button", name).has("sensitive"),
                         f"{name!r} unavailable before the test")
        self.c.check(not ui.all(window, "push button", "Ausdrucken und Lernprogramm beenden"),
                     "print button hidden before the test")
        self.c.equal(self.scores(window), ("1", "0 von 0", "0 von 0"), "score panel at start")
        self.c.equal(self.questions_shown(window), ["Aufgabe 1"],
                     "only question 1 is shown at start")
        self.check_names_readable(window, "page 11")

        correct = answered = tries = 0
        solved_state_recorded = False
        for number, (question, option) in enumerate(TEST_CLICKS):
            frame, text, options, right_set = TEST_QUESTIONS[question]
            panel = ui.wait(lambda: self.test_panel(window, question), 8 if question == 5 else 3)
            if question == 5 and number and TEST_CLICKS[number - 1][0] == 4:
                waited = time.monotonic() - self.half_change_from
                self.c.check(waited >= 2.5, "second half comes after the 3 s pause",
                             f"it came after {waited:.1f} s")
                # The tree is read one property at a time, so wait for a reading that shows the
                # change complete rather than one taken while the timer fired.
                self.c.equal(self.settled(lambda: self.questions_shown(window), ["Aufgabe 6"]),
                             ["Aufgabe 6"], "only question 6 is shown in the second half")
            if panel is None:
                raise Abort(f"question {frame!r} is not shown")
            labels = [n.name for n in ui.walk(panel) if n.role == "label" and
                      n.name not in ("Richtig", "Falsch", frame)]
            self.c.equal(labels[:1], [question_on_screen(text)], f"{frame}: question read")
            self.c.equal(panel.name, f"{frame}: {question_on_screen(text)}",
                         f"{frame}: its options are read with the question")
            rows = self.option_rows(panel)
            self.c.equal([r[0].name for r in rows], options, f"{frame}: options read by their text")
            row = next(r for r in rows if r[0].name == option)
            right = is_right(question, option)
            if number == 0:
                self.c.check(row[0].has("sensitive", "enabled"), "options usable at start")
                self.c.check(not any(r[0].has("checked") for r in rows),
                             "no option selected at start")
            tries += 1
            answered += 1
            correct += right
            last = 1 if right else 0
            if right and question == 4:
                self.half_change_from = time.monotonic()
            if question == 9 and right:
                self.test_finished_from = datetime.datetime.now()
            row[0].do("Toggle")
            ui.forget()

            verdict = "Richtig" if right else "Falsch"

            def verdict_read():
                rows_now = self.option_rows(panel)
                r = next((r for r in rows_now if r[0].name == option), None)
                return r if r and r[1] is not None and r[1].has("showing") else None
            seen = ui.wait(verdict_read, 3)
            self.c.check(seen is not None and seen[1].name == verdict,
                         f"{frame}: {option!r} gives {verdict!r} beside it",
                         f"read {describe(seen[1]) if seen else 'no verdict'}")
            want = (str(question + 1), f"{last} von {tries}", f"{correct} von {answered}")
            self.c.equal(ui.wait(lambda: (lambda s: s if s == want else None)(
                self.scores(window)), 2) or self.scores(window), want,
                f"{frame}: score panel after {option!r}")
            if question == 9 and right:
                self.test_finished_to = datetime.datetime.now()
            if not right:
                self.c.equal(row[0].description(), "Falsch",
                             f"{frame}: {option!r} is described by its verdict")
                continue
            tries = 0

            # The solved question: it can no longer be clicked; what a screen reader is told.
            solved = ui.wait(lambda: (lambda p: p if p is not None and
                                      not p.has("sensitive") else None)(
                self.test_panel(window, question)), 3)
            self.c.check(solved is not None, f"{frame}: solved question is closed")
            if solved is not None:
                rows = self.option_rows(solved)
                chosen = next(r for r in rows if r[0].name == option)
                self.c.check(chosen[0].has("checked"), f"{frame}: the right option is read as "
                             "checked")
                others = [r for r in rows if r[0].name != option]
                self.c.check(all("Toggle" not in r[0].actions() for r in others),
                             f"{frame}: solved options offer no click",
                             f"actions {[r[0].actions() for r in others]}")
                # Solved is said, not only shown: the question and each option are described so.
                clicked = [o for q, o in TEST_CLICKS if q == question]
                self.c.equal(solved.description(), "Aufgabe gelöst",
                             f"{frame}: read as solved")
                want = [("Richtig, " if o == option else "Falsch, " if o in clicked else "") +
                        "Aufgabe gelöst" for o in options]
                self.c.equal([r[0].description() for r in rows], want,
                             f"{frame}: options described as solved, clicked ones with their "
                             "verdict")
                markers = [n.name for n in ui.children_nodes(solved) if n.role == "label" and
                           n.has("showing") and n.name not in ("Richtig", "Falsch") and
                           not n.name.startswith(question_on_screen(text)[:12])]
                self.c.equal(markers, ["angeklickt"] * len(clicked),
                             f"{frame}: the marks beside clicked options read \"angeklickt\"")
                if not solved_state_recorded:
                    solved_state_recorded = True
                    self.c.info(f"solved {frame}: panel states {sorted(solved.states)}, option "
                                f"states {sorted(chosen[0].states)}")
            if question == 0:
                self.c.check(ui.wait(lambda: ui.one(window, "push button", "Test neu beginnen")
                                     .has("sensitive"), 2),
                             "\"Test neu beginnen\" usable after question 1")
            if question < 9 and question != 4:
                nxt = ui.wait(lambda: self.test_panel(window, question + 1), 3)
                self.c.check(nxt is not None, f"question {question + 2} shown after {frame}")

        # The test is finished.
        self.c.check(ui.wait(lambda: ui.one(window, "push button", "Zensierung").has("sensitive"),
                             3), "\"Zensierung\" usable after question 10")
        for name in ("Weiter zur Schlussseite", "Test neu beginnen"):
            self.c.check(ui.one(window, "push button", name).has("sensitive"),
                         f"{name!r} usable after question 10")
        self.c.check(bool(ui.all(window, "push button", "Ausdrucken und Lernprogramm beenden")),
                     "print button shown after question 10")
        self.c.check(not any(n.name.startswith("Überlege und klicke") for n in ui.walk(window)),
                     "instruction hidden after question 10")
        self.expect_focus(window, "push button", "Zensierung",
                          "focus on \"Zensierung\" after question 10")
        self.correct, self.answered = correct, answered
        self.check_result_file(final=False)

        # Grading: the question box is answered "Ja" with its mnemonic; the grade scale shows the
        # default scale and Escape closes it and grades, as its own button does.
        def question_box():
            return next((w for w in ui.windows() if w.name == "Punktetabelle für Zensierung"),
                        None)
        box = self.press_focused(window, "push button", "Zensierung", question_box,
                                 "the grading question opens")
        self.c.equal(box.role, "alert", "grading question read as an alert")
        self.c.check(any(n.role == "label" and n.name == "Punkttabelle anzeigen bzw. ändern?"
                         for n in ui.walk(box)), "grading question text read")
        self.c.equal([n.name for n in ui.walk(box) if n.role == "push button"], ["Ja", "Nein"],
                     "grading question buttons")
        self.expect_focus(box, "push button", "Nein", "\"Nein\" focused in the grading question")
        nein = ui.one(box, "push button", "Nein")
        self.c.check(nein.has("is default"), "\"Nein\" read as the default button")
        ui.key("j")
        self.c.check(ui.wait(lambda: question_box() is None, 3), "J answers \"Ja\"")
        self.grade_scale()
        grade = grade_text(correct, answered)
        shown = ui.wait(lambda: next((n for n in ui.walk(window)
                                      if n.role == "label" and n.name.startswith("Zensur:")),
                                     None), 3)
        self.grade_to = datetime.datetime.now()
        self.c.check(shown is not None and shown.name == grade, f"grade {grade!r} read on page 11",
                     f"read {describe(shown)}")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == page_caption(11), 5),
                     "page 11 active again after the grade scale")
        self.expect_focus(window, "push button", "Weiter zur Schlussseite",
                          "focus on \"Weiter zur Schlussseite\" after grading")
        self.check_grade_file(grade)

        return self.press_focused(window, "push button", "Weiter zur Schlussseite",
                                  lambda: next((w for w in ui.windows() if w.name ==
                                                END_PAGE_CAPTION), None),
                                  "the end page opens")

    def grade_scale(self):
        """The grade scale as a screen reader reads it, closed with Escape, which grades."""
        ui = self.ui
        screen = ui.window(GRADE_SCALE_CAPTION, timeout=5)
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == GRADE_SCALE_CAPTION, 5),
                     "grade scale is the active window")
        fields = [(n.name, n.text()) for n in ui.walk(screen) if n.role == "text"]
        self.c.equal(fields, [(f"Mindest-Prozentsatz für die Zensur {5 - i}:", str(minimum))
                              for i, minimum in enumerate(DEFAULT_GRADE_SCALE)],
                     "grade scale fields named by their grade, holding the default scale")
        self.c.equal([n.name for n in ui.walk(screen) if n.role == "push button"],
                     [f"OK, Zensur {5 - i}" for i in range(5)] +
                     ["Zensurentabelle ändern", "Zensieren"], "grade scale buttons")
        self.expect_focus(screen, "text", "Mindest-Prozentsatz für die Zensur 5:",
                          "grade scale opens with the focus on its first field")
        self.grade_from = datetime.datetime.now()
        ui.key("Escape")
        closed = ui.window_gone(GRADE_SCALE_CAPTION, 2)
        self.c.check(bool(closed), "Escape closes the grade scale", "it stays open",
                     cause="escape")
        if not closed:
            ui.tab_to(screen, "push button", "Zensieren")
            ui.key("space")
            if not ui.window_gone(GRADE_SCALE_CAPTION, 3):
                raise Abort("the grade scale does not close")

    def end_page(self, window):
        ui = self.ui
        self.c.section("end page")
        self.c.check(ui.window_gone(page_caption(11)), "page 11 closed")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == END_PAGE_CAPTION, 5),
                     "end page is the active window")
        self.c.equal([n.name for n in ui.walk(window) if n.role == "push button"],
                     ["Zurück", "Ende"], "end page buttons")
        ui.tab_to(window, "push button", "Ende")

        def end_box():
            return next((w for w in ui.windows() if w.name == "Ende?"), None)
        box = self.press_focused(window, "push button", "Ende", end_box, "the question opens")
        self.c.equal(box.role, "alert", "end question read as an alert")
        self.c.check(any(n.role == "label" and n.name ==
                         "Möchtest du wirklich die gesamte Arbeit beenden?"
                         for n in ui.walk(box)), "end question text read")
        self.expect_focus(box, "push button", "Nein", "\"Nein\" focused in the end question")
        # Enter without moving the focus answers the default "Nein": the end page stays.
        ui.key("Return")
        self.c.check(ui.wait(lambda: end_box() is None, 3), "Enter answers the default \"Nein\"")
        time.sleep(0.3)
        self.c.check(ui.process.poll() is None, "the programme still runs after \"Nein\"")
        self.c.check(not os.path.exists(os.path.join(self.folder, "StartQelB.txt")),
                     "\"Nein\" writes no start-position file")
        self.c.check(ui.wait(lambda: ui.active_window() is not None and
                             ui.active_window().name == END_PAGE_CAPTION, 5),
                     "end page active again")
        self.expect_focus(window, "push button", "Ende", "focus back on \"Ende\"")

        box = self.press_focused(window, "push button", "Ende", end_box, "the question opens")
        ui.key("j")
        try:
            status = ui.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            status = None
        self.c.check(status == 0, "J answers \"Ja\" and the programme ends with status 0",
                     f"status {status}")

    # the files ---------------------------------------------------------------------------------

    def read(self, name):
        try:
            with open(os.path.join(self.folder, name), "rb") as f:
                return f.read()
        except OSError as e:
            return e

    def compare_with_date(self, name, body_lines, first, last, what):
        actual = self.read(name)
        if isinstance(actual, Exception):
            return self.c.check(False, what, f"{name}: {actual}")
        body = encode_lines(body_lines)
        candidates = date_lines_between(first, last)
        wanted = [body + line.encode("cp1252") + b"\r\n" for line in candidates]
        if actual in wanted:
            return self.c.check(True, what)
        got = actual.split(b"\r\n")
        want = wanted[0].split(b"\r\n")
        for i, (g, w) in enumerate(zip(got, want)):
            if g != w and i != len(want) - 2:
                return self.c.check(False, what, f"{name} line {i + 1} is {g!r}, want {w!r}")
        if len(got) != len(want):
            return self.c.check(False, what, f"{name} has {len(got) - 1} lines, want "
                                f"{len(want) - 1}; last line {got[-2:]!r}")
        return self.c.check(False, what, f"{name} date line {got[-2]!r}, want one of "
                            f"{candidates[0]!r} .. {candidates[-1]!r}")

    def check_result_file(self, final):
        lines, correct, answered = expected_result_lines(TEST_CLICKS)
        self.compare_with_date("TestergebnisQel.doc", lines, self.test_finished_from,
                               self.test_finished_to,
                               "TestergebnisQel.doc holds the log of the clicks" +
                               (" at the end" if final else " after question 10"))

    def check_grade_file(self, grade):
        heading = next_print_zone("Programm Kelvora:") + grade
        self.compare_with_date("ZensurQel.txt", [heading, ""], self.grade_from, self.grade_to,
                               "ZensurQel.txt holds the grade and the date")

    def check_files(self):
        self.c.section("files")
        self.c.equal(self.read("StartQelB.txt"), b'"50"\r\n', "StartQelB.txt after \"Ende\"")
        self.check_result_file(final=True)
        self.check_grade_file(grade_text(self.correct, self.answered))
        names = sorted(os.listdir(self.folder))
        self.c.equal(names, ["StartQelB.txt", "TestergebnisQel.doc", "ZensurQel.txt", "kelvora"],
                     "files in the programme folder")


# --------------------------------------------------------------------------------------------

def choose_locale():
    wanted = os.environ.get("KELVORA_E2E_LOCALE")
    if wanted:
        return wanted
    try:
        available = subprocess.run(["locale", "-a"], capture_output=True, text=True).stdout
    except OSError:
        available = ""
    names = {n.strip().lower().replace("-", "") for n in available.split()}
    return "de_DE.UTF-8" if "de_de.utf8" in names else "C.UTF-8"


def stop(process):
    """Ends a process the run started, with every process of its group, if it still runs."""
    if process is None or process.poll() is not None:
        return
    os.killpg(process.pid, signal.SIGTERM)
    try:
        process.wait(timeout=5)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait(timeout=5)


def stop_on_termination():
    """A termination request still stops every process the run started."""
    signal.signal(signal.SIGTERM, lambda number, frame: sys.exit(128 + number))
    signal.signal(signal.SIGHUP, lambda number, frame: sys.exit(128 + number))


def programme_copy(kelvora, prefix):
    """A scratch folder with the programme in a folder of its own, where it keeps its files.
    Returns both folders."""
    stop_on_termination()
    scratch = tempfile.mkdtemp(prefix=prefix)
    folder = os.path.join(scratch, "programme")
    os.makedirs(folder)
    shutil.copy2(kelvora, os.path.join(folder, "kelvora"))
    return scratch, folder


def report(checks, scratch):
    """The count of checks; the scratch folder of a failed run is kept, any other removed."""
    print(f"{checks.passed} checks passed, {len(checks.failed)} failed")
    if checks.failed:
        print(f"scratch folder kept: {scratch}")
        return 1
    shutil.rmtree(scratch, ignore_errors=True)
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("kelvora", nargs="?",
                        default=os.path.join(SOURCE_ROOT, "build", "default", "kelvora"))
    parser.add_argument("--keep", action="store_true", help="keep the scratch folder")
    parser.add_argument("--verbose", action="store_true", help="print passed checks too")
    args = parser.parse_args()
    try:
        return run_all(args)
    except Skip as e:
        print(f"SKIP: {e}", flush=True)
        return SKIP


def run_all(args):
    if not any(os.path.isdir(os.path.join(folder, "pyatspi")) for folder in sys.path if folder):
        skip(f"python module pyatspi not found for {sys.executable} "
             "(Debian package python3-pyatspi; run with /usr/bin/python3)")
    for tool in ("xdotool", "dbus-daemon", "dbus-send"):
        if not shutil.which(tool):
            skip(f"{tool} not found")
    if not os.access(args.kelvora, os.X_OK):
        print(f"FAIL kelvora executable not found at {args.kelvora} (build it first)")
        return 1

    started = time.monotonic()
    scratch, folder = programme_copy(args.kelvora, "kelvora-e2e-")
    checks = Checks(args.verbose)
    session = Session(scratch, args.verbose)
    process = None
    log_path = os.path.join(scratch, "kelvora.log")
    skipped = None
    try:
        display, wm, pyatspi, Atspi = session.start_desktop()
        locale_name = choose_locale()

        app_env = dict(session.env, QT_QPA_PLATFORM="xcb", QT_ACCESSIBILITY="1",
                       QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL=locale_name,
                       LANG=locale_name)
        log = open(log_path, "wb")
        process = session.spawn("kelvora", [os.path.join(folder, "kelvora")], cwd=folder,
                                env=app_env, stdout=log, stderr=subprocess.STDOUT)
        checks.info(f"display {session.env['DISPLAY']} ({display}), window manager "
                    f"{wm or 'none: the test gives new windows the keyboard focus itself'}, "
                    f"locale {locale_name}")
        ui = Ui(pyatspi, Atspi, session, process, checks)
        run = Run(ui, checks, folder)
        try:
            window = run.start()
            window = run.control_centre(window)
            window = run.page1(window)
            window = run.page2(window)
            window = run.later_pages(window)
            window = run.final_test(window)
            run.end_page(window)
            run.check_files()
        except Abort as e:
            checks.stage = checks.stage or "run"
            checks.check(False, "the run could not go on", str(e))
        if ui.focus_fixes:
            checks.info(f"the test gave the keyboard focus to a new window {ui.focus_fixes} "
                        "times (no window manager)")
    except Skip as e:
        skipped = e
    finally:
        stop(process)
        session.stop()
    if skipped is not None:
        shutil.rmtree(scratch, ignore_errors=True)
        raise skipped

    seconds = time.monotonic() - started
    failed = checks.failed
    print(f"{checks.passed} checks passed, {len(failed)} failed, {seconds:.0f} s")
    if failed:
        by_cause = {}
        for what, cause in failed:
            by_cause[cause] = by_cause.get(cause, 0) + 1
        for cause, count in sorted(by_cause.items(), key=lambda item: str(item[0])):
            label = EXPECTED_CAUSES[cause] if cause else "no known cause: a fault to look at"
            print(f"  {count:3d} x {label}")
        try:
            with open(log_path, "rb") as f:
                output = f.read().decode("utf-8", "replace").strip()
            if output:
                print("kelvora's output:\n" + "\n".join(output.splitlines()[-15:]))
        except OSError:
            pass
    if args.keep or failed:
        if not args.keep:
            os.remove(os.path.join(folder, "kelvora"))  # the files and logs are what matter
        print(f"scratch folder kept: {scratch}")
    else:
        shutil.rmtree(scratch, ignore_errors=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

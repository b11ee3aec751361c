# SPDX-License-Identifier: GPL-3.0-or-later
"""Kills the real programme at every click of the final test and reads the test log from disk.

A portable copy of the programme in a scratch folder starts on page 11 (its start-position file
says "11"). The pupil's clicks are real mouse clicks (xdotool) on the option buttons, found by
their names in the accessibility tree (AT-SPI). A first run works through the whole test; its
log is the reference. Then, for each click n in turn, a fresh run makes clicks 1 to n, waiting
after each until the log on disk has grown to that click's end, and the programme is killed
with SIGKILL. The log left on disk must hold every line of clicks 1 to n, byte for byte, and
nothing more.

Runs inside dbus-run-session (tests/crash-test.sh), with its own X server; the session bus starts
the accessibility bus when it is first asked for.
"""
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

import pyatspi

LOG = "TestergebnisQel.doc"
# Generous: on a loaded machine a fresh start can take many seconds to reach the accessibility bus.
TIMEOUT = 45.0

# The clicks: question, option caption, whether it is a right one. Wrong clicks on questions 1,
# 3, 5, 7 and 10, a return to an option already clicked (question 3), and question 10 solved by
# the second of its two right options.
CLICKS = [
    (1, "Ionen", False),
    (1, "freie Elektronen", True),
    (2, "Ionen und freie Elektronen", True),
    (3, "freie Elektronen", False),
    (3, "Ionen", False),
    (3, "freie Elektronen", False),
    (3, "freie Elektronen und Löcher", True),
    (4, "Stoßionisation", True),
    (5, "Glühemission", False),
    (5, "Fotoemission", True),
    (6, "Glühemission", True),
    (7, "wird um ein Vielfaches größer", False),
    (7, "wird kleiner", True),
    (8, "n-Leitung", True),
    (9, "Gleichrichten von Wechselstrom", True),
    (10, "Erzeugen von Wechselstrom", False),
    (10, "Schalter", True),
]


class Failure(Exception):
    pass


def wait_for(what, condition, timeout=TIMEOUT):
    """Polls until condition() gives something true; fails with `what` after the timeout."""
    end = time.monotonic() + timeout
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise Failure("timed out waiting for " + what)
        time.sleep(0.02)


def file_bytes(path):
    try:
        with open(path, "rb") as f:
            return f.read()
    except FileNotFoundError:
        return b""


def find_all(root, role, name=None):
    """Every accessible below root with this role (and name)."""
    found = []
    stack = [root]
    while stack:
        node = stack.pop()
        try:
            if node.getRole() == role and (name is None or node.name == name):
                found.append(node)
            stack.extend(node.getChildAtIndex(i) for i in range(node.childCount))
        except Exception:  # a node that went away while walking
            continue
    return found


class Programme:
    """One run of the programme copy, with its option buttons found by name."""

    def __init__(self, folder, display):
        self.folder = folder
        self.display = display
        env = dict(os.environ, DISPLAY=display, QT_QPA_PLATFORM="xcb",
                   QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8")
        self.process = subprocess.Popen([os.path.join(folder, "kelvora")], cwd=folder, env=env,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.pid = self.process.pid
        app = wait_for("the programme in the accessibility tree", self._application)
        self.frame = wait_for("page 11", lambda: self._page(app))
        questions = wait_for("the ten questions", lambda: self._questions() or None)
        if len(questions) != 10:
            raise Failure("page 11 shows %d questions, not 10" % len(questions))

    def _questions(self):
        """The questions by number. A question that appears is read afresh, under a new
        identity, so they are looked up again for every click."""
        questions = {}
        for panel in find_all(self.frame, pyatspi.ROLE_PANEL):
            m = re.match(r"Aufgabe (\d+): ", panel.name or "")
            if m:
                questions[int(m.group(1))] = panel
        return questions

    def _application(self):
        desktop = pyatspi.Registry.getDesktop(0)
        for i in range(desktop.childCount):
            app = desktop.getChildAtIndex(i)
            try:
                if app is not None and app.get_process_id() == self.pid:
                    return app
            except Exception:
                continue
        return None

    @staticmethod
    def _page(app):
        for frame in find_all(app, pyatspi.ROLE_FRAME):
            if (frame.name or "").endswith("Seite 11"):
                return frame
        return None

    def click(self, question, caption):
        """Clicks the option once it is on screen."""
        def on_screen():
            panel = self._questions().get(question)
            options = find_all(panel, pyatspi.ROLE_RADIO_BUTTON, caption) if panel else []
            if len(options) != 1:
                return None
            option = options[0]
            states = option.getState()
            if not (states.contains(pyatspi.STATE_SHOWING)
                    and states.contains(pyatspi.STATE_ENABLED)):
                return None
            box = option.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
            return box if box.width > 0 and box.height > 0 else None

        box = wait_for("question %d, option %r on screen" % (question, caption), on_screen)
        x, y = box.x + box.width // 2, box.y + box.height // 2
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True,
                       env=dict(os.environ, DISPLAY=self.display))

    def kill(self):
        if self.process.poll() is not None:
            raise Failure("the programme ended before it was killed")
        os.kill(self.pid, signal.SIGKILL)
        self.process.wait()

    def end(self):
        if self.process.poll() is None:
            os.kill(self.pid, signal.SIGKILL)
            self.process.wait()


def click_ends(log):
    """Where the lines of each click end in a complete log: after its click line, and after the
    empty lines, the totals and the date that follow a right click."""
    lines = log.split(b"\r\n")[:-1]
    offsets = [0]
    for line in lines:
        offsets.append(offsets[-1] + len(line) + 2)
    click_line = re.compile(rb"    .* - (Richtig|Falsch)")
    clicks = [i for i, line in enumerate(lines) if click_line.fullmatch(line)]
    ends = []
    for n, i in enumerate(clicks):
        following = clicks[n + 1] if n + 1 < len(clicks) else len(lines)
        end = i + 1
        # What comes after the click line up to the next click's question heading (two lines,
        # when the next click opens a question) or the next click line.
        while end < following and not lines[end].startswith(b"Aufgabe "):
            end += 1
        ends.append(offsets[end])
    return [lines[i] for i in clicks], ends


def main():
    executable = os.path.abspath(sys.argv[1])
    scratch = tempfile.mkdtemp(prefix="kelvora-crash-")
    xvfb = None
    try:
        read_fd, write_fd = os.pipe()
        xvfb = subprocess.Popen(["Xvfb", "-displayfd", str(write_fd), "-screen", "0",
                                 "1280x1024x24", "-nolisten", "tcp"], pass_fds=[write_fd],
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_fd)
        with os.fdopen(read_fd) as f:
            display = ":" + f.readline().strip()
        os.environ["DISPLAY"] = display

        folder = os.path.join(scratch, "kelvora")
        os.mkdir(folder)
        shutil.copy2(executable, folder)
        log_path = os.path.join(folder, LOG)

        def fresh_run():
            with open(os.path.join(folder, "StartQelB.txt"), "wb") as f:
                f.write(b'"11"\r\n')
            if os.path.exists(log_path):
                os.remove(log_path)
            return Programme(folder, display)

        # The reference: the whole test in one run, the log complete and closed.
        programme = fresh_run()
        for question, caption, _ in CLICKS:
            programme.click(question, caption)
        date_line = re.compile(rb".*\r\n [0-9]+ Punkte von [0-9]+ Punkten\r\n[^\r\n]+\r\n",
                               re.S)
        reference = wait_for("the complete log",
                             lambda: date_line.fullmatch(file_bytes(log_path)) and
                             file_bytes(log_path))
        programme.end()
        lines, ends = click_ends(reference)
        expected = [("    %s - %s" % (c, "Richtig" if right else "Falsch")).encode("cp1252")
                    for _, c, right in CLICKS]
        if lines != expected:
            raise Failure("the log does not show the clicks made:\n%r\n%r" % (lines, expected))
        date_start = reference.rstrip(b"\r\n").rfind(b"\r\n") + 2

        # A kill at each click in turn.
        for n in range(1, len(CLICKS) + 1):
            programme = fresh_run()
            try:
                for i, (question, caption, _) in enumerate(CLICKS[:n]):
                    programme.click(question, caption)
                    wait_for("the lines of click %d on disk" % (i + 1),
                             lambda: len(file_bytes(log_path)) >= ends[i])
                programme.kill()
            finally:
                programme.end()
            left = file_bytes(log_path)
            want = reference[:ends[n - 1]]
            if n == len(CLICKS):
                # The date line tells the time of the run.
                same = (left[:date_start] == want[:date_start]
                        and re.fullmatch(rb"[^\r\n]+\r\n", left[date_start:]) is not None)
            else:
                same = left == want
            if not same:
                raise Failure("killed after click %d, the log on disk is\n%r\ninstead of\n%r"
                              % (n, left, want))
            print("killed after click %2d: %4d bytes on disk, as written" % (n, len(left)))
        print("PASS: the log kept every line of every click at %d kills" % len(CLICKS))
        return 0
    except Failure as failure:
        print("FAIL: %s" % failure)
        return 1
    finally:
        if xvfb is not None and xvfb.poll() is None:
            xvfb.terminate()
            xvfb.wait()
        shutil.rmtree(scratch, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())

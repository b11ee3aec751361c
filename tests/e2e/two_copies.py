#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Two copies of the programme on one programme folder, as a pupil who starts Kelvora again.

A portable copy in a scratch folder runs on a private X server with a window manager (openbox);
its start-position file opens page 3 directly.
1. The first copy runs and holds the lock file; its window is minimised.
2. A second start ends by itself (status 0) and brings the first copy's window back to the
   front; every file of the folder keeps its bytes and its time.
3. Without a window manager no window can be brought forward: a further start says so in a
   message box "Kelvora" and ends when the box is closed, the files again untouched.
4. The first copy killed (SIGKILL) leaves its lock file behind; the next start takes it over and
   runs.

    tests/e2e/two_copies.py path/to/kelvora [--verbose]

Exit status 0 every check passed, 1 a check failed, 77 this machine cannot run it.
"""

import argparse
import os
import shutil
import signal
import subprocess
import sys
import time

import kelvora_e2e as e2e

LOCK = "Kelvora.lock"


def snapshot(folder):
    """Every file of the folder with its bytes and its modification time."""
    files = {}
    for name in sorted(os.listdir(folder)):
        path = os.path.join(folder, name)
        with open(path, "rb") as f:
            files[name] = (f.read(), os.stat(path).st_mtime_ns)
    return files


def lock_holder(folder):
    try:
        with open(os.path.join(folder, LOCK)) as f:
            return int(f.readline())
    except (OSError, ValueError):
        return None


def wait_for(condition, timeout):
    end = time.monotonic() + timeout
    while True:
        value = condition()
        if value or time.monotonic() > end:
            return value
        time.sleep(0.1)


class Copies:
    def __init__(self, session, folder, log):
        self.session = session
        self.folder = folder
        self.log = log
        self.env = dict(session.env, QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8", LANG="C.UTF-8")

    def start(self, name):
        return self.session.spawn(name, [os.path.join(self.folder, "kelvora")], cwd=self.folder,
                                  env=self.env, stdout=self.log, stderr=subprocess.STDOUT)

    def xdotool(self, *args):
        result = self.session.run(["xdotool", *args], timeout=10)
        return result.stdout.split() if result.returncode == 0 else []

    def windows(self, process):
        """The visible windows of the process."""
        return self.xdotool("search", "--onlyvisible", "--pid", str(process.pid))

    def active(self):
        return next(iter(self.xdotool("getactivewindow")), None)

    def ends(self, process, timeout):
        try:
            return process.wait(timeout=timeout)
        except subprocess.TimeoutExpired:
            return None


def run(args, checks):
    scratch, folder = e2e.programme_copy(args.kelvora, "kelvora-two-copies-")
    with open(os.path.join(folder, "StartQelB.txt"), "wb") as f:
        f.write(b'"3"\r\n')
    session = e2e.Session(scratch, args.verbose)
    log = open(os.path.join(scratch, "kelvora.log"), "wb")
    try:
        for tool in ("xdotool", "openbox", "dbus-daemon"):
            if not shutil.which(tool):
                e2e.skip(f"no {tool}")
        session.start_x()
        session.start_window_manager()
        session.start_session_bus()
        copies = Copies(session, folder, log)

        checks.section("the first copy")
        first = copies.start("first copy")
        windows = wait_for(lambda: copies.windows(first), 20)
        if not windows:
            raise e2e.Abort("the first copy shows no window")
        window = windows[0]
        checks.equal(lock_holder(folder), first.pid, "the first copy holds the lock file")
        copies.xdotool("windowminimize", "--sync", window)
        checks.check(window not in copies.windows(first), "its window is minimised")
        files = snapshot(folder)

        checks.section("a second start")
        second = copies.start("second copy")
        checks.equal(copies.ends(second, 15), 0, "the second copy ends by itself with status 0")
        checks.check(wait_for(lambda: copies.active() == window, 5),
                     "the first copy's window is active again", f"active {copies.active()}")
        checks.check(window in copies.windows(first), "the first copy's window is shown again")
        checks.check(first.poll() is None, "the first copy still runs")
        checks.equal(snapshot(folder), files, "the files of the folder are untouched")

        checks.section("a start without a window manager")
        openbox = next(p for name, p in session.processes if name == "openbox")
        os.killpg(openbox.pid, signal.SIGTERM)
        openbox.wait(timeout=10)
        third = copies.start("third copy")
        boxes = wait_for(lambda: copies.windows(third), 20)
        checks.check(bool(boxes), "the third copy shows a message box")
        if boxes:
            checks.equal(copies.xdotool("getwindowname", boxes[0]), ["Kelvora"],
                         "the box is titled Kelvora")
            checks.check(third.poll() is None, "the third copy waits for the box to be closed")
            copies.xdotool("windowfocus", "--sync", boxes[0])
            copies.xdotool("key", "Return")
        checks.equal(copies.ends(third, 10), 0, "Enter closes the box and the third copy ends")
        checks.equal(snapshot(folder), files, "the files of the folder are untouched")

        checks.section("a lock left by a killed copy")
        first.kill()
        first.wait(timeout=10)
        checks.equal(lock_holder(folder), first.pid, "the killed copy leaves its lock file")
        fourth = copies.start("fourth copy")
        checks.check(bool(wait_for(lambda: copies.windows(fourth), 20)),
                     "the next start opens its window")
        checks.equal(lock_holder(folder), fourth.pid, "it has taken over the lock file")
        checks.check(fourth.poll() is None, "it runs")
    except e2e.Abort as e:
        checks.check(False, "the run could not go on", str(e))
    finally:
        session.stop()
        log.close()
    return scratch


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("kelvora")
    parser.add_argument("--verbose", action="store_true", help="print passed checks too")
    args = parser.parse_args()
    checks = e2e.Checks(args.verbose)
    try:
        scratch = run(args, checks)
    except e2e.Skip as e:
        print(f"SKIP: {e}")
        return 77
    return e2e.report(checks, scratch)


if __name__ == "__main__":
    sys.exit(main())

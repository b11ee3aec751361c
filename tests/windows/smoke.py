#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Kelvora for Windows as a pupil uses it, under Wine on the X server named by DISPLAY.

    smoke.py portable Kelvora-<version>-win64.zip
    smoke.py installer Kelvora-<version>-win64.exe

Each run has a fresh Wine prefix. The portable copy is unpacked into a folder of its own; the
installer installs silently (/S) into Program Files. A start-position file for page 3 goes where
the copy keeps its files: beside kelvora.exe for the portable copy, in %APPDATA%\\Kelvora for the
installed one. The programme must open page 3, take the five right answers (typed with the
keyboard) and move on to page 4, switch the display to 800 x 600 through its display-mode screen
(Wine passes the change on to the X server, where xrandr sees it) and end through the exit
frame's "... hier weiterarbeiten": the file then holds the line "4" in quotes, byte for byte, and
nothing else is written anywhere. The installer's run ends with the silent uninstall, which
removes the programme and its Start-menu entry and leaves the pupil's files.

Exit status 0 every check passed, 1 a check failed, 77 this machine cannot run it.
"""

import glob
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import zipfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "e2e"))
import kelvora_e2e as e2e  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
RESUME = {3: b'"3"\r\n', 4: b'"4"\r\n'}
PAGE_3_ANSWERS = "bbacc"
CHOSEN_MODE = "800 x 600"


def wine_binary():
    for name in ("wine64", "wine", "/usr/lib/wine/wine64"):
        found = shutil.which(name)
        if found:
            return found
    e2e.skip("Wine not found (package wine64)")


class Wine:
    """A Wine prefix of the test's own, its processes ended with it."""

    def __init__(self, scratch):
        self.wine = wine_binary()
        server = shutil.which("wineserver") or "/usr/lib/wine/wineserver"
        self.server = server
        self.env = dict(os.environ, WINEPREFIX=os.path.join(scratch, "prefix"), WINEDEBUG="-all",
                        WINEDLLOVERRIDES="mscoree,mshtml=", LC_ALL="C.UTF-8")
        self.env.pop("WINEPATH", None)  # a copy must bring every library it needs
        # The prefix as tests/windows/wine.sh makes it: booted, the Liberation fonts as Arial,
        # Times New Roman and Courier New.
        boot = dict(self.env, KELVORA_WINE_DLLS="")
        subprocess.run([os.path.join(HERE, "wine.sh"), "--boot"], env=boot, capture_output=True,
                       timeout=300, check=True)
        users = glob.glob(os.path.join(self.env["WINEPREFIX"], "drive_c", "users", "*",
                                       "AppData", "Roaming"))
        users = [u for u in users if "/users/Public/" not in u]
        if len(users) != 1:
            raise e2e.Abort(f"no single user's AppData\\Roaming in the prefix: {users}")
        self.appdata = users[0]
        self.drive_c = os.path.join(self.env["WINEPREFIX"], "drive_c")

    def start(self, executable, cwd, log, *arguments):
        return subprocess.Popen([self.wine, executable, *arguments], cwd=cwd, env=self.env,
                                stdout=log, stderr=subprocess.STDOUT, start_new_session=True)

    def wait_idle(self, timeout=120):
        """Until every process of the prefix has ended (an uninstaller runs as a copy of itself)."""
        subprocess.run([self.server, "--wait"], env=self.env, timeout=timeout)

    def stop(self):
        subprocess.run([self.server, "--kill"], env=self.env, capture_output=True, timeout=30)


def xdotool(*arguments):
    return subprocess.run(["xdotool", *arguments], capture_output=True, text=True, timeout=20)


def window(title, timeout=30):
    """The X window with this caption (as screen readers read it), once it is shown."""
    pattern = e2e.caption_pattern(title)
    end = time.monotonic() + timeout
    while time.monotonic() < end:
        ids = xdotool("search", "--onlyvisible", "--name", pattern).stdout.split()
        if ids:
            return ids[-1]
        time.sleep(0.2)
    raise e2e.Abort(f"no window {title.split()[-1]!r} ({title!r}) within {timeout} s")


def window_gone(title, timeout=10):
    pattern = e2e.caption_pattern(title)
    end = time.monotonic() + timeout
    while time.monotonic() < end:
        if not xdotool("search", "--onlyvisible", "--name", pattern).stdout.split():
            return True
        time.sleep(0.2)
    return False


def keys(*names, pause=0.6):
    for name in names:
        result = xdotool("key", "--clearmodifiers", name)
        if result.returncode != 0:
            raise e2e.Abort(f"xdotool key {name}: {result.stderr.strip()}")
        time.sleep(pause)


def server_size():
    query = subprocess.run(["xrandr", "--query"], capture_output=True, text=True).stdout
    match = re.search(r"current (\d+) x (\d+)", query)
    return f"{match.group(1)} x {match.group(2)}" if match else ""


def listing(folder):
    """Every file under folder, as paths relative to it."""
    found = []
    for root, _dirs, files in os.walk(folder):
        found += [os.path.relpath(os.path.join(root, f), folder) for f in files]
    return sorted(found)


def read(path):
    return open(path, "rb").read() if os.path.exists(path) else None


def work_page_3_to_4(checks):
    """Page 3: the five right answers, each followed by Enter on "Nächste Frage"; the last one
    opens page 4. Then the display mode and the exit frame."""
    page = window(e2e.page_caption(3), timeout=60)
    checks.check(True, "the programme resumes on page 3")
    xdotool("windowfocus", "--sync", page)
    time.sleep(1.0)
    for letter in PAGE_3_ANSWERS:
        keys(letter, "Return")
    page = window(e2e.page_caption(4), timeout=15)
    checks.check(True, "five right answers on page 3 lead to page 4")

    # Info > Bildschirmauflösung ändern, the mode chosen by typing its text into the list, then
    # "Auflösung ändern" (the next control) and Escape.
    original = server_size()
    keys("alt+i", "b")
    window(e2e.DISPLAY_MODE_CAPTION, timeout=15)
    xdotool("type", "--delay", "60", CHOSEN_MODE)
    keys("Tab", "Return", pause=1.0)
    end = time.monotonic() + 10
    while server_size() != CHOSEN_MODE and time.monotonic() < end:
        time.sleep(0.2)
    checks.equal(server_size(), CHOSEN_MODE, "the display-mode screen switches the X server "
                 f"from {original} through Wine")
    keys("Escape")
    checks.check(window_gone(e2e.DISPLAY_MODE_CAPTION), "Escape closes the display-mode screen")

    # From the answer field: "<<", ">>", "Beenden"; in the exit frame the focus starts on
    # "Ich möchte nicht beenden", two steps back is "... hier weiterarbeiten".
    xdotool("windowfocus", "--sync", window(e2e.page_caption(4)))
    keys("Tab", "Tab", "Tab", "Return", "shift+Tab", "shift+Tab", "Return")


def wait_for_end(process, checks):
    try:
        status = process.wait(timeout=30)
    except subprocess.TimeoutExpired:
        checks.check(False, '"... hier weiterarbeiten" ends the programme', "it still runs")
        return
    checks.equal(status, 0, '"... hier weiterarbeiten" ends the programme with status 0')


def run_copy(checks, wine, executable, files_folder, scratch, log):
    """Resume page 3 from files_folder, work to page 4 and end there; returns nothing."""
    os.makedirs(files_folder, exist_ok=True)
    with open(os.path.join(files_folder, "StartQelB.txt"), "wb") as f:
        f.write(RESUME[3])
    work = os.path.join(scratch, "work")
    os.makedirs(work, exist_ok=True)
    original = server_size()
    process = wine.start(executable, work, log)
    try:
        work_page_3_to_4(checks)
        wait_for_end(process, checks)
    except e2e.Abort as e:
        checks.check(False, "page 3, its answers, the display mode and the exit frame", str(e))
    finally:
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait(timeout=10)
        subprocess.run(["xrandr", "--size", original.replace(" ", "")], capture_output=True)
    checks.equal(read(os.path.join(files_folder, "StartQelB.txt")), RESUME[4],
                 f"the start-position file in {files_folder} holds page 4")
    checks.equal(listing(work), [], "nothing is written into the working folder")


def portable(checks, archive, scratch, log):
    wine = Wine(scratch)
    try:
        checks.section("the portable copy")
        stick = os.path.join(scratch, "stick")
        with zipfile.ZipFile(archive) as z:
            z.extractall(stick)
        tops = os.listdir(stick)
        checks.equal(tops, [os.path.basename(archive)[:-len(".zip")]],
                     "the zip holds one folder named like itself")
        folder = os.path.join(stick, tops[0])
        before = listing(folder)
        for path in ("kelvora.exe", "Qt6Core.dll", "Qt6Svg.dll", "libstdc++-6.dll",
                     "libwinpthread-1.dll", os.path.join("platforms", "qwindows.dll"),
                     os.path.join("iconengines", "qsvgicon.dll"),
                     os.path.join("translations", "qtbase_de.qm"), "COPYING.txt"):
            checks.check(path in before, f"the portable folder holds {path}")
        checks.check(not any(p.startswith("share") for p in before),
                     "the portable folder has no share folder (that would make it installed)")
        run_copy(checks, wine, os.path.join(folder, "kelvora.exe"), folder, scratch, log)
        checks.equal(listing(folder), sorted(before + ["StartQelB.txt"]),
                     "the portable copy writes its file beside itself and nothing else")
        kelvora = os.path.join(wine.appdata, "Kelvora")
        checks.check(not os.path.exists(kelvora), "the portable copy leaves %APPDATA% alone")
    finally:
        wine.stop()


def installer(checks, setup, scratch, log):
    wine = Wine(scratch)
    try:
        checks.section("silent install")
        process = wine.start(setup, scratch, log, "/S")
        checks.equal(process.wait(timeout=300), 0, "the installer ends with status 0")
        wine.wait_idle()
        home = os.path.join(wine.drive_c, "Program Files", "Kelvora")
        executable = os.path.join(home, "bin", "kelvora.exe")
        checks.check(os.path.exists(executable), "kelvora.exe installed into Program Files\\"
                     "Kelvora\\bin", f"{home} holds {listing(home)[:8]}")
        checks.check(os.path.exists(os.path.join(home, "share", "kelvora", "COPYING.txt")),
                     "the licence installed into share\\kelvora")
        checks.check(os.path.exists(os.path.join(home, "Uninstall.exe")),
                     "an uninstaller is installed")
        links = glob.glob(os.path.join(wine.drive_c, "**", "Start Menu", "Programs", "Kelvora",
                                       "Kelvora.lnk"), recursive=True)
        checks.check(len(links) == 1, "one Start-menu entry \"Kelvora\"", f"found {links}")
        installed = listing(home)

        checks.section("the installed programme")
        data = os.path.join(wine.appdata, "Kelvora")
        run_copy(checks, wine, executable, data, scratch, log)
        checks.equal(listing(home), installed, "nothing is written into the programme folder")
        checks.equal(listing(data), ["StartQelB.txt"], "the pupil's files are in %APPDATA%\\Kelvora")

        checks.section("silent uninstall")
        process = wine.start(os.path.join(home, "Uninstall.exe"), scratch, log, "/S")
        process.wait(timeout=120)
        wine.wait_idle()
        checks.check(not os.path.exists(executable), "the uninstaller removes the programme",
                     f"{home} still holds {listing(home)[:8]}")
        links = glob.glob(os.path.join(wine.drive_c, "**", "Start Menu", "Programs", "Kelvora",
                                       "*.lnk"), recursive=True)
        checks.equal(links, [], "the uninstaller removes the Start-menu entries")
        checks.equal(read(os.path.join(data, "StartQelB.txt")), RESUME[4],
                     "the uninstaller leaves the pupil's files")
    finally:
        wine.stop()


def main():
    if len(sys.argv) != 3 or sys.argv[1] not in ("portable", "installer"):
        print(__doc__.split("\n\n")[1])
        return 2
    mode, package = sys.argv[1], os.path.abspath(sys.argv[2])
    try:
        if not os.environ.get("DISPLAY"):
            e2e.skip("no X server (DISPLAY is not set)")
        for tool in ("xdotool", "xrandr"):
            if not shutil.which(tool):
                e2e.skip(f"{tool} not found")
        wine_binary()
        if not os.path.isfile(package):
            print(f"FAIL no {mode} at {package}")
            return 1
        e2e.stop_on_termination()
        checks = e2e.Checks(verbose=True)
        scratch = tempfile.mkdtemp(prefix=f"kelvora-windows-{mode}-")
        with open(os.path.join(scratch, "wine.log"), "wb") as log:
            try:
                (portable if mode == "portable" else installer)(checks, package, scratch, log)
            except e2e.Abort as e:
                checks.check(False, f"the {mode} run", str(e))
    except e2e.Skip as e:
        print(f"SKIP: {e}", flush=True)
        return e2e.SKIP
    return e2e.report(checks, scratch)


if __name__ == "__main__":
    sys.exit(main())

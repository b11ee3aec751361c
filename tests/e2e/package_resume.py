#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The Debian package as a pupil on a shared school computer uses it.

The package's contents are unpacked into a scratch folder (as dpkg would install them under /usr)
and its `usr/bin/kelvora` runs with a scratch home folder on a private X server, worked through
the accessibility interface: start screen, "Weiter", the control centre's third topic, page 3, the
end button and "... hier weiterarbeiten". The start-position file must then stand in the pupil's
own data folder (~/.local/share/Kelvora) and nothing beside the executable. Started again, the
programme opens page 3 directly. Then a portable copy of the same executable, in a folder of its
own, must keep its start-position file beside itself.

    tests/e2e/package_resume.py path/to/kelvora_<version>_<arch>.deb [--verbose]

Exit status 0 every check passed, 1 a check failed, 77 this machine cannot run it.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile

import kelvora_e2e as e2e

RESUME_PAGE_3 = b'"3"\r\n'


def start(session, ui_class, pyatspi, atspi, checks, executable, log):
    env = dict(session.env, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
               LC_ALL="C.UTF-8", LANG="C.UTF-8")
    # Started from the scratch folder, so that a file written into the working folder would show.
    process = session.spawn("kelvora", [executable], cwd=session.scratch, env=env, stdout=log,
                            stderr=subprocess.STDOUT)
    ui = ui_class(pyatspi, atspi, session, process, checks)
    ui.find_application()
    return process, ui


def wait_for_end(process, checks, what):
    try:
        status = process.wait(timeout=15)
    except subprocess.TimeoutExpired:
        checks.check(False, f"{what} ends the programme", "it is still running")
        return
    checks.check(status == 0, f"{what} ends the programme", f"exit status {status}")


def work_to_page_3_and_resume_there(ui, checks):
    """Start screen, control centre, page 3, "... hier weiterarbeiten", by AT-SPI actions."""
    window = ui.window(e2e.TITLE, timeout=20)
    ui.one(window, "push button", "Weiter").do("Press")
    window = ui.window(e2e.caption("Steuerzentrum"))
    topic = ui.one(window, "radio button", "Fragen 11 bis 15 - Seite 3")
    topic.do(topic.actions()[0])
    window = ui.window(e2e.page_caption(3))
    checks.check(True, "the third topic of the control centre opens page 3")
    ui.one(window, "push button", "Beenden").do("Press")
    ui.one(window, "push button",
           "Ich möchte beim nächsten Programmstart hier weiterarbeiten").do("Press")


def solve_final_test_and_grade(ui, window):
    """From page 3 through the overview to page 11: every question solved at its first click,
    then "Zensierung" with the scale as it stands ("Nein" in the question box)."""
    ui.key("alt+a")
    ui.key("w")
    ui.one(window, "push button", "Seite 11 (Abschlusstest)").do("Press")
    window = ui.window(e2e.page_caption(11))
    for frame, _text, options, right in e2e.TEST_QUESTIONS:
        panel = ui.wait(lambda: next(iter(ui.all(window, "panel", prefix=frame + ": ")), None), 8)
        if panel is None:
            raise e2e.Abort(f"{frame} is not shown")
        option = ui.one(panel, "radio button", options[min(right)])
        option.do(option.actions()[0])
    ui.one(window, "push button", "Zensierung").do("Press")
    question = ui.window("Punktetabelle für Zensierung", role="alert")
    ui.one(question, "push button", "Nein").do("Press")
    ui.wait(lambda: ui.all(window, "label", "Zensur:   1"), 5)


def files_in(folder):
    return sorted(os.listdir(folder)) if os.path.isdir(folder) else []


def run(args, checks):
    scratch = tempfile.mkdtemp(prefix="kelvora-package-")
    root = os.path.join(scratch, "root")
    result = subprocess.run(["dpkg-deb", "-x", args.deb, root], capture_output=True, text=True)
    if result.returncode != 0:
        checks.check(False, "the package unpacks", result.stderr.strip())
        return scratch
    bin_folder = os.path.join(root, "usr", "bin")
    installed = os.path.join(bin_folder, "kelvora")
    session = e2e.Session(scratch, args.verbose)
    data = os.path.join(session.env["XDG_DATA_HOME"], "Kelvora")
    log = open(os.path.join(scratch, "kelvora.log"), "wb")
    process = None
    try:
        _, _, pyatspi, Atspi = session.start_desktop()

        # First run: work to page 3 and end there.
        process, ui = start(session, e2e.Ui, pyatspi, Atspi, checks, installed, log)
        try:
            work_to_page_3_and_resume_there(ui, checks)
        except e2e.Abort as e:
            checks.check(False, "the way to page 3 and its exit frame", str(e))
        wait_for_end(process, checks, '"... hier weiterarbeiten"')
        saved = os.path.join(data, "StartQelB.txt")
        content = open(saved, "rb").read() if os.path.exists(saved) else None
        checks.check(content == RESUME_PAGE_3, "the start-position file in the pupil's data "
                     "folder holds page 3", f"{saved}: {content!r}")
        checks.check(files_in(bin_folder) == ["kelvora"], "nothing is written beside the "
                     "installed executable", f"{bin_folder} holds {files_in(bin_folder)}")
        beside = [f for f in files_in(scratch) if f.endswith((".txt", ".doc"))]
        checks.check(not beside, "nothing is written into the working folder", f"{beside}")

        # Second run: straight to page 3, then the final test and its grade.
        process, ui = start(session, e2e.Ui, pyatspi, Atspi, checks, installed, log)
        try:
            window = ui.window(e2e.page_caption(3), timeout=20)
            checks.check(True, "started again, the programme opens page 3")
            solve_final_test_and_grade(ui, window)
        except e2e.Abort as e:
            checks.check(False, "started again: page 3, the final test and its grade", str(e))
        for name, opening in (("TestergebnisQel.doc", b"               Test Kelvora\r\n"),
                              ("ZensurQel.txt", b"Programm Kelvora:" + b" " * 11 +
                               b"Zensur:   1\r\n")):
            path = os.path.join(data, name)
            content = open(path, "rb").read() if os.path.exists(path) else b""
            checks.check(content.startswith(opening), f"{name} in the pupil's data folder",
                         f"{path}: {content[:60]!r}")
        checks.check(files_in(bin_folder) == ["kelvora"], "still nothing beside the installed "
                     "executable", f"{bin_folder} holds {files_in(bin_folder)}")
        e2e.stop(process)

        # A portable copy keeps its file beside itself, even with a data folder at hand.
        portable = os.path.join(scratch, "stick")
        os.makedirs(portable)
        shutil.copy2(installed, os.path.join(portable, "kelvora"))
        if os.path.exists(saved):
            os.remove(saved)
        process, ui = start(session, e2e.Ui, pyatspi, Atspi, checks,
                            os.path.join(portable, "kelvora"), log)
        try:
            work_to_page_3_and_resume_there(ui, checks)
        except e2e.Abort as e:
            checks.check(False, "the portable copy's way to page 3", str(e))
        wait_for_end(process, checks, 'the portable copy\'s "... hier weiterarbeiten"')
        beside = os.path.join(portable, "StartQelB.txt")
        content = open(beside, "rb").read() if os.path.exists(beside) else None
        checks.check(content == RESUME_PAGE_3, "a portable copy writes its start-position file "
                     "beside itself", f"{beside}: {content!r}")
        checks.check(not os.path.exists(saved), "a portable copy leaves the data folder alone",
                     f"{files_in(data)}")
    finally:
        e2e.stop(process)
        session.stop()
        log.close()
    return scratch


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("deb")
    parser.add_argument("--verbose", action="store_true")
    args = parser.parse_args()
    try:
        if not any(os.path.isdir(os.path.join(f, "pyatspi")) for f in sys.path if f):
            e2e.skip("python module pyatspi not found (package python3-pyatspi; run it with "
                     "/usr/bin/python3)")
        for tool in ("dpkg-deb", "xdotool", "dbus-daemon", "dbus-send"):
            if not shutil.which(tool):
                e2e.skip(f"{tool} not found")
        if not os.path.isfile(args.deb):
            print(f"FAIL no package at {args.deb} (cmake --build <dir> --target package)")
            return 1
        e2e.stop_on_termination()
        checks = e2e.Checks(args.verbose)
        scratch = run(args, checks)
    except e2e.Skip as e:
        print(f"SKIP: {e}", flush=True)
        return e2e.SKIP
    return e2e.report(checks, scratch)


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Kelvora as a blind pupil hears it: the real Orca reads the real programme.

Orca, the screen reader of Debian's orca package, starts first, as on a pupil's desktop, then the
real kelvora, both on a private X server with a private D-Bus session and accessibility bus (the
set-up of kelvora_e2e.py, with Xvfb). The test presses the keys a pupil presses and compares what
Orca says after each with what the pupil must hear: page 1 with a wrong answer, its hint and
points, the try again, the right answer, the next question and Orca's flat review of the page;
an information screen; the overview; the final test with every verdict, "Aufgabe gelöst", the
totals, the grade scale and the grade; the end page.

What Orca says is what it sends to its speech synthesizer: every utterance goes through Orca's
"speech" log, which this test writes to a file (no synthesizer is needed). Orca's own start script
refuses to run beside another Orca of the same user, anywhere on the machine, so the test starts
Orca's main loop itself, with its own settings in a scratch home: it neither meets nor disturbs
another Orca.

    tests/e2e/orca_speech.py [path/to/kelvora] [--keep] [--verbose]

Exit status: 0 every check passed, 1 a check failed, 77 this machine cannot run it (one line).
"""

import argparse
import json
import os
import re
import shutil
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import kelvora_e2e as e2e  # noqa: E402

STEP_SECONDS = 10  # the longest wait for one thing Orca says


def run_orca(transcript, debug_log):
    """Orca's main loop, every utterance written to `transcript` as one JSON string a line."""
    import logging
    from orca import debug
    debug.debugLevel = debug.LEVEL_INFO
    debug.debugFile = open(debug_log, "w")
    from orca import orca
    lines = open(transcript, "w", buffering=1)
    said = re.compile(r"SPEECH OUTPUT: '(.*)'(?: voice=\w+)?", re.S)

    class Transcript(logging.Handler):
        def emit(self, record):
            m = said.fullmatch(record.getMessage())
            if m:  # key echo carries its voice settings and does not match
                lines.write(json.dumps(m.group(1)) + "\n")

    logging.getLogger("speech").addHandler(Transcript())
    manager = orca.getSettingsManager()
    manager.activate(None, {})
    sys.path.insert(0, manager.getPrefsDir())
    return orca.main()


class Orca:
    """What Orca has said so far, read from its transcript."""

    def __init__(self, path, process):
        self.path = path
        self.process = process
        self.said = []
        self.read_to = 0

    def read(self):
        try:
            with open(self.path, encoding="utf-8") as f:
                f.seek(self.read_to)
                chunk = f.read()
        except FileNotFoundError:
            return
        complete = chunk[:chunk.rfind("\n") + 1]
        self.read_to += len(complete.encode("utf-8"))
        self.said += [json.loads(line) for line in complete.splitlines()]

    def mark(self):
        self.read()
        return len(self.said)

    def follows(self, since, wanted):
        """Whether the utterances since `since` hold the wanted patterns in their order."""
        at = since
        for pattern in wanted:
            while at < len(self.said) and not pattern.fullmatch(self.said[at]):
                at += 1
            if at == len(self.said):
                return False
            at += 1
        return True

    def wait(self, since, wanted, timeout=STEP_SECONDS):
        end = time.monotonic() + timeout
        while True:
            self.read()
            if self.follows(since, wanted):
                return True
            if time.monotonic() > end or self.process.poll() is not None:
                return False
            time.sleep(0.05)


def said(text):
    """An utterance of exactly this text; Orca may end it with a full stop."""
    return re.compile(re.escape(text) + r"\.?")


def control(name, role):
    return re.compile(re.escape(name) + " " + role + r"\.?")


def starting(text):
    return re.compile(re.escape(text) + ".*", re.S)


class Listen:
    """Keys pressed and what Orca says after each, checked."""

    def __init__(self, ui, orca, checks):
        self.ui = ui
        self.orca = orca
        self.c = checks

    def hear(self, keys, wanted, what, typed=None, timeout=STEP_SECONDS):
        since = self.orca.mark()
        if typed is not None:
            self.ui.type(typed)
        for key in keys:
            self.ui.key(key)
        ok = self.orca.wait(since, wanted, timeout)
        self.c.check(ok, what, "Orca said " + repr(self.orca.said[since:]))
        return self.orca.said[since:]

    def open_menu(self, key, first_entry):
        """Opens a menu; its entries are chosen once Orca has read the first. On a loaded machine
        an access key pressed while Orca is still busy with the last change can be lost on its
        way through Orca's key grab: when nothing at all was said, the key is pressed once more."""
        since = self.orca.mark()
        self.ui.key(key)
        if self.orca.wait(since, [starting(first_entry)]) or self.orca.said[since:]:
            self.c.check(self.orca.follows(since, [starting(first_entry)]),
                         f"{key} opens a menu at {first_entry!r}",
                         "Orca said " + repr(self.orca.said[since:]))
            return
        print(f"   note: {key} was not heard; pressed again")
        self.hear([key], [starting(first_entry)], f"{key} opens a menu at {first_entry!r}")

    def flat_review(self, lines):
        """Orca's flat review of the window, `lines` lines up from the focus (keypad 7, Orca's
        desktop layout): the lines it read, whitespace made single."""
        since = self.orca.mark()
        self.ui.key("KP_Subtract")
        for _ in range(lines):
            before = self.orca.mark()
            self.ui.key("KP_Home")
            self.orca.wait(before, [re.compile(".*", re.S)], 2)
        self.ui.key("KP_Subtract")
        self.orca.wait(since, [starting("Leaving flat review")], 3)
        return [" ".join(line.split()) for line in self.orca.said[since:]]


def page1_question(number):
    texts = {
        1: "1. Welche zwei Voraussetzungen müssen vorhanden sein, damit Strom fließt? "
           "A) ein elektrisches Feld und ein Vakuum B) eine Spannungsquelle und ein elektrisches "
           "Feld C) ein elektrisches Feld (Spannungsquelle) und freibewegliche Ladungsträger",
        2: "2. Wie sind Elektronen geladen? A) positiv B) negativ C) elektrisch neutral",
    }
    return said(f"Seite 1. {texts[number]}")


def walk(listen):
    c = listen.c
    orca = listen.orca

    c.section("start screen and control centre")
    c.check(orca.wait(0, [control("Weiter", "push button"),
                          said("Ein Lernprogramm zum selbständigen Lernen und Üben")], 30),
            "the start screen's button is read with the subtitle",
            "Orca said " + repr(orca.said))
    listen.hear(["Return"], [control("Lernprogramm-Start", "push button"),
                             said("Wo möchtest du starten? Du kannst das Lernprogramm ganz von "
                                  "vorn beginnen: Klicke dazu auf „Lernprogramm-Start“. Du kannst "
                                  "aber auch an jeder beliebigen Stelle einsteigen: Klicke dazu "
                                  "unten auf das gewünschte Thema.")],
                "the control centre's question and instruction are read on arrival")

    c.section("page 1")
    arrived = time.monotonic()
    listen.hear(["Return"], [control("Antwort", "text"), page1_question(1)],
                "page 1: the page, the question and its options are read with the answer field")
    heard = listen.hear([], [control("Aufgabe wiederholen", "push button"),
                             starting("Falsch! Das elektrische Feld ist eine notwendige "
                                      "Voraussetzung für das Fließen von Strom. Dieser Teil der "
                                      "Antwort ist richtig. Antworte noch einmal.")],
                        "page 1, \"a\": the verdict and its hint are read with \"Aufgabe "
                        "wiederholen\"", typed="a")
    verdict = heard[-1] if heard else ""
    c.check(" Punkte: 0 von 1." in verdict, "page 1, \"a\": the points are read with the verdict",
            repr(verdict))
    if time.monotonic() - arrived < 6:
        c.check(verdict.endswith("Hinweis: Damit du dir bei diesem Lernprogramm viel merken "
                                 "kannst, ist es notwendig, dass du dir die Fragen gründlich "
                                 "durchliest, bevor du sie beantwortest. Du arbeitest also zu "
                                 "hastig!"), "page 1, \"a\": the pace note is read after a hasty "
                "answer", repr(verdict))
    c.info("page 1, wrong answer: " + " | ".join(heard[-2:]))

    lines = listen.flat_review(8)
    for line in ("Frage: 1. Welche zwei Voraussetzungen müssen vorhanden sein, damit Strom fließt?",
                 "Bemerkungen: Falsch! Das elektrische Feld"):
        c.check(any(line in read for read in lines), f"flat review reads {line!r}",
                f"it read {lines!r}")

    listen.hear(["Return"], [control("Antwort", "text"), page1_question(1)],
                "page 1, \"Aufgabe wiederholen\": the answer field is read with the question again")
    listen.hear([], [control("Nächste Frage", "push button"),
                     starting("Richtig! Punkte: 1 von 2.")],
                "page 1, \"c\": \"Richtig!\" and the points are read with \"Nächste Frage\"",
                typed="c")
    listen.hear(["Return"], [control("Antwort", "text"), page1_question(2)],
                "page 1, \"Nächste Frage\": question 2 and its options are read")

    c.section("information screen")
    listen.open_menu("alt+i", "Arbeitsweise")
    listen.hear(["a"], [starting("Kelvora – Arbeitsweise dialog Arbeitsweise Auf den Seiten 1 bis "
                                 "10 stehen jeweils fünf Fragen"),
                        control("Schließen", "push button")],
                "\"Arbeitsweise\" is read as it opens")
    listen.hear(["Escape"], [said("Kelvora – Seite 1 frame"), control("Antwort", "text"),
                             page1_question(2)],
                "back on page 1 after Escape: the window, the field and the question")

    c.section("overview")
    listen.open_menu("alt+a", "Erklärung Steuerbuttons")
    listen.hear(["w"], [control("Wo bin ich?", "panel"),
                     said("(Durch Anklicken einer Zeile kannst du dorthin springen.)")],
                "the overview is read with its note as it opens")
    line = control("Seite 11 (Abschlusstest)", "push button")
    for _ in range(12):
        since = listen.orca.mark()
        listen.ui.key("Tab")
        if listen.orca.wait(since, [re.compile(".* push button.*")], 3) and \
                listen.orca.follows(since, [line]):
            break
    c.check(listen.orca.follows(since, [line]), "Tab reaches the line of page 11",
            "Orca said " + repr(listen.orca.said[since:]))

    final_test(listen)


TEST_QUESTIONS = [(frame, e2e.question_on_screen(text), options)
                  for frame, text, options, _right in e2e.TEST_QUESTIONS]


def question_heard(number):
    frame, text, options = TEST_QUESTIONS[number]
    return [said(f"{frame}: {text}"), said(options[0])]


def final_test(listen):
    c = listen.c
    c.section("final test")
    listen.hear(["Return"], question_heard(0) +
                [re.compile("not selected radio button"),
                 said("Seite 11. Abschlusstest. Überlege und klicke dann die richtige Lösung an. "
                      "Überlege bei falscher Lösung noch einmal.")],
                "page 11: question 1, its first option and the instruction are read on arrival")
    current = {q: 0 for q in range(10)}  # the option each question has the focus on
    correct = answered = 0
    for number, (question, option) in enumerate(e2e.TEST_CLICKS):
        frame, _text, options = TEST_QUESTIONS[question]
        steps = options.index(option) - current[question]
        keys = ["Down"] * steps if steps >= 0 else ["Up"] * -steps
        current[question] = options.index(option)
        right = e2e.is_right(question, option)
        tries = sum(1 for q, _o in e2e.TEST_CLICKS[:number + 1] if q == question)
        answered += 1
        correct += right
        verdict = ("Richtig, Aufgabe gelöst" if right else "Falsch") + \
            f". Punkte: {int(right)} von {tries}. Gesamtpunkte: {correct} von {answered}."
        wanted = [said("notification " + verdict)]
        if right and question < 9:
            wanted += question_heard(question + 1)
        if right and question == 9:
            wanted += [control("Zensierung", "push button"),
                       said(f"Test beendet: {correct} Punkte von {answered} Punkten")]
        heard = listen.hear(keys + ["space"], wanted, f"{frame}: {option!r} is answered "
                            f"\"{verdict}\"" + (", and the next question is read" if right else ""),
                            timeout=STEP_SECONDS + (3 if question == 4 and right else 0))
        if number in (0, len(e2e.TEST_CLICKS) - 1):
            c.info(f"{frame}, {option!r}: " + " | ".join(heard[-4:]))

    c.section("grade")
    grade = e2e.grade_text(correct, answered)
    listen.hear(["Return"], [said("alert Punktetabelle für Zensierung"),
                             said("Punkttabelle anzeigen bzw. ändern?"),
                             control("Nein", "push button")],
                "\"Zensierung\" asks whether to show the grade scale")
    listen.hear(["j"], [starting("Kelvora - Punktetabelle und Zensierung dialog Der Zensierung des "
                                 "Tests auf Seite 11 liegt folgendes Prinzip zugrunde"),
                        control("Mindest-Prozentsatz für die Zensur 5:", "text"), said("20")],
                "the grade scale is read, its first field with its whole value")
    listen.hear([], [said("notification Hinweis: Diese Eingabe war unsinnig und wurde "
                          "automatisch gelöscht.")],
                "a letter typed into the field: the hint is read as it appears", typed="x")
    heard = listen.hear(["Escape"], [control("Weiter zur Schlussseite", "push button"),
                                     said(" ".join(grade.split()))],
                        f"the grade {grade!r} is read with the button that takes the focus")
    c.info("grade: " + " | ".join(heard[-2:]))

    c.section("end page")
    listen.hear(["Return"], [control("Zurück", "push button"), said("Ende des Lernprogramms")],
                "the end page is read on arrival")
    listen.hear(["Tab", "Return"], [said("alert Ende?"),
                                    said("Möchtest du wirklich die gesamte Arbeit beenden?")],
                "\"Ende\" asks whether to end")
    listen.ui.key("j")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("kelvora", nargs="?",
                        default=os.path.join(e2e.SOURCE_ROOT, "build", "default", "kelvora"))
    parser.add_argument("--keep", action="store_true", help="keep the scratch folder")
    parser.add_argument("--verbose", action="store_true", help="print passed checks too")
    parser.add_argument("--orca", nargs=2, metavar=("TRANSCRIPT", "DEBUG_LOG"),
                        help=argparse.SUPPRESS)
    args = parser.parse_args()
    if args.orca:
        return run_orca(*args.orca)
    try:
        return listen_to_course(args)
    except e2e.Skip as e:
        print(f"SKIP: {e}", flush=True)
        return e2e.SKIP


def listen_to_course(args):
    for module in ("orca", "pyatspi"):
        if not any(os.path.isdir(os.path.join(folder, module)) for folder in sys.path if folder):
            e2e.skip(f"python module {module} not found for {sys.executable} (Debian package "
                     f"{'orca' if module == 'orca' else 'python3-pyatspi'}; run with "
                     "/usr/bin/python3)")
    for tool in ("Xvfb", "xdotool", "dbus-daemon", "dbus-send", "openbox"):
        if not shutil.which(tool):
            e2e.skip(f"{tool} not found")
    if not os.access(args.kelvora, os.X_OK):
        print(f"FAIL kelvora executable not found at {args.kelvora} (build it first)")
        return 1
    started = time.monotonic()
    scratch, folder = e2e.programme_copy(args.kelvora, "kelvora-orca-")
    transcript = os.path.join(scratch, "orca-speech.jsonl")
    checks = e2e.Checks(args.verbose)
    os.environ["KELVORA_E2E_SERVER"] = "xvfb"  # Orca needs no more than Xvfb
    session = e2e.Session(scratch, args.verbose)
    kelvora = orca_process = None
    skipped = None
    try:
        _, _, pyatspi, Atspi = session.start_desktop()

        # Orca first, as on a pupil's desktop; its settings in the scratch home.
        orca_env = dict(session.env, GSETTINGS_BACKEND="memory", LC_ALL="C.UTF-8",
                        LANG="C.UTF-8")
        orca_process = session.spawn(
            "orca", [sys.executable, os.path.abspath(__file__), "--orca", transcript,
                     os.path.join(scratch, "orca-debug.log")],
            env=orca_env, stdout=open(os.path.join(scratch, "orca.log"), "wb"),
            stderr=subprocess.STDOUT)
        orca = Orca(transcript, orca_process)
        if not orca.wait(0, [said("Screen reader on")], 30):
            e2e.skip("Orca did not start (no \"Screen reader on.\" within 30 s; its log: "
                     f"{os.path.join(scratch, 'orca.log')})")

        app_env = dict(session.env, QT_QPA_PLATFORM="xcb", QT_ACCESSIBILITY="1",
                       QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8", LANG="C.UTF-8")
        kelvora = session.spawn("kelvora", [os.path.join(folder, "kelvora")], cwd=folder,
                                env=app_env, stdout=open(os.path.join(scratch, "kelvora.log"),
                                                         "wb"),
                                stderr=subprocess.STDOUT)
        ui = e2e.Ui(pyatspi, Atspi, session, kelvora, checks)
        try:
            ui.find_application()
            walk(Listen(ui, orca, checks))
            try:
                status = kelvora.wait(timeout=10)
            except subprocess.TimeoutExpired:
                status = None
            checks.check(status == 0, "\"Ja\" ends the programme", f"status {status}")
        except e2e.Abort as e:
            checks.check(False, "the course could not go on", str(e))
    except e2e.Skip as e:
        skipped = e
    finally:
        for process in (kelvora, orca_process):
            e2e.stop(process)
        session.stop()
    if skipped is not None:
        shutil.rmtree(scratch, ignore_errors=True)
        raise skipped

    failed = checks.failed
    print(f"{checks.passed} checks passed, {len(failed)} failed, "
          f"{time.monotonic() - started:.0f} s")
    if args.keep or failed:
        os.remove(os.path.join(folder, "kelvora"))
        print(f"scratch folder kept: {scratch} (orca-speech.jsonl: what Orca said)")
    else:
        shutil.rmtree(scratch, ignore_errors=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())

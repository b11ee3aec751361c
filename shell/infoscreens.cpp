// SPDX-License-Identifier: GPL-3.0-or-later
#include "infoscreens.h"

#include "picture.h"
#include "screens.h"
#include "theme.h"
#include "widgets.h"
#include "zoom.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

struct InfoLayout {
    int blanks;
    const char *title;
    QSize size;
    QString (*text)();
    double textScale = 1.2; // the text's font against the page's
};

InfoLayout layoutOf(ScreenId id) {
    switch (id) {
    case ScreenId::WorkingMethod:
        return {Theme::kWorkingMethodCaptionBlanks, "Arbeitsweise", {760, 580}, &workingMethodText};
    case ScreenId::Author:
        return {Theme::kAuthorCaptionBlanks, "Autor und Version", {700, 520}, &authorText};
    case ScreenId::Requirements:
    default:
        return {Theme::kRequirementsCaptionBlanks,
                "Voraussetzungen und Besonderheiten",
                {760, 560},
                &requirementsText,
                1.1}; // the longest of the three texts
    }
}

QString icon(const char *resource, const char *name) {
    return QStringLiteral("<img src='%1' width='26' height='26' alt='%2'>")
        .arg(QLatin1String(resource), QString::fromUtf8(name));
}

// One step of the way of working: what the pupil sees or presses, and what it does.
QString step(const QString &what, const QString &explanation) {
    return QStringLiteral("<tr><td align='center' valign='middle' width='104'>%1</td>"
                          "<td valign='middle'>%2</td></tr>")
        .arg(what, explanation);
}

} // namespace

QString workingMethodText() {
    return QStringLiteral("<h2 style='margin-top:0'>Arbeitsweise</h2>"
                          "<p>Auf den Seiten 1 bis 10 stehen jeweils fünf Fragen, die "
                          "nacheinander erscheinen. Zu jeder Frage gibt es drei Antworten: A, B "
                          "und C.</p>"
                          "<table cellspacing='0' cellpadding='4'>") +
           step(QStringLiteral("<b>A B C</b>"),
                QStringLiteral("Tippe den Buchstaben der richtigen Antwort in das "
                               "Antwortfeld: <b>A</b>, <b>B</b> oder <b>C</b> (auch <b>a</b>, "
                               "<b>b</b> und <b>c</b> werden angenommen). Sofort erscheint ein "
                               "Bild mit der Rückmeldung: „Richtig!“ oder „Falsch!“ mit einem "
                               "Hinweis.")) +
           step(icon(":/button-repeat.svg", "Aufgabe wiederholen"),
                QStringLiteral("War die Antwort falsch, klicke hier und versuche es noch "
                               "einmal.")) +
           step(icon(":/button-next.svg", "Nächste Frage"),
                QStringLiteral("War sie richtig, geht es hier zur nächsten Frage; nach der "
                               "fünften Frage zur nächsten Seite.")) +
           step(QStringLiteral("<b>3&nbsp;von&nbsp;4</b>"),
                QStringLiteral("Die Punktanzeige zeigt, wie viele Antworten richtig waren und "
                               "wie viele du gegeben hast. Im Menü „Ansicht“ kannst du sie "
                               "aus- und einschalten.")) +
           step(QStringLiteral("<b>&lt;&lt;&nbsp;&nbsp;&gt;&gt;</b>"),
                QStringLiteral("Eine Seite zurück (von Seite 1 zum Steuerzentrum) oder eine "
                               "Seite weiter.")) +
           step(icon(":/button-end.svg", "Beenden"),
                QStringLiteral("Öffnet den Rahmen „Wie möchtest du beenden?“: „... hier "
                               "weiterarbeiten“ merkt sich die Seite für den nächsten Start, "
                               "„... von vorn beginnen“ lässt das nächste Mal vorn anfangen, "
                               "„Ich möchte nicht beenden“ schließt den Rahmen wieder.")) +
           step(QStringLiteral("<b>Wo&nbsp;bin&nbsp;ich?</b>"),
                QStringLiteral("Im Menü „Ansicht“: zeigt alle Seiten im Überblick; ein Klick "
                               "auf eine Zeile öffnet diese Seite.")) +
           QStringLiteral("</table>"
                          "<p>Auf Seite 11 folgt der Abschlusstest: zehn Fragen mit je vier "
                          "Antworten zum Anklicken. Jeder Klick wird bewertet und in der Datei "
                          "„TestergebnisQel.doc“ festgehalten; danach kannst du dir eine "
                          "Zensur geben lassen und das Ergebnis ausdrucken.</p>");
}

QString authorText() {
    return QStringLiteral("<h2 style='margin-top:0'>Kelvora</h2>"
                          "<p>Ein Lernprogramm zur elektrischen Leitung in Metallen, Gasen und "
                          "Halbleitern: Ladungsträger, Emission, Dioden und Transistoren.</p>"
                          "<p><b>Autor:</b> Kelvora-Team</p>"
                          "<p><b>Version:</b> %1</p>"
                          "<p>Freie Software unter der GNU General Public License, Version 3 "
                          "oder neuer.</p>")
        .arg(QStringLiteral(KELVORA_VERSION));
}

QString requirementsText() {
    return QStringLiteral(
        "<h2 style='margin-top:0'>Voraussetzungen und Besonderheiten</h2>"
        "<p>Das Programm arbeitet mit den Betriebssystemen WINDOWS 9x, WINDOWS 2000 und Windows "
        "XP. Diese Ausgabe läuft außerdem unter aktuellen Windows-Versionen und unter Linux.</p>"
        "<p>Gestartet wird das Programm mit der Datei <b>kelvora</b> (unter Windows "
        "<b>kelvora.exe</b>). Neben ihr müssen die Programmbibliotheken von Qt 6 liegen: unter "
        "Windows die Bibliotheken, die windeployqt in den Programmordner legt; unter Linux werden "
        "die Qt-6-Pakete der Distribution gebraucht.</p>"
        "<p>Während das Programm läuft, legt es die Datei StartQelB.txt an. Diese Datei darf "
        "nicht gelöscht werden.</p>"
        "<p>Wenn der Test auf Seite 11 bearbeitet wird, entsteht die Datei TestergebnisQel.doc "
        "und, wenn der Button „Zensierung“ angeklickt wird, die Datei ZensurQel.txt. Beide können "
        "mit einem Texteditor angesehen werden. TestergebnisQel.doc wird auf dem Standarddrucker "
        "ausgedruckt, wenn der Druckbutton angeklickt wird, oder kann aus einem "
        "Textverarbeitungsprogramm (z.B. Word, WordPad) heraus gedruckt werden.</p>"
        "<p>Wo die drei Dateien liegen: Ein installiertes Programm (zum Beispiel aus dem "
        "Debian-Paket) legt sie im eigenen Datenordner jeder Schülerin und jedes Schülers an, "
        "unter Linux in ~/.local/share/Kelvora, unter Windows in %APPDATA%\\Kelvora. So hat "
        "jeder, der sich am Rechner anmeldet, seine eigenen Dateien. Eine Kopie, die ohne "
        "Installation gestartet wird (von einem USB-Stick, aus einem entpackten Archiv oder von "
        "einem Netzlaufwerk), legt sie in ihrem Programmordner neben die Datei kelvora ab.</p>"
        "<p>Eine solche Kopie sollte von einem beschreibbaren Datenträger aus gestartet werden "
        "(Festplatte, Diskette, passend formatierte CD oder DVD in einem Brennerlaufwerk, "
        "USB-Stick). Kann das Programm nicht auf den Datenträger schreiben, fallen einige "
        "Funktionen aus: So merkt es sich zum Beispiel nicht mehr die Stelle, an der es beendet "
        "wurde, und die Arbeit kann später nicht dort fortgesetzt werden. Dasselbe gilt, wenn "
        "Ordner oder Dateien schreibgeschützt sind, beim installierten Programm der eigene "
        "Datenordner.</p>");
}

InfoScreen::InfoScreen(ScreenId id, double zoomFactor)
    : Form(id, zoomFactor) {
    const InfoLayout info = layoutOf(id);
    setWindowTitle(Theme::windowCaption(info.blanks, QString::fromUtf8(info.title)));
    setDesignSize(info.size);

    QWidget *central = tintedPage(this);
    Zoom &z = zoom();

    picture = new Picture(info.text(), central);
    z.setFont(picture, info.textScale);
    picture->setFrameStyle(QFrame::Box | QFrame::Plain);
    if (id == ScreenId::Author)
        picture->setDrawing(QStringLiteral(":/title.svg"),
                            QStringLiteral("Titelbild: Elektronen im Metall, Glühemission und "
                                           "Transistor"));

    closeButton =
        pictureButton(QStringLiteral(":/button-close.svg"), QStringLiteral("Schließen"), central);
    closeButton->setDefault(true);

    auto *layout = new QVBoxLayout(central);
    z.setMargins(layout, 16, 16, 16, 12);
    z.setSpacing(layout, 10);
    layout->addWidget(picture, 1);
    layout->addWidget(closeButton, 0, Qt::AlignRight);

    setFormNames({{picture, "Image1"}, {closeButton, "Command1"}});
    connect(closeButton, &QPushButton::clicked, this, &InfoScreen::closeScreen);
}

void InfoScreen::closeScreen() {
    Screens::unload(this);
}

bool InfoScreen::closeOnEscape() {
    closeScreen();
    return true;
}

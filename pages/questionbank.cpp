// SPDX-License-Identifier: GPL-3.0-or-later
#include "questionbank.h"

#include <QStringList>
#include <QtGlobal>

namespace {

using Q = BankQuestion;
using F = BankFeedback;

QString s(const char16_t *text) {
    return QString::fromUtf16(text);
}

const QString kRight = QStringLiteral("Richtig!");
const QString kWrong = QStringLiteral("Falsch!");

// The last two pictures of every page: nothing typed, and a letter other than A, B or C.
F emptyAnswer() {
    return {{}, s(u"Du hast vergessen, etwas einzugeben."), true};
}

F otherLetter() {
    return {kWrong, s(u"Du darfst nur mit A, B oder C (oder a, b oder c) antworten."), true};
}

std::array<PageBank, 10> makeBank() {
    std::array<PageBank, 10> bank;

    bank[0].questions = {{
        {s(u"1. Welche zwei Voraussetzungen müssen vorhanden sein, damit Strom fließt?"),
         {},
         {},
         {},
         {s(u"ein elektrisches Feld und ein Vakuum"),
          s(u"eine Spannungsquelle und ein elektrisches Feld"),
          s(u"ein elektrisches Feld (Spannungsquelle) und freibewegliche Ladungsträger")}},
        {s(u"2. Wie sind Elektronen geladen?"),
         {},
         {},
         {},
         {s(u"positiv"), s(u"negativ"), s(u"elektrisch neutral")}},
        {s(u"3. Welche Ladungsträger leiten in Metallen den Strom?"),
         {},
         {},
         {},
         {s(u"freie Elektronen"), s(u"Ionen"), s(u"Löcher")}},
        {s(u"4. Warum leitet Kupfer den Strom besser als Eisen?"),
         {},
         {},
         {},
         {s(u"Kupfer besitzt mehr freie Elektronen als Eisen."),
          s(u"Kupfer besitzt weniger freie Elektronen als Eisen."),
          s(u"Kupfer besitzt mehr bewegliche Ionen als Eisen.")}},
        {s(u"5. Wie ändert sich bei Metallen der Widerstand, wenn das Metall erwärmt wird?"),
         {},
         {},
         {},
         {s(u"Der Widerstand wird größer."), s(u"Der Widerstand wird kleiner."),
          s(u"Der Widerstand ändert sich überhaupt nicht.")}},
    }};
    bank[0].feedback = {
        {kWrong,
         s(u"Das elektrische Feld ist eine notwendige Voraussetzung für das Fließen von Strom. "
           u"Dieser Teil der Antwort ist richtig."),
         true},
        {s(u"Unvollständig und deshalb falsch!"),
         s(u"Elektrisches Feld und Spannungsquelle sind fast dasselbe. Dieser Teil der Antwort "
           u"ist richtig."),
         true},
        {kRight, {}, false},
        {kWrong, s(u"Ein Tipp: Sie werden von negativ geladenen Körpern abgestoßen."), true},
        {kRight, {}, false},
        {kRight, {}, false},
        {kWrong, {}, true},
        {kWrong, s(u"Löcher treten nur bei Halbleitern auf."), true},
        {kRight, {}, false},
        {kWrong,
         s(u"Wenn weniger freie Elektronen vorhanden sind, wird doch der Strom schlechter "
           u"geleitet!"),
         true},
        {kWrong,
         s(u"Du müsstest bereits von der vorhergehenden Frage wissen, dass bei Metallen die "
           u"Ionen nicht den Strom leiten."),
         true},
        {kRight, {}, false},
        {kWrong, {}, true},
        {kWrong,
         s(u"Ein Tipp: Bei Erwärmung bewegen sich alle Teilchen schneller. Dadurch wird die "
           u"Bewegung der freien Elektronen stärker behindert."),
         true},
        emptyAnswer(),
        otherLetter(),
    };

    return bank;
}

QString escaped(const QString &text) {
    // Bank texts are plain apart from <sub> and <br>; only the ampersand needs care.
    QString out = text;
    out.replace(QLatin1Char('&'), QLatin1String("&amp;"));
    return out;
}

} // namespace

const PageBank &pageBank(int page) {
    static const std::array<PageBank, 10> bank = makeBank();
    Q_ASSERT(page >= 1 && page <= 10);
    return bank.at(static_cast<std::size_t>(page - 1));
}

QString questionHtml(const BankQuestion &q) {
    if (q.text.isEmpty())
        return {};
    return QStringLiteral("<div style=\"font-size:13pt; font-weight:600;\">%1</div>")
        .arg(escaped(q.text));
}

QString optionsHtml(const BankQuestion &q) {
    QString html = QStringLiteral("<div style=\"font-size:12pt;\">");
    if (!q.leadIn.isEmpty())
        html += QStringLiteral("<p style=\"margin-bottom:4px;\">%1</p>").arg(escaped(q.leadIn));
    html += QStringLiteral("<table cellspacing=\"0\" cellpadding=\"3\">");
    const std::array<QString, 3> letters = {QStringLiteral("A)"), QStringLiteral("B)"),
                                            QStringLiteral("C)")};
    for (std::size_t i = 0; i < letters.size(); ++i) {
        html += QStringLiteral("<tr><td valign=\"top\"><b>%1</b></td><td>%2</td></tr>")
                    .arg(letters[i], escaped(q.options[i]));
    }
    html += QStringLiteral("</table></div>");
    return html;
}

QString feedbackHtml(const BankFeedback &f, int page) {
    QStringList lines;
    if (!f.verdict.isEmpty()) {
        const bool right = f.verdict == kRight;
        lines << QStringLiteral(
                     "<span style=\"font-size:14pt; font-weight:700; color:%1;\">%2</span>")
                     .arg(right ? QStringLiteral("#0a6e1e") : QStringLiteral("#b3141e"),
                          escaped(f.verdict));
    }
    if (!f.body.isEmpty())
        lines << escaped(f.body);
    if (f.tryAgain) {
        QString closing = QStringLiteral("Antworte noch einmal.");
        if (page <= 2) {
            closing += QStringLiteral(" (Schaltknopf „Aufgabe wiederholen“&nbsp;&nbsp;"
                                      "<img src=\":/button-repeat.svg\" width=\"26\" "
                                      "height=\"26\" style=\"vertical-align:middle\">&nbsp;)");
        }
        lines << closing;
    }
    return QStringLiteral("<div style=\"font-size:12pt;\">") + lines.join(QStringLiteral("<br>")) +
           QStringLiteral("</div>");
}

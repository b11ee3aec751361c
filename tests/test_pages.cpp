// SPDX-License-Identifier: GPL-3.0-or-later
// The ten lesson pages as the pupil meets them: every letter of every question, the focus after
// a click into the answer field, what differs between pages, the texts of the pictures and the
// run from page 1 to the final test.
#include "lessonpage.h"
#include "modul1.h"
#include "picture.h"
#include "questionbank.h"
#include "screens.h"
#include "testsupport.h"

#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSvgRenderer>
#include <QTest>
#include <QTimer>

#include <set>

using namespace Modul1;

namespace {

// The answer keys as the course has them: the picture each letter shows and the scoring letters.
struct KeyRow {
    int page;
    int question; // 1..5 on the page
    int shows[3];
    const char *scores;
};

const KeyRow kKeys[] = {
    {1, 1, {0, 1, 2}, "C"},    {1, 2, {3, 4, 3}, "B"},    {1, 3, {5, 6, 7}, "A"},
    {1, 4, {8, 9, 10}, "A"},   {1, 5, {11, 12, 13}, "A"}, {2, 1, {0, 1, 2}, "C"},
    {2, 2, {3, 4, 5}, "C"},    {2, 3, {6, 7, 8}, "B"},    {2, 4, {9, 10, 11}, "A"},
    {2, 5, {12, 13, 14}, "A"}, {3, 1, {0, 1, 2}, "B"},    {3, 2, {3, 4, 5}, "B"},
    {3, 3, {6, 7, 8}, "A"},    {3, 4, {9, 10, 11}, "C"},  {3, 5, {12, 13, 14}, "C"},
    {4, 1, {0, 1, 2}, "C"},    {4, 2, {3, 4, 5}, "A"},    {4, 3, {6, 7, 8}, "C"},
    {4, 4, {9, 10, 11}, "A"},  {4, 5, {12, 13, 14}, "B"}, {5, 1, {0, 1, 2}, "BC"},
    {5, 2, {3, 4, 5}, "C"},    {5, 3, {6, 7, 8}, "A"},    {5, 4, {9, 10, 11}, "C"},
    {5, 5, {12, 13, 14}, "C"}, {6, 1, {0, 1, 2}, "A"},    {6, 2, {3, 4, 5}, "B"},
    {6, 3, {6, 7, 8}, "B"},    {6, 4, {9, 9, 10}, "C"},   {6, 5, {11, 11, 12}, "C"},
    {7, 1, {0, 0, 1}, "C"},    {7, 2, {1, 0, 0}, "A"},    {7, 3, {0, 1, 0}, "B"},
    {7, 4, {2, 3, 3}, "A"},    {7, 5, {4, 5, 4}, "B"},    {8, 1, {0, 1, 2}, "C"},
    {8, 2, {3, 4, 4}, "A"},    {8, 3, {5, 6, 7}, "BC"},   {8, 4, {8, 3, 8}, "B"},
    {8, 5, {4, 3, 4}, "B"},    {9, 1, {0, 1, 1}, "A"},    {9, 2, {1, 1, 0}, "C"},
    {9, 3, {1, 0, 1}, "B"},    {9, 4, {1, 0, 1}, "B"},    {9, 5, {2, 3, 0}, "C"},
    {10, 1, {0, 1, 2}, "BC"},  {10, 2, {3, 1, 3}, "B"},   {10, 3, {1, 3, 3}, "A"},
    {10, 4, {1, 3, 3}, "A"},   {10, 5, {3, 3, 1}, "C"},
};

// Per page: caption blanks, highest feedback index, and the pictures after which a click into
// the answer field sends the focus to "try again" (first) or to "next question" (second).
struct PageRow {
    int blanks;
    int highest;
    std::set<int> wrongGroup;
    std::set<int> rightGroup;
};

const PageRow kPagesTable[] = {
    {116, 15, {0, 1, 3, 6, 7, 9, 10, 12, 13}, {2, 4, 5, 8, 11}},
    {116, 16, {0, 1, 3, 4, 6, 8, 10, 11, 13, 14}, {2, 5, 7, 9, 12}},
    {116, 16, {0, 2, 3, 5, 7, 8, 9, 10, 12, 13, 15, 16}, {1, 4, 6, 11, 14}},
    {116, 16, {0, 1, 4, 5, 6, 7, 10, 11, 12, 14, 15, 16}, {2, 3, 8, 9, 13}},
    {116, 16, {0, 3, 4, 7, 8, 9, 10, 12, 13}, {1, 2, 5, 6, 11, 14}},
    {116, 14, {1, 2, 3, 5, 6, 8, 9, 11}, {0, 4, 7, 10, 12}},
    {116, 7, {0, 3, 4}, {1, 2, 5}},
    {116, 10, {0, 1, 4, 5, 7, 8}, {2, 3, 6}},
    {116, 5, {1, 2, 3, 4, 5}, {0}},
    {114, 5, {0, 3, 4, 5, 7, 8}, {1, 2}},
};

const PageRow &pageRow(int page) {
    return kPagesTable[page - 1];
}

QChar firstScoringLetter(int page, int question) {
    for (const KeyRow &row : kKeys) {
        if (row.page == page && row.question == question)
            return QLatin1Char(row.scores[0]);
    }
    return {};
}

// A screen the pages lead to that is not a lesson page.
class TargetScreen : public Form {
public:
    using Form::Form;
};

void registerTargets() {
    registerLessonPages();
    for (ScreenId id : {ScreenId::Steuerzentrum, ScreenId::Qel11})
        Screens::registerScreen(id, [id] { return new TargetScreen(id); });
}

LessonPage *openPage(int page) {
    return Screens::show<LessonPage>(pageScreen(page));
}

// Types the letter as a pupil does, after a pause long enough not to be thought hasty.
void type(TestProgramme &prog, LessonPage *page, const QString &letter) {
    prog.advance(10);
    QTest::keyClicks(page->Text1, letter);
}

// Answers the questions before `question` right and moves on with the next-question button.
void goToQuestion(TestProgramme &prog, LessonPage *page, int question) {
    for (int q = 1; q < question; ++q) {
        type(prog, page, firstScoringLetter(page->info().number, q));
        QTest::mouseClick(page->Command1, Qt::LeftButton);
    }
}

QList<int> visiblePictures(const LessonPage *page) {
    QList<int> shown;
    for (int i = 0; i < page->Image3.size(); ++i) {
        if (!page->Image3.at(i)->isHidden())
            shown.append(i);
    }
    return shown;
}

QString points(int correct, int answered) {
    return QStringLiteral(" %1 von %2").arg(correct).arg(answered);
}

} // namespace

class TestPages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { registerTargets(); }
    void letters_data();
    void letters();
    void pageRules_data();
    void pageRules();
    void saveAndEnd_data();
    void saveAndEnd();
    void pictureTexts_data();
    void pictureTexts();
    void bankIntegrity_data();
    void bankIntegrity();
    void drawings_data();
    void drawings();
    void runThroughAllPages();
};

void TestPages::letters_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("question");
    QTest::addColumn<QString>("letter");
    QTest::addColumn<int>("picture");
    QTest::addColumn<bool>("scores");
    for (const KeyRow &row : kKeys) {
        for (int l = 0; l < 3; ++l) {
            const QChar letter(QLatin1Char(static_cast<char>('A' + l)));
            const bool scores = QString::fromLatin1(row.scores).contains(letter);
            QTest::addRow("page %d question %d %c", row.page, row.question, 'A' + l)
                << row.page << row.question << QString(letter.toLower()) << row.shows[l] << scores;
        }
    }
}

// Every letter of every question: the picture shown, the point, the step buttons, the points
// display and where a click into the answer field sends the focus.
void TestPages::letters() {
    QFETCH(int, page);
    QFETCH(int, question);
    QFETCH(QString, letter);
    QFETCH(int, picture);
    QFETCH(bool, scores);

    TestProgramme prog;
    CorrectCount = 20;
    AnsweredCount = 30;
    LessonPage *p = openPage(page);
    QVERIFY(p);
    goToQuestion(prog, p, question);
    const int correctBefore = CorrectCount;
    const int answeredBefore = AnsweredCount;
    QVERIFY(!p->Image1[question - 1]->isHidden());
    QVERIFY(!p->Image2[question - 1]->isHidden());
    QCOMPARE(visiblePictures(p), QList<int>());

    type(prog, p, letter);

    QCOMPARE(p->Text1->text(), letter.toUpper());
    QCOMPARE(visiblePictures(p), QList<int>{picture});
    QCOMPARE(int(CorrectCount), correctBefore + (scores ? 1 : 0));
    QCOMPARE(int(AnsweredCount), answeredBefore + 1);
    QCOMPARE(p->Label9->text(), points(CorrectCount, AnsweredCount));
    QCOMPARE(p->Command1->isEnabled(), scores);
    QCOMPARE(p->Command5->isEnabled(), !scores);
    const bool flagTen = page == 6 && question == 4;
    QCOMPARE(int(AnswerCorrectFlag), scores ? (flagTen ? 10 : 1) : 0);

    // A second letter over the verdict is not evaluated again.
    QTest::keyClicks(p->Text1, QStringLiteral("b"));
    QCOMPARE(int(AnsweredCount), answeredBefore + 1);

    const PageRow &row = pageRow(page);
    // The first group sends the focus to "try again". After page 8's scoring C of question 3,
    // which stands in that group, "try again" is off and cannot take it: the focus stays in the
    // answer field and does not go on to "next question".
    QWidget *expected = nullptr;
    if (row.wrongGroup.count(picture))
        expected = scores ? static_cast<QWidget *>(p->Text1) : p->Command5;
    else if (row.rightGroup.count(picture))
        expected = p->Command1;
    QVERIFY(expected);
    p->Text1->setFocus();
    QTest::mouseClick(p->Text1, Qt::LeftButton);
    QCOMPARE(p->focusWidget(), expected);
}

void TestPages::pageRules_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("previous");
    QTest::addColumn<int>("next");
    const QString title = QStringLiteral("Kelvora");
    for (int page = 1; page <= 10; ++page) {
        const int blanks = page == 10 ? 114 : 116;
        const ScreenId previous = page == 1 ? ScreenId::Steuerzentrum : pageScreen(page - 1);
        QTest::addRow("page %d", page)
            << page
            << title + QString(blanks, QLatin1Char(' ')) + QStringLiteral("Seite %1").arg(page)
            << int(previous) << int(pageScreen(page + 1));
    }
}

// What differs between pages: caption, counts at load, timers, the hide loops and the pages
// before and after.
void TestPages::pageRules() {
    QFETCH(int, page);
    QFETCH(QString, caption);
    QFETCH(int, previous);
    QFETCH(int, next);
    const bool first = page == 1;
    const PageRow &row = pageRow(page);

    TestProgramme prog;
    CorrectCount = 7;
    AnsweredCount = 9;
    LessonPage *p = openPage(page);
    QVERIFY(p);
    QCOMPARE(p->windowTitle(), caption);
    QCOMPARE(int(CurrentPage), page);
    QCOMPARE(p->Label9->text(), first ? points(0, 0) : points(7, 9));
    QCOMPARE(p->Image3.size(), row.highest + 1);

    // Page 1 alone introduces the control buttons with two timers and a hint label.
    QCOMPARE(p->findChildren<QTimer *>().size(), first ? 3 : 1);
    QCOMPARE(p->Label12 != nullptr, first);
    if (first) {
        QVERIFY(p->Timer2->isActive());
        QCOMPARE(p->Label12->text(), QStringLiteral("Erklärung der Buttons ein- und ausschalten: "
                                                    "Menü: Ansicht / Erklärung Steuerbuttons"));
    }

    // A wrong answer, then every picture up to the highest index shown: "try again" hides all.
    const int question = 1;
    const QChar right = firstScoringLetter(page, question);
    const QString wrong = right == QLatin1Char('A') ? QStringLiteral("B") : QStringLiteral("A");
    type(prog, p, wrong);
    QVERIFY(p->Command5->isEnabled());
    for (Picture *picture : p->Image3)
        picture->show();
    QTest::mouseClick(p->Command5, Qt::LeftButton);
    QCOMPARE(visiblePictures(p), QList<int>());
    QCOMPARE(p->Text1->text(), QString());

    // The same for "next question".
    type(prog, p, QString(right));
    for (Picture *picture : p->Image3)
        picture->show();
    QTest::mouseClick(p->Command1, Qt::LeftButton);
    QCOMPARE(visiblePictures(p), QList<int>());
    QVERIFY(!p->Image1[1]->isHidden());

    // ">>" opens the next screen and unloads this page; "<<" from a fresh copy the previous one.
    QTest::mouseClick(p->Command4, Qt::LeftButton);
    QVERIFY(Screens::loaded(ScreenId(next)));
    QVERIFY(!Screens::loaded(pageScreen(page)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    p = openPage(page);
    QVERIFY(p);
    QTest::mouseClick(p->Command2, Qt::LeftButton);
    QVERIFY(Screens::loaded(ScreenId(previous)));
    QVERIFY(!Screens::loaded(pageScreen(page)));
}

void TestPages::saveAndEnd_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("page 1 saves the counts") << 1 << QByteArray("\"1\"\r\n1\r\n2\r\n");
    for (int page = 2; page <= 10; ++page) {
        QTest::addRow("page %d saves the page alone", page)
            << page << QByteArray("\"") + QByteArray::number(page) + QByteArray("\"\r\n");
    }
}

// "... hier weiterarbeiten" after one wrong and one right answer.
void TestPages::saveAndEnd() {
    QFETCH(int, page);
    QFETCH(QByteArray, bytes);

    TestProgramme prog;
    LessonPage *p = openPage(page);
    QVERIFY(p);
    const QChar right = firstScoringLetter(page, 1);
    type(prog, p, right == QLatin1Char('A') ? QStringLiteral("B") : QStringLiteral("A"));
    QTest::mouseClick(p->Command5, Qt::LeftButton);
    type(prog, p, QString(right));
    QTest::mouseClick(p->Command3, Qt::LeftButton);
    QVERIFY(!p->exitFrame.Frame10->isHidden());
    QTest::mouseClick(p->exitFrame.Command11, Qt::LeftButton);
    QVERIFY(Screens::programmeEnded());
    QCOMPARE(prog.read(QStringLiteral("StartQelB.txt")), bytes);
}

void TestPages::pictureTexts_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("array"); // Image1, Image2 or Image3
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("markup"); // a piece of the picture's rich text, or empty

    const auto row = [](const char *name, int page, const char *array, int index,
                        const char16_t *text, const char *markup = "") {
        QTest::newRow(name) << page << QString::fromLatin1(array) << index
                            << QString::fromUtf16(text) << QString::fromUtf8(markup);
    };
    row("question 6 with its lead-in", 2, "Image2", 0,
        u"Der Strom durch eine Glühlampe ist dann am größten, wenn A) sie ausgeschaltet wird. "
        u"B) sie eine Weile in Betrieb ist. C) sie noch relativ kalt ist (beim Einschalten).");
    row("question 10 B is the verdict alone", 2, "Image3", 13, u"Falsch!");
    row("question 10 C is the verdict alone", 2, "Image3", 14, u"Falsch!");
    row("page 3 closes without the button line", 3, "Image3", 0,
        u"Falsch! Bei niedriger Spannung ist auch die Beschleunigung der Ionen kleiner. Antworte "
        u"noch einmal.");
    row("question 21 B has no verdict", 5, "Image3", 1,
        u"Deine Antwort ist nicht grundsätzlich falsch, wenn du damit meinst, dass die Elektronen "
        u"beschleunigt werden indem ihre sonst geradlinige Bahn gekrümmt wird. Die Antwort C ist "
        u"auf alle Fälle richtig. (Bei der Punktbewertung wird dir deine Antwort als \"Richtig!\" "
        u"gewertet.)");
    row("question 24 C is right with a remark", 5, "Image3", 11,
        u"Richtig! Wenn die Spannung am Wehneltzylinder schwach positiv ist, entsteht ein heller "
        u"Bildpunkt.",
        "color:#0a6e1e");
    row("bebündelt", 6, "Image3", 2,
        u"Falsch! Durch die Heizung können die Elektronen nicht bebündelt werden. Antworte noch "
        u"einmal.");
    row("Ladungsträgerr", 7, "Image3", 4,
        u"Falsch! In p-leitendem Halbleitermaterial sind positive Ladungsträger in der Überzahl. "
        u"Um welche Ladungsträgerr handelt es sich? Antworte noch einmal.");
    row("Sperrrichtung", 8, "Image3", 0,
        u"Falsch! Die Halbleiterdiode ist in Sperrrichtung gepolt. Antworte noch einmal.");
    row("Sperrichtung", 8, "Image3", 2,
        u"Richtig! Die Halbleiterdiode ist in Sperrichtung gepolt und lässt deshalb keinen Strom "
        u"fließen.");
    row("question 38 A", 8, "Image3", 5,
        u"Falsch! Es kann auch sein, dass kein Strom fließt. Das ist von der Polung der "
        u"angelegten Spannung abhängig (Durchlassrichtung oder Sperrichtung). Antworte noch "
        u"einmal.");
    row("question 38 B names C too", 8, "Image3", 6, u"Richtig! Auch die Antwort C ist richtig.",
        "color:#0a6e1e");
    row("question 38 C names B too", 8, "Image3", 7, u"Richtig! Auch die Antwort B ist richtig.",
        "color:#0a6e1e");
    row("question 39 wrong", 8, "Image3", 8,
        u"Falsch! Überlege noch einmal selbst: Antworte noch einmal.");
    row("question 39", 8, "Image2", 3, u"A) Lampe 1 B) Lampe 2 C) beide Lampen");
    row("Transisistors", 9, "Image2", 0,
        u"A) Das ist das Schaltzeichen eines npn-Transisistors. B) Das ist das Schaltzeichen eines "
        u"pnp-Transistors. C) Das ist das Schaltzeichen einer Halbleiterdiode.");
    row("question 42 subscripts", 9, "Image1", 1,
        u"42. Vergleiche bei einem Transistor den Basisstrom IB mit dem Kollektorstrom IC.",
        "I<sub>B</sub>");
    row("question 42 comparison signs", 9, "Image2", 1, u"A) IB > IC B) IB = IC C) IB < IC",
        "I<sub>C</sub>");
    row("question 44 voltage", 9, "Image2", 3,
        u"A) Der Kollektorstrom IC steuert den Basisstrom IB. B) Der Basisstrom IB steuert den "
        u"Kollektorstrom IC. C) Die Basis-Emitter-Spannung UBE steuert den Kollektorstrom IC.",
        "U<sub>BE</sub>");
    row("question 45 B", 9, "Image3", 3,
        u"Falsch! Eine Halbleiterdiode kann zwar Wechselstrom gleichrichten, aber keine Signale "
        u"verstärken. Antworte noch einmal.");
    row("question 46 C has no verdict", 10, "Image3", 2,
        u"Ein Transistor wird in der Regel als Schalter oder als Verstärker eingesetzt. Es ist "
        u"aber auch möglich, den Transistor zur Gleichrichtung von Wechselstrom einzusetzen. "
        u"Insofern ist deine Antwort nicht ganz falsch. Die beste Antwort war: B "
        u"Halbleiterdiode.");
    row("question 47 gain factor", 10, "Image1", 1,
        u"47. Wie berechnet man den Stromverstärkungsfaktor β eines Transistors?", "<i>β</i>");
    row("question 47 options", 10, "Image2", 1, u"A) IB durch IC B) IC durch IB C) IE durch IC",
        "I<sub>E</sub>");
    row("question 50 with its lead-in", 10, "Image2", 4,
        u"Sie arbeiten als A) als Verstärker B) als Gleichrichter C) als Schalter");
    row("question 50", 10, "Image1", 4, u"50. Welche Aufgabe haben Transistoren in Speicherchips?");
}

// Texts of single pictures as the page shows them, slips of the pen included.
void TestPages::pictureTexts() {
    QFETCH(int, page);
    QFETCH(QString, array);
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(QString, markup);

    TestProgramme prog;
    LessonPage *p = openPage(page);
    QVERIFY(p);
    const Picture *picture = nullptr;
    if (array == QLatin1String("Image1"))
        picture = p->Image1.at(index);
    else if (array == QLatin1String("Image2"))
        picture = p->Image2.at(index);
    else
        picture = p->Image3.at(index);
    QCOMPARE(picture->plainText(), text);
    if (!markup.isEmpty())
        QVERIFY2(picture->html().contains(markup), qPrintable(picture->html()));
}

void TestPages::bankIntegrity_data() {
    QTest::addColumn<int>("page");
    for (int page = 1; page <= 10; ++page)
        QTest::addRow("page %d", page) << page;
}

// Each page: five numbered questions with three options, the last two pictures for bad input,
// a closing line for every wrong answer, and the button line on pages 1 and 2 only.
void TestPages::bankIntegrity() {
    QFETCH(int, page);
    TestProgramme prog;
    LessonPage *p = openPage(page);
    QVERIFY(p);
    const PageRow &row = pageRow(page);

    for (int q = 0; q < 5; ++q) {
        const int number = (page - 1) * 5 + q + 1;
        QVERIFY2(p->Image1[q]->plainText().startsWith(QStringLiteral("%1. ").arg(number)),
                 qPrintable(p->Image1[q]->plainText()));
        const QString options = p->Image2[q]->plainText();
        const qsizetype a = options.indexOf(QStringLiteral("A) "));
        const qsizetype b = options.indexOf(QStringLiteral(" B) "));
        const qsizetype c = options.indexOf(QStringLiteral(" C) "));
        QVERIFY2(a >= 0 && b > a + 3 && c > b + 4 && c + 4 < options.size(), qPrintable(options));
    }

    const QString buttonLine = QStringLiteral("Antworte noch einmal. (Schaltknopf „Aufgabe "
                                              "wiederholen“");
    const QString closing = page <= 2 ? buttonLine : QStringLiteral("Antworte noch einmal.");
    const qsizetype n = p->Image3.size();
    QCOMPARE(n, qsizetype(row.highest + 1));
    const QString empty = p->Image3.at(n - 2)->plainText();
    const QString other = p->Image3.at(n - 1)->plainText();
    QVERIFY2(empty.startsWith(QStringLiteral("Du hast vergessen, etwas einzugeben. ") + closing),
             qPrintable(empty));
    QVERIFY2(other.startsWith(QStringLiteral("Falsch! Du darfst nur mit A, B oder C (oder a, b "
                                             "oder c) antworten. ") +
                              closing),
             qPrintable(other));

    // Every picture an answer shows: "Richtig!" pictures never ask again, "Falsch!" pictures do
    // (bar page 2's question 10), and only pages 1 and 2 name the repeat button.
    std::set<int> used;
    for (const KeyRow &key : kKeys) {
        if (key.page == page)
            used.insert(std::begin(key.shows), std::end(key.shows));
    }
    QCOMPARE(int(used.size()), row.highest - 1);
    for (int i : used) {
        const QString text = p->Image3.at(i)->plainText();
        QVERIFY2(!text.isEmpty(), qPrintable(QString::number(i)));
        if (text.startsWith(QStringLiteral("Richtig!")))
            QVERIFY2(!text.contains(QStringLiteral("Antworte noch einmal.")), qPrintable(text));
        if (text.startsWith(QStringLiteral("Falsch!")) && !(page == 2 && i >= 13))
            QVERIFY2(text.contains(closing), qPrintable(text));
        QCOMPARE(text.contains(QStringLiteral("Schaltknopf")),
                 page <= 2 && text.contains(QStringLiteral("Antworte noch einmal.")));
    }
}

void TestPages::drawings_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("question");
    QTest::addColumn<QString>("text");
    QTest::newRow("diode in a circuit") << 8 << 1
                                        << QStringLiteral("36. Fließt Strom durch die abgebildete "
                                                          "Halbleiterdiode?");
    QTest::newRow("two lamps") << 8 << 4 << QStringLiteral("39. Welche Lampe leuchtet?");
    QTest::newRow("transistor symbol") << 9 << 1 << QStringLiteral("41. Was zeigt das Bild?");
}

// The three drawn questions: the drawing is painted on the page, at a readable size, and a
// screen reader hears the question together with the description of the drawing.
void TestPages::drawings() {
    QFETCH(int, page);
    QFETCH(int, question);
    QFETCH(QString, text);

    TestProgramme prog;
    LessonPage *p = openPage(page);
    QVERIFY(p);
    goToQuestion(prog, p, question);
    Picture *picture = p->Image1[question - 1];
    QVERIFY(!picture->isHidden());
    QCOMPARE(picture->plainText(), text);
    const BankQuestion &q = pageBank(page).questions[question - 1];
    QVERIFY(QSvgRenderer(q.drawing).isValid());
    QVERIFY(q.drawingDescription.size() > 80);
    QCOMPARE(picture->accessibleName(), text + QLatin1Char(' ') + q.drawingDescription);

    p->show();
    QVERIFY(QTest::qWaitForWindowExposed(p));
    auto *view = picture->findChild<SvgView *>();
    QVERIFY(view);
    QVERIFY2(view->height() >= 72 && view->height() <= 110,
             qPrintable(QString::number(view->height())));
    QVERIFY(p->height() <= 600);
    const QImage image = view->grab().toImage();
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            dark += qGray(image.pixel(x, y)) < 96 ? 1 : 0;
    }
    QVERIFY2(dark > 400, qPrintable(QString::number(dark)));
}

// Every question answered right, page after page: the counts run on and page 10 leads to the
// final test.
void TestPages::runThroughAllPages() {
    TestProgramme prog;
    LessonPage *p = openPage(1);
    QVERIFY(p);
    for (int page = 1; page <= 10; ++page) {
        QCOMPARE(Screens::activeScreen(), p);
        QCOMPARE(p->Label9->text(), points((page - 1) * 5, (page - 1) * 5));
        for (int q = 1; q <= 5; ++q) {
            QVERIFY(!p->Image1[q - 1]->isHidden());
            type(prog, p, firstScoringLetter(page, q));
            QVERIFY(p->Command1->isEnabled());
            QTest::mouseClick(p->Command1, Qt::LeftButton);
        }
        QVERIFY(!Screens::loaded(pageScreen(page)));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (page < 10)
            p = Screens::loaded<LessonPage>(pageScreen(page + 1));
        QVERIFY(p || page == 10);
    }
    QVERIFY(Screens::loaded(ScreenId::Qel11));
    QCOMPARE(Screens::activeScreen(), Screens::loaded(ScreenId::Qel11));
    QCOMPARE(int(CorrectCount), 50);
    QCOMPARE(int(AnsweredCount), 50);
}

QTEST_MAIN(TestPages)
#include "test_pages.moc"

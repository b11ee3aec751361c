// SPDX-License-Identifier: GPL-3.0-or-later
// The ten lesson pages: every letter, what differs per page, picture texts, the run to the end.
#include "captionlabel.h"
#include "course.h"
#include "lessonpage.h"
#include "picture.h"
#include "questionbank.h"
#include "screens.h"
#include "testsupport.h"

#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <cstring>
#include <set>

namespace {

// Each page: its highest feedback index, the pictures after which a click into the answer field
// sends the focus to "try again" or to "next question", and per question the picture each
// letter A, B, C shows and the scoring letters.
struct PageRow {
    int highest;
    std::set<int> wrongGroup;
    std::set<int> rightGroup;
    int shows[5][3];
    const char *scores[5];
};

// clang-format off
const PageRow kPages[] = {
    {15, {0, 1, 3, 6, 7, 9, 10, 12, 13}, {2, 4, 5, 8, 11},
     {{0, 1, 2}, {3, 4, 3}, {5, 6, 7}, {8, 9, 10}, {11, 12, 13}}, {"C", "B", "A", "A", "A"}},
    {16, {0, 1, 3, 4, 6, 8, 10, 11, 13, 14}, {2, 5, 7, 9, 12},
     {{0, 1, 2}, {3, 4, 5}, {6, 7, 8}, {9, 10, 11}, {12, 13, 14}}, {"C", "C", "B", "A", "A"}},
    {16, {0, 2, 3, 5, 7, 8, 9, 10, 12, 13, 15, 16}, {1, 4, 6, 11, 14},
     {{0, 1, 2}, {3, 4, 5}, {6, 7, 8}, {9, 10, 11}, {12, 13, 14}}, {"B", "B", "A", "C", "C"}},
    {16, {0, 1, 4, 5, 6, 7, 10, 11, 12, 14, 15, 16}, {2, 3, 8, 9, 13},
     {{0, 1, 2}, {3, 4, 5}, {6, 7, 8}, {9, 10, 11}, {12, 13, 14}}, {"C", "A", "C", "A", "B"}},
    {16, {0, 3, 4, 7, 8, 9, 10, 12, 13}, {1, 2, 5, 6, 11, 14},
     {{0, 1, 2}, {3, 4, 5}, {6, 7, 8}, {9, 10, 11}, {12, 13, 14}}, {"BC", "C", "A", "C", "C"}},
    {14, {1, 2, 3, 5, 6, 8, 9, 11}, {0, 4, 7, 10, 12},
     {{0, 1, 2}, {3, 4, 5}, {6, 7, 8}, {9, 9, 10}, {11, 11, 12}}, {"A", "B", "B", "C", "C"}},
    {7, {0, 3, 4}, {1, 2, 5},
     {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}, {2, 3, 3}, {4, 5, 4}}, {"C", "A", "B", "A", "B"}},
    {10, {0, 1, 4, 5, 7, 8}, {2, 3, 6},
     {{0, 1, 2}, {3, 4, 4}, {5, 6, 7}, {8, 3, 8}, {4, 3, 4}}, {"C", "A", "BC", "B", "B"}},
    {5, {1, 2, 3, 4, 5}, {0},
     {{0, 1, 1}, {1, 1, 0}, {1, 0, 1}, {1, 0, 1}, {2, 3, 0}}, {"A", "C", "B", "B", "C"}},
    {5, {0, 3, 4, 5, 7, 8}, {1, 2},
     {{0, 1, 2}, {3, 1, 3}, {1, 3, 3}, {1, 3, 3}, {3, 3, 1}}, {"BC", "B", "A", "A", "C"}},
};
// clang-format on

const PageRow &pageRow(int page) {
    return kPages[page - 1];
}

QString rightLetter(int page, int question) {
    return QString(QLatin1Char(pageRow(page).scores[question - 1][0]));
}

LessonPage *openPage(int page) {
    return Screens::show<LessonPage>(pageScreen(page));
}

// Types the letter as a pupil does, after a pause long enough not to be thought hasty.
void type(TestProgramme &prog, LessonPage *page, const QString &letter) {
    prog.advance(10);
    QTest::keyClicks(page->answerEdit, letter);
}

// Answers the questions before `question` right and moves on with the next-question button.
void goToQuestion(TestProgramme &prog, LessonPage *page, int question) {
    for (int q = 1; q < question; ++q) {
        type(prog, page, rightLetter(page->info().number, q));
        QTest::mouseClick(page->nextQuestionButton, Qt::LeftButton);
    }
}

template <class Pictures> QList<int> visible(const Pictures &pictures) {
    QList<int> shown;
    for (int i = 0; i < int(pictures.size()); ++i)
        if (!pictures[i]->isHidden())
            shown.append(i);
    return shown;
}

} // namespace

class TestPages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        registerLessonPages();
        registerProbes({{ScreenId::ControlCentre, QStringLiteral("Steuerzentrum")},
                        {ScreenId::FinalTest, QStringLiteral("Qel11")}});
    }
    void letters_data();
    void letters();
    void pageRules_data();
    void pageRules();
    void pictureTexts_data();
    void pictureTexts();
    void drawings_data();
    void drawings();
    void runThroughAllPages();
};

void TestPages::letters_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("question");
    QTest::addColumn<QString>("letter");
    QTest::addColumn<int>("picture");
    QTest::addColumn<int>("flag"); // course.answerCorrectFlag afterwards
    for (int page = 1; page <= 10; ++page) {
        const PageRow &row = pageRow(page);
        for (int q = 0; q < 5; ++q) {
            for (int l = 0; l < 3; ++l) {
                const int flag =
                    std::strchr(row.scores[q], 'A' + l) ? 1 + 9 * (page == 6 && q == 3) : 0;
                QTest::addRow("page %d question %d %c", page, q + 1, 'A' + l)
                    << page << q + 1 << QString(QLatin1Char('a' + l)) << row.shows[q][l] << flag;
            }
        }
    }
}

// Every letter of every question: the picture shown, the point, the step buttons and the focus,
// the points display and where a click into the answer field then sends the focus.
void TestPages::letters() {
    QFETCH(int, page);
    QFETCH(int, question);
    QFETCH(QString, letter);
    QFETCH(int, picture);
    QFETCH(int, flag);
    const bool scores = flag != 0;

    TestProgramme prog;
    LessonPage *p = openPage(page);
    goToQuestion(prog, p, question);
    QCOMPARE(visible(p->questionPictures), QList<int>{question - 1});
    QCOMPARE(visible(p->optionPictures), QList<int>{question - 1});

    type(prog, p, letter);

    QCOMPARE(p->answerEdit->text(), letter.toUpper());
    QCOMPARE(visible(p->feedbackPictures), QList<int>{picture});
    const int correct = question - 1 + (scores ? 1 : 0);
    QCOMPARE(p->pointsLabel->text(), QStringLiteral(" %1 von %2").arg(correct).arg(question));
    QCOMPARE(p->nextQuestionButton->isEnabled(), scores);
    QCOMPARE(p->retryButton->isEnabled(), !scores);
    QCOMPARE(p->focusWidget(), scores ? p->nextQuestionButton : p->retryButton);
    QCOMPARE(int(course.answerCorrectFlag), flag);

    // The first group sends the focus to "try again". Page 8's scoring C of question 3 stands in
    // it: "try again" is off and cannot take the focus, which stays in the answer field.
    const PageRow &row = pageRow(page);
    QWidget *expected = nullptr;
    if (row.wrongGroup.count(picture))
        expected = scores ? static_cast<QWidget *>(p->answerEdit) : p->retryButton;
    else if (row.rightGroup.count(picture))
        expected = p->nextQuestionButton;
    QVERIFY(expected);
    p->answerEdit->setFocus();
    QTest::mouseClick(p->answerEdit, Qt::LeftButton);
    QCOMPARE(p->focusWidget(), expected);
}

void TestPages::pageRules_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("blanks");
    QTest::addColumn<QByteArray>("saved"); // StartQelB.txt after "hier weiterarbeiten"
    for (int page = 1; page <= 10; ++page) {
        QTest::addRow("page %d", page) << page << (page == 10 ? 114 : 116)
                                       << (page == 1 ? QByteArray("\"1\"\r\n1\r\n2\r\n")
                                                     : "\"" + QByteArray::number(page) + "\"\r\n");
    }
}

// What differs between pages: ">>" and "<<", caption, counts at load, timers, texts, the hide
// loops of "try again" and "next question", and what "hier weiterarbeiten" saves after one wrong
// and one right answer.
void TestPages::pageRules() {
    QFETCH(int, page);
    QFETCH(int, blanks);
    QFETCH(QByteArray, saved);
    const bool first = page == 1;
    const PageRow &row = pageRow(page);

    TestProgramme prog;
    // ">>" opens the next screen and unloads the page; "<<" from a fresh copy the previous one.
    QTest::mouseClick(openPage(page)->nextPageButton, Qt::LeftButton);
    QVERIFY(Screens::loaded(pageScreen(page + 1)) && !Screens::loaded(pageScreen(page)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::mouseClick(openPage(page)->previousPageButton, Qt::LeftButton);
    QVERIFY(Screens::loaded(first ? ScreenId::ControlCentre : pageScreen(page - 1)) &&
            !Screens::loaded(pageScreen(page)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    course.correctCount = 7;
    course.answeredCount = 9;
    LessonPage *p = openPage(page);
    QCOMPARE(p->windowTitle(), QStringLiteral("Kelvora") + QString(blanks, QLatin1Char(' ')) +
                                   QStringLiteral("Seite %1").arg(page));
    QCOMPARE(p->pointsLabel->text(),
             first ? QStringLiteral(" 0 von 0") : QStringLiteral(" 7 von 9"));
    QCOMPARE(p->feedbackPictures.size(), row.highest + 1);

    // Page 1 alone introduces the control buttons with two timers and a hint label.
    QCOMPARE(p->findChildren<QTimer *>().size(), first ? 3 : 1);
    QCOMPARE(p->explanationHint != nullptr, first);
    if (first)
        QCOMPARE(p->explanationHint->text(),
                 QStringLiteral("Erklärung der Buttons ein- und ausschalten: "
                                "Menü: Ansicht / Erklärung Steuerbuttons"));

    // Five numbered questions with three options, the last two pictures for bad input, a closing
    // line for every wrong answer, and the button line on pages 1 and 2 only.
    const QRegularExpression options(QStringLiteral("^(.+ )?A\\) .+ B\\) .+ C\\) .+$"));
    for (int q = 0; q < 5; ++q) {
        QVERIFY(p->questionPictures[q]->plainText().startsWith(
            QStringLiteral("%1. ").arg(page * 5 - 4 + q)));
        QVERIFY(options.match(p->optionPictures[q]->plainText()).hasMatch());
    }

    const QString closing = page <= 2 ? QStringLiteral("Antworte noch einmal. (Schaltknopf "
                                                       "„Aufgabe wiederholen“ )")
                                      : QStringLiteral("Antworte noch einmal.");
    QCOMPARE(p->feedbackPictures.at(row.highest - 1)->plainText(),
             QStringLiteral("Du hast vergessen, etwas einzugeben. ") + closing);
    QCOMPARE(p->feedbackPictures.at(row.highest)->plainText(),
             QStringLiteral("Falsch! Du darfst nur mit A, B oder C (oder a, b oder c) "
                            "antworten. ") +
                 closing);

    // Every picture an answer shows: "Richtig!" pictures never ask again, "Falsch!" pictures do
    // (bar page 2's question 10), and only pages 1 and 2 name the repeat button.
    std::set<int> used;
    for (const auto &shows : row.shows)
        used.insert(std::begin(shows), std::end(shows));
    QCOMPARE(int(used.size()), row.highest - 1);
    for (int i : used) {
        const QString text = p->feedbackPictures.at(i)->plainText();
        QVERIFY2(!text.isEmpty(), qPrintable(QString::number(i)));
        if (text.startsWith(QStringLiteral("Richtig!")))
            QVERIFY2(!text.contains(QStringLiteral("Antworte noch einmal.")), qPrintable(text));
        if (text.startsWith(QStringLiteral("Falsch!")) && !(page == 2 && i >= 13))
            QVERIFY2(text.endsWith(closing), qPrintable(text));
        QCOMPARE(text.contains(QStringLiteral("Schaltknopf")),
                 page <= 2 && text.contains(QStringLiteral("Antworte noch einmal.")));
    }

    // With every picture up to the highest index shown, "try again" and "next question" hide all.
    type(prog, p, QLatin1String(rightLetter(page, 1) == QLatin1String("A") ? "B" : "A"));
    for (Picture *picture : p->feedbackPictures)
        picture->show();
    QTest::mouseClick(p->retryButton, Qt::LeftButton);
    QCOMPARE(visible(p->feedbackPictures), QList<int>());
    type(prog, p, rightLetter(page, 1));
    for (Picture *picture : p->feedbackPictures)
        picture->show();
    QTest::mouseClick(p->nextQuestionButton, Qt::LeftButton);
    QCOMPARE(visible(p->feedbackPictures), QList<int>());

    QTest::mouseClick(p->endButton, Qt::LeftButton);
    QVERIFY(!p->exitFrame->isHidden());
    QTest::mouseClick(p->resumeButton, Qt::LeftButton);
    QVERIFY(Screens::programmeEnded());
    QCOMPARE(prog.read(QStringLiteral("StartQelB.txt")), saved);
}

void TestPages::pictureTexts_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("picture"); // Image1_<question>, Image2_<question>, Image3_<n>
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("markup"); // a piece of the picture's rich text, or empty

    const auto row = [](const char *name, int page, const char *picture, const char16_t *text,
                        const char *markup = "") {
        QTest::newRow(name) << page << QString::fromLatin1(picture) << QString::fromUtf16(text)
                            << QString::fromUtf8(markup);
    };
    row("question 3 A names the repeat button", 1, "Image3_6",
        u"Falsch! Antworte noch einmal. (Schaltknopf „Aufgabe wiederholen“ )",
        ":/button-repeat.svg");
    row("bebündelt", 6, "Image3_2",
        u"Falsch! Durch die Heizung können die Elektronen nicht bebündelt werden. Antworte noch "
        u"einmal.");
    row("Ladungsträgerr", 7, "Image3_4",
        u"Falsch! In p-leitendem Halbleitermaterial sind positive Ladungsträger in der Überzahl. "
        u"Um welche Ladungsträgerr handelt es sich? Antworte noch einmal.");
    row("Sperrrichtung", 8, "Image3_0",
        u"Falsch! Die Halbleiterdiode ist in Sperrrichtung gepolt. Antworte noch einmal.");
    row("Sperrichtung", 8, "Image3_2",
        u"Richtig! Die Halbleiterdiode ist in Sperrichtung gepolt und lässt deshalb keinen Strom "
        u"fließen.",
        "color:#0a6e1e");
    row("Transisistors", 9, "Image2_0",
        u"A) Das ist das Schaltzeichen eines npn-Transisistors. B) Das ist das Schaltzeichen eines "
        u"pnp-Transistors. C) Das ist das Schaltzeichen einer Halbleiterdiode.");
    row("question 42 subscripts", 9, "Image1_1",
        u"42. Vergleiche bei einem Transistor den Basisstrom IB mit dem Kollektorstrom IC.",
        "I<sub>B</sub>");
    row("question 42 comparison signs", 9, "Image2_1", u"A) IB > IC B) IB = IC C) IB < IC",
        "I<sub>C</sub>");
    row("question 47 gain factor", 10, "Image1_1",
        u"47. Wie berechnet man den Stromverstärkungsfaktor β eines Transistors?", "<i>β</i>");
    row("question 50 with its lead-in", 10, "Image2_4",
        u"Sie arbeiten als A) als Verstärker B) als Gleichrichter C) als Schalter");
}

// Texts of single pictures as the page shows them and a screen reader reads them, slips of the
// pen included.
void TestPages::pictureTexts() {
    QFETCH(int, page);
    QFETCH(QString, picture);
    QFETCH(QString, text);
    QFETCH(QString, markup);

    TestProgramme prog;
    const Picture *shown = openPage(page)->findChild<Picture *>(picture);
    QVERIFY(shown);
    QCOMPARE(shown->plainText(), text);
    QCOMPARE(shown->accessibleName(), text);
    QVERIFY2(shown->html().contains(markup), qPrintable(shown->html()));
}

void TestPages::drawings_data() {
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("question");
    QTest::addColumn<QString>("text");
    QTest::newRow("diode in a circuit")
        << 8 << 1 << QStringLiteral("36. Fließt Strom durch die abgebildete Halbleiterdiode?");
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
    goToQuestion(prog, p, question);
    Picture *picture = p->questionPictures[question - 1];
    QCOMPARE(picture->accessibleName(),
             text + QLatin1Char(' ') + pageBank(page).questions[question - 1].drawingDescription);

    p->show();
    QVERIFY(QTest::qWaitForWindowExposed(p));
    auto *view = picture->findChild<SvgView *>();
    QVERIFY(view);
    QVERIFY(view->height() >= 72 && view->height() <= 110);
    QVERIFY(p->height() <= 600);
    const QImage image = view->grab().toImage();
    int dark = 0;
    for (int i = 0; i < image.width() * image.height(); ++i)
        dark += qGray(image.pixel(i % image.width(), i / image.width())) < 96 ? 1 : 0;
    QVERIFY2(dark > 400, qPrintable(QString::number(dark)));
}

// Every question answered right, page after page: each step clears the way for the next one, the
// counts run on, only page 1 withdraws the button explanation, page 10 leads to the final test.
void TestPages::runThroughAllPages() {
    TestProgramme prog;
    LessonPage *p = openPage(1);
    for (int page = 1; page <= 10; ++page) {
        QVERIFY(p);
        QCOMPARE(p->pointsLabel->text(), QStringLiteral(" %1 von %1").arg((page - 1) * 5));
        for (int q = 1; q <= 5; ++q) {
            type(prog, p, rightLetter(page, q));
            if (q == 5)
                QCOMPARE(p->explanationPicture->isHidden(), page == 1);
            QTest::mouseClick(p->nextQuestionButton, Qt::LeftButton);
            if (q < 5) {
                QVERIFY(!p->nextQuestionButton->isEnabled());
                QCOMPARE(p->focusWidget(), p->answerEdit);
            }
        }
        QVERIFY(!Screens::loaded(pageScreen(page)));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (page < 10)
            p = Screens::loaded<LessonPage>(pageScreen(page + 1));
    }
    QVERIFY(Screens::loaded(ScreenId::FinalTest) &&
            Screens::activeScreen() == Screens::loaded(ScreenId::FinalTest));
    QCOMPARE(int(course.correctCount), 50);
    QCOMPARE(int(course.answeredCount), 50);
}

QTEST_MAIN(TestPages)
#include "test_pages.moc"

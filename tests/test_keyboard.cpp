// SPDX-License-Identifier: GPL-3.0-or-later
// Every screen by keyboard and screen reader: Enter on the focused button, Escape on what lies in
// front, where the focus goes, the order of Tab, the focus frame, and the contrast of every text.
#include "application.h"
#include "captionlabel.h"
#include "controlcentre.h"
#include "course.h"
#include "displaymodes.h"
#include "displaymodescreen.h"
#include "endpage.h"
#include "finaltestpage.h"
#include "gradescale.h"
#include "infoscreens.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "shell.h"
#include "startscreen.h"
#include "testsupport.h"
#include "theme.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

class FakeDisplay : public DisplayBackend {
public:
    std::optional<DisplaySize> mode(int index) override {
        const QList<DisplaySize> modes{{800, 600}, {1024, 768}, {1280, 1024}};
        return index < modes.size() ? std::optional(modes.at(index)) : std::nullopt;
    }
    void change(int, int) override {}
    DisplaySize currentSize() override { return {1024, 768}; }
};

// WCAG 2.1 contrast of two colours.
double contrast(const QColor &a, const QColor &b) {
    const auto luminance = [](const QColor &c) {
        const auto channel = [](double v) {
            return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) +
               0.0722 * channel(c.blueF());
    };
    const double x = luminance(a);
    const double y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

// What the pupil sees behind a control: a button's own face, the base of a field or a list, else
// the colour of the nearest widget that paints its background.
QColor background(const QWidget *w) {
    const QPalette::ColorGroup group = w->isEnabled() ? QPalette::Active : QPalette::Disabled;
    if (qobject_cast<const QPushButton *>(w))
        return w->palette().color(group, QPalette::Button);
    if (qobject_cast<const QLineEdit *>(w) || qobject_cast<const QListWidget *>(w))
        return w->palette().color(group, QPalette::Base);
    for (const QWidget *p = w; p; p = p->parentWidget()) {
        if (p->autoFillBackground() || p->isWindow())
            return p->palette().color(group, p->backgroundRole());
    }
    return {};
}

// The page, its panels and the screen in front, as a line: "Qel1 Frame2", "QelZens".
QString where() {
    const Form *f = Screens::activeScreen();
    if (!f)
        return u"-"_s;
    QString s = f->objectName();
    if (const auto *page = qobject_cast<const PageBase *>(f)) {
        if (!page->overviewFrame->isHidden())
            s += u" Frame2"_s;
        if (!page->exitFrame->isHidden())
            s += u" Frame10"_s;
    }
    return s;
}

// The controls Tab visits from the focused one round to it again.
QList<QWidget *> tabRound() {
    QList<QWidget *> round;
    for (int i = 0; i < 80; ++i) {
        QWidget *w = QApplication::focusWidget();
        if (!w || round.contains(w))
            break;
        round.append(w);
        QTest::keyClick(w, Qt::Key_Tab);
    }
    return round;
}

// The shown controls a screen reader stops at, in the order it reads them.
void readable(QAccessibleInterface *node, QList<QWidget *> &out) {
    for (int i = 0; i < node->childCount(); ++i) {
        QAccessibleInterface *child = node->child(i);
        if (!child || child->state().invisible)
            continue;
        auto *w = qobject_cast<QWidget *>(child->object());
        if (w && w->focusPolicy() & Qt::TabFocus && w->isEnabled())
            out.append(w);
        else
            readable(child, out);
    }
}

// Works the whole test with a wrong click before each right one; on view then are the solved
// questions of the second half.
void solveTest(FinalTestPage *test) {
    for (int k = 0; k < 10; ++k) {
        if (k == 5)
            test->showSecondHalf();
        for (bool right : {false, true}) {
            int i = 4 * k;
            while (isRightOption(i) != right)
                ++i;
            QTest::mouseClick(test->optionButtons.at(std::size_t(i)), Qt::LeftButton);
        }
    }
}

QWidget *named(Form *form, const QString &name) {
    return form->findChild<QWidget *>(name);
}

} // namespace

class TestKeyboard : public QObject {
    Q_OBJECT
    std::optional<TestProgramme> programme;

    // Opens a screen as the pupil meets it: the pages at 10:00 on the test clock, page 1 with a
    // wrong answer to question 1, the information screens over page 2, the grade scale over a
    // finished test.
    Form *open(ScreenId id) {
        programme->setTime(10 * 3600);
        if (id == ScreenId::GradeScale) {
            std::tie(course.gradeMin5, course.gradeMin4, course.gradeMin3, course.gradeMin2,
                     course.gradeMin1) = std::tuple(20, 40, 60, 80, 96);
            solveTest(Screens::show<FinalTestPage>(ScreenId::FinalTest));
        } else if (id == ScreenId::WorkingMethod || id == ScreenId::DisplayMode)
            Screens::show(ScreenId::Page2);
        Form *form = Screens::show(id);
        if (!QTest::qWaitForWindowActive(form))
            return nullptr;
        if (id == ScreenId::Page1) {
            programme->advance(20);
            QTest::keyClicks(static_cast<LessonPage *>(form)->answerEdit, u"a"_s);
        }
        return form;
    }

private Q_SLOTS:
    void initTestCase() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        setUpApplication(*qobject_cast<QApplication *>(QCoreApplication::instance()));
    }
    void init() {
        programme.emplace();
        programme->answers = {false, false, false};
        registerShellScreens();
        registerLessonPages();
        registerFinalTestScreens();
        registerDisplayScreens();
        DisplayModes::setDisplayBackend(std::make_unique<FakeDisplay>());
    }
    void cleanup() {
        programme.reset();
        DisplayModes::setDisplayBackend({});
    }

    // Enter, Return and keypad Enter press the focused push button on every screen, on the
    // panels over the pages too; the answer field ignores them.
    void enterOnEveryScreen_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QString>("before"); // opens a panel first, or a letter to type first
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, ScreenId id, const char *before, const char *button,
                            Qt::Key key, const char *after) {
            QTest::newRow(name) << int(id) << QString::fromUtf8(before) << QString::fromUtf8(button)
                                << int(key) << QString::fromUtf8(after);
        };
        row("Weiter", ScreenId::Start, "", "Command1", Qt::Key_Return, "Steuerzentrum");
        row("Lernprogramm-Start", ScreenId::ControlCentre, "", "Command2", Qt::Key_Enter, "Qel1");
        row("Aufgabe wiederholen", ScreenId::Page1, "", "Command5", Qt::Key_Return, "Qel1");
        row("Nächste Frage", ScreenId::Page3, "b", "Command1", Qt::Key_Enter, "Qel3");
        row("answer field", ScreenId::Page3, "", "Text1", Qt::Key_Return, "Qel3");
        row(">>", ScreenId::Page3, "", "Command4", Qt::Key_Enter, "Qel4");
        row("end button", ScreenId::Page3, "", "Command3", Qt::Key_Return, "Qel3 Frame10");
        row("Ich möchte nicht beenden", ScreenId::Page3, "Command3", "Command12", Qt::Key_Return,
            "Qel3");
        row("overview line", ScreenId::Page3, "mnuWo", "Label11_6", Qt::Key_Enter, "Qel7");
        row("Schließen", ScreenId::Page3, "mnuWo", "Command6", Qt::Key_Return, "Qel3");
        row("<< of page 11", ScreenId::FinalTest, "", "Command2", Qt::Key_Return, "Qel10");
        row("Zurück", ScreenId::EndPage, "", "Command1", Qt::Key_Return, "Qel11");
        row("information screen", ScreenId::WorkingMethod, "", "Command1", Qt::Key_Enter, "Qel2");
        row("grade scale", ScreenId::GradeScale, "", "Command1", Qt::Key_Return, "Qel11");
        row("display mode", ScreenId::DisplayMode, "", "Command2", Qt::Key_Return, "Qel2");
    }
    void enterOnEveryScreen() {
        QFETCH(int, screen);
        QFETCH(QString, before);
        QFETCH(QString, button);
        QFETCH(int, key);
        QFETCH(QString, after);
        Form *form = open(ScreenId(screen));
        QVERIFY(form);
        auto *page = qobject_cast<LessonPage *>(form);
        if (before.size() == 1)
            QTest::keyClicks(page->answerEdit, before);
        else if (auto *entry = form->findChild<QAction *>(before))
            entry->trigger();
        else if (!before.isEmpty())
            QTest::mouseClick(named(form, before), Qt::LeftButton);
        QWidget *target = named(form, button);
        target->setFocus();
        QCOMPARE(QApplication::focusWidget(), target);
        QTest::keyClick(target, Qt::Key(key),
                        key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        settle();
        QCOMPARE(where(), after);
        if (page && QStringList{u"Command1"_s, u"Command5"_s, u"Text1"_s}.contains(button)) {
            // The step buttons and the answer field, on a page that stays.
            QCOMPARE(page->questionPictures[1]->isHidden(), button != u"Command1");
            QVERIFY(page->feedbackPictures.at(0)->isHidden() && page->answerEdit->hasFocus());
            QCOMPARE(course.answeredCount, button == u"Text1" ? 0 : 1);
        }
    }

    // Escape closes the panel in front, an information screen, the grade scale (grading) and the
    // display-mode screen, as their close buttons do; elsewhere it does nothing.
    void escape_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QStringList>("panels"); // opened in this order
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("focus");
        const auto row = [](const char *name, ScreenId id, const QStringList &panels,
                            const char *after, const char *focus) {
            QTest::newRow(name) << int(id) << panels << QString::fromUtf8(after)
                                << QString::fromUtf8(focus);
        };
        row("overview", ScreenId::Page1, {u"mnuWo"_s}, "Qel1", "Command5");
        row("exit frame", ScreenId::Page1, {u"Command3"_s}, "Qel1", "Command3");
        row("exit frame over the overview", ScreenId::Page1, {u"mnuWo"_s, u"Command3"_s},
            "Qel1 Frame2", "Label11_0");
        row("overview over the exit frame", ScreenId::Page1, {u"Command3"_s, u"mnuWo"_s},
            "Qel1 Frame10", "Command12");
        row("overview of page 11", ScreenId::FinalTest, {u"mnuWo"_s}, "Qel11", "Option1_0");
        row("information screen", ScreenId::WorkingMethod, {}, "Qel2", "Text1");
        row("grade scale", ScreenId::GradeScale, {}, "Qel11", "Command1");
        row("display mode", ScreenId::DisplayMode, {}, "Qel2", "Text1");
        row("page without a panel", ScreenId::Page4, {}, "Qel4", "Text1");
        row("control centre", ScreenId::ControlCentre, {}, "Steuerzentrum", "Command2");
        row("end page", ScreenId::EndPage, {}, "Qel50", "Command1");
    }
    void escape() {
        QFETCH(int, screen);
        QFETCH(QStringList, panels);
        QFETCH(QString, after);
        QFETCH(QString, focus);
        Form *form = open(ScreenId(screen));
        QVERIFY(form);
        for (const QString &panel : panels) {
            if (auto *entry = form->findChild<QAction *>(panel))
                entry->trigger();
            else
                QTest::mouseClick(named(form, panel), Qt::LeftButton);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        settle();
        QCOMPARE(where(), after);
        const QWidget *focused = QApplication::focusWidget();
        QCOMPARE(focused ? focused->objectName() : u"nothing"_s, focus);
        if (ScreenId(screen) == ScreenId::GradeScale) {
            auto *page = Screens::loaded<FinalTestPage>(ScreenId::FinalTest);
            QCOMPARE(page->gradeLabel->text(), u"Zensur:   4"_s); // 10 of 20 clicks
            QVERIFY(programme->read(u"ZensurQel.txt"_s)
                        .startsWith("Programm Kelvora:           Zensur:   4\r\n"));
        }
    }

    // The panels open on their harmless control: the exit frame on "Ich möchte nicht beenden",
    // the overview on the line of this page, which only closes the overview; Tab stays inside.
    void panelsOpenOnTheHarmlessControl_data() {
        QTest::addColumn<int>("page");
        for (int page : {1, 5, 11})
            QTest::addRow("page %d", page) << page;
    }
    void panelsOpenOnTheHarmlessControl() {
        QFETCH(int, page);
        auto *form = static_cast<PageBase *>(open(pageScreen(page)));
        QVERIFY(form);
        const QString points = course.answeredCount == 1 ? u" 0 von 1"_s : u" 0 von 0"_s;
        QTest::mouseClick(form->endButton, Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), form->stayButton);
        for (QPushButton *expected : {form->resumeButton, form->restartButton, form->stayButton}) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), expected);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), form->restartButton);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);

        form->overviewEntry->trigger();
        QPushButton *line = form->overviewLines.at(static_cast<std::size_t>(page - 1));
        QCOMPARE(QApplication::focusWidget(), line);
        for (int i = 0; i < 12; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), line);
        const QPointer<PageBase> kept = form;
        QTest::keyClick(line, Qt::Key_Space);
        settle();
        QVERIFY(kept && Screens::activeScreen() == kept);
        QCOMPARE(where(), form->objectName());
        if (auto *lesson = qobject_cast<LessonPage *>(form)) {
            QCOMPARE(lesson->pointsLabel->text(), points);
            QCOMPARE(!lesson->feedbackPictures.at(0)->isHidden(), page == 1);
        }
        QVERIFY(!Screens::programmeEnded() && programme->read(u"StartQelB.txt"_s).isNull());
    }

    // Tab goes round the controls in reading order, and a screen reader reads them in that order.
    void tabFollowsReadingOrder_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QStringList>("round"); // from the control that has the focus on arrival
        const auto row = [](const char *name, ScreenId id, const QString &round) {
            QTest::newRow(name) << int(id) << round.split(u' ');
        };
        row("start", ScreenId::Start, u"Command1"_s);
        row("control centre", ScreenId::ControlCentre, u"Command2 Option1_0"_s);
        row("page 1 after a wrong answer", ScreenId::Page1,
            u"Command5 Command4 Command3 Text1 Command2"_s);
        row("page 11", ScreenId::FinalTest, u"Option1_0 Command2 Command3"_s);
        row("end page", ScreenId::EndPage, u"Command1 Command3"_s);
        row("information screen", ScreenId::Author, u"Command1"_s);
        row("grade scale", ScreenId::GradeScale,
            u"Text2_0 Command2_0 Text2_1 Command2_1 Text2_2 Command2_2 Text2_3 Command2_3 Text2_4 "
            u"Command2_4 Command4 Command1"_s);
        row("display mode", ScreenId::DisplayMode, u"List1 Command2"_s);
    }
    void tabFollowsReadingOrder() {
        QFETCH(int, screen);
        QFETCH(QStringList, round);
        Form *form = open(ScreenId(screen));
        QVERIFY(form);
        QStringList names;
        QList<QWidget *> visited = tabRound();
        for (QWidget *w : visited)
            names.append(w->objectName());
        QCOMPARE(names.join(u' '), round.join(u' '));
        // Each stop lies after the one before in reading order (lower down, or in the same row
        // further right), except once round the ring, where the last leads back to the first.
        int backwards = 0;
        for (qsizetype i = 0; i < visited.size() && visited.size() > 1; ++i) {
            QWidget *from = visited.at(i);
            QWidget *to = visited.at((i + 1) % visited.size());
            const QRect a(from->mapTo(form, QPoint()), from->size());
            const QRect b(to->mapTo(form, QPoint()), to->size());
            const bool sameRow = b.top() < a.bottom() && a.top() < b.bottom();
            backwards += sameRow ? b.left() < a.right() : b.top() < a.bottom() - 4;
        }
        QCOMPARE(backwards, visited.size() > 1 ? 1 : 0);
        QList<QWidget *> read;
        readable(QAccessible::queryAccessibleInterface(form), read);
        std::sort(visited.begin(), visited.end(),
                  [&read](QWidget *a, QWidget *b) { return read.indexOf(a) < read.indexOf(b); });
        QCOMPARE(read, visited);
    }

    // Every focused control shows a frame of at least 3:1 against what lies behind it, picture
    // buttons and the flat lines of the overview included; without the focus there is none.
    void focusFrame_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QString>("control");
        QTest::addRow("picture button") << int(ScreenId::Page1) << u"Command5"_s;
        QTest::addRow("text button") << int(ScreenId::Page1) << u"Command4"_s;
        QTest::addRow("overview line") << int(ScreenId::Page1) << u"Label11_3"_s;
        QTest::addRow("answer field") << int(ScreenId::Page1) << u"Text1"_s;
        QTest::addRow("topic") << int(ScreenId::ControlCentre) << u"Option1_3"_s;
        QTest::addRow("option of the test") << int(ScreenId::FinalTest) << u"Option1_1"_s;
        QTest::addRow("chosen mode") << int(ScreenId::DisplayMode) << u"List1"_s;
    }
    void focusFrame() {
        QFETCH(int, screen);
        QFETCH(QString, control);
        Form *form = open(ScreenId(screen));
        QVERIFY(form);
        if (auto *page = qobject_cast<PageBase *>(form); page && control.startsWith(u"Label11"))
            page->overviewEntry->trigger();
        QWidget *w = named(form, control);
        const auto framePixels = [w] {
            const QImage image = w->grab().toImage();
            int count = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    count += QColor(image.pixel(x, y)) == Theme::kFocusFrame;
            return count;
        };
        w->setFocus();
        QVERIFY(w->hasFocus());
        const int focused = framePixels();
        // At least two full-height sides of a frame around the control, or its current entry.
        const int height = qobject_cast<QListWidget *>(w) ? 24 : w->height();
        QVERIFY2(focused >= 4 * (height - 6), qPrintable(QString::number(focused)));
        QVERIFY(contrast(Theme::kFocusFrame, background(w)) >= 3.0);
        w->clearFocus();
        QCOMPARE(framePixels(), 0);
    }

    // Every text on every screen a pupil needs to read has a contrast of at least 4.5:1: notes
    // and hints, switched-off buttons, the options and verdicts of solved test questions, the
    // colours inside the pictures.
    void textContrast_data() {
        QTest::addColumn<int>("screen");
        for (ScreenId id :
             {ScreenId::Start, ScreenId::ControlCentre, ScreenId::Page1, ScreenId::Page8,
              ScreenId::FinalTest, ScreenId::EndPage, ScreenId::WorkingMethod, ScreenId::Author,
              ScreenId::Requirements, ScreenId::GradeScale, ScreenId::DisplayMode})
            QTest::addRow("%s", qPrintable(formName(id))) << int(id);
    }
    void textContrast() {
        QFETCH(int, screen);
        Form *form = open(ScreenId(screen));
        QVERIFY(form);
        if (auto *page = qobject_cast<LessonPage *>(form)) {
            // Question 1 right (C on pages 1 and 8), then a hasty wrong answer to question 2:
            // the verdict, the pace note, switched-off buttons; the hint.
            if (page->info().firstPage)
                QTest::keyClick(page->retryButton, Qt::Key_Return);
            QTest::keyClicks(page->answerEdit, u"c"_s);
            QTest::keyClick(page->nextQuestionButton, Qt::Key_Return);
            QTest::keyClicks(page->answerEdit, page->info().firstPage ? u"a"_s : u"b"_s);
            QVERIFY(!page->paceNote->isHidden() && !page->nextPageButton->isEnabled());
            if (page->explanationTimer)
                fireTimer(page->explanationTimer);
            page->overviewEntry->trigger(); // the panels' texts too
            page->openExitFrame();
        } else if (auto *test = qobject_cast<FinalTestPage *>(form)) {
            // The whole test, graded: the solved questions, the grade and the print button.
            solveTest(test);
            QTest::mouseClick(test->gradeButton, Qt::LeftButton);
            QVERIFY(!test->questionFrames[9]->isEnabled() && test->gradeLabel->isVisible());
        } else if (auto *scale = qobject_cast<GradeScaleScreen *>(form)) {
            QTest::mouseClick(scale->changeScaleButton, Qt::LeftButton);
            QTest::keyClicks(scale->thresholdEdits[0], u"x"_s);
            QTest::keyClicks(scale->thresholdEdits[1], u" "_s);
            QVERIFY(scale->hintLabels[0]->isVisible() && scale->hintLabels[1]->isVisible());
        }
        static const QRegularExpression colour(u"color:\\s*(#[0-9a-fA-F]{6})"_s);
        int texts = 0;
        for (QWidget *w : form->findChildren<QWidget *>()) {
            if (!w->isVisible())
                continue;
            QStringList shown;
            QList<QColor> colours{w->palette().color(
                w->isEnabled() ? QPalette::Active : QPalette::Disabled, w->foregroundRole())};
            if (auto *label = qobject_cast<QLabel *>(w))
                shown << label->text();
            else if (auto *button = qobject_cast<QAbstractButton *>(w))
                shown << button->text();
            else if (auto *field = qobject_cast<QLineEdit *>(w))
                shown << field->text();
            else if (auto *frame = qobject_cast<QGroupBox *>(w))
                shown << frame->title();
            else if (auto *rich = qobject_cast<RichTextView *>(w)) {
                shown << rich->html();
                for (auto it = colour.globalMatch(rich->html()); it.hasNext();)
                    colours << QColor(it.next().captured(1));
            }
            if (shown.join(QString()).trimmed().isEmpty())
                continue;
            ++texts;
            for (const QColor &c : colours) {
                const double ratio = contrast(c, background(w));
                QVERIFY2(ratio >= 4.5, qPrintable(u"%1 \"%2\": %3 on %4 is %5:1"_s.arg(
                                           w->objectName(), shown.join(u' ').left(40), c.name(),
                                           background(w).name(), QString::number(ratio, 'f', 2))));
            }
        }
        QVERIFY(texts > 0);
    }

    // The test from the keyboard: the arrow keys move between the options without choosing one
    // (every choice is counted), Space chooses, the next question takes the focus; a solved
    // question says so to a screen reader, each option with its verdict.
    void finalTestByKeyboard() {
        auto *page = static_cast<FinalTestPage *>(open(ScreenId::FinalTest));
        QVERIFY(page);
        const auto description = [](QWidget *w) {
            return QAccessible::queryAccessibleInterface(w)->text(QAccessible::Description);
        };
        QCOMPARE(QApplication::focusWidget(), page->optionButtons[0]);
        const std::pair<Qt::Key, std::size_t> moves[] = {
            {Qt::Key_Up, 3}, {Qt::Key_Down, 0}, {Qt::Key_Right, 1}, {Qt::Key_Down, 2}};
        for (const auto &[key, to] : moves) {
            QTest::keyClick(QApplication::focusWidget(), key);
            QCOMPARE(QApplication::focusWidget(), page->optionButtons[to]);
        }
        QTest::keyClick(page->optionButtons[2], Qt::Key_Space);
        QCOMPARE(description(page->optionButtons[2]), u"Falsch"_s);
        QVERIFY(description(page->questionFrames[0]).isEmpty());
        QTest::keyClick(page->optionButtons[2], Qt::Key_Left);
        QTest::keyClick(page->optionButtons[1], Qt::Key_Left);
        QCOMPARE(QApplication::focusWidget(), page->optionButtons[0]);
        QCOMPARE(course.testAnsweredCount, 1);
        QTest::keyClick(page->optionButtons[0], Qt::Key_Space);
        QCOMPARE(
            QStringList({description(page->questionFrames[0]), description(page->optionButtons[0]),
                         description(page->optionButtons[1]), description(page->optionButtons[2])}),
            QStringList({u"Aufgabe gelöst"_s, u"Richtig, Aufgabe gelöst"_s, u"Aufgabe gelöst"_s,
                         u"Falsch, Aufgabe gelöst"_s}));
        QCOMPARE(QApplication::focusWidget(), page->optionButtons[4]);
        QVERIFY(description(page->optionButtons[4]).isEmpty());
    }

    // On page 1 the hint where to call the explanation back and the explanation never show
    // together; a right click into the answer field is no click into it.
    void pageOneHintAndRightClick() {
        auto *page = static_cast<LessonPage *>(open(ScreenId::Page1));
        QVERIFY(page);
        fireTimer(page->explanationTimer);
        QVERIFY(page->explanationPicture->isHidden() && page->explanationHint->isVisible());
        page->explanationEntry->trigger();
        QVERIFY(page->explanationPicture->isVisible() && page->explanationHint->isHidden());
        fireTimer(page->hintTimer);
        page->explanationEntry->trigger();
        QVERIFY(page->explanationPicture->isHidden() && page->explanationHint->isHidden());

        // The right button gives the field the focus as it goes down, and its release is no click.
        QCOMPARE(QApplication::focusWidget(), page->retryButton);
        page->answerEdit->setFocus(Qt::MouseFocusReason);
        const QPoint inside = page->answerEdit->rect().center();
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent right(type, inside, page->answerEdit->mapToGlobal(inside), Qt::RightButton,
                              type == QEvent::MouseButtonPress ? Qt::RightButton : Qt::NoButton,
                              Qt::NoModifier);
            QApplication::sendEvent(page->answerEdit, &right);
        }
        QCOMPARE(QApplication::focusWidget(), page->answerEdit);
        QTest::mouseClick(page->answerEdit, Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), page->retryButton);
    }
};

QTEST_MAIN(TestKeyboard)
#include "test_keyboard.moc"

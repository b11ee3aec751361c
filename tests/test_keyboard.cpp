// SPDX-License-Identifier: GPL-3.0-or-later
// Every screen by keyboard and screen reader, where the end-to-end run (tests/e2e) does not go or
// would find a fault only vaguely: the keys on the panels and the screens it closes with Escape,
// keypad Enter, a held key, Tab inside the panels, the arrow keys of the final test, the reading
// order of every screen, the focus frame and the contrast of every text.
#include "appearing.h"
#include "application.h"
#include "backend_screen.h"
#include "captionlabel.h"
#include "displaymodes.h"
#include "displaymodescreen.h"
#include "finaltestpage.h"
#include "gradescale.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "shell.h"
#include "testsupport.h"
#include "theme.h"
#include "widgets.h"

#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmapCache>
#include <QPushButton>
#include <QRegularExpression>

#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

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
        if (!page->overview->isHidden())
            s += u" Frame2"_s;
        if (!page->exitFrame->isHidden())
            s += u" Frame10"_s;
    }
    return s;
}

// Presses keys on the focused control, named as in a key sequence ("Return", keypad "Enter",
// "Escape", "Tab", "Up"), or "held": Return held down, an auto-repeated press. False when no
// control has the focus.
bool press(const QString &keys) {
    for (const QString &key : keys.split(u' ', Qt::SkipEmptyParts)) {
        QWidget *w = QApplication::focusWidget();
        if (!w)
            return false;
        if (key == u"held") {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
            QApplication::sendEvent(w, &held);
        } else {
            QTest::keyClick(w, QKeySequence(key)[0].key(),
                            key == u"Enter" ? Qt::KeypadModifier : Qt::NoModifier);
        }
    }
    return true;
}

// The pixels of an image in the colour of the focus frame, within `area`.
int framePixels(const QImage &image, const QRect &area) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            count += QColor(image.pixel(x, y)) == Theme::kFocusFrame;
    return count;
}

// Where a push button shows its text or icon: the box around its dark pixels.
QRect content(const QImage &image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 80)
                box |= QRect(x, y, 1, 1);
    return box;
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

// The whole test with a wrong click before each right one.
const QList<int> kWrongThenRight{1,  0,  4,  7,  8,  9,  12, 14, 16, 17,
                                 21, 20, 24, 26, 28, 29, 32, 33, 36, 38};

} // namespace

class TestKeyboard : public QObject {
    Q_OBJECT
    std::optional<TestProgramme> programme;

    // Opens a screen as the pupil meets it: the pages at 10:00 on the test clock, page 1 with a
    // wrong answer to question 1, the information screens over page 2, the grade scale over a
    // finished test.
    Form *open(ScreenId id) {
        programme->setTime(10 * 3600);
        programme->course.setGradeScale(kDefaultGradeScale);
        if (id == ScreenId::GradeScale)
            clickOptions(Screens::show<FinalTestPage>(ScreenId::FinalTest), kWrongThenRight);
        else if (id == ScreenId::WorkingMethod || id == ScreenId::DisplayMode)
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
        registerShellScreens(programme->course);
        registerLessonPages(programme->course);
        registerFinalTestScreens(programme->course);
        registerDisplayScreens();
        DisplayModes::setDisplayBackend(makeScreenSizeBackend());
    }
    void cleanup() {
        programme.reset();
        DisplayModes::setDisplayBackend({});
    }

    // Enter, Return and keypad Enter press the focused push button, a held key once; the answer
    // field ignores them. Escape closes the panel in front, elsewhere it does nothing; a panel
    // opened takes the other's place. The exit frame and the overview open on their harmless
    // controls and keep Tab inside. The arrow keys move between the control centre's topics.
    void keys_data() {
        QTest::addColumn<int>("screen");
        // Before the keys: the steps of work().
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("after"); // where()
        QTest::addColumn<QString>("focus"); // empty: whatever the new screen focuses
        const auto row = [](const char *name, ScreenId id, const char *before, const char *keys,
                            const char *after, const char *focus) {
            QTest::newRow(name) << int(id) << QString::fromUtf8(before) << QString::fromUtf8(keys)
                                << QString::fromUtf8(after) << QString::fromUtf8(focus);
        };
        row("held Return presses once", ScreenId::FinalTest, "@Command3", "Return held",
            "Qel11 Frame10", "Command12");
        row("answer field", ScreenId::Page3, "", "Return Enter", "Qel3", "Text1");
        row("Ich möchte nicht beenden", ScreenId::Page3, "Command3", "Return", "Qel3", "Text1");
        row("overview line", ScreenId::Page3, "mnuWo @Label11_6", "Enter", "Qel7", "");
        row("exit frame in the overview's place", ScreenId::Page1, "mnuWo Command3", "",
            "Qel1 Frame10", "Command12");
        row("overview in the exit frame's place", ScreenId::Page1, "Command3 mnuWo", "Escape",
            "Qel1", "Command3");
        row("Escape: overview of page 11", ScreenId::FinalTest, "mnuWo", "Escape", "Qel11",
            "Option1_0");
        row("Escape: end page", ScreenId::EndPage, "", "Escape", "Qel50", "Command1");
        row("Tab in the exit frame", ScreenId::FinalTest, "Command3", "Tab Tab Tab Backtab",
            "Qel11 Frame10", "Command10");
        row("Space right after opening the overview", ScreenId::FinalTest, "mnuWo", "Space",
            "Qel11", "Option1_0");
        row("control centre: arrow keys move without choosing", ScreenId::ControlCentre,
            "@Command2", "Tab Down Up Up Left", "Steuerzentrum", "Option1_9");
        row("control centre: Space chooses", ScreenId::ControlCentre, "@Option1_9", "Space",
            "Qel10", "");
        row("final test: arrow keys move without choosing", ScreenId::FinalTest, "",
            "Up Down Right Down Space Left Left", "Qel11", "Option1_0");
        row("final test: Space chooses, the next question takes the focus", ScreenId::FinalTest, "",
            "Space", "Qel11", "Option1_4");
    }
    void keys() {
        QFETCH(int, screen);
        QFETCH(QString, before);
        QFETCH(QString, keys);
        QFETCH(QString, after);
        QFETCH(QString, focus);
        Form *form = open(ScreenId(screen));
        QVERIFY(form);
        QVERIFY(work(form, before));
        QVERIFY(press(keys));
        settle();
        QCOMPARE(where(), after);
        if (const QWidget *focused = QApplication::focusWidget(); !focus.isEmpty())
            QCOMPARE(focused ? focused->objectName() : u"nothing"_s, focus);
    }

    // Tab goes round the controls in reading order, inside a panel that is open, and a screen
    // reader reads them in that order. Every focused control shows a frame of at least 3:1
    // against what lies behind it, picture buttons and the flat lines of the overview included,
    // clear of a button's text and icon; without the focus there is none.
    void tabRound_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QString>("panel"); // opened first: its menu entry and its form name
        QTest::addColumn<QString>("round"); // from the control that has the focus on arrival
        const auto row = [](const char *name, ScreenId id, const char *panel, const char *round) {
            QTest::newRow(name) << int(id) << QString::fromUtf8(panel) << QString::fromUtf8(round);
        };
        row("start", ScreenId::Start, "", "Command1");
        row("control centre", ScreenId::ControlCentre, "", "Command2 Option1_0");
        row("page 1 after a wrong answer", ScreenId::Page1, "",
            "Command5 Command4 Command3 Text1 Command2");
        row("overview of page 5", ScreenId::Page5, "mnuWo Frame2",
            "Command6 Label11_0 Label11_1 Label11_2 Label11_3 Label11_4 Label11_5 Label11_6 "
            "Label11_7 Label11_8 Label11_9 Label11_10");
        row("page 11", ScreenId::FinalTest, "", "Option1_0 Command2 Command3");
        row("end page", ScreenId::EndPage, "", "Command1 Command3");
        row("information screen", ScreenId::Author, "", "Command1");
        row("grade scale", ScreenId::GradeScale, "",
            "Text2_0 Command2_0 Text2_1 Command2_1 Text2_2 Command2_2 Text2_3 Command2_3 Text2_4 "
            "Command2_4 Command4 Command1");
        row("display mode", ScreenId::DisplayMode, "", "List1 Command2");
    }
    void tabRound() {
        QFETCH(int, screen);
        QFETCH(QString, panel);
        QFETCH(QString, round);
        Form *form = open(ScreenId(screen));
        QVERIFY(form);
        QWidget *within = form;
        if (!panel.isEmpty()) {
            QVERIFY(work(form, panel.section(u' ', 0, 0)));
            within = form->findChild<QWidget *>(panel.section(u' ', 1));
        }
        QList<QWidget *> visited;
        QStringList names;
        for (QWidget *w = QApplication::focusWidget(); w && !visited.contains(w);
             w = QApplication::focusWidget()) {
            // At least two full-height sides of a frame around the control, or its current entry.
            const int height = qobject_cast<QListWidget *>(w) ? 24 : w->height();
            const QImage focused = w->grab().toImage();
            QVERIFY2(framePixels(focused, focused.rect()) >= 4 * (height - 6),
                     qPrintable(w->objectName()));
            QVERIFY(contrast(Theme::kFocusFrame, background(w)) >= 3.0);
            visited.append(w);
            names.append(w->objectName());
            QTest::keyClick(w, Qt::Key_Tab);
            if (QApplication::focusWidget() == w)
                continue;
            // Without the focus no frame; with it, clear of a button's text and icon.
            const QImage unfocused = w->grab().toImage();
            QCOMPARE(framePixels(unfocused, unfocused.rect()), 0);
            if (qobject_cast<QPushButton *>(w))
                QVERIFY2(framePixels(focused, content(unfocused)) == 0,
                         qPrintable(w->objectName()));
        }
        QCOMPARE(names.join(u' '), round);
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
        readable(QAccessible::queryAccessibleInterface(within), read);
        std::sort(visited.begin(), visited.end(),
                  [&read](QWidget *a, QWidget *b) { return read.indexOf(a) < read.indexOf(b); });
        QCOMPARE(read, visited);
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
            QVERIFY(Appearing::isVisible(page->paceNote) && !page->nextPageButton->isEnabled());
            if (page->explanationTimer)
                fireTimer(page->explanationTimer);
            page->overviewEntry->trigger(); // the panels' texts too
            page->openExitFrame();
        } else if (auto *test = qobject_cast<FinalTestPage *>(form)) {
            // The whole test, graded: the solved questions, the grade and the print button.
            clickOptions(test, kWrongThenRight);
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
            if (!seen(w))
                continue;
            QString shown;
            QList<QColor> colours{w->palette().color(
                w->isEnabled() ? QPalette::Active : QPalette::Disabled, w->foregroundRole())};
            if (auto *label = qobject_cast<QLabel *>(w))
                shown = label->text();
            else if (auto *button = qobject_cast<QAbstractButton *>(w))
                shown = button->text();
            else if (auto *field = qobject_cast<QLineEdit *>(w))
                shown = field->text();
            else if (auto *frame = qobject_cast<QGroupBox *>(w))
                shown = frame->title();
            else if (auto *rich = qobject_cast<RichTextView *>(w)) {
                shown = rich->html();
                for (auto it = colour.globalMatch(shown); it.hasNext();)
                    colours << QColor(it.next().captured(1));
            }
            if (shown.trimmed().isEmpty())
                continue;
            ++texts;
            for (const QColor &c : colours) {
                const double ratio = contrast(c, background(w));
                QVERIFY2(ratio >= 4.5, qPrintable(u"%1 \"%2\": %3 on %4 is %5:1"_s.arg(
                                           w->objectName(), shown.left(40), c.name(),
                                           background(w).name(), QString::number(ratio, 'f', 2))));
            }
        }
        QVERIFY(texts > 0);
    }

    // Buttons are drawn once for each look and then copied: a button that differs from another
    // in one thing only is drawn as itself, whichever of the two was drawn first, over the colour
    // behind it (here a page's colour that the panel holding the buttons does not pass on).
    void buttonCopies_data() {
        QTest::addColumn<QString>("differs");
        for (const char *row : {"picture", "caption", "switched off", "focus", "page colour"})
            QTest::newRow(row) << QString::fromLatin1(row);
    }
    void buttonCopies() {
        QFETCH(QString, differs);
        const auto button = [](const QString &colour, const QString &icon, const QString &text) {
            auto *page = new QWidget;
            page->setAutoFillBackground(true);
            page->setBackgroundRole(QPalette::Base);
            QPalette palette = page->palette();
            palette.setColor(QPalette::Base, QColor(colour));
            page->setPalette(palette);
            auto *panel = new QWidget(page);
            palette.setColor(QPalette::Base, QColor(u"#f0f0f0"_s));
            panel->setPalette(palette);
            QPushButton *b = text.isEmpty() ? pictureButton(icon, u"b"_s, panel, 40)
                                            : new QPushButton(text, panel);
            b->setGeometry(10, 10, 90, 60);
            setActive(b, true);
            page->show();
            return b;
        };
        const QString next = u":/button-next.svg"_s;
        QPushButton *model = button(u"#f0f0f0"_s, next, {});
        QPushButton *other = button(differs == u"page colour"_s ? u"#ffe9a0"_s : u"#f0f0f0"_s,
                                    differs == u"picture"_s ? u":/button-end.svg"_s : next,
                                    differs == u"caption"_s ? u">>"_s : QString());
        const std::unique_ptr<QWidget> pages[] = {std::unique_ptr<QWidget>(model->window()),
                                                  std::unique_ptr<QWidget>(other->window())};
        setActive(other, differs != u"switched off"_s);
        QVERIFY(QTest::qWaitForWindowExposed(other->window()));
        if (differs == u"focus"_s) {
            other->window()->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(other->window()));
            other->setFocus();
        }
        const QImage modelFirst = model->grab().toImage();
        const QImage otherSecond = other->grab().toImage();
        QPixmapCache::clear();
        const QImage otherFirst = other->grab().toImage();
        QCOMPARE(otherSecond, otherFirst);
        QCOMPARE(model->grab().toImage(), modelFirst);
        QVERIFY(otherFirst != modelFirst);
        QCOMPARE(otherFirst.pixelColor(0, 0), other->window()->palette().color(QPalette::Base));
    }
};

QTEST_MAIN(TestKeyboard)
#include "test_keyboard.moc"

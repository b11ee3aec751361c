// SPDX-License-Identifier: GPL-3.0-or-later
// The control centre, the end page with its question box, and the information screens.
#include "application.h"
#include "controlcentre.h"
#include "course.h"
#include "endpage.h"
#include "infoscreens.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "seams.h"
#include "shell.h"
#include "testsupport.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// Where a screen was shown and whether the control centre was still loaded at that moment.
using Arrivals = QList<std::pair<ScreenId, bool>>;
Arrivals arrivals;

// A stand-in for a page: it only notes each arrival.
class TargetPage : public Form {
public:
    using Form::Form;
    void onActivate() override {
        arrivals.append({screenId(), Screens::loaded(ScreenId::ControlCentre) != nullptr});
    }
};

void registerTargetPages() {
    for (int id = int(ScreenId::Page1); id <= int(ScreenId::GradeScale); ++id)
        if (id != int(ScreenId::EndPage))
            Screens::registerScreen(ScreenId(id), [id] { return new TargetPage(ScreenId(id)); });
}

} // namespace

using MenuEntry = QAction *PageBase::*;
Q_DECLARE_METATYPE(MenuEntry)

class TestShell : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        setUpApplication(*qobject_cast<QApplication *>(QCoreApplication::instance()));
    }
    void init() {
        arrivals.clear();
        registerShellScreens();
    }

    void centreOpensTarget_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("target");
        QTest::addColumn<QString>("caption");
        for (int i = 0; i <= 10; ++i) {
            const QString topic =
                i == 10 ? u"Abschlusstest"_s : u"Fragen %1 bis %2"_s.arg(i * 5 + 1).arg(i * 5 + 5);
            const int blanks = i == 0 || i == 10 ? 80 : i == 1 ? 77 : 75;
            QTest::addRow("%d", i) << i << int(pageScreen(i + 1))
                                   << topic + QString(blanks, u' ') + u"- Seite %1"_s.arg(i + 1);
        }
    }
    void centreOpensTarget() {
        QFETCH(int, index);
        QFETCH(int, target);
        QFETCH(QString, caption);
        TestProgramme programme;
        registerTargetPages();
        // The same choice a second time opens the page again: a click on the page reference, then
        // one on the round button.
        for (int round = 1; round <= 2; ++round) {
            auto *centre = Screens::show<ControlCentre>(ScreenId::ControlCentre);
            TopicOption *topic = centre->topics.at(index);
            QCOMPARE(topic->text(), caption);
            QTest::mouseClick(topic, Qt::LeftButton, {},
                              QPoint(round == 1 ? topic->referenceColumn() + 10 : 8, 10));
            QCOMPARE(arrivals.size(), round);
            QCOMPARE(arrivals.last(), std::pair(static_cast<ScreenId>(target), true));
            QCOMPARE(Screens::loaded(ScreenId::ControlCentre), nullptr);
            settle();
            QVERIFY(Screens::loaded(static_cast<ScreenId>(target)));
        }
    }

    // Back to a control centre left open: nothing selected, and clearing opens no page. (Its keys
    // are in test_keyboard.)
    void comingBack() {
        TestProgramme programme;
        registerTargetPages();
        auto *centre = Screens::show<ControlCentre>(ScreenId::ControlCentre);
        centre->topics[9]->blockSignals(true); // a selection left over, without a choice
        centre->topics[9]->setChecked(true);
        centre->topics[9]->blockSignals(false);
        Screens::show(ScreenId::GradeScale);
        arrivals.clear();
        QCOMPARE(Screens::show(ScreenId::ControlCentre), centre);
        for (TopicOption *option : centre->topics)
            QVERIFY(!option->isChecked());
        QVERIFY(arrivals.isEmpty());
    }

    // "Ende" asks first, and Escape answers "Nein"; the close box ends at once, "Zurück" goes back
    // to page 11. None of them writes.
    void endPage_data() {
        QTest::addColumn<QString>("button"); // on the end page; empty: its close box
        QTest::addColumn<bool>("ended");
        QTest::addRow("Ende, Escape") << u"Ende"_s << false;
        QTest::addRow("close box") << QString() << true;
        QTest::addRow("Zurück") << u"Zurück"_s << false;
    }
    void endPage() {
        QFETCH(QString, button);
        QFETCH(bool, ended);
        const bool stays = button == u"Ende";
        TestProgramme programme;
        registerTargetPages();
        programme.write(u"StartQelB.txt"_s, "\"7\"\r\n");
        course.startFilePath = programme.path(u"StartQelB.txt"_s);
        auto *end = Screens::show<EndPage>(ScreenId::EndPage);
        QVERIFY(end->circuitArt->isVisible());

        // The real question box, whose title, text and buttons the end-to-end test reads: a
        // question icon, and Escape answers "Nein".
        bool asked = false;
        Seams::setYesNo({});
        QTimer::singleShot(0, qApp, [&asked] { // runs in the box's own event loop
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                asked = box->icon() == QMessageBox::Question;
                QTest::keyClick(box, Qt::Key_Escape);
            }
        });
        if (button.isEmpty())
            end->close();
        for (QPushButton *b : end->findChildren<QPushButton *>())
            if (!button.isEmpty() && b->text() == button)
                QTest::mouseClick(b, Qt::LeftButton);
        QCOMPARE(asked, stays);
        QCOMPARE(arrivals,
                 (button == u"Zurück" ? Arrivals{{ScreenId::FinalTest, false}} : Arrivals()));
        settle();
        QCOMPARE(programme.read(u"StartQelB.txt"_s), "\"7\"\r\n");
        QCOMPARE(Screens::programmeEnded(), ended);
        QCOMPARE(Screens::loaded(ScreenId::EndPage) != nullptr, stays);
        QCOMPARE(Screens::activeScreen() == end, stays);
    }

    void infoScreens_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<MenuEntry>("entry");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("fragments"); // in the order the picture shows them
        QTest::addRow("Arbeitsweise")
            << int(ScreenId::WorkingMethod) << &PageBase::workingMethodEntry
            << u"Kelvora"_s + QString(109, u' ') + u"Arbeitsweise"_s << u"Wo bin ich?"_s;
        QTest::addRow("Autor") << int(ScreenId::Author) << &PageBase::authorEntry
                               << u"Kelvora"_s + QString(100, u' ') + u"Autor und Version"_s
                               << QStringLiteral("Autor: Kelvora-Team|Version: " KELVORA_VERSION);
        QTest::addRow("Voraus")
            << int(ScreenId::Requirements) << &PageBase::requirementsEntry
            << u"Kelvora"_s + QString(70, u' ') + u"Voraussetzungen und Besonderheiten"_s
            << u"Voraussetzungen und Besonderheiten|WINDOWS 9x, WINDOWS 2000 und Windows XP|Linux|"
               u"kelvora.exe|windeployqt|StartQelB.txt|nicht gelöscht|TestergebnisQel.doc|"
               u"„Zensierung“|ZensurQel.txt|Beide können mit einem Texteditor|(z.B. Word, "
               u"WordPad)|beschreibbaren Datenträger|schreibgeschützt"_s;
    }
    void infoScreens() {
        QFETCH(int, screen);
        QFETCH(MenuEntry, entry);
        QFETCH(QString, caption);
        QFETCH(QString, fragments);
        const auto id = static_cast<ScreenId>(screen);
        TestProgramme programme;
        registerLessonPages();
        Screens::registerScreen(ScreenId::Page2, [] { return new TargetPage(ScreenId::Page2); });
        auto *page = Screens::show<LessonPage>(ScreenId::Page1);
        (page->*entry)->trigger();
        auto *info = Screens::loaded<InfoScreen>(id);
        QVERIFY(info);
        QCOMPARE(info->windowTitle(), caption);
        Screens::show(ScreenId::Page1);
        (page->*entry)->trigger(); // again: the one screen comes to the front
        QCOMPARE(Screens::loaded<InfoScreen>(id), info);
        QCOMPARE(Screens::activeScreen(), info);
        QVERIFY(info->isVisible());
        const QString text = info->picture->plainText();
        qsizetype from = 0;
        for (const QString &fragment : fragments.split(u'|')) {
            from = text.indexOf(fragment, from);
            QVERIFY2(from >= 0, qPrintable(fragment));
            from += fragment.size();
        }
        // It stays open when the page moves on to the next one.
        QTest::mouseClick(page->nextPageButton, Qt::LeftButton);
        settle();
        QVERIFY(Screens::loaded(ScreenId::Page2));
        QVERIFY(info->isVisible());
        // Its picture button without a caption closes it.
        QVERIFY(info->closeButton->text().isEmpty() && !info->closeButton->icon().isNull());
        const QPointer<InfoScreen> closed = info;
        QTest::mouseClick(info->closeButton, Qt::LeftButton);
        QCOMPARE(Screens::loaded(id), nullptr);
        settle();
        QVERIFY(closed.isNull());
    }
};

QTEST_MAIN(TestShell)
#include "test_shell.moc"

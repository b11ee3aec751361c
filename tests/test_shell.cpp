// SPDX-License-Identifier: GPL-3.0-or-later
// The control centre and the information screens (the end page: test_zoom and the end-to-end
// test).
#include "application.h"
#include "controlcentre.h"
#include "infoscreens.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "shell.h"
#include "testsupport.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTest>

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
            Screens::registerScreen(
                ScreenId(id), [id](double factor) { return new TargetPage(ScreenId(id), factor); });
}

} // namespace

using MenuEntry = QAction *PageBase::*;
Q_DECLARE_METATYPE(MenuEntry)

class TestShell : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        setUpApplication(*qobject_cast<QApplication *>(QCoreApplication::instance()));
        TestProgramme::screens = registerShellScreens;
    }
    void init() { arrivals.clear(); }

    void centreOpensTarget_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("target");
        for (int i = 0; i <= 10; ++i)
            QTest::addRow("%d", i) << i << int(pageScreen(i + 1));
    }
    void centreOpensTarget() {
        QFETCH(int, index);
        QFETCH(int, target);
        TestProgramme programme;
        registerTargetPages();
        // The same choice a second time opens the page again: a click on the page reference, then
        // one on the round button.
        for (int round = 1; round <= 2; ++round) {
            auto *centre = Screens::show<ControlCentre>(ScreenId::ControlCentre);
            TopicOption *topic = centre->topics.at(index);
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

    void infoScreens_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<MenuEntry>("entry");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("fragments"); // in the order the picture shows them
        // A screen reader reads the caption without the blanks and the icons by their names.
        QTest::addRow("Arbeitsweise")
            << int(ScreenId::WorkingMethod) << &PageBase::workingMethodEntry
            << u"Kelvora"_s + QString(109, u' ') + u"Arbeitsweise"_s
            << u"Aufgabe wiederholen War die Antwort falsch|Nächste Frage War sie|Wo bin ich?"_s;
        QTest::addRow("Autor") << int(ScreenId::Author) << &PageBase::authorEntry
                               << u"Kelvora"_s + QString(100, u' ') + u"Autor und Version"_s
                               << QStringLiteral("Autor: Kelvora-Team|Version: " KELVORA_VERSION);
        QTest::addRow("Voraus")
            << int(ScreenId::Requirements) << &PageBase::requirementsEntry
            << u"Kelvora"_s + QString(70, u' ') + u"Voraussetzungen und Besonderheiten"_s
            << u"Voraussetzungen und Besonderheiten|Linux|StartQelB.txt|TestergebnisQel.doc|"
               u"ZensurQel.txt|schreibgeschützt"_s;
    }
    void infoScreens() {
        QFETCH(int, screen);
        QFETCH(MenuEntry, entry);
        QFETCH(QString, caption);
        QFETCH(QString, fragments);
        const auto id = static_cast<ScreenId>(screen);
        TestProgramme programme;
        registerLessonPages(programme.course);
        Screens::registerScreen(
            ScreenId::Page2, [](double factor) { return new TargetPage(ScreenId::Page2, factor); });
        auto *page = Screens::show<LessonPage>(ScreenId::Page1);
        (page->*entry)->trigger();
        auto *info = Screens::loaded<InfoScreen>(id);
        QVERIFY(info);
        QCOMPARE(info->windowTitle(), caption);
        // Screen readers read it as a dialog over the page, under its caption without the blanks,
        // and say its text as it opens.
        QAccessibleInterface *window = QAccessible::queryAccessibleInterface(info);
        QCOMPARE(window->role(), QAccessible::Dialog);
        QCOMPARE(window->text(QAccessible::Name), u"Kelvora – "_s + caption.simplified().mid(8));
        QAccessibleInterface *picture = QAccessible::queryAccessibleInterface(info->picture);
        QVERIFY(picture->role() == QAccessible::StaticText &&
                picture->text(QAccessible::Name).startsWith(info->picture->plainText()));
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

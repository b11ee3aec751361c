// SPDX-License-Identifier: GPL-3.0-or-later
// The control centre, the end page, the information screens and Qt's own German buttons.
#include "infoscreens.h"
#include "lessonpage.h"
#include "modul1.h"
#include "picture.h"
#include "qel50.h"
#include "screens.h"
#include "seams.h"
#include "shell.h"
#include "steuerzentrum.h"
#include "testsupport.h"
#include "textfiles.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <functional>

namespace {

// Where a screen was shown and whether the control centre was still loaded at that moment.
struct Arrival {
    ScreenId id;
    bool centreLoaded;
};
QList<Arrival> arrivals;

// A stand-in for a page: it only notes each arrival.
class TargetPage : public Form {
public:
    explicit TargetPage(ScreenId id)
        : Form(id) {
        resize(200, 100);
    }
    void Form_Activate() override {
        arrivals.append({screenId(), Screens::loaded(ScreenId::Steuerzentrum) != nullptr});
    }
};

void registerTargetPages() {
    for (int page = 1; page <= 11; ++page) {
        const ScreenId id = pageScreen(page);
        Screens::registerScreen(id, [id] { return new TargetPage(id); });
    }
    Screens::registerScreen(ScreenId::QelZens, [] { return new TargetPage(ScreenId::QelZens); });
}

// Lets the screen layer finish what the last handler left: deferred deletes and settling.
void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void clickOption(TopicOption *option) {
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(8, option->height() / 2));
}

// A click on the page reference at the right end of the line.
void clickReference(TopicOption *option) {
    QTest::mouseClick(option, Qt::LeftButton, {},
                      QPoint(option->referenceColumn() + 10, option->height() / 2));
}

// Answers the next modal message box: `inspect` sees it first, then `act` answers it.
void whenBoxAppears(std::function<void(QMessageBox *)> inspect,
                    std::function<void(QMessageBox *)> act) {
    auto *poll = new QTimer(qApp);
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, qApp, [poll, inspect, act, tries = 0]() mutable {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible()) {
            if (++tries > 300) { // no box came: do not answer one of a later test
                poll->stop();
                poll->deleteLater();
            }
            return;
        }
        poll->stop();
        poll->deleteLater();
        inspect(box);
        act(box);
    });
    poll->start();
}

int visibleWindowsOf(ScreenId id) {
    int count = 0;
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *w : windows) {
        auto *form = qobject_cast<Form *>(w);
        if (form && form->screenId() == id && form->isVisible())
            ++count;
    }
    return count;
}

QString blanks(int n) {
    return QString(n, QLatin1Char(' '));
}

} // namespace

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

    void captions_data();
    void captions();
    void optionCaptions_data();
    void optionCaptions();
    void centreOpensTarget_data();
    void centreOpensTarget();
    void sameChoiceTwice();
    void activationClearsWithoutChoosing();
    void optionsByKeyboard();
    void endPage_data();
    void endPage();
    void endPageBack();
    void endPageCloseBox();
    void germanQuestionBox_data();
    void germanQuestionBox();
    void infoScreenOnce_data();
    void infoScreenOnce();
    void infoScreensOutlivePage();
    void requirementsText();
    void authorAndVersion();
};

void TestShell::captions_data() {
    QTest::addColumn<int>("screen");
    QTest::addColumn<QString>("caption");
    QTest::addRow("Steuerzentrum")
        << int(ScreenId::Steuerzentrum)
        << QStringLiteral("Kelvora") + blanks(105) + QStringLiteral("Steuerzentrum");
    QTest::addRow("Qel50") << int(ScreenId::Qel50) << QStringLiteral("Kelvora");
    QTest::addRow("ArbWei") << int(ScreenId::ArbWei)
                            << QStringLiteral("Kelvora") + blanks(109) +
                                   QStringLiteral("Arbeitsweise");
    QTest::addRow("Autor") << int(ScreenId::Autor)
                           << QStringLiteral("Kelvora") + blanks(100) +
                                  QStringLiteral("Autor und Version");
    QTest::addRow("Voraus") << int(ScreenId::Voraus)
                            << QStringLiteral("Kelvora") + blanks(70) +
                                   QStringLiteral("Voraussetzungen und Besonderheiten");
}

void TestShell::captions() {
    QFETCH(int, screen);
    QFETCH(QString, caption);
    TestProgramme programme;
    registerTargetPages();
    Form *form = Screens::show(static_cast<ScreenId>(screen));
    QVERIFY(form);
    QCOMPARE(form->windowTitle(), caption);
}

void TestShell::optionCaptions_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("caption");
    const auto row = [](int index, const char *topic, int n, const char *reference) {
        QTest::addRow("%d", index)
            << index << QString::fromUtf8(topic) + blanks(n) + QString::fromUtf8(reference);
    };
    row(0, "Fragen 1 bis 5", 80, "- Seite 1");
    row(1, "Fragen 6 bis 10", 77, "- Seite 2");
    row(2, "Fragen 11 bis 15", 75, "- Seite 3");
    row(3, "Fragen 16 bis 20", 75, "- Seite 4");
    row(4, "Fragen 21 bis 25", 75, "- Seite 5");
    row(5, "Fragen 26 bis 30", 75, "- Seite 6");
    row(6, "Fragen 31 bis 35", 75, "- Seite 7");
    row(7, "Fragen 36 bis 40", 75, "- Seite 8");
    row(8, "Fragen 41 bis 45", 75, "- Seite 9");
    row(9, "Fragen 46 bis 50", 75, "- Seite 10");
    row(10, "Abschlusstest", 80, "- Seite 11");
}

void TestShell::optionCaptions() {
    QFETCH(int, index);
    QFETCH(QString, caption);
    TestProgramme programme;
    auto *centre = Screens::show<Steuerzentrum>(ScreenId::Steuerzentrum);
    TopicOption *option = centre->Option1.at(static_cast<std::size_t>(index));
    QCOMPARE(option->text(), caption);
    QCOMPARE(option->parentWidget(), static_cast<QWidget *>(centre->Frame1));
    QCOMPARE(centre->Frame1->title(), QStringLiteral("Kelvora"));
}

void TestShell::centreOpensTarget_data() {
    QTest::addColumn<int>("index"); // -1: "Lernprogramm-Start"
    QTest::addColumn<int>("target");
    QTest::addRow("Lernprogramm-Start") << -1 << int(ScreenId::Qel1);
    for (int i = 0; i <= 9; ++i)
        QTest::addRow("option %d", i) << i << int(pageScreen(i + 1));
    QTest::addRow("Abschlusstest") << 10 << int(ScreenId::Qel11);
}

void TestShell::centreOpensTarget() {
    QFETCH(int, index);
    QFETCH(int, target);
    TestProgramme programme;
    registerTargetPages();
    auto *centre = Screens::show<Steuerzentrum>(ScreenId::Steuerzentrum);
    QCOMPARE(Modul1::TempIndex, 11);
    QCOMPARE(centre->Command2->text(), QStringLiteral("Lernprogramm-Start"));
    QCOMPARE(centre->Label1->text(), QStringLiteral("Wo möchtest du starten?"));
    QVERIFY(centre->Label5->text().isEmpty());

    if (index < 0)
        QTest::mouseClick(centre->Command2, Qt::LeftButton);
    else
        clickReference(centre->Option1.at(static_cast<std::size_t>(index)));

    QCOMPARE(arrivals.size(), 1);
    QCOMPARE(int(arrivals[0].id), target);
    QVERIFY2(arrivals[0].centreLoaded, "the page is shown before the control centre goes");
    QCOMPARE(Screens::loaded(ScreenId::Steuerzentrum), nullptr);
    settle();
    QVERIFY(Screens::loaded(static_cast<ScreenId>(target)));
    QVERIFY(!Screens::programmeEnded());
}

void TestShell::sameChoiceTwice() {
    TestProgramme programme;
    registerTargetPages();
    for (int round = 1; round <= 2; ++round) {
        auto *centre = Screens::show<Steuerzentrum>(ScreenId::Steuerzentrum);
        for (TopicOption *option : centre->Option1)
            QVERIFY(!option->isChecked());
        clickOption(centre->Option1[3]);
        QCOMPARE(arrivals.size(), round);
        QCOMPARE(arrivals.last().id, ScreenId::Qel4);
        settle();
        QCOMPARE(Screens::loaded(ScreenId::Steuerzentrum), nullptr);
    }
}

void TestShell::activationClearsWithoutChoosing() {
    TestProgramme programme;
    registerTargetPages();
    auto *centre = Screens::show<Steuerzentrum>(ScreenId::Steuerzentrum);
    {
        // A selection left over while the control centre stayed open.
        const QSignalBlocker quiet(centre->Option1[4]);
        centre->Option1[4]->setChecked(true);
    }
    Screens::show(ScreenId::QelZens);
    arrivals.clear();
    Modul1::TempIndex = 3;
    QCOMPARE(Screens::show(ScreenId::Steuerzentrum), centre);
    for (TopicOption *option : centre->Option1)
        QVERIFY(!option->isChecked());
    QVERIFY2(arrivals.isEmpty(), "clearing the options opened a page");
    QCOMPARE(Modul1::TempIndex, 11);
    clickOption(centre->Option1[4]);
    QCOMPARE(arrivals.size(), 1);
    QCOMPARE(arrivals[0].id, ScreenId::Qel5);
}

void TestShell::optionsByKeyboard() {
    TestProgramme programme;
    registerTargetPages();
    auto *centre = Screens::show<Steuerzentrum>(ScreenId::Steuerzentrum);
    QVERIFY(QTest::qWaitForWindowActive(centre));
    centre->Command2->setFocus();
    QTest::keyClick(centre->Command2, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), centre->Option1[0]);
    QTest::keyClick(centre->Option1[0], Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), centre->Option1[1]);
    QTest::keyClick(centre->Option1[1], Qt::Key_Up);
    QTest::keyClick(centre->Option1[0], Qt::Key_Up);
    QCOMPARE(QApplication::focusWidget(), centre->Option1[10]);
    QVERIFY2(arrivals.isEmpty(), "moving between topics opened a page");
    QTest::keyClick(centre->Option1[10], Qt::Key_Left);
    QCOMPARE(QApplication::focusWidget(), centre->Option1[9]);
    QTest::keyClick(centre->Option1[9], Qt::Key_Space);
    QCOMPARE(arrivals.size(), 1);
    QCOMPARE(arrivals[0].id, ScreenId::Qel10);
}

void TestShell::endPage_data() {
    QTest::addColumn<QString>("answer"); // "yes", "no", or "enter" on the real box
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("ended");
    QTest::addRow("yes") << QStringLiteral("yes") << QByteArray("\"50\"\r\n") << true;
    QTest::addRow("no") << QStringLiteral("no") << QByteArray("\"11\"\r\n") << false;
    QTest::addRow("enter") << QStringLiteral("enter") << QByteArray("\"11\"\r\n") << false;
}

void TestShell::endPage() {
    QFETCH(QString, answer);
    QFETCH(QByteArray, file);
    QFETCH(bool, ended);
    TestProgramme programme;
    registerTargetPages();
    programme.write(QStringLiteral("StartQelB.txt"), "\"11\"\r\n");
    Modul1::StartFilePath = TextFiles::programmePath(QStringLiteral("StartQelB.txt"));
    Modul1::CurrentPage = 11;

    auto *end = Screens::show<Qel50>(ScreenId::Qel50);
    QVERIFY(end->Image4->isVisible());
    QCOMPARE(end->Label1->text(), QStringLiteral("Kelvora"));
    QCOMPARE(end->Image1->plainText(), QStringLiteral("Ende des Lernprogramms"));
    QCOMPARE(end->Command3->text(), QStringLiteral("Ende"));

    bool boxSeen = false;
    if (answer == QLatin1String("enter")) {
        Seams::setYesNo({});
        whenBoxAppears(
            [&boxSeen](QMessageBox *box) {
                boxSeen = true;
                QCOMPARE(box->text(),
                         QStringLiteral("Möchtest du wirklich die gesamte Arbeit beenden?"));
                QCOMPARE(box->windowTitle(), QStringLiteral("Ende?"));
            },
            [](QMessageBox *box) { QTest::keyClick(box, Qt::Key_Return); });
    } else {
        programme.answers = {answer == QLatin1String("yes")};
    }
    QTest::mouseClick(end->Command3, Qt::LeftButton);

    if (answer == QLatin1String("enter")) {
        QVERIFY(boxSeen);
    } else {
        QCOMPARE(programme.questionsAsked.size(), 1);
        QCOMPARE(programme.questionsAsked[0].first,
                 QStringLiteral("Möchtest du wirklich die gesamte Arbeit beenden?"));
        QCOMPARE(programme.questionsAsked[0].second, QStringLiteral("Ende?"));
    }
    QCOMPARE(programme.read(QStringLiteral("StartQelB.txt")), file);
    QCOMPARE(Screens::programmeEnded(), ended);
    QCOMPARE(Modul1::CurrentPage, ended ? 50 : 11);
    settle();
    QCOMPARE(Screens::loaded(ScreenId::Qel50) != nullptr, !ended);
    if (!ended) {
        QVERIFY(end->isVisible());
        QCOMPARE(Screens::activeScreen(), end);
    }
}

void TestShell::endPageBack() {
    TestProgramme programme;
    registerTargetPages();
    auto *end = Screens::show<Qel50>(ScreenId::Qel50);
    QCOMPARE(end->Command1->text(), QStringLiteral("Zurück"));
    QTest::mouseClick(end->Command1, Qt::LeftButton);
    QCOMPARE(arrivals.size(), 1);
    QCOMPARE(arrivals[0].id, ScreenId::Qel11);
    settle();
    QCOMPARE(Screens::loaded(ScreenId::Qel50), nullptr);
    QVERIFY(Screens::loaded(ScreenId::Qel11));
    QCOMPARE(programme.read(QStringLiteral("StartQelB.txt")), QByteArray());
}

void TestShell::endPageCloseBox() {
    TestProgramme programme;
    programme.write(QStringLiteral("StartQelB.txt"), "\"11\"\r\n");
    Modul1::StartFilePath = TextFiles::programmePath(QStringLiteral("StartQelB.txt"));
    auto *end = Screens::show<Qel50>(ScreenId::Qel50);
    end->close();
    settle();
    QVERIFY(Screens::programmeEnded());
    QCOMPARE(programme.read(QStringLiteral("StartQelB.txt")), QByteArray("\"11\"\r\n"));
}

void TestShell::germanQuestionBox_data() {
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("yes");
    QTest::addRow("Enter") << QStringLiteral("Enter") << false;
    QTest::addRow("Escape") << QStringLiteral("Escape") << false;
    QTest::addRow("click Ja") << QStringLiteral("Ja") << true;
}

void TestShell::germanQuestionBox() {
    QFETCH(QString, action);
    QFETCH(bool, yes);
    QStringList buttonTexts;
    QString defaultText;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    whenBoxAppears(
        [&](QMessageBox *box) {
            const auto buttons = box->buttons();
            for (QAbstractButton *b : buttons)
                buttonTexts.append(b->text().remove(QLatin1Char('&')));
            if (box->defaultButton())
                defaultText = box->defaultButton()->text().remove(QLatin1Char('&'));
            icon = box->icon();
        },
        [action](QMessageBox *box) {
            if (action == QLatin1String("Enter"))
                QTest::keyClick(box, Qt::Key_Return);
            else if (action == QLatin1String("Escape"))
                QTest::keyClick(box, Qt::Key_Escape);
            else
                box->button(action == QLatin1String("Ja") ? QMessageBox::Yes : QMessageBox::No)
                    ->click();
        });
    const bool answer =
        Seams::askYesNoWithMessageBox(QStringLiteral("Frage?"), QStringLiteral("Titel"));
    buttonTexts.sort();
    QCOMPARE(buttonTexts, QStringList({QStringLiteral("Ja"), QStringLiteral("Nein")}));
    QCOMPARE(defaultText, QStringLiteral("Nein"));
    QCOMPARE(icon, QMessageBox::Question);
    QCOMPARE(answer, yes);
}

using MenuEntry = QAction *PageFrame::Menus::*;
Q_DECLARE_METATYPE(MenuEntry)

void TestShell::infoScreenOnce_data() {
    QTest::addColumn<int>("screen");
    QTest::addColumn<MenuEntry>("entry");
    QTest::addColumn<QString>("fragment");
    QTest::addRow("Arbeitsweise") << int(ScreenId::ArbWei) << &PageFrame::Menus::mnuAWeise
                                  << QStringLiteral("Wo bin ich?");
    QTest::addRow("Autor") << int(ScreenId::Autor) << &PageFrame::Menus::mnuAutor
                           << QStringLiteral("Kelvora-Team");
    QTest::addRow("Voraus") << int(ScreenId::Voraus) << &PageFrame::Menus::mnuVoraus
                            << QStringLiteral("schreibgeschützt");
}

void TestShell::infoScreenOnce() {
    QFETCH(int, screen);
    QFETCH(MenuEntry, entry);
    QFETCH(QString, fragment);
    const auto id = static_cast<ScreenId>(screen);
    TestProgramme programme;
    registerLessonPages();
    auto *page = Screens::show<LessonPage>(ScreenId::Qel1);
    (page->menus.*entry)->trigger();
    auto *info = Screens::loaded<InfoScreen>(id);
    QVERIFY(info);
    Screens::show(ScreenId::Qel1);
    (page->menus.*entry)->trigger();
    QCOMPARE(Screens::loaded<InfoScreen>(id), info);
    QCOMPARE(Screens::activeScreen(), info);
    QCOMPARE(visibleWindowsOf(id), 1);
    QVERIFY(info->Image1->plainText().contains(fragment));

    QVERIFY(info->Command1->text().isEmpty());
    QVERIFY(!info->Command1->icon().isNull());
    QCOMPARE(info->Command1->accessibleName(), QStringLiteral("Schließen"));
    QCOMPARE(info->Command1->toolTip(), QStringLiteral("Schließen"));
    QTest::mouseClick(info->Command1, Qt::LeftButton);
    QCOMPARE(Screens::loaded(id), nullptr);
    settle();
    QCOMPARE(visibleWindowsOf(id), 0);
    QCOMPARE(Screens::loaded(ScreenId::Qel1), page);
    QVERIFY(!Screens::programmeEnded());
}

void TestShell::infoScreensOutlivePage() {
    TestProgramme programme;
    registerLessonPages();
    Screens::registerScreen(ScreenId::Qel2, [] { return new TargetPage(ScreenId::Qel2); });
    auto *page = Screens::show<LessonPage>(ScreenId::Qel1);
    page->menus.mnuAWeise->trigger();
    page->menus.mnuAutor->trigger();
    page->menus.mnuVoraus->trigger();
    Screens::show(ScreenId::Qel1);
    QVERIFY(page->Command4->isEnabled());
    QTest::mouseClick(page->Command4, Qt::LeftButton);
    settle();
    QCOMPARE(Screens::loaded(ScreenId::Qel1), nullptr);
    QVERIFY(Screens::loaded(ScreenId::Qel2));
    for (ScreenId id : {ScreenId::ArbWei, ScreenId::Autor, ScreenId::Voraus}) {
        QVERIFY(Screens::loaded(id));
        QCOMPARE(visibleWindowsOf(id), 1);
    }
}

void TestShell::requirementsText() {
    TestProgramme programme;
    auto *info = Screens::show<InfoScreen>(ScreenId::Voraus);
    const QString text = info->Image1->plainText();
    // The paragraphs keep their order: each fragment comes after the one before.
    const QStringList fragments = {
        QStringLiteral("Voraussetzungen und Besonderheiten"),
        QStringLiteral("WINDOWS 9x, WINDOWS 2000 und Windows XP"),
        QStringLiteral("Linux"),
        QStringLiteral("kelvora.exe"),
        QStringLiteral("windeployqt"),
        QStringLiteral("StartQelB.txt"),
        QStringLiteral("nicht gelöscht"),
        QStringLiteral("TestergebnisQel.doc"),
        QStringLiteral("„Zensierung“"),
        QStringLiteral("ZensurQel.txt"),
        QStringLiteral("Beide können mit einem Texteditor"),
        QStringLiteral("(z.B. Word, WordPad)"),
        QStringLiteral("beschreibbaren Datenträger"),
        QStringLiteral("schreibgeschützt"),
    };
    qsizetype from = 0;
    for (const QString &fragment : fragments) {
        const qsizetype at = text.indexOf(fragment, from);
        QVERIFY2(at >= 0, qPrintable(fragment));
        from = at + fragment.size();
    }
}

void TestShell::authorAndVersion() {
    TestProgramme programme;
    auto *info = Screens::show<InfoScreen>(ScreenId::Autor);
    const QString text = info->Image1->plainText();
    QVERIFY(text.contains(QStringLiteral("Autor: Kelvora-Team")));
    const QRegularExpression version(QStringLiteral("Version: (\\d+\\.\\d+\\.\\d+)"));
    const QRegularExpressionMatch m = version.match(text);
    QVERIFY2(m.hasMatch(), qPrintable(text));
    QCOMPARE(m.captured(1), QStringLiteral(KELVORA_VERSION));
}

QTEST_MAIN(TestShell)
#include "test_shell.moc"

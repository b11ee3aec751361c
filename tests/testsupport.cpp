// SPDX-License-Identifier: GPL-3.0-or-later
#include "testsupport.h"

#include "appearing.h"
#include "messagebox.h"
#include "screens.h"
#include "seams.h"
#include "textfiles.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QProcess>
#include <QTest>
#include <QTimer>

QByteArray readFile(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

QString runProgram(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(30000) || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString openFailure(const QString &path, QIODevice::OpenMode mode) {
    QFile file(path);
    return file.open(mode) ? QStringLiteral("opened") : file.errorString();
}

QStringList entryTexts(const QListWidget *list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts.append(list->item(i)->text());
    return texts;
}

bool clickEntry(QListWidget *list, const QString &text) {
    const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchExactly);
    if (found.size() != 1)
        return false;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(found.first()).center());
    return true;
}

TestProgramme::TestProgramme()
    : course(TextFiles::programmePath)
    , now_(QDate(2026, 4, 3), QTime(9, 5, 7)) {
    Screens::reset();
    if (screens)
        screens(course);
    ProbeForm::log.clear();
    Seams::setProgrammeFolder([folder = QDir::toNativeSeparators(dir_.path())] { return folder; });
    Seams::setClock([this] { return now_; });
    Seams::setYesNo([this](const QString &text, const QString &title) {
        questionsAsked.append({text, title});
        if (answers.isEmpty())
            QTest::qFail("a question was asked that the test did not expect", __FILE__, __LINE__);
        return answers.isEmpty() ? false : answers.takeFirst();
    });
    Seams::setFailureHandler([](const QString &text) { throw ProgrammeFailure(text); });
}

TestProgramme::~TestProgramme() {
    // A programme that ended outside a running event loop leaves Qt's quit request standing, and
    // every later modal box or event loop would return at once: run the loop briefly so that Qt
    // forgets it.
    if (Screens::programmeEnded()) {
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        QCoreApplication::exec();
    }
    Screens::reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Seams::setProgrammeFolder({});
    Seams::setClock({});
    Seams::setYesNo({});
    Seams::setFailureHandler({});
}

void TestProgramme::write(const QString &fileName, const QByteArray &bytes) const {
    QFile file(path(fileName));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
}

QStringList ProbeForm::log;

ProbeForm::ProbeForm(ScreenId id, const QString &name, double zoomFactor)
    : Form(id, zoomFactor)
    , name_(name) {
    setWindowTitle(name);
}

void registerProbes(const QList<QPair<ScreenId, QString>> &screens) {
    for (const auto &[id, name] : screens)
        Screens::registerScreen(
            id, [id = id, name = name](double factor) { return new ProbeForm(id, name, factor); });
}

bool work(QWidget *screen, const QString &steps) {
    for (const QString &step : steps.split(u' ', Qt::SkipEmptyParts)) {
        auto *control = screen->findChild<QWidget *>(step.startsWith(u'@') ? step.mid(1) : step);
        if (auto *entry = screen->findChild<QAction *>(step))
            entry->trigger();
        else if (!control)
            return false;
        else if (step.startsWith(u'@'))
            control->setFocus();
        else
            QTest::mouseClick(control, Qt::LeftButton);
    }
    return true;
}

void fireTimer(QTimer *timer) {
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
}

bool seen(const QWidget *w, const QWidget *within) {
    within = within ? within : w->window();
    if (!w->isVisibleTo(within))
        return false;
    for (; w && w != within; w = w->parentWidget()) {
        if (!Appearing::isVisible(w))
            return false;
    }
    return true;
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "course.h"
#include "form.h"

#include <QByteArray>
#include <QDateTime>
#include <QDir>
#include <QIODevice>
#include <QList>
#include <QRadioButton>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstddef>
#include <functional>
#include <stdexcept>

// The bytes of a file; a null array when there is none.
QByteArray readFile(const QString &path);

// What a failure that ends the programme raises inside the tests.
struct ProgrammeFailure : std::runtime_error {
    explicit ProgrammeFailure(const QString &text)
        : std::runtime_error(text.toStdString()) {}
};

// A clean programme for one test: a temporary programme folder, a clock the test sets, queued
// answers for yes/no questions, failures raised as ProgrammeFailure, a course of its own with the
// test's screens registered for it, and no screen loaded; all put back when it goes.
class TestProgramme {
public:
    TestProgramme();
    ~TestProgramme();
    TestProgramme(const TestProgramme &) = delete;
    TestProgramme &operator=(const TestProgramme &) = delete;

    // The screens every programme of the test registers with its course, as main() does.
    static inline std::function<void(Course &)> screens;

    // The folder and a file in it with the platform's separators, as the programme forms paths.
    QString folder() const { return QDir::toNativeSeparators(dir_.path()); }
    QString path(const QString &fileName) const {
        return QDir::toNativeSeparators(dir_.filePath(fileName));
    }
    QByteArray read(const QString &fileName) const { return readFile(path(fileName)); }
    void write(const QString &fileName, const QByteArray &bytes) const;

    // The clock stands still at 09:05:07 on 3 April 2026 until the test moves it.
    void setTime(double secondsSinceMidnight) {
        now_ = QDateTime(now_.date(), QTime(0, 0).addMSecs(qRound(secondsSinceMidnight * 1000)));
    }
    void advance(double seconds) { now_ = now_.addMSecs(qRound64(seconds * 1000)); }

    // Yes/no questions take these answers in order; each question asked is recorded.
    QList<bool> answers;
    QList<QPair<QString, QString>> questionsAsked; // text, title

    Course course;

private:
    QTemporaryDir dir_;
    QDateTime now_;
};

// Runs a program to its end: its standard output, or a null string when it failed.
QString runProgram(const QString &program, const QStringList &arguments);

// The system's own words for a file that cannot be opened there ("No such file or directory").
QString openFailure(const QString &path, QIODevice::OpenMode mode);

class QListWidget;
// The texts of a list's entries, in order.
QStringList entryTexts(const QListWidget *list);
// Clicks the one entry with this text, as a pupil does; false when there is none.
bool clickEntry(QListWidget *list, const QString &text);

// Clicks options of the final test (0 to 39) in turn; the second half comes at once.
template <class TestPage> void clickOptions(TestPage *page, const QList<int> &options) {
    for (int i : options) {
        if (page->halfChangeTimer->isActive())
            page->showSecondHalf();
        QTest::mouseClick(page->optionButtons.at(static_cast<std::size_t>(i)), Qt::LeftButton);
    }
}

// A screen that only logs what the screen layer does with it: "<name>:load", "<name>:activate".
class ProbeForm : public Form {
    Q_OBJECT
public:
    ProbeForm(ScreenId id, const QString &name, double zoomFactor);
    void onLoad() override { log << name_ + QStringLiteral(":load"); }
    void onActivate() override { log << name_ + QStringLiteral(":activate"); }

    static QStringList log;

private:
    QString name_;
};

// Registers a ProbeForm for each of the screens, named by the given names.
void registerProbes(const QList<QPair<ScreenId, QString>> &screens);

// Works a screen step by step: a menu entry's name triggers it, "@name" gives that control the
// focus, any other name clicks it. False when a step names nothing on the screen.
bool work(QWidget *screen, const QString &steps);

// Fires a timer's tick at once, as if its interval had passed.
void fireTimer(QTimer *timer);

// Lets the screen layer finish what the last handler left: its layer step and deferred deletes.
void settle();

// Whether the pupil sees `w` within `within` (its window by default): shown, and neither it nor a
// parent a control that has gone (a verdict, the pace note).
bool seen(const QWidget *w, const QWidget *within = nullptr);

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <stdexcept>

// What a failure that ends the programme raises inside the tests.
struct ProgrammeFailure : std::runtime_error {
    explicit ProgrammeFailure(const QString &text)
        : std::runtime_error(text.toStdString()) {}
};

// A clean programme for one test: a temporary programme folder, a clock the test sets, queued
// answers for yes/no questions, failures raised as ProgrammeFailure, every programme-wide variable
// back at zero and no screen loaded. Everything is put back when it goes out of scope.
class TestProgramme {
public:
    TestProgramme();
    ~TestProgramme();
    TestProgramme(const TestProgramme &) = delete;
    TestProgramme &operator=(const TestProgramme &) = delete;

    QString folder() const;
    QString path(const QString &fileName) const;
    QByteArray read(const QString &fileName) const;
    void write(const QString &fileName, const QByteArray &bytes) const;

    // The clock stands still at this time of 22 November 2026 until the test moves it.
    void setTime(double secondsSinceMidnight);
    void advance(double seconds);

    // Yes/no questions take these answers in order; each question asked is recorded.
    QList<bool> answers;
    QList<QPair<QString, QString>> questionsAsked; // text, title

private:
    QTemporaryDir dir_;
    QDateTime now_;
};

void resetProgrammeState();

// A screen that only records what the screen layer does with it, for screens a test does not
// need in full. Its log lines read "<id>:load" and "<id>:activate".
class ProbeForm : public Form {
    Q_OBJECT
public:
    explicit ProbeForm(ScreenId id, const QString &name);
    void onLoad() override;
    void onActivate() override;

    static QStringList log;

private:
    QString name_;
};

// Registers a ProbeForm for each of the screens, named by the given names.
void registerProbes(const QList<QPair<ScreenId, QString>> &screens);

class QTimer;
// Fires a timer's tick at once, as if its interval had passed.
void fireTimer(QTimer *timer);

// Lets the screen layer finish what the last handler left: its layer step and deferred deletes.
void settle();

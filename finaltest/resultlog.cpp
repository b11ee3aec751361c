// SPDX-License-Identifier: GPL-3.0-or-later
#include "resultlog.h"

#include "seams.h"
#include "textfiles.h"

#include <QFile>
#include <QLocale>

namespace {

struct Log {
    QFile file;
    QString lastError; // why the file could not be created
    int resumeNext = 0;
};

Log &log() {
    static Log l;
    return l;
}

void writeLine(const QString &line) {
    Log &l = log();
    const QByteArray bytes = TextFiles::lineBytes(line);
    if (l.resumeNext > 0) {
        if (l.file.isOpen()) {
            l.file.write(bytes);
            l.file.flush();
        }
        return;
    }
    if (!l.file.isOpen()) {
        Seams::failProgramme(l.lastError.isEmpty() ? QStringLiteral("Dateiname oder -nummer falsch")
                                                   : l.lastError);
    }
    if (l.file.write(bytes) != bytes.size() || !l.file.flush())
        Seams::failProgramme(l.file.errorString());
}

} // namespace

QString dateTimeText(const QDateTime &when) {
    // Digits of the C locale: the system's own language may bring other digits and names.
    return QLocale::c().toString(when, QStringLiteral("dd.MM.yyyy hh:mm:ss"));
}

namespace ResultLog {

void create(const QString &path) {
    Log &l = log();
    l.file.close();
    l.file.setFileName(path);
    TextFiles::makeFolderOf(path);
    if (l.file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        l.lastError.clear();
    else
        l.lastError = l.file.errorString();
}

void writeFileHeading() {
    writeLine(QString(15, QLatin1Char(' ')) + QStringLiteral("Test Kelvora"));
    writeLine(QString());
}

void writeQuestionHeading(const QString &frameCaption, const QString &questionCaption) {
    writeLine(frameCaption);
    writeLine(questionCaption);
}

void writeClickLine(const QString &optionCaption, const QString &verdictCaption) {
    writeLine(QStringLiteral("    ") + optionCaption + QStringLiteral(" - ") + verdictCaption);
}

void writeEmptyLine() {
    writeLine(QString());
}

void writeTotals(int correct, int answered) {
    writeLine(PrintLine()
                  .number(correct)
                  .text(QStringLiteral("Punkte von"))
                  .number(answered)
                  .text(QStringLiteral("Punkten"))
                  .str());
}

void writeDateLine() {
    writeLine(dateTimeText(Seams::now()));
}

void close() {
    log().file.close();
}

ResumeNext::ResumeNext() {
    ++log().resumeNext;
}

ResumeNext::~ResumeNext() {
    --log().resumeNext;
}

} // namespace ResultLog

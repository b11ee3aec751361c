// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

// The log of the final test, TestergebnisQel.doc: Windows-1252 text with CR LF line ends. It is
// held open from the first logged click of question 1 until question 10 is solved, and it stays
// open across a reload of page 11, as one programme-wide file.
namespace ResultLog {

// Creates the file anew, replacing an older log, and its folder when that has gone. A failure
// passes without a word; the log then stays closed.
void create(const QString &path);

// The line kinds of the log. Each line reaches the disk as it is written. Writing while the log
// is not open, or a failing write, ends the programme with the system's error text.
void writeFileHeading();
void writeQuestionHeading(const QString &frameCaption, const QString &questionCaption);
void writeClickLine(const QString &optionCaption, const QString &verdictCaption);
void writeEmptyLine();
void writeTotals(int correct, int answered);
void writeDateLine();

void close();

// From the creation of the log to the end of the click that created it, failing writes pass
// without a word, as the whole handler runs under the resume-next policy from there on.
class ResumeNext {
public:
    ResumeNext();
    ~ResumeNext();
    ResumeNext(const ResumeNext &) = delete;
    ResumeNext &operator=(const ResumeNext &) = delete;
};

} // namespace ResultLog

// The date and time as a German desktop shows them, whatever language the system is set to: for
// example "22.11.2026 14:05:09".
QString dateTimeText(const QDateTime &when);

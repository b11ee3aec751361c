// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QSaveFile>
#include <QString>

#include <optional>

// The programme's small text files: Windows-1252 bytes and CR LF line ends on every platform, so
// that a file written on Linux is byte for byte the one written on Windows.
namespace TextFiles {

QByteArray toWindows1252(const QString &text); // characters outside the code page become '?'
QString fromWindows1252(const QByteArray &bytes);
// One line as every file of the programme holds it: Windows-1252, then CR LF.
QByteArray lineBytes(const QString &line);

// Folder, a separator unless the folder already ends in one, then the file name.
QString pathInFolder(const QString &folder, const QString &fileName);
// The same for the programme folder, asked for afresh.
QString programmePath(const QString &fileName);

// Makes the folder of a file again when it has gone while the programme runs (deleted by the
// pupil or a clean-up), so that the file can be written. A folder that cannot be made stays
// missing, and the file then fails as in a write-protected folder.
void makeFolderOf(const QString &path);

// The first item of a file's content in the quoted item style: a quoted string without its
// quotes, or a bare item up to the next comma or line end. Nothing when it holds no item.
std::optional<QString> firstItem(const QByteArray &content);
// The same read from a file; nothing when the file cannot be read either.
std::optional<QString> readFirstItem(const QString &path);

} // namespace TextFiles

// The programme's three files, all in the programme folder.
inline const QString kStartFileName = QStringLiteral("StartQelB.txt");        // where to resume
inline const QString kGradeFileName = QStringLiteral("ZensurQel.txt");        // the last grade
inline const QString kResultFileName = QStringLiteral("TestergebnisQel.doc"); // the test log

// Writes the start-position file anew: the page number as a quoted item, then the numbers, one
// item a line. The exit frames and the end page write it this way and no other; every step may
// fail without a word, leaving the old content.
void writeStartPosition(const QString &path, int page, const QList<int> &numbers = {});

// A file replaced all at once, Windows-1252 lines with CR LF. The lines go to a temporary file
// beside it, which takes the file's place on close() only when every line has reached the disk:
// a crash, a full disk or a kill before that leaves the old content, never a part of the new.
// Every step may fail without a word, and the file then stays as it was: a write-protected file
// or folder is not written at all. A folder that has gone is made again.
class ReplacedFile {
public:
    explicit ReplacedFile(const QString &path); // opens for output; the old content stays
    void writeLine(const QString &line);
    bool close(); // the new content takes the old one's place; false: the old content stays

private:
    QSaveFile file_;
};

// A file written in the quoted item style: strings in double quotes, numbers bare, one item a
// line, replaced all at once on close().
class QuotedItemFile {
public:
    explicit QuotedItemFile(const QString &path); // opens for output; the old content stays
    void write(const QString &item);
    void write(int number);
    void close();

private:
    ReplacedFile file_;
};

// One line of the print style: texts joined directly, numbers with a sign place in front and a
// blank behind, and nextZone() moving on to the next 14-column print zone.
class PrintLine {
public:
    PrintLine &text(const QString &s);
    PrintLine &number(int n);
    PrintLine &nextZone();
    const QString &str() const { return line_; }

private:
    QString line_;
};

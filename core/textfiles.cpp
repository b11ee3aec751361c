// SPDX-License-Identifier: GPL-3.0-or-later
#include "textfiles.h"

#include "seams.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>

namespace {

// Windows-1252 differs from Latin-1 only in 0x80..0x9F; five of those places are unassigned.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char encodeOne(QChar c) {
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return static_cast<char>(u);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] != 0 && kHighControls[i] == u)
            return static_cast<char>(0x80 + i);
    }
    return '?';
}

} // namespace

namespace TextFiles {

QByteArray toWindows1252(const QString &text) {
    QByteArray out;
    out.reserve(text.size());
    for (QChar c : text)
        out.append(encodeOne(c));
    return out;
}

QByteArray lineBytes(const QString &line) {
    return toWindows1252(line) + QByteArrayLiteral("\r\n");
}

QString fromWindows1252(const QByteArray &bytes) {
    QString out;
    out.reserve(bytes.size());
    for (char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        if (u >= 0x80 && u < 0xA0 && kHighControls[u - 0x80] != 0)
            out.append(QChar(kHighControls[u - 0x80]));
        else
            out.append(QChar(static_cast<char16_t>(u)));
    }
    return out;
}

QString pathInFolder(const QString &folder, const QString &fileName) {
    const QChar separator = QDir::separator();
    if (folder.endsWith(separator))
        return folder + fileName;
    return folder + separator + fileName;
}

QString programmePath(const QString &fileName) {
    return pathInFolder(Seams::programmeFolder(), fileName);
}

void makeFolderOf(const QString &path) {
    const QFileInfo file(path);
    if (!file.dir().exists())
        QDir().mkpath(file.absolutePath());
}

std::optional<QString> readFirstItem(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return firstItem(file.readAll());
}

std::optional<QString> firstItem(const QByteArray &content) {
    const QString text = fromWindows1252(content);

    qsizetype i = 0;
    const auto blank = [&](qsizetype at) {
        const QChar c = text.at(at);
        return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
    };
    while (i < text.size() && blank(i))
        ++i;
    if (i == text.size())
        return std::nullopt;

    if (text.at(i) == u'"') {
        const qsizetype close = text.indexOf(u'"', i + 1);
        const qsizetype end = close < 0 ? text.size() : close;
        return text.mid(i + 1, end - i - 1);
    }
    qsizetype end = i;
    while (end < text.size() && text.at(end) != u',' && text.at(end) != u'\r' &&
           text.at(end) != u'\n')
        ++end;
    qsizetype last = end;
    while (last > i && (text.at(last - 1) == u' ' || text.at(last - 1) == u'\t'))
        --last;
    return text.mid(i, last - i);
}

} // namespace TextFiles

ReplacedFile::ReplacedFile(const QString &path)
    : file_(path) {
    // A folder that takes no new file is write-protected: the file is not written in place.
    file_.setDirectWriteFallback(false);
    TextFiles::makeFolderOf(path);
    (void)file_.open(QIODevice::WriteOnly);
}

void ReplacedFile::writeLine(const QString &line) {
    if (file_.isOpen())
        file_.write(TextFiles::lineBytes(line));
}

bool ReplacedFile::close() {
    if (!file_.isOpen())
        return false;
    // A write that failed on the way makes the commit throw the new content away. The bytes
    // still buffered are pushed out first: QSaveFile would put the temporary file in the old
    // one's place even when they do not fit on the disk, leaving a cut-off file.
    if (!file_.flush())
        file_.cancelWriting();
    return file_.commit();
}

QuotedItemFile::QuotedItemFile(const QString &path)
    : file_(path) {}

void QuotedItemFile::write(const QString &item) {
    file_.writeLine(QLatin1Char('"') + item + QLatin1Char('"'));
}

void QuotedItemFile::write(int number) {
    file_.writeLine(QString::number(number));
}

void QuotedItemFile::close() {
    file_.close();
}

void writeStartPosition(const QString &path, int page, const QList<int> &numbers) {
    QuotedItemFile file(path);
    file.write(QString::number(page));
    for (int number : numbers)
        file.write(number);
    file.close();
}

PrintLine &PrintLine::text(const QString &s) {
    line_ += s;
    return *this;
}

PrintLine &PrintLine::number(int n) {
    const long long value = n;
    line_ += (value < 0 ? QLatin1Char('-') : QLatin1Char(' ')) +
             QString::number(value < 0 ? -value : value) + QLatin1Char(' ');
    return *this;
}

PrintLine &PrintLine::nextZone() {
    constexpr qsizetype zone = 14;
    const qsizetype target = (line_.size() / zone + 1) * zone;
    line_ += QString(target - line_.size(), QLatin1Char(' '));
    return *this;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// The small text files: path rule, Windows-1252 bytes, quoted items and the print style. What the
// start screen reads from the start-position file is checked with the start-up in test_start; the
// files the pages write, byte for byte, with the pages.
#include "seams.h"
#include "testsupport.h"
#include "textfiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestTextFiles : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pathRule_data() {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("expected");
        const auto native = [](const QString &path) {
            return QDir::toNativeSeparators(path);
        };
        QTest::addRow("folder ending in separator")
            << native(u"/opt/"_s) << native(u"/opt/StartQelB.txt"_s);
        QTest::addRow("root") << native(u"/"_s) << native(u"/StartQelB.txt"_s);
    }
    void pathRule() {
        QFETCH(QString, folder);
        QFETCH(QString, expected);
        TestProgramme programme;
        Seams::setProgrammeFolder([folder] { return folder; });
        QCOMPARE(TextFiles::programmePath(u"StartQelB.txt"_s), expected);
    }

    // Where the files live: beside a portable copy, in the pupil's data folder for an installed
    // one (bin/kelvora beside share/kelvora/ of the same prefix). The package test runs an
    // installed copy in /usr and a portable one.
    void filesFolder_data() {
        QTest::addColumn<QString>("executable");
        QTest::addColumn<QStringList>("folders"); // made below the scratch folder
        QTest::addColumn<bool>("installed");
        QTest::addRow("installed in a prefix of its own")
            << u"opt/kelvora/bin"_s
            << QStringList{u"opt/kelvora/bin"_s, u"opt/kelvora/share/kelvora"_s} << true;
        QTest::addRow("bin folder without Kelvora's share folder")
            << u"usr/bin"_s << QStringList{u"usr/bin"_s, u"usr/share/other"_s} << false;
        QTest::addRow("build tree")
            << u"build/default/app"_s
            << QStringList{u"build/default/app"_s, u"build/default/share/kelvora"_s} << false;
    }
    void filesFolder() {
        QFETCH(QString, executable);
        QFETCH(QStringList, folders);
        QFETCH(bool, installed);
        QTemporaryDir scratch;
        for (const QString &folder : folders)
            QVERIFY(QDir(scratch.path()).mkpath(folder));
        const QString exe = scratch.filePath(executable), data = scratch.filePath(u"home"_s);
        QCOMPARE(Seams::filesFolderFor(exe, data), installed ? data : exe);
    }

    void windows1252() {
        const QString text = u"äöüßÄÖÜ €„“–é→"_s;
        const QByteArray bytes("\xE4\xF6\xFC\xDF\xC4\xD6\xDC\x20\x80\x84\x93\x96\xE9?");
        QCOMPARE(TextFiles::toWindows1252(text), bytes);
        QCOMPARE(TextFiles::fromWindows1252(bytes.left(13)), text.left(13));
    }

    void quotedItems_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("strings");
        QTest::addColumn<QList<int>>("numbers");
        QTest::addColumn<bool>("closed"); // else the writer never finishes: a kill, a crash
        QTest::addColumn<QByteArray>("expected");
        const QString f = u"f.txt"_s;
        QTest::addRow("negative and zero") << f << QStringList{u"50"_s} << QList<int>{0, -3} << true
                                           << QByteArray("\"50\"\r\n0\r\n-3\r\n");
        QTest::addRow("umlaut in a string") << f << QStringList{u"Größe"_s} << QList<int>{} << true
                                            << QByteArray("\"Gr\xF6\xDF\x65\"\r\n");
        QTest::addRow("into a folder that has gone: made again")
            << u"gone/f.txt"_s << QStringList{u"7"_s} << QList<int>{3} << true
            << QByteArray("\"7\"\r\n3\r\n");
        QTest::addRow("never finished") << f << QStringList{u"1"_s} << QList<int>{4, 5} << false
                                        << QByteArray("old content that must go\r\n");
    }
    // The file is replaced all at once: until the writer has finished, the old content stays on
    // disk whole, and a writer that never finishes leaves it so, with no temporary file behind.
    void quotedItems() {
        QFETCH(QString, file);
        QFETCH(QStringList, strings);
        QFETCH(QList<int>, numbers);
        QFETCH(bool, closed);
        QFETCH(QByteArray, expected);
        TestProgramme programme;
        const QByteArray old = "old content that must go\r\n";
        programme.write(u"f.txt"_s, old);
        {
            QuotedItemFile items(programme.path(file));
            for (const QString &s : strings)
                items.write(s);
            for (int n : numbers)
                items.write(n);
            QCOMPARE(programme.read(u"f.txt"_s), old);
            if (closed)
                items.close();
        }
        QCOMPARE(programme.read(file), expected);
        QCOMPARE(QDir(programme.folder()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{u"f.txt"_s});
    }

    void firstItem_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("hasItem");
        QTest::addColumn<QString>("item");
        QTest::addRow("bare item up to comma") << QByteArray("  12 ,x\r\n") << true << u"12"_s;
        QTest::addRow("unterminated quote") << QByteArray("\"abc") << true << u"abc"_s;
        QTest::addRow("umlaut") << QByteArray("\"\xFC\"") << true << u"ü"_s;
        QTest::addRow("blank lines only") << QByteArray("\r\n  \r\n") << false << QString();
    }
    void firstItem() {
        QFETCH(QByteArray, content);
        QFETCH(bool, hasItem);
        QFETCH(QString, item);
        TestProgramme programme;
        programme.write(u"StartQelB.txt"_s, content);
        const auto read = TextFiles::readFirstItem(programme.path(u"StartQelB.txt"_s));
        QCOMPARE(read.has_value(), hasItem);
        QCOMPARE(read.value_or(QString()), item);
    }

    void printLine_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("expected");
        const QString zone(14, u' ');
        QTest::addRow("negative number") << PrintLine().number(-5).str() << u"-5 "_s;
        QTest::addRow("zero") << PrintLine().number(0).str() << u" 0 "_s;
        QTest::addRow("short text to the second zone")
            << PrintLine().text(u"abc"_s).nextZone().text(u"x"_s).str()
            << u"abc"_s + QString(11, u' ') + u"x"_s;
        QTest::addRow("full zone moves on")
            << PrintLine().text(QString(14, u'z')).nextZone().text(u"x"_s).str()
            << QString(14, u'z') + zone + u"x"_s;
        QTest::addRow("empty line to first zone") << PrintLine().nextZone().str() << zone;
    }
    void printLine() {
        QFETCH(QString, line);
        QFETCH(QString, expected);
        QCOMPARE(line, expected);
    }
};

QTEST_MAIN(TestTextFiles)
#include "test_textfiles.moc"

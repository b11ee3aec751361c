// SPDX-License-Identifier: GPL-3.0-or-later
// The small text files: path rule, Windows-1252 bytes, quoted items and the print style.
#include "seams.h"
#include "testsupport.h"
#include "textfiles.h"

#include <QDir>
#include <QTest>

class TestTextFiles : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pathRule_data();
    void pathRule();
    void windows1252();
    void quotedItems_data();
    void quotedItems();
    void quotedItemsIntoMissingFolder();
    void firstItem_data();
    void firstItem();
    void printLine_data();
    void printLine();
};

void TestTextFiles::pathRule_data() {
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("expected");
    const QString sep = QDir::separator();
    QTest::addRow("plain folder") << sep + QStringLiteral("opt") + sep + QStringLiteral("kelvora")
                                  << sep + QStringLiteral("opt") + sep + QStringLiteral("kelvora") +
                                         sep + QStringLiteral("StartQelB.txt");
    QTest::addRow("folder ending in separator")
        << sep + QStringLiteral("opt") + sep
        << sep + QStringLiteral("opt") + sep + QStringLiteral("StartQelB.txt");
    QTest::addRow("root") << QString(sep) << sep + QStringLiteral("StartQelB.txt");
}

void TestTextFiles::pathRule() {
    QFETCH(QString, folder);
    QFETCH(QString, expected);
    TestProgramme programme;
    Seams::setProgrammeFolder([folder] { return folder; });
    QCOMPARE(TextFiles::programmePath(QStringLiteral("StartQelB.txt")), expected);
}

void TestTextFiles::windows1252() {
    const QString text = QStringLiteral("äöüßÄÖÜ €„“–é→");
    const QByteArray bytes("\xE4\xF6\xFC\xDF\xC4\xD6\xDC\x20\x80\x84\x93\x96\xE9?");
    QCOMPARE(TextFiles::toWindows1252(text), bytes);
    QCOMPARE(TextFiles::fromWindows1252(bytes.left(13)), text.left(13));
}

void TestTextFiles::quotedItems_data() {
    QTest::addColumn<QStringList>("strings");
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("page number alone")
        << QStringList{QStringLiteral("7")} << QList<int>{} << QByteArray("\"7\"\r\n");
    QTest::addRow("page with two counts") << QStringList{QStringLiteral("1")} << QList<int>{4, 5}
                                          << QByteArray("\"1\"\r\n4\r\n5\r\n");
    QTest::addRow("negative and zero") << QStringList{QStringLiteral("50")} << QList<int>{0, -3}
                                       << QByteArray("\"50\"\r\n0\r\n-3\r\n");
    QTest::addRow("umlaut in a string") << QStringList{QStringLiteral("Größe")} << QList<int>{}
                                        << QByteArray("\"Gr\xF6\xDF\x65\"\r\n");
}

void TestTextFiles::quotedItems() {
    QFETCH(QStringList, strings);
    QFETCH(QList<int>, numbers);
    QFETCH(QByteArray, expected);
    TestProgramme programme;
    programme.write(QStringLiteral("f.txt"), QByteArray("old content that must go\r\n"));
    QuotedItemFile file(programme.path(QStringLiteral("f.txt")));
    for (const QString &s : strings)
        file.write(s);
    for (int n : numbers)
        file.write(n);
    file.close();
    QCOMPARE(programme.read(QStringLiteral("f.txt")), expected);
}

void TestTextFiles::quotedItemsIntoMissingFolder() {
    TestProgramme programme;
    const QString path = programme.path(QStringLiteral("no-such-folder/f.txt"));
    QuotedItemFile file(path);
    file.write(QStringLiteral("7"));
    file.write(3);
    file.close();
    QVERIFY(!QFile::exists(path));
}

void TestTextFiles::firstItem_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("hasItem");
    QTest::addColumn<QString>("item");
    QTest::addRow("quoted") << QByteArray("\"7\"\r\n") << true << QStringLiteral("7");
    QTest::addRow("further lines ignored")
        << QByteArray("\"1\"\r\n4\r\n5\r\n") << true << QStringLiteral("1");
    QTest::addRow("bare number") << QByteArray("11\r\n0\r\n") << true << QStringLiteral("11");
    QTest::addRow("bare item up to comma")
        << QByteArray("  12 ,x\r\n") << true << QStringLiteral("12");
    QTest::addRow("quoted blanks kept") << QByteArray("\" 7\"\r\n") << true << QStringLiteral(" 7");
    QTest::addRow("leading zero kept") << QByteArray("\"07\"\r\n") << true << QStringLiteral("07");
    QTest::addRow("unterminated quote") << QByteArray("\"abc") << true << QStringLiteral("abc");
    QTest::addRow("umlaut") << QByteArray("\"\xFC\"") << true << QStringLiteral("ü");
    QTest::addRow("empty file") << QByteArray() << false << QString();
    QTest::addRow("blank lines only") << QByteArray("\r\n  \r\n") << false << QString();
}

void TestTextFiles::firstItem() {
    QFETCH(QByteArray, content);
    QFETCH(bool, hasItem);
    QFETCH(QString, item);
    TestProgramme programme;
    programme.write(QStringLiteral("StartQelB.txt"), content);
    const auto read = TextFiles::readFirstItem(programme.path(QStringLiteral("StartQelB.txt")));
    QCOMPARE(read.has_value(), hasItem);
    if (hasItem)
        QCOMPARE(*read, item);
    QVERIFY(!TextFiles::readFirstItem(programme.path(QStringLiteral("missing.txt"))));
}

void TestTextFiles::printLine_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expected");
    QTest::addRow("totals") << PrintLine()
                                   .number(10)
                                   .text(QStringLiteral("Punkte von"))
                                   .number(12)
                                   .text(QStringLiteral("Punkten"))
                                   .str()
                            << QStringLiteral(" 10 Punkte von 12 Punkten");
    QTest::addRow("negative number") << PrintLine().number(-5).str() << QStringLiteral("-5 ");
    QTest::addRow("zero") << PrintLine().number(0).str() << QStringLiteral(" 0 ");
    QTest::addRow("grade at the third zone")
        << PrintLine()
               .text(QStringLiteral("Programm Kelvora:"))
               .nextZone()
               .text(QStringLiteral("Zensur:   2"))
               .str()
        << QStringLiteral("Programm Kelvora:") + QString(11, QLatin1Char(' ')) +
               QStringLiteral("Zensur:   2");
    QTest::addRow("short text to the second zone")
        << PrintLine().text(QStringLiteral("abc")).nextZone().text(QStringLiteral("x")).str()
        << QStringLiteral("abc") + QString(11, QLatin1Char(' ')) + QStringLiteral("x");
    QTest::addRow("full zone moves on")
        << PrintLine()
               .text(QString(14, QLatin1Char('z')))
               .nextZone()
               .text(QStringLiteral("x"))
               .str()
        << QString(14, QLatin1Char('z')) + QString(14, QLatin1Char(' ')) + QStringLiteral("x");
    QTest::addRow("empty line to first zone")
        << PrintLine().nextZone().str() << QString(14, QLatin1Char(' '));
}

void TestTextFiles::printLine() {
    QFETCH(QString, line);
    QFETCH(QString, expected);
    QCOMPARE(line, expected);
}

QTEST_MAIN(TestTextFiles)
#include "test_textfiles.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up: reading the start position and opening the page named there.
#include "screens.h"
#include "shell.h"
#include "testsupport.h"

#include <QTest>

class TestStart : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        QList<QPair<ScreenId, QString>> probes{
            {ScreenId::ControlCentre, QStringLiteral("Steuerzentrum")}};
        for (int page = 1; page <= 11; ++page)
            probes.append({pageScreen(page), QStringLiteral("Qel%1").arg(page)});
        TestProgramme::screens = [probes](Course &course) {
            registerShellScreens(course);
            registerProbes(probes);
        };
    }

    void dispatch_data() {
        QTest::addColumn<bool>("fileExists");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("opened"); // empty: the start screen stays; "-": the end
        QTest::addRow("no file") << false << QByteArray() << QString();
        QTest::addRow("empty file") << true << QByteArray() << QString();
        QTest::addRow("restart") << true << QByteArray("\"50\"\r\n") << QString();
        for (int page = 1; page <= 11; ++page) {
            QTest::addRow("page %d", page)
                << true << QByteArray("\"") + QByteArray::number(page) + "\"\r\n"
                << QStringLiteral("Qel%1").arg(page);
        }
        QTest::addRow("page 1 with counts")
            << true << QByteArray("\"1\"\r\n3\r\n4\r\n") << QStringLiteral("Qel1");
        QTest::addRow("bare number") << true << QByteArray("7\r\n") << QStringLiteral("Qel7");
        QTest::addRow("12") << true << QByteArray("\"12\"\r\n") << QStringLiteral("-");
        QTest::addRow("07") << true << QByteArray("\"07\"\r\n") << QStringLiteral("-");
        QTest::addRow("blank 7") << true << QByteArray("\" 7\"\r\n") << QStringLiteral("-");
        QTest::addRow("abc") << true << QByteArray("\"abc\"\r\n") << QStringLiteral("-");
    }
    void dispatch() {
        QFETCH(bool, fileExists);
        QFETCH(QByteArray, content);
        QFETCH(QString, opened);
        TestProgramme programme;
        if (fileExists)
            programme.write(QStringLiteral("StartQelB.txt"), content);

        Screens::show(ScreenId::Start);
        settle();

        QCOMPARE(programme.course.startFilePath(), programme.path(QStringLiteral("StartQelB.txt")));
        QCOMPARE(Screens::loaded(ScreenId::Start) != nullptr, opened.isEmpty());
        QCOMPARE(Screens::programmeEnded(), opened == QStringLiteral("-"));
        // Whatever the start position, the grade scale is the usual one afterwards.
        QCOMPARE(programme.course.gradeScale(), kDefaultGradeScale);
        if (opened.isEmpty() || opened == QStringLiteral("-"))
            QVERIFY(ProbeForm::log.isEmpty());
        else
            QCOMPARE(ProbeForm::log, QStringList({opened + QStringLiteral(":load"),
                                                  opened + QStringLiteral(":activate")}));
    }
};

QTEST_MAIN(TestStart)
#include "test_start.moc"

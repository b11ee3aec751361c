// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up: reading the start position and opening the page named there.
#include "screens.h"
#include "shell.h"
#include "testsupport.h"

using namespace Qt::StringLiterals;

class TestStart : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        QList<QPair<ScreenId, QString>> probes{{ScreenId::ControlCentre, u"Steuerzentrum"_s}};
        for (int page = 1; page <= 11; ++page)
            probes.append({pageScreen(page), u"Qel%1"_s.arg(page)});
        TestProgramme::screens = [probes](Course &course) {
            registerShellScreens(course);
            registerProbes(probes);
        };
    }

    void dispatch_data() {
        QTest::addColumn<QByteArray>("content"); // null: no file
        QTest::addColumn<QString>("opened");     // empty: the start screen stays; "-": the end
        QTest::addRow("no file") << QByteArray() << QString();
        QTest::addRow("empty file") << QByteArray("") << QString();
        QTest::addRow("restart") << QByteArray("\"50\"\r\n") << QString();
        for (int page = 1; page <= 11; ++page)
            QTest::addRow("page %d", page) << "\"" + QByteArray::number(page) + "\"\r\n"
                                           << u"Qel%1"_s.arg(page);
        QTest::addRow("page 1 with counts") << QByteArray("\"1\"\r\n3\r\n4\r\n") << u"Qel1"_s;
        QTest::addRow("bare number") << QByteArray("7\r\n") << u"Qel7"_s;
        for (const char *item : {"\"12\"", "\"07\"", "\" 7\"", "\"abc\""})
            QTest::addRow("%s", item) << QByteArray(item) + "\r\n" << u"-"_s;
    }
    void dispatch() {
        QFETCH(QByteArray, content);
        QFETCH(QString, opened);
        TestProgramme programme;
        if (!content.isNull())
            programme.write(u"StartQelB.txt"_s, content);

        Screens::show(ScreenId::Start);
        settle();

        QCOMPARE(programme.course.startFilePath(), programme.path(u"StartQelB.txt"_s));
        QCOMPARE(Screens::loaded(ScreenId::Start) != nullptr, opened.isEmpty());
        QCOMPARE(Screens::programmeEnded(), opened == u"-");
        // Whatever the start position, the grade scale is the usual one afterwards.
        QCOMPARE(programme.course.gradeScale(), kDefaultGradeScale);
        const QStringList loaded{opened + u":load"_s, opened + u":activate"_s};
        QCOMPARE(ProbeForm::log, opened.isEmpty() || opened == u"-" ? QStringList() : loaded);
    }
};

QTEST_MAIN(TestStart)
#include "test_start.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "modul1.h"
#include "printing.h"
#include "qel11.h"
#include "screens.h"
#include "testsupport.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr double kPointsPerMm = 72.0 / 25.4;

QString run(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(30000) || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The words of a PDF with their boxes in points, page by page, as pdftotext reads them.
struct Word {
    int page;
    double xMin;
    double yMin;
    QString text;
};

QList<Word> words(const QString &pdf) {
    const QString html = run(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s});
    QList<Word> result;
    int page = 0;
    static const QRegularExpression token(
        uR"re((<page )|<word xMin="([\d.]+)" yMin="([\d.]+)"[^>]*>([^<]*)</word>)re"_s);
    for (auto it = token.globalMatch(html); it.hasNext();) {
        const auto m = it.next();
        if (!m.captured(1).isEmpty())
            ++page;
        else
            result.append(
                {page, m.captured(2).toDouble(), m.captured(3).toDouble(), m.captured(4)});
    }
    return result;
}

// The text of a PDF, one printed line a line, blanks inside a line made single.
QStringList textLines(const QString &pdf) {
    QStringList lines;
    for (const QString &line : run(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s}).split(u'\n')) {
        const QString simple = line.simplified().remove(QChar(u'\f'));
        if (!simple.isEmpty())
            lines << simple;
    }
    return lines;
}

QStringList simplifiedLines(const QByteArray &log) {
    QStringList lines;
    for (const QByteArray &line : log.split('\n')) {
        const QString simple = QString::fromLatin1(line).simplified();
        if (!simple.isEmpty())
            lines << simple;
    }
    return lines;
}

Qel11 *finishTest() {
    auto *page = Screens::show<Qel11>(ScreenId::Qel11);
    for (int i : {0, 7, 9, 14, 17, 20, 26, 29, 33, 38}) {
        const auto at = static_cast<std::size_t>(i);
        if (page->Timer1->isActive())
            page->Timer1_Timer();
        QTest::mouseClick(page->Option1[at], Qt::LeftButton);
    }
    return page;
}

} // namespace

class TestPrinting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        registerFinalTestScreens();
    }

    void cleanup() { Printing::setPrinterSource({}); }

    void printsTheFinishedTestAndEnds() {
        TestProgramme programme;
        const QString pdf = programme.path(u"ausdruck.pdf"_s);
        Printing::setPrinterSource([pdf] {
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(pdf);
            printer->setPageSize(QPageSize(QPageSize::A4));
            return printer;
        });
        Qel11 *page = finishTest();
        QVERIFY(page->Command7->isVisible());
        QTest::mouseClick(page->Command7, Qt::LeftButton);
        QVERIFY(Screens::programmeEnded());

        const QByteArray log = programme.read(u"TestergebnisQel.doc"_s);
        QCOMPARE(textLines(pdf), simplifiedLines(log));
        QCOMPARE(textLines(pdf).last(), u"22.11.2026 14:05:09"_s);

        const QList<Word> printed = words(pdf);
        QVERIFY(!printed.isEmpty());
        // Every line starts 20 mm from the left edge, the first one 10 mm from the top.
        for (const Word &w : printed) {
            if (w.text == u"Aufgabe"_s || w.text == u"22.11.2026"_s)
                QVERIFY2(qAbs(w.xMin - 20 * kPointsPerMm) < 1.0, qPrintable(w.text));
        }
        QCOMPARE(printed.first().text, u"Test"_s);
        QVERIFY2(printed.first().yMin >= 10 * kPointsPerMm - 1 &&
                     printed.first().yMin < 10 * kPointsPerMm + 4,
                 qPrintable(QString::number(printed.first().yMin)));
        QVERIFY(run(u"pdffonts"_s, {pdf}).contains(u"LiberationSans"_s));
    }

    void longLogGoesOnToFurtherPages() {
        TestProgramme programme;
        QByteArray log;
        for (int i = 1; i <= 150; ++i)
            log += "Zeile " + QByteArray::number(i) +
                   " Stra\xdf"
                   "e\r\n";
        programme.write(u"lang.doc"_s, log);
        const QString pdf = programme.path(u"lang.pdf"_s);
        Printing::setPrinterSource([pdf] {
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(pdf);
            printer->setPageSize(QPageSize(QPageSize::A4));
            return printer;
        });
        const QStringList lines = Printing::readLines(programme.path(u"lang.doc"_s));
        QCOMPARE(lines.size(), 150);
        QCOMPARE(lines[149], u"Zeile 150 Stra\u00dfe"_s);
        Printing::printLines(lines);

        QVERIFY(run(u"pdfinfo"_s, {pdf}).contains(QRegularExpression(u"Pages:\\s+3\\b"_s)));
        QCOMPARE(textLines(pdf).size(), 150);
        QCOMPARE(textLines(pdf).last(), u"Zeile 150 Stra\u00dfe"_s);
        // Each further page starts at the top margin again.
        for (const Word &w : words(pdf)) {
            if (w.text == u"Zeile"_s && w.page > 1 && w.yMin < 10 * kPointsPerMm + 4)
                return;
        }
        QFAIL("no line at the top of a further page");
    }

    void failures_data() {
        QTest::addColumn<bool>("withLog");
        QTest::addColumn<bool>("withPrinter");
        QTest::addColumn<QString>("failure");
        QTest::newRow("no log") << false << true << u"No such file or directory"_s;
        QTest::newRow("no printer") << true << false << u"Druckerfehler"_s;
    }

    void failures() {
        QFETCH(bool, withLog);
        QFETCH(bool, withPrinter);
        QFETCH(QString, failure);
        TestProgramme programme;
        if (withLog)
            programme.write(u"TestergebnisQel.doc"_s, "               Test Kelvora\r\n");
        const QString pdf = programme.path(u"nie.pdf"_s);
        Printing::setPrinterSource([pdf, withPrinter]() -> std::unique_ptr<QPrinter> {
            if (!withPrinter)
                return nullptr;
            auto printer = std::make_unique<QPrinter>();
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(pdf);
            return printer;
        });
        auto *page = Screens::show<Qel11>(ScreenId::Qel11);
        try {
            page->Command7_Click();
            QFAIL("printing did not fail");
        } catch (const ProgrammeFailure &e) {
            QCOMPARE(QString::fromStdString(e.what()), failure);
        }
        QVERIFY(!QFile::exists(pdf));
        QVERIFY(!Screens::programmeEnded());
    }
};

QTEST_MAIN(TestPrinting)
#include "test_printing.moc"

// SPDX-License-Identifier: GPL-3.0-or-later
#include "finaltestpage.h"
#include "printing.h"
#include "screens.h"
#include "testsupport.h"

#include <QDir>
#include <QImage>
#include <QLocale>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// Printouts go into a PDF file.
void printInto(const QString &pdf, const QPageSize &size = QPageSize(QPageSize::A4)) {
    Printing::setPrinterSource([pdf, size] {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdf);
        printer->setPageSize(size);
        return printer;
    });
}

// Non-empty lines with their blanks made single: of a PDF as pdftotext reads it, or of a log.
QStringList lines(const QString &text) {
    QStringList result;
    for (const QString &line : text.split(u'\n')) {
        if (const QString simple = line.simplified().remove(u'\f'); !simple.isEmpty())
            result << simple;
    }
    return result;
}
QStringList pdfLines(const QString &pdf) {
    return lines(runProgram(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s}));
}

// Solves the test, with one wrong click, and prints it with the button that ends the programme.
void printFinishedTest() {
    auto *page = Screens::show<FinalTestPage>(ScreenId::FinalTest);
    clickOptions(page, {2, 0, 7, 9, 14, 17, 20, 26, 29, 33, 39});
    QVERIFY(page->printButton->isVisible());
    QTest::mouseClick(page->printButton, Qt::LeftButton);
}

// A page of a PDF as a grey picture at 50 dots per inch.
QImage page(const QString &pdf, int number) {
    const QString stem = pdf + QString::number(number), n = QString::number(number);
    runProgram(u"pdftoppm"_s, {u"-r"_s, u"50"_s, u"-gray"_s, u"-png"_s, u"-singlefile"_s, u"-f"_s,
                               n, u"-l"_s, n, pdf, stem});
    return QImage(stem + u".png"_s).convertToFormat(QImage::Format_Grayscale8);
}

bool ink(const QImage &image, int x, int y) {
    return image.valid(x, y) && image.constScanLine(y)[x] < 128;
}

// The top rows of the printed lines, and the leftmost column with ink.
QList<int> lineTops(const QImage &image, int *left) {
    QList<int> tops;
    *left = image.width();
    bool previous = false;
    for (int y = 0; y < image.height(); ++y) {
        int x = 0;
        while (x < image.width() && !ink(image, x, y))
            ++x;
        *left = qMin(*left, x);
        if (x < image.width() && !previous)
            tops << y;
        previous = x < image.width();
    }
    return tops;
}

// Whether the lines of a page start 20 mm from its left edge, the first 10 mm from its top.
bool marginsKept(const QImage &image) {
    int left = 0;
    const QList<int> tops = lineTops(image, &left);
    return qAbs(left - 20 / 25.4 * 50) <= 1 && qAbs(tops.value(0) - 10 / 25.4 * 50 - 1) <= 1.5;
}

} // namespace

class TestPrinting : public QObject {
    Q_OBJECT
    std::optional<TestProgramme> programme;

private Q_SLOTS:
    void initTestCase() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        TestProgramme::screens = registerFinalTestScreens;
    }

    void init() { programme.emplace(); }
    void cleanup() {
        Printing::setPrinterSource({});
        programme.reset();
    }

    void printsTheWholeLog_data() {
        QTest::addColumn<QByteArray>("log"); // empty: the one of a solved test
        QTest::addColumn<int>("pages");
        QByteArray log;
        for (int i = 1; i <= 150; ++i)
            log += "Zeile " + QByteArray::number(i) + " Stra\xdf" + "e\r\n";
        QTest::newRow("solved test") << QByteArray() << 1;
        QTest::newRow("a long log goes on to further pages") << log << 3;
    }

    void printsTheWholeLog() {
        QFETCH(QByteArray, log);
        QFETCH(int, pages);
        const QString pdf = programme->path(u"ausdruck.pdf"_s);
        printInto(pdf);
        if (log.isEmpty()) {
            printFinishedTest();
        } else {
            programme->write(u"TestergebnisQel.doc"_s, log);
            Screens::show<FinalTestPage>(ScreenId::FinalTest)->printAndEnd();
        }
        QVERIFY(Screens::programmeEnded());
        QVERIFY(readFile(pdf).startsWith("%PDF-"));
        if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
            QSKIP("the printout is not read back: no pdftotext here (poppler-utils)");
        QCOMPARE(pdfLines(pdf),
                 lines(QString::fromLatin1(programme->read(u"TestergebnisQel.doc"_s))));
        QVERIFY(runProgram(u"pdfinfo"_s, {pdf})
                    .contains(QRegularExpression(u"Pages:\\s+%1\n"_s.arg(pages))));
        QVERIFY(runProgram(u"pdffonts"_s, {pdf}).contains(u"LiberationSans"_s));
        for (int p = 1; p <= pages; ++p)
            QVERIFY2(marginsKept(page(pdf, p)), qPrintable(QString::number(p)));
    }

    void failures() {
        const auto failure = [] {
            try {
                Screens::show<FinalTestPage>(ScreenId::FinalTest)->printAndEnd();
            } catch (const ProgrammeFailure &e) {
                return QString::fromStdString(e.what());
            }
            return u"printing did not fail"_s;
        };
        const QString pdf = programme->path(u"nie.pdf"_s);
        printInto(pdf);
        QCOMPARE(failure(),
                 openFailure(programme->path(u"TestergebnisQel.doc"_s), QIODevice::ReadOnly));
        programme->write(u"TestergebnisQel.doc"_s, "               Test Kelvora\r\n");
        Printing::setPrinterSource([] { return std::unique_ptr<QPrinter>(); });
        QCOMPARE(failure(), u"Druckerfehler"_s); // no printer
        QVERIFY(!QFile::exists(pdf) && !Screens::programmeEnded());
    }

    // Through the default printer: a CUPS queue "KelvoraPDF" that the test set-up adds and the
    // environment (PRINTER) makes this test's default; cups-pdf turns the job into a PDF file in
    // the user's PDF folder or, for anonymous jobs, the spool folder.
    void printsOnTheDefaultPrinter() {
        if (QPrinterInfo::printerInfo(u"KelvoraPDF"_s).isNull())
            QSKIP("no CUPS queue KelvoraPDF: its set-up was skipped");
        QCOMPARE(QPrinterInfo::defaultPrinter().printerName(), u"KelvoraPDF"_s);
        const auto pdfs = [] {
            QStringList files;
            for (const QString &dir :
                 {QDir::homePath() + u"/PDF"_s, u"/var/spool/cups-pdf/ANONYMOUS"_s})
                for (const QFileInfo &info : QDir(dir).entryInfoList({u"*.pdf"_s}, QDir::Files))
                    files << info.absoluteFilePath();
            return QSet<QString>(files.begin(), files.end());
        };
        const QSet<QString> before = pdfs();
        printFinishedTest();
        QVERIFY(Screens::programmeEnded());
        QString pdf;
        QTRY_VERIFY_WITH_TIMEOUT(
            [&] {
                const QSet<QString> added = pdfs() - before;
                pdf = added.isEmpty() ? QString() : *added.begin();
                return !pdf.isEmpty() &&
                       runProgram(u"lpstat"_s, {u"-o"_s, u"KelvoraPDF"_s}).trimmed().isEmpty();
            }(),
            60000);
        // cups-pdf rebuilds the fonts without a way back to the characters, so the printout is
        // compared as a picture with the same log printed straight into a PDF file.
        const QString reference = programme->path(u"vergleich.pdf"_s);
        printInto(reference, QPrinterInfo::defaultPrinter().defaultPageSize());
        Printing::printLines(Printing::readLines(programme->path(u"TestergebnisQel.doc"_s)));
        QVERIFY(pdfLines(reference).contains(u"10 Punkte von 11 Punkten"_s));

        const QImage printed = page(pdf, 1), expected = page(reference, 1);
        QVERIFY(!printed.isNull());
        QCOMPARE(printed.size(), expected.size());
        // The same lines at the same places, within a pixel, 20 mm from the left edge.
        int left = 0;
        const QList<int> printedTops = lineTops(printed, &left),
                         expectedTops = lineTops(expected, &left);
        QVERIFY(marginsKept(printed));
        QCOMPARE(printedTops.size(), expectedTops.size());
        for (qsizetype i = 0; i < printedTops.size(); ++i)
            QVERIFY(qAbs(printedTops[i] - expectedTops[i]) <= 1);
        QFile::remove(pdf);
    }
};

QTEST_MAIN(TestPrinting)
#include "test_printing.moc"

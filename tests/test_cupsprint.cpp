// SPDX-License-Identifier: GPL-3.0-or-later
#include "printing.h"
#include "qel11.h"
#include "screens.h"
#include "testsupport.h"

#include <QDateTime>
#include <QDir>
#include <QImage>
#include <QLocale>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Where cups-pdf leaves its files: the user's PDF folder, or the spool folder for anonymous jobs.
QStringList pdfFolders() {
    return {QDir::homePath() + u"/PDF"_s, u"/var/spool/cups-pdf/ANONYMOUS"_s};
}

QSet<QString> existingPdfs() {
    QSet<QString> files;
    for (const QString &folder : pdfFolders()) {
        for (const QFileInfo &info : QDir(folder).entryInfoList({u"*.pdf"_s}, QDir::Files))
            files.insert(info.absoluteFilePath());
    }
    return files;
}

QString pdfText(const QString &pdf) {
    QProcess process;
    process.start(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
    process.waitForFinished(30000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The first page of a PDF as a grey picture at 50 dots per inch.
QImage firstPage(const QString &pdf, const QString &stem) {
    QProcess process;
    process.start(u"pdftoppm"_s, {u"-r"_s, u"50"_s, u"-gray"_s, u"-png"_s, u"-singlefile"_s,
                                  u"-f"_s, u"1"_s, pdf, stem});
    process.waitForFinished(30000);
    return QImage(stem + u".png"_s).convertToFormat(QImage::Format_Grayscale8);
}

int inkPixels(const QImage &image) {
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            ink += line[x] < 128 ? 1 : 0;
    }
    return ink;
}

// Share of the inked pixels of either picture that have no inked pixel next to them in the
// other one: slightly thicker or thinner strokes of another renderer do not count.
double difference(const QImage &a, const QImage &b) {
    const auto inkNear = [](const QImage &image, int x, int y) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const int px = x + dx;
                const int py = y + dy;
                if (px >= 0 && py >= 0 && px < image.width() && py < image.height() &&
                    image.constScanLine(py)[px] < 128)
                    return true;
            }
        }
        return false;
    };
    int strays = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if ((a.constScanLine(y)[x] < 128 && !inkNear(b, x, y)) ||
                (b.constScanLine(y)[x] < 128 && !inkNear(a, x, y)))
                ++strays;
        }
    }
    return double(strays) / (inkPixels(a) + inkPixels(b));
}

// The printed lines of a page: the top row of each band of rows with ink.
QList<int> lineTops(const QImage &image) {
    QList<int> tops;
    bool inLine = false;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *line = image.constScanLine(y);
        const bool ink = std::any_of(line, line + image.width(), [](uchar g) { return g < 128; });
        if (ink && !inLine)
            tops << y;
        inLine = ink;
    }
    return tops;
}

// The leftmost column with ink.
int leftEdge(const QImage &image) {
    int left = image.width();
    for (int y = 0; y < image.height(); ++y) {
        const uchar *line = image.constScanLine(y);
        for (int x = 0; x < left; ++x) {
            if (line[x] < 128) {
                left = x;
                break;
            }
        }
    }
    return left;
}

bool queueIsEmpty() {
    QProcess process;
    process.start(u"lpstat"_s, {u"-o"_s, u"KelvoraPDF"_s});
    process.waitForFinished(10000);
    return process.exitCode() == 0 && process.readAllStandardOutput().trimmed().isEmpty();
}

} // namespace

// Prints through the production path onto a real CUPS queue, "KelvoraPDF", which the test
// set-up makes the default printer; cups-pdf turns the job into a PDF file.
class TestCupsPrint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printsOnTheDefaultPrinter() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        registerFinalTestScreens();
        QCOMPARE(QPrinterInfo::defaultPrinter().printerName(), u"KelvoraPDF"_s);
        TestProgramme programme;
        const QSet<QString> before = existingPdfs();

        auto *page = Screens::show<Qel11>(ScreenId::Qel11);
        for (int i : {2, 0, 7, 9, 14, 17, 20, 26, 29, 33, 39}) {
            if (page->Timer1->isActive())
                page->Timer1_Timer();
            QTest::mouseClick(page->Option1[static_cast<std::size_t>(i)], Qt::LeftButton);
        }
        QVERIFY(page->Command7->isVisible());
        QTest::mouseClick(page->Command7, Qt::LeftButton);
        QVERIFY(Screens::programmeEnded());

        QString pdf;
        QTRY_VERIFY_WITH_TIMEOUT(
            [&] {
                const QSet<QString> now = existingPdfs() - before;
                pdf = now.isEmpty() ? QString() : *now.begin();
                return !pdf.isEmpty() && queueIsEmpty();
            }(),
            60000);
        // cups-pdf rebuilds the fonts without a way back to the characters, so the printout is
        // compared as a picture with the same log printed straight into a PDF file, whose text
        // the printing test reads back.
        const QString reference = programme.path(u"vergleich.pdf"_s);
        Printing::setPrinterSource([reference] {
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(reference);
            printer->setPageSize(QPrinterInfo::defaultPrinter().defaultPageSize());
            return printer;
        });
        const QStringList lines = Printing::readLines(programme.path(u"TestergebnisQel.doc"_s));
        QCOMPARE(lines.last(), u"22.11.2026 14:05:09"_s);
        Printing::printLines(lines);
        Printing::setPrinterSource({});
        QVERIFY(pdfText(reference).contains(u"10 Punkte von 11 Punkten"_s));

        const QImage printed = firstPage(pdf, programme.path(u"gedruckt"_s));
        const QImage expected = firstPage(reference, programme.path(u"erwartet"_s));
        QVERIFY(!printed.isNull());
        QCOMPARE(printed.size(), expected.size());
        QVERIFY2(inkPixels(printed) > 2000, qPrintable(QString::number(inkPixels(printed))));
        QVERIFY2(qAbs(inkPixels(printed) - inkPixels(expected)) < inkPixels(expected) / 4,
                 qPrintable(u"%1 %2"_s.arg(inkPixels(printed)).arg(inkPixels(expected))));
        // The same lines at the same places, 20 mm from the left edge, and the same glyphs within
        // the strokes another renderer draws a little differently.
        const QList<int> printedLines = lineTops(printed);
        const QList<int> expectedLines = lineTops(expected);
        QCOMPARE(printedLines.size(), expectedLines.size());
        for (qsizetype i = 0; i < printedLines.size(); ++i)
            QVERIFY(qAbs(printedLines[i] - expectedLines[i]) <= 1);
        QVERIFY(qAbs(leftEdge(printed) - leftEdge(expected)) <= 1);
        QCOMPARE(leftEdge(expected), qRound(20 / 25.4 * 50));
        QVERIFY2(difference(printed, expected) < 0.1,
                 qPrintable(QString::number(difference(printed, expected))));
        QFile::remove(pdf);
    }
};

QTEST_MAIN(TestCupsPrint)
#include "test_cupsprint.moc"

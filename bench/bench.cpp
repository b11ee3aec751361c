// SPDX-License-Identifier: GPL-3.0-or-later
// Measures what a pupil waits for, next to a bare Qt window measured in the same run:
//   start:  process start until the first window is on screen (child processes, median)
//   memory: peak resident memory of those children
//   page:   ">>" from page 1 to page 2, show the next and unload the current (median)
//   key:    a typed letter until its verdict is laid out and drawn (median)
// Run it offscreen: QT_QPA_PLATFORM=offscreen kelvora_bench [runs]
#include "application.h"
#include "course.h"
#include "lessonpage.h"
#include "screens.h"
#include "seams.h"
#include "shell.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <algorithm>
#include <cstdio>

namespace {

double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    const qsizetype n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

long peakKiB() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    }
    return 0;
}

// Child: show a window, wait until it is exposed, report the peak memory and leave.
int child(const QString &what, int argc, char *argv[]) {
    QApplication app(argc, argv);
    QWidget *window = nullptr;
    QTemporaryDir folder;
    if (what == QStringLiteral("bare")) {
        auto *w = new QMainWindow;
        w->resize(800, 600);
        w->show();
        window = w;
    } else {
        setUpApplication(app);
        registerShellScreens();
        registerLessonPages();
        Seams::setProgrammeFolder([path = folder.path()] { return path; });
        window = Screens::show(ScreenId::Start);
    }
    if (!window || !QTest::qWaitForWindowExposed(window))
        return 1;
    QCoreApplication::processEvents();
    std::printf("%ld\n", peakKiB());
    return 0;
}

struct StartRun {
    double ms;
    long kib;
};

StartRun runChild(const QString &program, const QString &what) {
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.start(program, {QStringLiteral("--child"), what});
    process.waitForFinished(30000);
    const double ms = timer.nsecsElapsed() / 1e6;
    return {ms, process.readAllStandardOutput().trimmed().toLong()};
}

} // namespace

int main(int argc, char *argv[]) {
    if (argc >= 3 && QByteArray(argv[1]) == "--child")
        return child(QString::fromLocal8Bit(argv[2]), argc, argv);

    QApplication app(argc, argv);
    const int runs = argc >= 2 ? std::max(3, QByteArray(argv[1]).toInt()) : 9;
    const QString self = QCoreApplication::applicationFilePath();
    QTextStream out(stdout);

    QList<double> bareMs, startMs, bareKiB, startKiB;
    for (int i = 0; i < runs; ++i) {
        const StartRun bare = runChild(self, QStringLiteral("bare"));
        const StartRun start = runChild(self, QStringLiteral("start"));
        bareMs << bare.ms;
        startMs << start.ms;
        bareKiB << double(bare.kib);
        startKiB << double(start.kib);
    }
    const double bareStart = median(bareMs);
    const double kelvoraStart = median(startMs);
    out << "start screen shown:  " << kelvoraStart << " ms (bare Qt window " << bareStart
        << " ms, ratio " << kelvoraStart / bareStart << ", budget 1.5)\n";
    const double extraMiB = (median(startKiB) - median(bareKiB)) / 1024.0;
    out << "peak memory:         " << median(startKiB) / 1024.0 << " MiB (bare "
        << median(bareKiB) / 1024.0 << " MiB, +" << extraMiB << " MiB, budget +20 MiB)\n";

    setUpApplication(app);
    registerShellScreens();
    registerLessonPages();
    QTemporaryDir folder;
    Seams::setProgrammeFolder([path = folder.path()] { return path; });

    QList<double> pageMs, keyMs;
    for (int i = 0; i < runs * 3; ++i) {
        auto *page1 = Screens::show<LessonPage>(ScreenId::Page1);
        QCoreApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(page1->answerEdit, Qt::Key_C);
        QCoreApplication::processEvents(); // the verdict laid out and drawn
        keyMs << timer.nsecsElapsed() / 1e6;

        timer.restart();
        page1->nextPage();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        pageMs << timer.nsecsElapsed() / 1e6;
        Screens::reset();
    }
    out << "page change (>>):    " << median(pageMs) << " ms, the first one " << pageMs.first()
        << " ms (budget 16 ms)\n";
    out << "keystroke to verdict: " << median(keyMs) << " ms, the first one " << keyMs.first()
        << " ms (budget 2 ms)\n";
    return 0;
}

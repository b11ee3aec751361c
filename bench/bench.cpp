// SPDX-License-Identifier: GPL-3.0-or-later
// Measures what a pupil waits for, next to bare Qt windows measured in the same run:
//   start:   process start until the first window is drawn (child processes, median); the bare
//            window also with a line of text, which costs the system's fonts
//   memory:  peak resident memory of those children, once they have done what they do while the
//            pupil reads the start screen
//   swap:    a bare window swap: a new 800 x 600 QMainWindow shown and drawn, the old one hidden
//            and deleted
//   page:    ">>" through pages 1 to 10: the next page shown and drawn in the window, the current
//            one unloaded and deleted; every page visited several times, in a window of 800 x 600
//            and in a maximised one. Between two changes the programme idles for a moment, as it
//            does while the pupil reads.
//   first:   the first visit to each page against that page's median
//   key:     a typed letter until its verdict and the pace note are drawn (median), next to a
//            bare label: its text set and shown in a window of the page's size and place until
//            it is drawn, measured in the same run
//   resize:  a page's window resized between 1280 x 960 and 1920 x 1080 until it is laid out
//            and drawn at the new size (median)
// make bench runs it on the Xorg dummy server at 1920 x 1080 (with openbox where it is
// installed) and offscreen; by hand: kelvora_bench [runs [start|page|key|resize]], the second
// argument choosing one group of figures
#include "application.h"
#include "captionlabel.h"
#include "course.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "seams.h"
#include "shell.h"
#include "textfiles.h"
#include "zoom.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>

namespace {

// How long the programme is left alone between two changes, as while the pupil reads (a pupil
// takes seconds).
constexpr int kReadingMs = 300;

double median(QList<double> values) {
    if (values.isEmpty())
        return 0;
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

long long steadyNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Runs the event loop until `done` holds, waiting for events rather than polling; false after
// five seconds.
bool waitUntil(const std::function<bool()> &done) {
    QElapsedTimer limit;
    limit.start();
    QTimer wake; // wakes the wait now and then, so that the limit is seen
    wake.start(50);
    while (!done()) {
        if (limit.elapsed() > 5000)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

// A window is drawn once its first expose has been handled: Qt draws a widget window while it
// handles the expose event.
bool waitDrawn(QWidget *window, QSize size = {}) {
    return waitUntil([window, size] {
        return window->windowHandle() && window->windowHandle()->isExposed() &&
               (size.isEmpty() || window->size() == size);
    });
}

// Notes when a widget is drawn; the screens fill their background, so each of them is.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget *watched)
        : watched_(watched) {
        watched->installEventFilter(this);
    }
    ~PaintWatch() override {
        if (watched_)
            watched_->removeEventFilter(this);
    }
    bool drawn = false;

protected:
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::Paint)
            drawn = true;
        return false;
    }

private:
    QPointer<QWidget> watched_;
};

// A screen shown in the window of the pages is on screen once it has been drawn there, which Qt
// does, and then hands to the window system, in one step.
bool waitScreenDrawn(Form *form, QSize size) {
    PaintWatch watch(form);
    return waitUntil([&] {
        return watch.drawn && form->window()->windowHandle()->isExposed() &&
               form->window()->size() == size;
    });
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void idle(int ms) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, ms - int(timer.elapsed()));
}

// Child: show a window, report when it was drawn, idle as while the pupil reads, report the peak
// memory and leave.
int child(const QString &what, long long startNs, int argc, char *argv[]) {
    QApplication app(argc, argv);
    QWidget *window = nullptr;
    QTemporaryDir folder;
    Course course(TextFiles::programmePath);
    if (what == QStringLiteral("bare") || what == QStringLiteral("text")) {
        // The size the programme's first window takes on this screen; "text" with a line of
        // text, which loads the system's font configuration and a font.
        auto *w = new QMainWindow;
        const int height = QGuiApplication::primaryScreen()->availableGeometry().height() * 4 / 5;
        w->resize(height * 4 / 3, height);
        if (what == QStringLiteral("text"))
            w->setCentralWidget(new QLabel(QStringLiteral("Kelvora")));
        w->show();
        window = w;
    } else {
        setUpApplication(app);
        registerShellScreens(course);
        registerLessonPages(course);
        Seams::setProgrammeFolder([path = folder.path()] { return path; });
        Form *start = Screens::show(ScreenId::Start);
        window = start ? start->window() : nullptr;
    }
    if (!window || !waitDrawn(window))
        return 1;
    const double ms = double(steadyNs() - startNs) / 1e6;
    idle(2 * kReadingMs);
    std::printf("%f %ld\n", ms, peakKiB());
    return 0;
}

struct StartRun {
    double ms;
    long kib;
};

StartRun runChild(const QString &program, const QString &what) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {QStringLiteral("--child"), what, QString::number(steadyNs())});
    process.waitForFinished(30000);
    const QList<QByteArray> figures = process.readAllStandardOutput().trimmed().split(' ');
    return {figures.value(0).toDouble(), figures.value(1).toLong()};
}

// Shows `window` maximised and waits until the window system has it drawn there.
bool showMaximisedAndWait(QWidget *window) {
    window->showMaximized();
    const QSize area = window->screen()->availableGeometry().size();
    return waitUntil([window, area] {
        return window->windowHandle()->isExposed() && window->isMaximized() &&
               window->frameGeometry().width() >= area.width() - 2;
    });
}

// The bare baseline: a new 800 x 600 QMainWindow shown and drawn, the old one hidden and deleted.
QList<double> bareSwaps(int count, bool maximised) {
    QList<double> ms;
    QPointer<QMainWindow> old = new QMainWindow;
    old->resize(800, 600);
    if (maximised)
        showMaximisedAndWait(old);
    else {
        old->show();
        waitDrawn(old);
    }
    for (int i = 0; i < count; ++i) {
        idle(kReadingMs / 3);
        const QSize size = maximised ? old->size() : QSize(800, 600);
        QElapsedTimer timer;
        timer.start();
        auto *next = new QMainWindow;
        next->resize(800, 600);
        if (maximised)
            next->showMaximized();
        else
            next->show();
        old->hide();
        delete old;
        waitDrawn(next, size);
        settle();
        ms << timer.nsecsElapsed() / 1e6;
        old = next;
    }
    delete old;
    settle();
    return ms;
}

struct PageChanges {
    QList<double> firstVisit;   // pages 2 to 10, the first time in this process
    QList<QList<double>> later; // pages 2 to 10, every later visit
    QList<double> all() const {
        QList<double> values;
        for (const QList<double> &page : later)
            values += page;
        return values;
    }
};

// ">>" from page 1 to page 10, `walks` times; the first walk visits every page for the first
// time when `first` is set. Page 1 starts in a window of 800 x 600 or maximised.
void walkPages(PageChanges &changes, int walks, bool maximised, bool first) {
    changes.later.resize(9);
    for (int walk = 0; walk < walks; ++walk) {
        auto *page = Screens::show<LessonPage>(ScreenId::Page1);
        QWidget *window = page->window();
        if (maximised) {
            showMaximisedAndWait(window);
        } else {
            window->setGeometry(QRect(QPoint(100, 100), QSize(800, 600)));
            waitDrawn(window, QSize(800, 600));
        }
        const QSize size = window->size();
        for (int next = 2; next <= 10; ++next) {
            idle(kReadingMs);
            QElapsedTimer timer;
            timer.start();
            page->nextPage();
            page = Screens::loaded<LessonPage>(pageScreen(next));
            if (!page || !waitScreenDrawn(page, size))
                return;
            settle();
            const double ms = timer.nsecsElapsed() / 1e6;
            if (first && walk == 0)
                changes.firstVisit << ms;
            else
                changes.later[next - 2] << ms;
        }
        Screens::reset();
        settle();
    }
}

// A lesson page's window resized from one size to the other until it is laid out and drawn.
QList<double> resizes(int count) {
    QList<double> ms;
    auto *page = Screens::show<LessonPage>(ScreenId::Page1);
    QWidget *window = page->window();
    window->resize(1280, 960);
    waitDrawn(window, QSize(1280, 960));
    const std::array<QSize, 2> sizes = {QSize(1920, 1080), QSize(1280, 960)};
    for (int i = 0; i < count; ++i) {
        idle(kReadingMs / 3);
        const QSize size = sizes.at(static_cast<std::size_t>(i % 2));
        PaintWatch watch(page->page());
        QElapsedTimer timer;
        timer.start();
        window->resize(size);
        // Drawn at the new size, with the zoom that follows the resize applied.
        waitUntil([&] {
            return watch.drawn && page->size() == size &&
                   page->zoom().factor() == page->factorFor(size);
        });
        QCoreApplication::processEvents(); // whatever the new size still had queued
        ms << timer.nsecsElapsed() / 1e6;
    }
    Screens::reset();
    settle();
    return ms;
}

// The bare baseline of a verdict: a hidden word-wrapped label in a window of `geometry`, its
// text set and shown, measured as the keystroke is.
double bareLabelShown(const QRect &geometry, const QString &text) {
    QMainWindow window;
    auto *central = new QWidget;
    window.setCentralWidget(central);
    window.setGeometry(geometry);
    auto *label = new QLabel(central);
    label->setWordWrap(true);
    label->setGeometry(100, 300, 600, 120);
    label->hide();
    window.show();
    waitDrawn(&window, geometry.size());
    idle(kReadingMs);
    PaintWatch drawn(label);
    QElapsedTimer timer;
    timer.start();
    label->setText(text);
    label->show();
    waitUntil([&] { return drawn.drawn; });
    return timer.nsecsElapsed() / 1e6;
}

} // namespace

int main(int argc, char *argv[]) {
    if (argc >= 4 && QByteArray(argv[1]) == "--child")
        return child(QString::fromLocal8Bit(argv[2]), QByteArray(argv[3]).toLongLong(), argc, argv);

    QApplication app(argc, argv);
    const int runs = argc >= 2 ? std::max(3, QByteArray(argv[1]).toInt()) : 9;
    const QByteArray only = argc >= 3 ? QByteArray(argv[2]) : QByteArray();
    const auto wanted = [&only](const char *group) {
        return only.isEmpty() || only == group;
    };
    const QString self = QCoreApplication::applicationFilePath();
    QTextStream out(stdout);
    out.setRealNumberNotation(QTextStream::FixedNotation);
    out.setRealNumberPrecision(2);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    out << "platform " << QGuiApplication::platformName() << ", screen " << screen.width() << " x "
        << screen.height() << ", median of " << runs << " runs\n";
    out.flush();

    if (wanted("start")) {
        QList<double> bareMs, textMs, startMs, bareKiB, startKiB;
        for (int i = 0; i < runs; ++i) {
            const StartRun bare = runChild(self, QStringLiteral("bare"));
            const StartRun text = runChild(self, QStringLiteral("text"));
            const StartRun start = runChild(self, QStringLiteral("start"));
            bareMs << bare.ms;
            textMs << text.ms;
            startMs << start.ms;
            bareKiB << double(bare.kib);
            startKiB << double(start.kib);
        }
        const double bareStart = median(bareMs);
        const double kelvoraStart = median(startMs);
        out << "start screen drawn:       " << kelvoraStart << " ms, bare window " << bareStart
            << " ms: ratio " << kelvoraStart / bareStart << " (target 1.25)\n";
        const double textStart = median(textMs);
        out << "  bare window with text:  " << textStart << " ms: ratio " << textStart / bareStart
            << ", start screen to it " << kelvoraStart / textStart << "\n";
        const double extraMiB = (median(startKiB) - median(bareKiB)) / 1024.0;
        out << "peak memory:              " << median(startKiB) / 1024.0 << " MiB, bare "
            << median(bareKiB) / 1024.0 << " MiB: +" << extraMiB << " MiB (target +10)\n";
        out.flush();
    }

    setUpApplication(app);
    Course course(TextFiles::programmePath);
    registerShellScreens(course);
    registerLessonPages(course);
    QTemporaryDir folder;
    Seams::setProgrammeFolder([path = folder.path()] { return path; });

    if (wanted("page")) {
        const double swap = median(bareSwaps(runs * 3, false));
        const double swapMaximised = median(bareSwaps(runs * 3, true));
        out << "bare window swap:         " << swap << " ms (maximised " << swapMaximised
            << " ms)\n";

        PageChanges normal;
        walkPages(normal, runs + 1, false, true);
        const double pageMedian = median(normal.all());
        out << "page change (>>):         " << pageMedian << " ms: ratio to the bare swap "
            << pageMedian / swap << " (target 1.5)\n";

        // A first visit against the usual change, and the page whose first visit took longest
        // against its own later ones.
        double worstFirst = 0;
        int worstPage = 0;
        for (int i = 0; i < 9; ++i) {
            const double ratio = normal.firstVisit.value(i) / median(normal.later.at(i));
            if (ratio > worstFirst) {
                worstFirst = ratio;
                worstPage = i + 2;
            }
        }
        const double firstMedian = median(normal.firstVisit);
        out << "first visit of a page:    " << firstMedian << " ms: ratio to the median "
            << firstMedian / pageMedian << " (target 1.3); slowest, page " << worstPage << ": "
            << worstFirst << " times its own median\n";
        out.flush();

        PageChanges maximised;
        walkPages(maximised, runs, true, false);
        const double maximisedMedian = median(maximised.all());
        const QSize area = QGuiApplication::primaryScreen()->availableGeometry().size();
        out << "page change maximised:    " << maximisedMedian << " ms at " << area.width() << " x "
            << area.height() << ": ratio to the bare swap " << maximisedMedian / swap
            << " (target 1.5)\n";
        out.flush();
    }

    if (wanted("key")) {
        QList<double> keyMs, labelMs;
        for (int i = 0; i < runs * 3; ++i) {
            auto *page1 = Screens::show<LessonPage>(ScreenId::Page1);
            page1->window()->resize(800, 600);
            waitDrawn(page1->window(), QSize(800, 600));
            idle(kReadingMs);
            // The verdict on C, question 1, and the pace note: the answer comes at once.
            Picture *picture = page1->feedbackPictures.at(page1->info().key[0].shows[2]);
            PaintWatch verdictDrawn(picture);
            PaintWatch noteDrawn(page1->paceNote);
            QElapsedTimer timer;
            timer.start();
            QTest::keyClick(page1->answerEdit, Qt::Key_C);
            waitUntil([&] { return verdictDrawn.drawn && noteDrawn.drawn; });
            keyMs << timer.nsecsElapsed() / 1e6;
            const QRect geometry = page1->window()->geometry();
            const QString verdict = picture->plainText();
            Screens::reset();
            settle();
            labelMs << bareLabelShown(geometry, verdict);
            settle();
        }
        out << "keystroke to verdict:     " << median(keyMs) << " ms, bare label "
            << median(labelMs) << " ms: ratio " << median(keyMs) / median(labelMs)
            << " (target 1.5)\n";
    }

    if (wanted("resize")) {
        const QList<double> resizeMs = resizes(runs * 2);
        out << "resize 1280x960/1920x1080: " << median(resizeMs) << " ms, the first "
            << resizeMs.value(0) << " ms (target 16)\n";
    }

    return 0;
}

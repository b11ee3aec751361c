// SPDX-License-Identifier: GPL-3.0-or-later
// The start-position file and the grade file are replaced all at once: a kill in the middle, a
// full disk, a write-protected file or folder leave the old content, and the programme goes on
// as it would have. Driven through page 11, which writes both.
#include "course.h"
#include "finaltestpage.h"
#include "screens.h"
#include "seams.h"
#include "testsupport.h"
#include "textfiles.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTest>

#include <optional>
#include <tuple>

#if defined(Q_OS_LINUX)
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/statvfs.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

// What each writer leaves in the file when it succeeds.
const QByteArray kResumeAtPage11 = "\"11\"\r\n0\r\n";
const QByteArray kGrade2 = "Programm Kelvora:           Zensur:   2\r\n\r\n22.11.2026 14:05:09\r\n";

// The file's bytes, or kNoFile.
const QByteArray kNoFile = "(no file)";
QByteArray contentOf(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return kNoFile;
    return file.readAll();
}

#if defined(Q_OS_LINUX)
// The immutable flag, which stops root as well: root writes files whatever their permissions.
bool setImmutable(const QString &path, bool on) {
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
    if (fd < 0)
        return false;
    int flags = 0;
    bool done = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    if (done) {
        flags = on ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
        done = ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    }
    ::close(fd);
    return done;
}
#endif

// Makes a file or folder write-protected as a pupil's account finds it, and takes the protection
// off again when it goes.
class WriteProtection {
public:
    explicit WriteProtection(const QString &path)
        : path_(path)
        , permissions_(QFile::permissions(path)) {
        QFile::setPermissions(path, permissions_ & ~(QFile::WriteOwner | QFile::WriteUser |
                                                     QFile::WriteGroup | QFile::WriteOther));
#if defined(Q_OS_LINUX)
        if (::geteuid() == 0)
            immutable_ = setImmutable(path, true);
#endif
    }
    ~WriteProtection() {
#if defined(Q_OS_LINUX)
        if (immutable_)
            setImmutable(path_, false);
#endif
        QFile::setPermissions(path_, permissions_);
    }
    WriteProtection(const WriteProtection &) = delete;
    WriteProtection &operator=(const WriteProtection &) = delete;

    // Whether the protection holds for this process: root needs the immutable flag.
    bool holds() const {
#if defined(Q_OS_LINUX)
        return ::geteuid() != 0 || immutable_;
#else
        return true;
#endif
    }

private:
    QString path_;
    QFile::Permissions permissions_;
    bool immutable_ = false;
};

} // namespace

class TestFileSafety : public QObject {
    Q_OBJECT
    std::optional<TestProgramme> programme;

    FinalTestPage *openPage() {
        auto *page = Screens::show<FinalTestPage>(ScreenId::FinalTest);
        return QTest::qWaitForWindowExposed(page) ? page : nullptr;
    }

    // Page 11 writes the file the way the pupil makes it: "hier weiterarbeiten" in the exit
    // frame, which ends the programme, or grading 10 right of 12 clicks, which shows "Zensur: 2".
    // True when the programme went on as it does after a successful write.
    bool writeThroughPage(const QString &fileName) {
        FinalTestPage *page = openPage();
        if (!page)
            return false;
        std::tie(course.gradeMin5, course.gradeMin4, course.gradeMin3, course.gradeMin2,
                 course.gradeMin1) = std::tuple(20, 40, 60, 80, 96);
        if (fileName == kStartFileName) {
            QTest::mouseClick(page->endButton, Qt::LeftButton);
            QTest::mouseClick(page->resumeButton, Qt::LeftButton);
            return Screens::programmeEnded();
        }
        course.testCorrectCount = 10;
        course.testAnsweredCount = 12;
        programme->answers << false;
        page->askForGrade();
        return page->gradeLabel->isVisible() && page->gradeLabel->text() == u"Zensur:   2"_s &&
               !Screens::programmeEnded();
    }

    // Every file of the folder: the writers leave no temporary file behind.
    static QStringList filesIn(const QString &folder) {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    // The two files and what their writer puts into them.
    static void addFileColumns() {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("written");
    }

private Q_SLOTS:
    void initTestCase() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        registerFinalTestScreens();
    }
    void init() { programme.emplace(); }
    void cleanup() { programme.reset(); }

    // Until the last item is written, the file on disk holds what it held before: a kill at
    // that moment loses nothing. A writer that never finishes leaves the old content too.
    void replacedAllAtOnce_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<bool>("finished");
        const QByteArray page5 = "\"5\"\r\n";
        QTest::addRow("old content, finished") << page5 << true;
        QTest::addRow("old content, never finished") << page5 << false;
        QTest::addRow("no file, finished") << kNoFile << true;
        QTest::addRow("no file, never finished") << kNoFile << false;
    }
    void replacedAllAtOnce() {
        QFETCH(QByteArray, before);
        QFETCH(bool, finished);
        const QString path = programme->path(kStartFileName);
        if (before != kNoFile)
            programme->write(kStartFileName, before);
        {
            QuotedItemFile file(path);
            file.write(u"1"_s);
            file.write(4);
            file.write(5);
            QCOMPARE(contentOf(path), before);
            if (finished)
                file.close();
        }
        QCOMPARE(contentOf(path), finished ? QByteArray("\"1\"\r\n4\r\n5\r\n") : before);
        const bool there = before != kNoFile || finished;
        QCOMPARE(filesIn(programme->folder()), there ? QStringList{kStartFileName} : QStringList());
    }

    // A new file gets the permissions any new file of the folder gets, and a replaced one keeps
    // its own, so a teacher reads the grade file as before.
    void permissionsKept() {
        const QString fresh = programme->path(kGradeFileName);
        const QString reference = programme->path(u"reference.txt"_s);
        programme->write(u"reference.txt"_s, "x");
        ReplacedFile created(fresh);
        created.writeLine(u"a"_s);
        QVERIFY(created.close());
        QCOMPARE(QFile::permissions(fresh), QFile::permissions(reference));

        const auto shared = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser |
                            QFile::WriteUser | QFile::ReadGroup | QFile::WriteGroup;
        QVERIFY(QFile::setPermissions(fresh, shared));
        ReplacedFile replaced(fresh);
        replaced.writeLine(u"b"_s);
        QVERIFY(replaced.close());
        QCOMPARE(QFile::permissions(fresh), shared);
        QCOMPARE(contentOf(fresh), QByteArray("b\r\n"));
    }

    // A write-protected file or folder: nothing is written, the old content stays, no message,
    // and the programme goes on as after any other write.
    void writeProtected_data() {
        addFileColumns();
        QTest::addColumn<bool>("folder"); // the folder is protected, else the file
        for (const bool folder : {false, true}) {
            const char *what = folder ? "protected folder" : "protected file";
            QTest::addRow("start-position file, %s", what)
                << kStartFileName << kResumeAtPage11 << folder;
            QTest::addRow("grade file, %s", what) << kGradeFileName << kGrade2 << folder;
        }
    }
    void writeProtected() {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, written);
        QFETCH(bool, folder);
        const QByteArray old = "old content\r\n";
        programme->write(fileName, old);
        {
            WriteProtection protection(folder ? programme->folder() : programme->path(fileName));
            if (!protection.holds())
                QSKIP("root writes read-only files, and this file system has no immutable flag");
            QVERIFY(writeThroughPage(fileName));
            QVERIFY(programme->questionsAsked.size() <= 1); // the grade question only
            QCOMPARE(contentOf(programme->path(fileName)), old);
        }
        QCOMPARE(filesIn(programme->folder()), QStringList{fileName});
        // Without the protection the same steps write the file.
        programme.emplace();
        QVERIFY(writeThroughPage(fileName));
        QCOMPARE(contentOf(programme->path(fileName)), written);
    }

    // A full disk, on the small file system that the set-up mounts as root: the old content
    // stays whole, a file that was not there is still not there, and the programme goes on.
    void fullDisk_data() {
        addFileColumns();
        QTest::addColumn<bool>("oldFile");
        for (const bool oldFile : {true, false}) {
            const char *what = oldFile ? "over an old file" : "no file before";
            QTest::addRow("start-position file, %s", what)
                << kStartFileName << kResumeAtPage11 << oldFile;
            QTest::addRow("grade file, %s", what) << kGradeFileName << kGrade2 << oldFile;
        }
    }
    void fullDisk() {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, written);
        QFETCH(bool, oldFile);
        const QString disk = qEnvironmentVariable("KELVORA_FULL_DISK");
#if defined(Q_OS_LINUX)
        struct statvfs fs = {};
        const bool small = !disk.isEmpty() &&
                           ::statvfs(QFile::encodeName(disk).constData(), &fs) == 0 &&
                           fs.f_blocks * fs.f_frsize <= 1024UL * 1024UL;
#else
        const bool small = false;
#endif
        // Never fill a disk of the machine.
        if (!small)
            QSKIP("needs the small file system that the set-up mounts as root (KELVORA_FULL_DISK)");
        const QString folder = QDir(disk).filePath(u"kelvora"_s);
        QVERIFY(QDir(folder).removeRecursively() && QDir().mkpath(folder));
        Seams::setProgrammeFolder([folder] { return QDir::toNativeSeparators(folder); });
        const QString path = QDir(folder).filePath(fileName);
        const QByteArray old = "old content\r\n";
        if (oldFile) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(old) == old.size());
        }

        // Fill the disk to its last byte.
        QFile filler(QDir(disk).filePath(u"filler"_s));
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size()) {
        }
        while (filler.write("x", 1) == 1) {
        }
        const bool wentOn = writeThroughPage(fileName);
        filler.close();
        QFile::remove(filler.fileName());

        QVERIFY(wentOn);
        QCOMPARE(contentOf(path), oldFile ? old : kNoFile);
        QCOMPARE(filesIn(folder), oldFile ? QStringList{fileName} : QStringList());
        // With room on the disk again, the same steps write the file.
        programme.emplace();
        Seams::setProgrammeFolder([folder] { return QDir::toNativeSeparators(folder); });
        QVERIFY(writeThroughPage(fileName));
        QCOMPARE(contentOf(path), written);
        QDir(folder).removeRecursively();
    }
};

QTEST_MAIN(TestFileSafety)
#include "test_filesafety.moc"

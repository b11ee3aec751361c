// SPDX-License-Identifier: GPL-3.0-or-later
// The start-position file and the grade file are replaced all at once (a kill in the middle is
// tested with the quoted items in test_textfiles): a full disk, a write-protected file or folder
// leave the old content, and the programme goes on as it would have. A folder deleted while the
// programme runs is made again by each writer. Driven through page 11, which writes all three.
#include "finaltestpage.h"
#include "programmelock.h"
#include "resultlog.h"
#include "screens.h"
#include "seams.h"
#include "testsupport.h"
#include "textfiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QStorageInfo>
#include <QSysInfo>
#include <QTest>

#include <functional>
#include <optional>

#if defined(Q_OS_UNIX)
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

// What each writer leaves in the file when it succeeds.
const QByteArray kResumeAtPage11 = "\"11\"\r\n0\r\n";
const QByteArray kGrade2 = "Programm Kelvora:           Zensur:   2\r\n\r\n03.04.2026 09:05:07\r\n";
const QByteArray kOld = "old content\r\n";
const QByteArray kLogAfterFirstClick = "               Test Kelvora\r\n\r\nAufgabe 1\r\nWelche "
                                       "Ladungstr\xe4ger leiten in Metallen den Strom?\r\n    "
                                       "freie Elektronen - Richtig\r\n\r\n";

// Makes a file or folder write-protected as a pupil's account finds it: no write permission.
// Root, whom permissions do not stop, meets a protected file as an immutable one, and a protected
// folder as the unprivileged user nobody, for whom the files in it stay writable. Undone when it
// goes (the files keep their write permission).
class WriteProtection {
public:
    explicit WriteProtection(const QString &path)
        : path_(path)
        , permissions_(QFile::permissions(path)) {
        const auto write =
            QFile::WriteOwner | QFile::WriteUser | QFile::WriteGroup | QFile::WriteOther;
        QFile::setPermissions(path, permissions_ & ~write);
#if defined(Q_OS_UNIX)
        if (::geteuid() != 0) {
            return;
        } else if (!QFileInfo(path).isDir()) {
            runProgram(u"chattr"_s, {u"+i"_s, path});
            return;
        }
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                        QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther);
        for (const QFileInfo &file : QDir(path).entryInfoList(QDir::Files))
            QFile::setPermissions(file.filePath(), file.permissions() | write);
        asNobody_ = ::seteuid(65534) == 0;
#endif
    }
    ~WriteProtection() {
#if defined(Q_OS_UNIX)
        if (asNobody_)
            (void)::seteuid(0);
#endif
        runProgram(u"chattr"_s, {u"-i"_s, path_});
        QFile::setPermissions(path_, permissions_);
    }
    WriteProtection(const WriteProtection &) = delete;
    WriteProtection &operator=(const WriteProtection &) = delete;
    // Whether the protection holds for this process: the file cannot be written, no file can be
    // made in the folder.
    bool holds() const {
        if (!QFileInfo(path_).isDir())
            return !QFileInfo(path_).isWritable();
        QFile probe(QDir(path_).filePath(u"probe"_s));
        return !probe.open(QIODevice::WriteOnly) || !probe.remove();
    }

private:
    QString path_;
    QFile::Permissions permissions_;
    bool asNobody_ = false;
};

// Every file of the folder: the writers leave no temporary file behind.
QStringList filesIn(const QString &folder) {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

} // namespace

class TestFileSafety : public QObject {
    Q_OBJECT
    std::optional<TestProgramme> programme;

    // Page 11 writes the file the way the pupil makes it: "hier weiterarbeiten" in the exit
    // frame, which ends the programme, grading 10 right of 12 clicks, which shows "Zensur: 2",
    // or the first click of the test, which starts the log. `meanwhile` happens while the page
    // is open. True when the programme went on as it does after a successful write.
    bool writeThroughPage(const QString &fileName, const std::function<void()> &meanwhile = {}) {
        auto *page = Screens::show<FinalTestPage>(ScreenId::FinalTest);
        if (!QTest::qWaitForWindowExposed(page))
            return false;
        programme->course.setGradeScale(kDefaultGradeScale);
        if (meanwhile)
            meanwhile();
        if (fileName == kResultFileName) {
            clickOptions(page, {0});
            return !Screens::programmeEnded();
        }
        if (fileName == kStartFileName) {
            QTest::mouseClick(page->endButton, Qt::LeftButton);
            QTest::mouseClick(page->exitFrame->resumeButton, Qt::LeftButton);
            return Screens::programmeEnded();
        }
        for (int click = 0; click < 12; ++click)
            programme->course.countTestClick(click < 10);
        programme->answers << false;
        page->askForGrade();
        return page->gradeLabel->isVisible() && page->gradeLabel->text() == u"Zensur:   2"_s &&
               !Screens::programmeEnded();
    }

    // The two files and what their writer puts into them; the other column says whether the
    // folder is protected (else the file), or whether there was a file before the disk was full.
    static void fileRows(const char *column, const char *yes, const char *no) {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("written");
        QTest::addColumn<bool>(column);
        for (const bool on : {false, true}) {
            QTest::addRow("start-position file, %s", on ? yes : no)
                << kStartFileName << kResumeAtPage11 << on;
            QTest::addRow("grade file, %s", on ? yes : no) << kGradeFileName << kGrade2 << on;
        }
    }

private Q_SLOTS:
    void initTestCase() { TestProgramme::screens = registerFinalTestScreens; }
    void init() { programme.emplace(); }
    void cleanup() {
        ResultLog::close();
        programme.reset();
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
        if (QSysInfo::productType() == u"windows"_s)
            QSKIP("Windows files have no owner, group and other permissions to keep");

        const auto shared = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser |
                            QFile::WriteUser | QFile::ReadGroup | QFile::WriteGroup;
        QVERIFY(QFile::setPermissions(fresh, shared));
        ReplacedFile replaced(fresh);
        replaced.writeLine(u"b"_s);
        QVERIFY(replaced.close());
        QCOMPARE(QFile::permissions(fresh), shared);
        QCOMPARE(readFile(fresh), QByteArray("b\r\n"));
    }

    // A write-protected file or folder: nothing is written, the old content stays, no message,
    // and the programme goes on as after any other write.
    void writeProtected_data() { fileRows("folder", "protected folder", "protected file"); }
    void writeProtected() {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, written);
        QFETCH(bool, folder);
        programme->write(fileName, kOld);
        {
            WriteProtection protection(folder ? programme->folder() : programme->path(fileName));
            if (!protection.holds())
                QSKIP("root writes read-only files, and this file system has no immutable flag");
            QVERIFY(writeThroughPage(fileName));
            QVERIFY(programme->questionsAsked.size() <= 1); // the grade question only
            QCOMPARE(programme->read(fileName), kOld);
            if (folder) // no lock can be made there, and the programme runs as it did
                QVERIFY(!ProgrammeLock::claim());
        }
        QCOMPARE(filesIn(programme->folder()), QStringList{fileName});
        // Without the protection the same steps write the file.
        programme.emplace();
        QVERIFY(writeThroughPage(fileName));
        QCOMPARE(programme->read(fileName), written);
    }

    // The programme folder deleted while page 11 is open: each writer makes it again.
    void deletedFolder_data() {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("written");
        QTest::addRow("start-position file") << kStartFileName << kResumeAtPage11;
        QTest::addRow("grade file") << kGradeFileName << kGrade2;
        QTest::addRow("test log") << kResultFileName << kLogAfterFirstClick;
    }
    void deletedFolder() {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, written);
        const QString folder = programme->folder();
        QVERIFY(writeThroughPage(fileName, [folder] { QDir(folder).removeRecursively(); }));
        QCOMPARE(programme->read(fileName), written);
        QCOMPARE(filesIn(folder), QStringList{fileName});
    }

    // A full disk, on the small file system that the set-up mounts as root: the old content
    // stays whole, a file that was not there is still not there, and the programme goes on.
    void fullDisk_data() { fileRows("oldFile", "over an old file", "no file before"); }
    void fullDisk() {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, written);
        QFETCH(bool, oldFile);
        const QString disk = qEnvironmentVariable("KELVORA_FULL_DISK");
        // Never fill a disk of the machine.
        if (disk.isEmpty() || QStorageInfo(disk).bytesTotal() > 1024LL * 1024)
            QSKIP("needs the small file system that the set-up mounts as root (KELVORA_FULL_DISK)");
        const QString folder = QDir(disk).filePath(u"kelvora"_s);
        QVERIFY(QDir(folder).removeRecursively() && QDir().mkpath(folder));
        Seams::setProgrammeFolder([folder] { return QDir::toNativeSeparators(folder); });
        const QString path = QDir(folder).filePath(fileName);
        if (oldFile) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(kOld) == kOld.size());
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
        QCOMPARE(readFile(path), oldFile ? kOld : QByteArray());
        QCOMPARE(filesIn(folder), oldFile ? QStringList{fileName} : QStringList());
        // With room on the disk again, the same steps write the file.
        programme.emplace();
        Seams::setProgrammeFolder([folder] { return QDir::toNativeSeparators(folder); });
        QVERIFY(writeThroughPage(fileName));
        QCOMPARE(readFile(path), written);
        QDir(folder).removeRecursively();
    }
};

QTEST_MAIN(TestFileSafety)
#include "test_filesafety.moc"

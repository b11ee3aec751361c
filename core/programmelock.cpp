// SPDX-License-Identifier: GPL-3.0-or-later
#include "programmelock.h"

#include "textfiles.h"

#include <QLockFile>
#include <QMessageBox>
#include <QSysInfo>

#include <memory>

namespace ProgrammeLock {

namespace {
// Released when the programme ends, whether main() returns or the programme exits.
std::unique_ptr<QLockFile> held;
} // namespace

std::optional<qint64> claim() {
    auto lock = std::make_unique<QLockFile>(TextFiles::programmePath(kFileName));
    // A lock is stale only when its copy no longer runs, however long that copy has been running.
    lock->setStaleLockTime(0);
    // A copy that ends just now removes its lock between the two steps: then once more.
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (lock->tryLock(0)) {
            held = std::move(lock);
            return std::nullopt;
        }
        if (lock->error() != QLockFile::LockFailedError)
            return std::nullopt; // no lock can be made here
        qint64 processId = 0;
        QString host;
        if (lock->getLockInfo(&processId, &host, nullptr)) {
            if (!host.isEmpty() &&
                host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) != 0)
                return std::nullopt;
            return processId;
        }
    }
    return std::nullopt;
}

void sayAlreadyRunning() {
    QMessageBox::information(nullptr, QStringLiteral("Kelvora"),
                             QStringLiteral("Kelvora läuft bereits, sein Fenster ist schon "
                                            "geöffnet."));
}

} // namespace ProgrammeLock

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

// One running copy of the programme per programme folder: two copies started by the same pupil
// would both write the same files. The first copy holds a lock file in the folder for as long
// as it runs.
namespace ProgrammeLock {

// The lock file's name in the programme folder.
inline const QString kFileName = QStringLiteral("Kelvora.lock");

// Takes the lock for the rest of the run, however the programme ends, and gives nothing; or gives
// the process id of the copy on this computer that holds it. A lock left behind by a copy that
// no longer runs (a crash, a kill) is taken over. A folder where no lock can be made
// (write-protected, a CD) and a lock held from another computer (a shared folder) leave the
// programme to run as without a lock.
std::optional<qint64> claim();

// Tells the pupil that Kelvora already runs: where its window cannot be brought to the front.
void sayAlreadyRunning();

} // namespace ProgrammeLock

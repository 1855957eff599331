#pragma once

#include <QDateTime>
#include <QString>

namespace vasclip::engine {

/// Removes the super-journals (`FILE-mj...`) that killed transactions over several files left beside a
/// database.
///
/// One is needed as long as a journal that it names exists: without it, that journal would no longer be
/// rolled back. Young ones are left alone, since a commit may be under way. Never throws.
void SweepSuperJournals(const QString& nativePath, const QDateTime& now);

} // namespace vasclip::engine

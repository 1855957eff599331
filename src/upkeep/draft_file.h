#pragma once

#include "platform/engine/new_file.h"

#include <QFile>

namespace vasclip::upkeep {

/// A report, list or account that is being written beside its target and takes its place when it is whole. What killed
/// ones have left of the same target goes when the next is begun.
class DraftFile
{
public:
    /// @param target  native path; a link stays one, and what it leads to is written
    /// @param shown   its name, as the user knows it
    /// @throws RuntimeError 75 without the rights, 76 the directory is not there
    DraftFile(const QString& target, const QString& shown);

    [[nodiscard]] QFile& Out() { return m_out; } ///< open for writing
    /// @throws RuntimeError 61 where the disk took not all of it, 75 where the target can't be replaced
    void Finish();

private:
    QString m_target;
    QString m_shown;
    engine::NewFile m_file;
    QFile m_out;
};

} // namespace vasclip::upkeep

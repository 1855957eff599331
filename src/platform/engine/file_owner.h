#pragma once

#include <QDateTime>
#include <QString>

namespace vasclip::engine {

/// Who makes a file that goes away again, as the file's name tells: "1234_9f86d081", the number of a process and eight digits
/// of a sum of its machine's name. Files of older versions have the number alone.
struct FileOwner
{
    qint64 process = 0; ///< 0: the name tells none
    QString machine;    ///< "": not known
    qsizetype length = 0; ///< of the mark

    [[nodiscard]] static FileOwner Own();
    [[nodiscard]] static FileOwner In(QStringView text); ///< that a text begins with
    [[nodiscard]] QString Mark() const;

    /// Is nobody at work on the file any more? One of this machine is left when its process is no more; this process' own
    /// counts as left. Nobody can tell from here whether a process of another machine, or of an unknown one, still runs:
    /// theirs are left when nobody has written into them for a week.
    /// @param native  the file. @param now  by the clock of its disk or of this machine
    [[nodiscard]] bool HasLeft(const QString& native, const QDateTime& now) const;
};

} // namespace vasclip::engine

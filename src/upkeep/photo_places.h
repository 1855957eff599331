#pragma once

#include "upkeep/transfer_desk.h"

#include <QHash>
#include <QSet>

namespace vasclip::upkeep {

/// Where pictures stand in the photo directory, or would. Its names are read once: each file that an import puts there
/// would have the disk read all of them again.
class PhotoPlaces
{
public:
    explicit PhotoPlaces(const TransferDesk& desk);
    /// The native path of a picture, spelled as it is on the disk; "" for a name that no file can have there.
    /// @param suffix  of the longest name under which it will stand meanwhile
    [[nodiscard]] QString Of(const QString& stem, const QString& suffix) const;

private:
    QString m_directory; ///< native, ends in a slash
    QSet<QString> m_names;
    QHash<QString, QString> m_spelled; ///< by the folded name: the first in sorted order
};

} // namespace vasclip::upkeep

#pragma once

#include "upkeep/transfer_desk.h"

#include <QHash>
#include <QSet>

namespace vasclip::upkeep {

/// Finds the records of the Databook that stand at the same house as others, under another key.
class AddressTwins
{
public:
    /// An address that is looked for, under the name that Find gives back.
    void Want(const QString& name, const QString& address, const QString& city);
    /// Reads the addresses of the Databook once. @return keys by name; a town that differs is another house
    /// @throws RuntimeError of the engine
    [[nodiscard]] QHash<QString, QString> Find(const TransferDesk& desk, const WorkStep& step) const;
    /// Names at whose house one stands that was wanted before, with that one.
    [[nodiscard]] const QHash<QString, QString>& Among() const { return m_among; }

private:
    /// Does an address as it is written begin with a number and go on with one of the words that are looked for?
    [[nodiscard]] bool Hinted(const QString& written) const;

    struct Wanted
    {
        QString name, city;
    };
    QMultiHash<QString, Wanted> m_wanted; ///< by house
    QHash<QString, QString> m_among;
    QSet<QString> m_numbers;              ///< of the houses, as they are written
    QSet<QString> m_hints;                ///< number and a word: only where one is met an address is parsed
};

} // namespace vasclip::upkeep

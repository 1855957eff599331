#pragma once

#include <QList>
#include <QString>

#include <utility>

namespace vasclip::store {
class Record;
}

namespace vasclip::photos {

/// One photo of a record.
using PhotoPair = std::pair<QString, QString>; ///< view, file stem

/// The photos of a PHOTOS text: view, "|", stem, CR LF for each. A last line without CR LF is lost; an empty
/// line ends the reading; a line without "|" is a view without a stem.
[[nodiscard]] QList<PhotoPair> ParsePhotos(const QString& photos);

/// A record's photos as a value: what it held when it was read.
class PhotoList
{
public:
    PhotoList() = default;
    explicit PhotoList(QList<PhotoPair> pairs);
    explicit PhotoList(const store::Record& record);

    [[nodiscard]] const QList<PhotoPair>& Pairs() const { return m_pairs; }
    /// @param view  in any case
    [[nodiscard]] bool Has(const QString& view) const;
    /// File stem of a view, trimmed; "" if the record has none of that name.
    [[nodiscard]] QString StemOf(const QString& view) const;
    /// A view as the record spells it; "" if the record has none of that name.
    [[nodiscard]] QString NameOf(const QString& view) const;
    /// Gives a view its stem, in its row or in a new one.
    void Put(const QString& view, const QString& stem);
    /// The PHOTOS text; a single blank for no photos.
    [[nodiscard]] QString Text() const;

private:
    QList<PhotoPair> m_pairs;
};

} // namespace vasclip::photos

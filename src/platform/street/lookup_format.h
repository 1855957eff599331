#pragma once

#include "platform/street/bytes.h"
#include "platform/street/lookup_reader.h"
#include "platform/street/lookup_writer.h"

namespace vasclip::street::format {

/// Rows of `lookup_facts`.
inline constexpr int kSummaryRow = 1;
inline constexpr int kZipsRow = 2; ///< the texts that edges and houses refer to
inline constexpr int kCitiesRow = 3;
inline constexpr int kNamesRow = 4; ///< apart, since only the index wants them

/// A bucket of the index keeps names that are alike but for so many bits.
inline constexpr int kNameBits = 10;

/// A street as the row of its base keeps it.
void WriteStreet(ByteWriter& bytes, const StoredStreet& street);
[[nodiscard]] StoredStreet ReadStreet(ByteReader& bytes, const QString& base);

void WritePlace(ByteWriter& bytes, Place place);
[[nodiscard]] Place ReadPlace(ByteReader& bytes);
void WriteExtent(ByteWriter& bytes, const Extent& extent);
[[nodiscard]] Extent ReadExtent(ByteReader& bytes);

/// All of it but the names.
[[nodiscard]] QByteArray SummaryBytes(const LookupSummary& summary);
[[nodiscard]] LookupSummary ReadSummary(const QByteArray& bytes);

[[nodiscard]] QByteArray NamesBytes(const std::vector<quint32>& names);
[[nodiscard]] std::vector<quint32> ReadNames(const QByteArray& bytes);

[[nodiscard]] QByteArray TextsBytes(const QStringList& texts);
[[nodiscard]] QStringList ReadTexts(const QByteArray& bytes);

} // namespace vasclip::street::format

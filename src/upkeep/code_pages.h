#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace vasclip::upkeep {

/// Names of the code pages that text files may have: UTF-8, UTF-16, Windows-1252, ISO-8859-1.
[[nodiscard]] const QStringList& CodePages();
/// A code page as the list spells it, from what people write ("utf8", "1252", "latin1"); "" for none of these.
[[nodiscard]] QString CodePageOf(const QString& written);

/// A file's text. Without a name the code page is what the file begins with or its bytes are: UTF-16 by its mark, UTF-8,
/// else Windows-1252. @param found  takes its name. @return nothing for bytes that the code page does not have
[[nodiscard]] std::optional<QString> Decoded(const QByteArray& bytes, const QString& codePage, QString* found = nullptr);

/// Text in a code page; what it does not have becomes "?". @param lost  counts these letters
[[nodiscard]] QByteArray Encoded(const QString& text, const QString& codePage, qint64& lost);
/// What a file of that code page begins with.
[[nodiscard]] QByteArray MarkOf(const QString& codePage);

} // namespace vasclip::upkeep

#pragma once

#include "platform/engine/database.h"

namespace vasclip::engine {

/// Is it a genuine file of the old engine? Such a one is open for reading only.
[[nodiscard]] bool IsGenuine(const Database& database);
/// Does what lies at the path begin as one? It must not be open in this process, whose locks on it would go.
[[nodiscard]] bool IsGenuineFile(const files::Disk& disk, const QString& path);

/// Is it a genuine file of Access 97? A new one is of Access 2000, which 97 does not open.
[[nodiscard]] bool IsOfAccess97(const Database& database);

/// What a genuine file has that no database of ours takes over, by kind and name: "the saved query SALES", tables that lie
/// elsewhere, relations, forms and the like. Nothing for another database.
[[nodiscard]] QStringList NotTakenOver(const Database& database);

/// A new genuine file, which other programs can open. Tables and records are added to it, through record sets or by
/// statements of the database that has them; nothing in it is read or changed before it is closed. It appears under
/// its name when it is closed, whole, and takes the place of a file that is there; given up without that, or
/// rolled back, it leaves nothing.
/// @throws 61, 75, 76
class GenuineFile
{
public:
    GenuineFile(Engine& engine, const QString& path);
    ~GenuineFile();
    GenuineFile(const GenuineFile&) = delete;
    GenuineFile& operator=(const GenuineFile&) = delete;

    [[nodiscard]] Database& Content();
    /// @return sentences about what the file could not take: an index of texts whose order is not known there
    QStringList Finish(); ///< @throws 61, 75

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace vasclip::engine

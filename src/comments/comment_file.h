#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "platform/engine/database.h"

namespace vasclip::comments {

using namespace Qt::StringLiterals;

inline const QString kCommentFile = u"comments.mdb"_s;
inline const QString kCommentTemplate = u"newcmts.mdb"_s;

[[nodiscard]] QString SharedCommentFile(const common::Globals& globals); ///< in G_DataDir
[[nodiscard]] QString LocalCommentFile(const common::Globals& globals);  ///< in G_UserDir
/// The one that is in use: the shared file when SHARE is on, else the local one.
[[nodiscard]] QString CommentFilePath(const common::Globals& globals);

/// Is the file there, read-only and hidden ones too? A directory that can't be reached has none.
[[nodiscard]] bool HasCommentFile(const files::Disk& disk, const QString& path);

/// Makes an empty comment file: a copy of the template of G_ProgramDir, without its write protection, or,
/// when the template is missing, one made from the schema. The file appears whole or not at all.
/// @throws RuntimeError 58 if the file is there, 61, 75, 76 and those of a damaged template
void CreateCommentFile(engine::Engine& engine, const common::Globals& globals, const QString& path);

/// What turning the sharing of comments on needs: a file that all share. Without one it asks whether to copy
/// the local file there, which is made first if need be.
/// @return false if the user said No: sharing stays off
/// @throws RuntimeError if the copy fails; nothing has changed then
[[nodiscard]] bool TurnSharingOn(const forms::Ports& ports, engine::Engine& engine,
                                 const common::Globals& globals);

/// What turning it off needs: a local file. Without one it asks whether to copy the shared file (if there is
/// one), else makes an empty file, and says which.
/// @throws RuntimeError if the copy fails; nothing has changed then
void TurnSharingOff(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals);

} // namespace vasclip::comments

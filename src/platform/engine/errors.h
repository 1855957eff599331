#pragma once

#include "platform/text/runtime_error.h"

namespace vasclip::error {

/// Numbers that the engine throws besides the ones that the program looks at.
inline constexpr int kInternalEngine = 3001;
inline constexpr int kTooManyDatabases = 3014;
inline constexpr int kDatabaseNotFound = 3024;
inline constexpr int kNotValidPassword = 3031; ///< an encrypted file of the old engine
inline constexpr int kNoTransaction = 3034;
inline constexpr int kRecordTooLarge = 3047;
inline constexpr int kKeyIsNull = 3058;
inline constexpr int kWaitGivenUp = 3059; ///< by the user, who waited for others
inline constexpr int kUnknownInsertField = 3127;
/// The server that holds the database can't be reached any more; what was stored before stands.
inline constexpr int kConnectionLost = 3151;
inline constexpr int kBadBookmark = 3159;
inline constexpr int kRecordDeleted = 3167;
inline constexpr int kCouldNotReadLocked = 3187; ///< a read or an opening that another user kept waiting
inline constexpr int kTooManyFields = 3190;
inline constexpr int kDatabaseExists = 3204;
inline constexpr int kIndexExists = 3284;
inline constexpr int kValueRequired = 3314;
inline constexpr int kZeroLength = 3315;
inline constexpr int kValueCount = 3346;
inline constexpr int kInUseByOthers = 3356;
inline constexpr int kClosed = 3420;
inline constexpr int kConversion = 3421;

} // namespace vasclip::error

#pragma once

#include <QString>
#include <stdexcept>

namespace vasclip {

/// A failure of the outside world, with the number that the rules know it by.
///
/// Numbers below 1000 are the language's (53 file not found, 61 disk full, 76 path not found, ...), those
/// from 3000 are the database engine's (3021 no current record, 3022 duplicate key, 3218 locked, ...).
/// The description is a sentence without its final full stop: the box that shows it adds one.
class RuntimeError : public std::runtime_error
{
public:
    RuntimeError(int number, const QString& description)
        : std::runtime_error(description.toStdString())
        , m_number(number)
        , m_description(description)
    {
    }

    [[nodiscard]] int Number() const noexcept { return m_number; }
    [[nodiscard]] const QString& Description() const noexcept { return m_description; }

private:
    int m_number;
    QString m_description;
};

/// The numbers that the program itself looks at or throws.
namespace error {
inline constexpr int kOverflow = 6;
inline constexpr int kSubscript = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kTooManyFiles = 67;
inline constexpr int kDeviceUnavailable = 68;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kDiskNotReady = 71;
inline constexpr int kOtherDrive = 74; ///< a directory renamed from one disk to another
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kNoObject = 91;
inline constexpr int kLinkNoAnswer = 282;     ///< no foreign application answered the start of a conversation
inline constexpr int kLinkTimeOut = 286;      ///< the other side did not answer in time
inline constexpr int kLinkBusy = 285;         ///< the other side refused the operation
inline constexpr int kLinkPeerGone = 289;     ///< the other side closed, or answered with garbage
inline constexpr int kLinkTopicOpen = 287;    ///< the topic was assigned while the conversation is open
inline constexpr int kCorruptPicture = 481;
inline constexpr int kExclusivelyLocked = 3009;
inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kDuplicateKey = 3022;
inline constexpr int kFieldUnknown = 3265;
inline constexpr int kTableUnknown = 3078;
inline constexpr int kCouldNotOpenFile = 3051;
inline constexpr int kFileIsReadOnly = 3027;
inline constexpr int kNoEdit = 3020;          ///< Update without Edit or AddNew
inline constexpr int kUnrecognisedDatabase = 3343;
inline constexpr int kCorruptDatabase = 3049;
inline constexpr int kSyntax = 3075;
inline constexpr int kParameterUnknown = 3061; ///< a name in the statement is no field
inline constexpr int kFieldTooLong = 3163;
inline constexpr int kFieldDefinedTwice = 3191;
inline constexpr int kDataChanged = 3197;     ///< somebody else changed the row since Edit
inline constexpr int kTableLocked = 3211;
inline constexpr int kCouldNotUpdateLocked = 3218;
inline constexpr int kInvalidOperation = 3219;
inline constexpr int kTableExists = 3010;
inline constexpr int kTableNotFound = 3376;   ///< DROP of a table that is not there
inline constexpr int kNoSuchIndex = 3800;
} // namespace error

} // namespace vasclip

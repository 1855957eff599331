#pragma once

#include <QString>
#include <QStringList>

namespace vasclip::store {

/// The title of a box that has none of its own.
inline const QString kPlainTitle = QStringLiteral("Vasclip");

inline const QString kFileNotFound = QStringLiteral("The file %1 was not found.  This file must be present "
                                                    "for this program to work properly.  Please correct "
                                                    "and try again.");

// The texts of the seek's own error cases, letter for letter.
inline const QString kRepairTitle = QStringLiteral("Database Repair Needed");
inline const QString kRepairText =
    QStringLiteral("Your database may contain acorrupt primary key. Please Contact your software vendor");
inline const QString kCompressTitle = QStringLiteral("Database Compression Needed");
inline const QString kCompressText =
    QStringLiteral("Your database may contain corrupt entries. Please Compress database before continuing");
inline const QString kNotFoundAfterUpdate =
    QStringLiteral("New recorded added or updated was not found....check for errors in the database.");

inline const QString kReadOnlyFlagNotSet =
    QStringLiteral("The read only flag for file %1 was not set.  Contact Network Administrator.  This is a "
                   "temporary measure "
                   "until the network problem can be addressed.");

/// Templates and the comment file, tested as a substring with the upper-cased name and "*".
inline const QString kNeverOffered = QStringLiteral("NEWCMTS.MDB*NEWDATA.MDB*COMMENTS.MDB*");

inline const QStringList kSystemTables = {
    QStringLiteral("MSYSRELATIONSHIPS"), QStringLiteral("MSYSACES"),    QStringLiteral("MSYSOBJECTS"),
    QStringLiteral("MSYSACCESSOBJECTS"), QStringLiteral("MSYSQUERIES"),
};

/// The index of every look-up by key.
inline const QString kKeyIndex = QStringLiteral("CENTRALKEY");

} // namespace vasclip::store

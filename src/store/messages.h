#pragma once

#include "store/fields.h"

#include <QString>
#include <QStringList>

namespace vasclip::store {

using namespace Qt::StringLiterals;

/// The title of a box that has none of its own.
inline const QString kPlainTitle = u"Vasclip"_s;

inline const QString kFileNotFound = u"The file %1 was not found.  This file must be present "
                                     "for this program to work properly.  Please correct "
                                     "and try again."_s;

// The texts of the seek's own error cases, letter for letter.
inline const QString kRepairTitle = u"Database Repair Needed"_s;
inline const QString kRepairText =
    u"Your database may contain acorrupt primary key. Please Contact your software vendor"_s;
inline const QString kCompressTitle = u"Database Compression Needed"_s;
inline const QString kCompressText =
    u"Your database may contain corrupt entries. Please Compress database before continuing"_s;
inline const QString kNotFoundAfterUpdate =
    u"New recorded added or updated was not found....check for errors in the database."_s;

inline const QString kReadOnlyFlagNotSet =
    u"The read only flag for file %1 was not set.  Contact Network Administrator.  This is a "
    "temporary measure "
    "until the network problem can be addressed."_s;

/// Templates and the comment file, tested as a substring with the upper-cased name and "*".
inline const QString kNeverOffered = u"NEWCMTS.MDB*NEWDATA.MDB*COMMENTS.MDB*"_s;

inline const QStringList kSystemTables = {
    u"MSYSRELATIONSHIPS"_s, u"MSYSACES"_s, u"MSYSOBJECTS"_s, u"MSYSACCESSOBJECTS"_s, u"MSYSQUERIES"_s,
};

/// The index of every look-up by key.
inline const QString kKeyIndex = fields::CENTRALKEY;

} // namespace vasclip::store

#pragma once

#include <QString>

#include <gtest/gtest.h>

#include <sqlite3.h>

namespace vasclip::tests {

/// Another connection that keeps even readers out, as one that stores does for a moment.
struct ExclusiveLock
{
    explicit ExclusiveLock(const QString& native)
    {
        EXPECT_EQ(sqlite3_open(native.toUtf8().constData(), &handle), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(handle, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~ExclusiveLock() { sqlite3_close(handle); }
    ExclusiveLock(const ExclusiveLock&) = delete;
    ExclusiveLock& operator=(const ExclusiveLock&) = delete;
    sqlite3* handle = nullptr;
};

} // namespace vasclip::tests

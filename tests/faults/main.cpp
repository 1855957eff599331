#include "faults/desktop_user.h"

#include <QCoreApplication>
#include <QThread>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/// A process that keeps everybody else out of a database file for so long, or until it is killed.
int HoldLock(const char* file, unsigned long seconds)
{
    sqlite3* database = nullptr;
    if (sqlite3_open(file, &database) != SQLITE_OK ||
        sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "%s\n", sqlite3_errmsg(database));
        sqlite3_close(database);
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    QThread::sleep(seconds);
    sqlite3_close(database);
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    if ((argc == 3 || argc == 4) && std::strcmp(argv[1], "--hold-lock") == 0)
        return HoldLock(argv[2], argc == 4 ? std::strtoul(argv[3], nullptr, 10) : 120);
    if (argc == 3 && std::strcmp(argv[1], "--main-screen") == 0) {
        const QCoreApplication app(argc, argv);
        return vasclip::tests::WorkAtTheMainScreen(QString::fromLocal8Bit(argv[2]));
    }
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}

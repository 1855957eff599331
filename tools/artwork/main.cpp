#include "platform/street/draw/mark.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

using namespace vasclip;

/// Writes the map's bitmaps into a directory, those that are not there yet.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it draws, and shows nothing
    const QGuiApplication app(argc, argv);
    const QString directory = QString::fromLocal8Bit(argv[1]);
    if (!QDir().mkpath(directory)) {
        std::fprintf(stderr, "%s can't be made\n", argv[1]);
        return 1;
    }
    const QStringList failed = street::draw::WriteMarks(directory);
    for (const QString& one : failed)
        std::fprintf(stderr, "%s\n", qPrintable(one));
    return failed.isEmpty() ? 0 : 1;
}

#include "artwork/icon_file.h"
#include "platform/street/draw/mark.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QSaveFile>

#include <cstdio>
#include <cstring>

using namespace vasclip;

namespace {

int DrawMarks(const char* where)
{
    const QString directory = QString::fromLocal8Bit(where);
    if (!QDir().mkpath(directory)) {
        std::fprintf(stderr, "%s can't be made\n", where);
        return 1;
    }
    const QStringList failed = street::draw::WriteMarks(directory);
    for (const QString& one : failed)
        std::fprintf(stderr, "%s\n", qPrintable(one));
    return failed.isEmpty() ? 0 : 1;
}

int DrawIcon(const char* from, const char* to)
{
    const QString drawing = QString::fromLocal8Bit(from);
    const QIcon icon(drawing);
    QList<QImage> pictures;
    for (const int side : artwork::kIconSizes) {
        const QImage picture = icon.pixmap(QSize(side, side), 1.0).toImage();
        if (!QFileInfo::exists(drawing) || picture.size() != QSize(side, side)) {
            std::fprintf(stderr, "%s can't be drawn; is Qt's SVG icon engine installed?\n", from);
            return 1;
        }
        pictures.append(picture);
    }
    QSaveFile file(QString::fromLocal8Bit(to));
    if (file.open(QIODevice::WriteOnly) && file.write(artwork::IconFile(pictures)) > 0 && file.commit())
        return 0;
    std::fprintf(stderr, "%s can't be written: %s\n", to, qPrintable(file.errorString()));
    return 1;
}

} // namespace

/// Writes the map's bitmaps into a directory, those that are not there yet; or the icon file of a drawing.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it draws, and shows nothing
    const QGuiApplication app(argc, argv);
    if (argc == 2)
        return DrawMarks(argv[1]);
    if (argc == 4 && std::strcmp(argv[1], "--icon") == 0)
        return DrawIcon(argv[2], argv[3]);
    std::fprintf(stderr, "usage: %s DIRECTORY\n       %s --icon DRAWING.svg FILE.ico\n", argv[0], argv[0]);
    return 2;
}

#include "demo/home_marker.h"

#include "platform/text/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

constexpr auto kMarker = "demo-home.txt"_L1;
constexpr auto kFirstLine = "Vasclip demo home\n"_L1;
const QString kRecipeLine = u"\nrecipe %1\n"_s;

} // namespace

HomeState StateOfHome(const QString& directory)
{
    const QDir home(directory);
    if (!home.exists() || home.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        return HomeState::Empty;
    QFile marker(home.filePath(kMarker));
    if (!marker.open(QIODevice::ReadOnly))
        return HomeState::Foreign;
    const QString text = QString::fromUtf8(marker.read(1000));
    if (!text.startsWith(kFirstLine))
        return HomeState::Foreign;
    if (!text.contains("\ncomplete\n"_L1))
        return HomeState::Unfinished;
    return text.contains(kRecipeLine.arg(kHomeRecipe)) ? HomeState::Complete : HomeState::Older;
}

void MarkHome(const QString& directory, HomeState state, int comps)
{
    QDir().mkpath(directory);
    QSaveFile marker(QDir(directory).filePath(kMarker));
    const QString text = QString(kFirstLine) + u"%1 comps"_s.arg(comps) + kRecipeLine.arg(kHomeRecipe) +
                         (state == HomeState::Complete ? "complete\n"_L1 : "unfinished\n"_L1);
    if (!marker.open(QIODevice::WriteOnly) || marker.write(text.toUtf8()) < 0 || !marker.commit())
        throw RuntimeError(error::kPathFileAccess,
                           u"%1 cannot be written: %2"_s.arg(marker.fileName(), marker.errorString()));
}

void RefuseLinkedDrive(const QString& directory)
{
    const QFileInfo drive(QDir(directory).filePath(u"drive_c"_s));
    if (drive.isSymLink() || drive.isJunction())
        throw RuntimeError(error::kPathFileAccess,
                           u"%1 leads to %2, whose files are not a demo home's, and they are left alone. Take the link away"_s.arg(
                               drive.filePath(), QDir::toNativeSeparators(drive.canonicalFilePath())));
}

void ClearHome(const QString& directory)
{
    RefuseLinkedDrive(directory);
    QDir drive(QDir(directory).filePath(u"drive_c"_s));
    if (drive.exists() && !drive.removeRecursively())
        throw RuntimeError(
            error::kPathFileAccess,
            u"%1 cannot be removed: look for files that are in use or not yours"_s.arg(drive.path()));
}

QString KeepOlderHome(const QString& directory)
{
    QDir home(directory);
    const auto name = [](int number) { return u"drive_c.older-%1"_s.arg(number); };
    int number = 1;
    while (home.exists(name(number)))
        ++number;
    if (home.exists(u"drive_c"_s) && !home.rename(u"drive_c"_s, name(number)))
        throw RuntimeError(error::kPathFileAccess,
                           u"%1 cannot be moved aside: look for files that are in use or not yours"_s.arg(
                               home.filePath(u"drive_c"_s)));
    return home.filePath(name(number));
}

} // namespace vasclip::demo

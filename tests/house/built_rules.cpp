#include "house/built_rules.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vasclip::house {

namespace {

const QString kList = u"CMakeLists.txt"_s;

bool Names(const QString& list, const QString& file, const QString& before)
{
    return list.contains(QRegularExpression(before + QRegularExpression::escape(file) + uR"((?![\w.]))"_s));
}

bool IsBuilt(const QString& path, const Sources& files)
{
    static const QRegularExpression system(u"_(unix|win)\\.cpp$"_s);
    const QString name = QFileInfo(path).fileName();
    const QString either = QString(name).replace(system, u"_${system}.cpp"_s);
    for (auto list = files.cbegin(); list != files.cend(); ++list) {
        if (!list.key().endsWith(kList))
            continue;
        const QString folder = list.key().chopped(kList.size());
        const QString before = path.startsWith(folder) ? uR"((?<![\w.}]))"_s : u"/"_s;
        if (Names(list.value(), name, before) || Names(list.value(), either, before))
            return true;
    }
    return false;
}

} // namespace

QStringList NotBuilt(const Sources& files)
{
    QStringList missing;
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        if (file.key().endsWith(u".cpp"_s) && !IsBuilt(file.key(), files))
            missing.append(u"%1 is in no build list"_s.arg(file.key()));
    return missing;
}

Sources ReadBuildFiles(const QString& projectDirectory)
{
    Sources files;
    const QDir root(projectDirectory);
    for (const QString& folder : {u"src"_s, u"tests"_s, u"tools"_s, u"bench"_s, u"demo"_s}) {
        QDirIterator found(root.filePath(folder), {u"*.cpp"_s, kList}, QDir::Files, QDirIterator::Subdirectories);
        while (found.hasNext()) {
            QFile file(found.next());
            const bool list = file.fileName().endsWith(kList);
            if (!list || file.open(QIODevice::ReadOnly))
                files.insert(root.relativeFilePath(file.fileName()), list ? QString::fromUtf8(file.readAll()) : QString());
        }
    }
    return files;
}

} // namespace vasclip::house

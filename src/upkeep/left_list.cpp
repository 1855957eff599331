#include "upkeep/left_list.h"

#include "platform/engine/file_owner.h"
#include "platform/engine/process.h"
#include "upkeep/placed_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSysInfo>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMost = 256 << 20; ///< bytes

QJsonObject Read(const QString& native)
{
    QFile file(native);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.read(kMost)).object() : QJsonObject();
}

bool IsLeft(const QJsonObject& content)
{
    const qint64 process = content[u"process"].toInteger();
    return content[u"host"].toString() == QSysInfo::machineHostName() &&
           (process == engine::OwnProcess() || !engine::IsAlive(process, content[u"started"].toString()));
}

} // namespace

LeftList::LeftList(const files::Disk& disk, const QString& databook, const QString& mark)
    : m_disk(disk)
    , m_file(databook + mark + engine::FileOwner::Own().Mark())
{}

bool LeftList::IsThere() const
{
    return m_disk.Found(m_file, files::ReadOnly | files::Hidden);
}

void LeftList::Write(QJsonObject content)
{
    const qint64 process = engine::OwnProcess();
    content[u"host"_s] = QSysInfo::machineHostName();
    content[u"process"_s] = process;
    content[u"started"_s] = engine::StartMark(process);
    m_disk.WriteWhole(m_file, QJsonDocument(content).toJson(QJsonDocument::Compact));
    m_written = true;
}

void LeftList::Remove()
{
    if (m_written)
        static_cast<void>(RemoveFile(m_disk.ToNative(m_file)));
    m_written = false;
}

void LeftList::Replay(const files::Disk& disk, const QString& databook, const QString& mark,
                      const std::function<bool(const QJsonObject& content)>& settle)
{
    const QFileInfo file(disk.ToNative(databook));
    const QDir directory = file.absoluteDir();
    const QString begin = file.fileName() + mark;
    for (const QString& name : directory.entryList({u"*"_s + mark + u"*"_s}, QDir::Files | QDir::Hidden)) {
        if (!name.startsWith(begin))
            continue;
        const QJsonObject content = Read(directory.filePath(name));
        if (!content.isEmpty() && IsLeft(content) && settle(content))
            QFile::remove(directory.filePath(name));
    }
}

} // namespace vasclip::upkeep

#pragma once

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>

namespace vasclip::tests {

/// What an import leaves that was killed when its pictures had their names and its rows were not stored: NEW.jpg, and
/// MINE.jpg, which holds "theirs" while a copy of "mine" is beside it.
class KilledImport
{
public:
    /// @param databook, photos  native
    KilledImport(const QString& databook, const QString& photos)
        : m_new(photos + QLatin1StringView("/NEW.jpg"))
        , m_mine(photos + QLatin1StringView("/MINE.jpg"))
        , m_list(databook + QLatin1StringView(".placing999999999"))
    {
        const QString waits(QLatin1StringView(".incoming999999999"));
        const QString kept = m_mine + QLatin1StringView(".incoming-over999999999");
        Write(m_new, "new");
        Write(m_mine, "theirs");
        Write(kept, "mine");
        const auto picture = [&](const QString& file, const QString& over) {
            const QFileInfo info(file);
            return QJsonObject{{QLatin1StringView("file"), file},
                               {QLatin1StringView("waiting"), file + waits},
                               {QLatin1StringView("kept"), over},
                               {QLatin1StringView("bytes"), info.size()},
                               {QLatin1StringView("changed"), info.lastModified().toMSecsSinceEpoch()}};
        };
        const QJsonObject list{{QLatin1StringView("host"), QSysInfo::machineHostName()},
                               {QLatin1StringView("process"), 999999999},
                               {QLatin1StringView("records"), QJsonArray()},
                               {QLatin1StringView("pictures"), QJsonArray{picture(m_new, {}), picture(m_mine, kept)}}};
        Write(m_list, QJsonDocument(list).toJson());
    }
    [[nodiscard]] bool IsThere() const { return QFile::exists(m_new) && Read(m_mine) == "theirs" && QFile::exists(m_list); }
    [[nodiscard]] bool IsUndone() const
    {
        return !QFile::exists(m_new) && Read(m_mine) == "mine" && !QFile::exists(m_list);
    }

private:
    static void Write(const QString& native, const QByteArray& bytes)
    {
        QFile file(native);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }
    static QByteArray Read(const QString& native)
    {
        QFile file(native);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString m_new, m_mine, m_list;
};

} // namespace vasclip::tests

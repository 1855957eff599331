#pragma once

#include "platform/engine/back_end.h"
#include "platform/engine/memory_server.h"
#include "platform/engine/row_store.h"

namespace vasclip::engine {

/// A second kind of database for the tests: every path that ends in `suffix` is a server in memory.
class MemoryBackEnd final : public BackEnd
{
public:
    /// @param rowsAhead  that a walk gives in one call
    explicit MemoryBackEnd(QString suffix, int rowsAhead = 1)
        : m_suffix(std::move(suffix))
        , m_rowsAhead(rowsAhead)
    {}

    [[nodiscard]] bool Owns(const QString& path) const override
    {
        return path.endsWith(m_suffix, Qt::CaseInsensitive);
    }
    [[nodiscard]] std::shared_ptr<Database> Open(const QString& path, OpenMode mode) override;
    void Create(const QString& path) override;
    void Copy(const QString& source, const QString& target) override;
    [[nodiscard]] QList<User> Users(const QString& path) const override;
    void SetWaits(std::shared_ptr<Waits> waits) override { m_waits = std::move(waits); }
    void SetTime(const text::TimeSource& time) override { m_time = &time; }

    [[nodiscard]] std::shared_ptr<MemoryServer> ServerOf(const QString& path) const; ///< @throws 3024

private:
    QString m_suffix;
    int m_rowsAhead;
    QHash<QString, std::shared_ptr<MemoryServer>> m_servers;
    QHash<QString, int> m_users;
    std::shared_ptr<Waits> m_waits;
    const text::TimeSource* m_time = nullptr;
};

} // namespace vasclip::engine

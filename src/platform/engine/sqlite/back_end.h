#pragma once

#include "platform/engine/back_end.h"
#include "platform/engine/sqlite/session.h"

namespace vasclip::engine {

/// The native kind: SQLite files with our mark. It owns every path, and says what other files are.
class SqliteBackEnd final : public BackEnd
{
public:
    SqliteBackEnd(const files::Disk& disk, OpenForeign openForeign);

    [[nodiscard]] bool Owns(const QString&) const override { return true; }
    [[nodiscard]] std::shared_ptr<Database> Open(const QString& path, OpenMode mode) override;
    void Create(const QString& path) override;
    void Copy(const QString& source, const QString& target) override;
    [[nodiscard]] QList<User> Users(const QString& path) const override;
    void SetWaits(std::shared_ptr<Waits> waits) override { m_workspace->waits = std::move(waits); }
    void SetTime(const text::TimeSource& time) override { m_workspace->time = &time; }

private:
    [[nodiscard]] const files::Disk& Disk() const { return *m_workspace->disk; }
    [[nodiscard]] std::shared_ptr<Connection> Connect(const QString& native, const QString& shown,
                                                      bool readOnly) const;

    std::shared_ptr<Workspace> m_workspace;
};

} // namespace vasclip::engine

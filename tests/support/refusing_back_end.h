#pragma once

#include "platform/engine/back_end.h"
#include "platform/text/runtime_error.h"

namespace vasclip::tests {

/// Leaves every path to the kind that an engine comes with, and gives nobody a file to himself.
class RefusingBackEnd final : public engine::BackEnd
{
public:
    /// @param number  of the error that an exclusive opening fails with
    RefusingBackEnd(const files::Disk& disk, int number)
        : m_own(std::move(engine::BuiltInBackEnds(disk, {}).back()))
        , m_number(number)
    {}

    [[nodiscard]] bool Owns(const QString& path) const override { return m_own->Owns(path); }
    [[nodiscard]] std::shared_ptr<engine::Database> Open(const QString& path, engine::OpenMode mode) override
    {
        if (mode == engine::OpenMode::Exclusive)
            throw RuntimeError(m_number, QStringLiteral("Refused"));
        return m_own->Open(path, mode);
    }
    void Create(const QString& path) override { m_own->Create(path); }
    void Copy(const QString& source, const QString& target) override { m_own->Copy(source, target); }
    [[nodiscard]] QList<engine::User> Users(const QString& path) const override { return m_own->Users(path); }
    void SetWaits(std::shared_ptr<engine::Waits> waits) override { m_own->SetWaits(std::move(waits)); }
    void SetTime(const text::TimeSource& time) override { m_own->SetTime(time); }

private:
    std::unique_ptr<engine::BackEnd> m_own;
    int m_number;
};

} // namespace vasclip::tests

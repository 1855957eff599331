#pragma once

#include "platform/engine/back_end.h"

namespace vasclip::engine::jet {

/// Genuine files of the old engine: opened in place for reading, and written as new files only.
class JetBackEnd final : public BackEnd
{
public:
    /// @param isOpen  has another kind the file (a native path) open? One that it has must not be looked at:
    ///                closing a file drops this process's locks on it
    JetBackEnd(const files::Disk& disk, std::function<bool(const QString& native)> isOpen)
        : m_disk(disk)
        , m_isOpen(std::move(isOpen))
    {}

    [[nodiscard]] bool Owns(const QString& path) const override;
    [[nodiscard]] std::shared_ptr<Database> Open(const QString& path, OpenMode mode) override;
    void Create(const QString& path) override;
    void Copy(const QString& source, const QString& target) override;
    /// Nobody is known: the companion of such a file belongs to the program that wrote it.
    [[nodiscard]] QList<User> Users(const QString&) const override { return {}; }
    void SetWaits(std::shared_ptr<Waits>) override {} // nothing is locked, so nothing waits
    void SetTime(const text::TimeSource& time) override { m_time = &time; }

private:
    [[nodiscard]] QString NativeOf(const QString& path) const; ///< "" if it is not there

    /// The new file that is being made at a path.
    [[nodiscard]] std::shared_ptr<Database> Made(const QString& path) const;

    const files::Disk& m_disk;
    std::function<bool(const QString& native)> m_isOpen;
    const text::TimeSource* m_time = nullptr;
};

} // namespace vasclip::engine::jet

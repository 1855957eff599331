#pragma once

#include "platform/files/ini_text.h"
#include "platform/files/native.h"

#include <QHash>

#include <memory>
#include <mutex>

namespace vasclip::files {

/// The ini files of a disk as they were read, good while the file bears the same stamps. One that was read in the clock
/// tick of its last change is not kept: a second change could bear the same stamps.
class KeptInis
{
public:
    /// @param path  native
    /// @param info  what the system knows of it now
    /// @return null for one that can't be read
    [[nodiscard]] std::shared_ptr<const IniText> Read(const QString& path, const native::Info& info);
    void Forget(const QString& path);

private:
    struct Kept
    {
        native::Info info;
        std::shared_ptr<const IniText> text;
    };

    std::mutex m_mutex;
    QHash<QString, Kept> m_files;
};

} // namespace vasclip::files

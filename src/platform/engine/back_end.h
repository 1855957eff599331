#pragma once

#include "platform/engine/database.h"
#include "platform/engine/waits.h"

#include <functional>

namespace vasclip::engine {

/// One kind of database file or address. An engine asks its back ends in turn which one owns a path.
class BackEnd
{
public:
    virtual ~BackEnd() = default;
    BackEnd() = default;
    BackEnd(const BackEnd&) = delete;
    BackEnd& operator=(const BackEnd&) = delete;

    /// Is what lies at the path of this kind? Looks, and throws nothing.
    [[nodiscard]] virtual bool Owns(const QString& path) const = 0;
    // As those of Engine.
    [[nodiscard]] virtual std::shared_ptr<Database> Open(const QString& path, OpenMode mode) = 0;
    virtual void Create(const QString& path) = 0;
    virtual void Copy(const QString& source, const QString& target) = 0;
    [[nodiscard]] virtual QList<User> Users(const QString& path) const = 0;
    /// How the calls of all its databases wait, from before the first one.
    virtual void SetWaits(std::shared_ptr<Waits> waits) = 0;
    /// What time it is for all its databases, from before the first one.
    virtual void SetTime(const text::TimeSource& time) = 0;
};

/// Opens the database at a path if it belongs to another back end than the one that asks; else null.
using OpenForeign = std::function<std::shared_ptr<Database>(const QString& path)>;

/// What every engine comes with. The last one owns every path that no other owns, and says what is wrong with
/// a file of no kind.
[[nodiscard]] std::vector<std::unique_ptr<BackEnd>> BuiltInBackEnds(const files::Disk& disk,
                                                                    OpenForeign openForeign);

} // namespace vasclip::engine

#include "platform/engine/back_end.h"
#include "platform/engine/errors.h"

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

struct Engine::Private
{
    Private(const files::Disk& disk, const text::TimeSource& time)
        : disk(disk)
        , time(time)
    {}

    [[nodiscard]] BackEnd& OwnerOf(const QString& path) const
    {
        return **std::find_if(backEnds.begin(), backEnds.end(),
                              [&](const auto& backEnd) { return backEnd->Owns(path); });
    }

    void Take(BackEnd& backEnd) const
    {
        backEnd.SetWaits(waits);
        backEnd.SetTime(time);
    }

    const files::Disk& disk;
    const text::TimeSource& time;
    std::shared_ptr<Waits> waits = std::make_shared<Waits>();
    std::vector<std::unique_ptr<BackEnd>> backEnds;
};

Engine::Engine(const files::Disk& disk, const text::TimeSource& time)
    : d(std::make_shared<Private>(disk, time))
{
    d->backEnds = BuiltInBackEnds(
        disk, [weak = std::weak_ptr(d)](const QString& path) -> std::shared_ptr<Database> {
            const std::shared_ptr<Private> engine = weak.lock();
            if (!engine)
                return nullptr;
            BackEnd& owner = engine->OwnerOf(path);
            return &owner == engine->backEnds.back().get() ? nullptr : owner.Open(path, OpenMode::Shared);
        });
    for (const auto& backEnd : d->backEnds)
        d->Take(*backEnd);
}

Engine::~Engine() = default;

const files::Disk& Engine::Disk() const
{
    return d->disk;
}

const text::TimeSource& Engine::Time() const
{
    return d->time;
}

void Engine::AddBackEnd(std::unique_ptr<BackEnd> backEnd)
{
    d->Take(*backEnd);
    d->backEnds.insert(d->backEnds.begin(), std::move(backEnd));
}

std::shared_ptr<Database> Engine::OpenDatabase(const QString& path, OpenMode mode)
{
    return d->OwnerOf(path).Open(path, mode);
}

std::shared_ptr<Database> Engine::CreateDatabase(const QString& path)
{
    if (Disk().Found(path, files::Hidden))
        throw RuntimeError(error::kDatabaseExists, u"The database %1 already exists"_s.arg(path));
    d->OwnerOf(path).Create(path);
    return OpenDatabase(path);
}

void Engine::CopyDatabase(const QString& source, const QString& target)
{
    d->OwnerOf(source).Copy(source, target);
}

QList<User> Engine::Users(const QString& path) const
{
    return d->OwnerOf(path).Users(path);
}

Waits& Engine::Waiting()
{
    return *d->waits;
}

void Engine::SetLockWait(int milliseconds)
{
    CallWait wait = d->waits->Now();
    wait.deadline = std::chrono::milliseconds(milliseconds);
    d->waits->Set(std::move(wait));
}

} // namespace vasclip::engine

#include "platform/engine/genuine_file.h"

#include "platform/engine/errors.h"
#include "platform/engine/jet/being_made.h"
#include "platform/engine/jet/jet_database.h"
#include "platform/engine/jet/new_database.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

bool IsGenuine(const Database& database)
{
    return dynamic_cast<const jet::JetDatabase*>(&database) != nullptr;
}

bool IsOfAccess97(const Database& database)
{
    const auto* genuine = dynamic_cast<const jet::JetDatabase*>(&database);
    return genuine != nullptr && genuine->IsJet3();
}

QStringList NotTakenOver(const Database& database)
{
    QStringList things;
    const auto* genuine = dynamic_cast<const jet::JetDatabase*>(&database);
    if (genuine == nullptr)
        return things;
    const jet::Catalogue& held = genuine->Contents();
    for (const QString& query : held.queries)
        things.append(u"the saved query "_s + query);
    for (const jet::Catalogue::Entry& table : held.linked)
        things.append(table.elsewhere.isEmpty()
                          ? u"the linked table "_s + table.name
                          : u"the linked table %1, whose records lie in %2"_s.arg(table.name, table.elsewhere));
    for (const QString& relation : held.relations)
        things.append(u"the relation "_s + relation);
    for (const QString& design : held.designs)
        things.append(u"the "_s + design);
    return things;
}

bool IsGenuineFile(const files::Disk& disk, const QString& path)
{
    constexpr qint64 kMark = 20;
    try {
        QFile file(disk.ToNative(path));
        return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && jet::IsGenuineHeader(file.read(kMark));
    } catch (const RuntimeError&) {
        return false; // a path that no drive has is refused by whoever opens it
    }
}

struct GenuineFile::Private
{
    std::shared_ptr<jet::Making> making;
    std::shared_ptr<jet::NewDatabase> database;
    QString native;
};

GenuineFile::GenuineFile(Engine& engine, const QString& path)
    : d(std::make_unique<Private>())
{
    d->native = engine.Disk().ToNative(path);
    if (jet::BeingMade(d->native))
        throw RuntimeError(error::kDatabaseExists, u"The database %1 is being made already"_s.arg(path));
    d->making = std::make_shared<jet::Making>();
    d->making->path = path;
    d->making->time = &engine.Time();
    d->making->writer = std::make_unique<jet::FileWriter>(d->native, path);
    d->database = std::make_shared<jet::NewDatabase>(d->making);
    jet::SetBeingMade(d->native, d->database);
}

GenuineFile::~GenuineFile()
{
    jet::SetBeingMade(d->native, nullptr);
    d->making->writer.reset();
}

Database& GenuineFile::Content()
{
    return *d->database;
}

QStringList GenuineFile::Finish()
{
    if (!d->making->writer)
        throw RuntimeError(error::kClosed, u"%1 was given up, and nothing was made"_s.arg(d->making->path));
    jet::SetBeingMade(d->native, nullptr);
    d->database->Close();
    return d->making->notes;
}

} // namespace vasclip::engine

#include "platform/engine/jet/back_end.h"

#include "platform/engine/errors.h"
#include "platform/engine/jet/being_made.h"
#include "platform/engine/jet/jet_database.h"
#include "platform/engine/new_file.h"

#include <QFileInfo>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

QString JetBackEnd::NativeOf(const QString& path) const
{
    try {
        const QFileInfo info(m_disk.ToNative(path));
        return info.isFile() ? info.canonicalFilePath() : QString();
    } catch (const RuntimeError&) {
        return {}; // a path that no drive has is refused by whoever opens it
    }
}

std::shared_ptr<Database> JetBackEnd::Made(const QString& path) const
{
    try {
        return BeingMade(m_disk.ToNative(path));
    } catch (const RuntimeError&) {
        return nullptr;
    }
}

bool JetBackEnd::Owns(const QString& path) const
{
    if (Made(path))
        return true;
    const QString native = NativeOf(path);
    if (native.isEmpty() || m_isOpen(native))
        return false;
    constexpr qint64 kMark = 20;
    QFile file(native);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && IsGenuineHeader(file.read(kMark));
}

std::shared_ptr<Database> JetBackEnd::Open(const QString& path, OpenMode mode)
{
    if (auto made = Made(path))
        return made;
    auto opening = std::make_shared<Opening>();
    opening->path = path;
    opening->mode = mode;
    opening->time = m_time;
    opening->file = std::make_shared<PageFile>(NativeOf(path), path);
    const PageFile& file = *opening->file;
    if (file.Size() % file.Shape().pageSize != 0)
        opening->findings->Add({}, {}, {}, u"the file breaks off in the middle of a page"_s);
    try {
        opening->catalogue = ReadCatalogue(opening->file, opening->findings);
    } catch (const Damaged& damage) {
        throw RuntimeError(error::kCorruptDatabase,
                           u"The Access database %1 is damaged: %2. Restore it from a backup"_s.arg(
                               path, damage.Description()));
    }
    return std::make_shared<JetDatabase>(std::move(opening));
}

void JetBackEnd::Create(const QString& path)
{
    throw RuntimeError(error::kDatabaseExists, u"The database %1 already exists"_s.arg(path));
}

void JetBackEnd::Copy(const QString& source, const QString& target)
{
    const QString native = NativeOf(source);
    if (native == NativeOf(target))
        throw RuntimeError(error::kFileAlreadyOpen, u"The database %1 can not be copied onto itself"_s.arg(source));
    QFile from(native);
    if (!from.open(QIODevice::ReadOnly))
        throw RuntimeError(error::kCouldNotOpenFile, u"The file %1 can not be opened. Make sure that you have the "
                                                     "right to read it"_s.arg(source));
    NewFile file(m_disk.ToNative(target), target);
    {
        QFile to(file.Path());
        constexpr qint64 kPiece = 1 << 20;
        bool written = to.open(QIODevice::WriteOnly);
        while (written && !from.atEnd()) {
            const QByteArray piece = from.read(kPiece);
            written = !piece.isEmpty() && to.write(piece) == piece.size();
        }
        if (!written || !to.flush())
            throw RuntimeError(error::kDiskFull, u"The disk that %1 should be copied to is full"_s.arg(target));
    }
    file.Finish();
}

} // namespace vasclip::engine::jet

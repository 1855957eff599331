#include "photos/photo_files.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

bool IsPlainStem(const QString& stem)
{
    return std::none_of(stem.cbegin(), stem.cend(),
                        [](QChar letter) { return u"*?\\/:"_s.contains(letter); });
}

bool DelPict(const forms::Ports& ports, const files::Disk& disk, const QString& path, Quiet quiet,
             QString& prompt)
{
    const common::RoutineScope scope{"DelPict"};
    ports.pump.DoEvents();
    if (common::SplitFilePath(path).name.isEmpty() || !disk.FileExists(path))
        return false;
    if (quiet == Quiet::No) {
        if (prompt.isEmpty())
            prompt = u"Delete "_s + path + u'?';
        if (!ports.prompter.YesNo({}, prompt))
            return false;
    }
    const unsigned attributes = disk.GetAttr(path);
    if (attributes & files::ReadOnly)
        disk.SetAttr(path, attributes & ~static_cast<unsigned>(files::ReadOnly));
    try {
        disk.Kill(path);
    } catch (const RuntimeError&) {
        if (attributes & files::ReadOnly)
            disk.SetAttr(path, attributes);
        throw;
    }
    ports.pump.DoEvents();
    return true;
}

Deletion DelPointed(const forms::Ports& ports, const files::Disk& disk, const PointedFile& pointed,
                    const QString& question, QString& why)
{
    const common::RoutineScope scope{"DelPointed"};
    const auto another = [&] {
        why = WhyAnother(disk, pointed);
        return !why.isEmpty();
    };
    if (!pointed.path.isEmpty() && !pointed.written.isValid())
        why = u"%1 is not there."_s.arg(common::WholeFileName(pointed.path));
    if (!why.isEmpty() || another())
        return Deletion::Another;
    if (!ports.prompter.YesNo(common::WholeFileName(pointed.path), question))
        return Deletion::Declined;
    if (another())
        return Deletion::Another;
    QString prompt;
    if (DelPict(ports, disk, pointed.path, Quiet::Yes, prompt))
        return Deletion::Done;
    why = u"%1 was not deleted."_s.arg(pointed.path);
    return Deletion::Another;
}

QStringList DeletePhotos(const forms::Ports& ports, const files::Disk& disk, const QString& photoDir,
                         const QStringList& stems)
{
    const common::RoutineScope scope{"DeletePhotos"};
    QStringList left;
    for (const QString& listed : stems) {
        const QString stem = text::Trim(listed);
        if (!IsPlainStem(stem))
            continue;
        const QString path = common::CkRSlash(photoDir) + stem + u".jpg"_s;
        try {
            QString prompt;
            (void)DelPict(ports, disk, path, Quiet::Yes, prompt);
        } catch (const RuntimeError&) {
            left.append(path);
        }
    }
    return left;
}

} // namespace vasclip::photos

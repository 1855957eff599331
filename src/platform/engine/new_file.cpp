#include "platform/engine/new_file.h"

#include "platform/engine/errors.h"
#include "platform/engine/process.h"

#include <QFile>
#include <QFileInfo>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

NewFile::NewFile(const QString& target, const QString& shown)
    : m_target(target)
    , m_shown(shown)
    , m_path(u"%1.new%2"_s.arg(target, QString::number(OwnProcess())))
{
    Remove();
    // Made empty at once, so that missing rights have their own error.
    if (!QFileInfo(QFileInfo(m_path).absolutePath()).isDir())
        throw RuntimeError(error::kPathNotFound, u"The directory of %1 is not there"_s.arg(shown));
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        throw RuntimeError(
            error::kPathFileAccess,
            u"The file %1 could not be made. Make sure that you have rights to its directory"_s.arg(shown));
}

NewFile::~NewFile()
{
    Remove();
}

void NewFile::Finish()
{
    if (!FlushFile(m_path) || !RenameOver(m_path, m_target))
        throw RuntimeError(
            error::kPathFileAccess,
            u"The file %1 could not be written. Make sure that you have rights to its directory"_s.arg(
                m_shown));
}

void NewFile::Remove()
{
    QFile::remove(m_path);
    QFile::remove(m_path + u"-journal"_s);
}

} // namespace vasclip::engine

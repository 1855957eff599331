#include "platform/desktop/one_copy.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <string>

#include <windows.h>

using namespace Qt::StringLiterals;

namespace vasclip::desktop {

namespace {

/// One for all the ways in which the home may be spelt. A name can't hold a path, whose backslashes mean something there.
std::wstring NameOf(const QString& home)
{
    const QString canonical = QFileInfo(home).canonicalFilePath();
    const QString place = (canonical.isEmpty() ? QDir::cleanPath(QDir(home).absolutePath()) : canonical).toLower();
    const QByteArray sum = QCryptographicHash::hash(place.toUtf8(), QCryptographicHash::Sha1).toHex();
    return (u"Global\\Vasclip-"_s + QString::fromLatin1(sum)).toStdWString(); // of all who are signed in, not of one desktop
}

} // namespace

void OneCopy::TakeName(const QString& home)
{
    const HANDLE name = CreateMutexW(nullptr, FALSE, NameOf(home).c_str());
    const DWORD found = GetLastError();
    m_nameTaken = name ? found == ERROR_ALREADY_EXISTS : found == ERROR_ACCESS_DENIED; // the latter by another user
    m_name = reinterpret_cast<qintptr>(name);
}

OneCopy::~OneCopy()
{
    if (m_name != 0)
        CloseHandle(reinterpret_cast<HANDLE>(m_name));
}

} // namespace vasclip::desktop

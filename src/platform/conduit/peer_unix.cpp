#include "platform/conduit/peer.h"

#include "platform/text/runtime_error.h"

#include <QFile>

#include <poll.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

namespace {

QString NameOf(uid_t uid)
{
    std::array<char, 4096> room{};
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(uid, &entry, room.data(), room.size(), &found) != 0 || found == nullptr)
        return {};
    return QFile::decodeName(found->pw_name);
}

} // namespace

PeerIdentity PeerOf(qintptr descriptor, SocketEnd)
{
    PeerIdentity peer;
    uid_t uid = 0;
#if defined(SO_PEERCRED)
    ucred credentials{};
    socklen_t length = sizeof credentials;
    const int failed =
        getsockopt(static_cast<int>(descriptor), SOL_SOCKET, SO_PEERCRED, &credentials, &length);
    uid = credentials.uid;
    peer.pid = credentials.pid;
#else
    gid_t gid = 0;
    const int failed = getpeereid(static_cast<int>(descriptor), &uid, &gid);
#endif
    if (failed != 0)
        throw RuntimeError(error::kDeviceIo,
                           u"The system does not say who is at the other end of the link: %1"_s.arg(
                               QString::fromLocal8Bit(std::strerror(errno))));
    peer.userId = QString::number(uid);
    peer.userName = NameOf(uid);
    return peer;
}

bool MayHaveNews(qintptr descriptor)
{
    pollfd look{static_cast<int>(descriptor), POLLIN, 0};
    return poll(&look, 1, 0) != 0;
}

QString CurrentUserId()
{
    return QString::number(geteuid());
}

} // namespace vasclip::conduit

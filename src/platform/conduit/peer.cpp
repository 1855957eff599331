#include "platform/conduit/peer.h"

#include "platform/text/runtime_error.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

QString Describe(const PeerIdentity& peer)
{
    const QString name = peer.userName.isEmpty() ? u"without a name"_s : peer.userName;
    return u"user %1 (uid %2), process %3"_s.arg(name, peer.userId, QString::number(peer.pid));
}

void RequireOwnUser(const PeerReader& reader, qintptr descriptor, SocketEnd end, int number)
{
    const PeerIdentity peer = reader(descriptor, end);
    if (peer.userId == CurrentUserId())
        return;
    const QString which = end == SocketEnd::Client ? u"The program that answers on the link"_s
                                                   : u"The program that opened the link"_s;
    throw RuntimeError(number, u"%1 is not this user's: it belongs to %2"_s.arg(which, Describe(peer)));
}

} // namespace vasclip::conduit

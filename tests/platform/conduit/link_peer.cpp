// A forms program of the smallest kind, in a process of its own: over its standard input and output, or on a
// socket.

#include "memo_handler.h"

#include "platform/conduit/link_server.h"

#include <QCoreApplication>

#include <cstdio>
#include <string>

using namespace Qt::StringLiterals;

namespace {

int ServePipes(vasclip::test::MemoHandler& handler, const QString& manner)
{
    vasclip::conduit::LinkSession session(handler, u"link_peer"_s);
    bool greeted = false;
    for (int c = std::fgetc(stdin); c != EOF; c = std::fgetc(stdin)) {
        const QList<QByteArray> lines = session.Feed(QByteArray(1, static_cast<char>(c)));
        for (const QByteArray& line : lines) {
            if (greeted && manner == u"--silent"_s)
                continue;
            if (greeted && manner == u"--die"_s) {
                std::fwrite(line.constData(), 1, static_cast<size_t>(line.size() / 2), stdout);
                std::fflush(stdout);
                return 3;
            }
            greeted = true;
            std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stdout);
            std::fflush(stdout);
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    vasclip::test::MemoHandler handler;
    if (arguments.value(1) != u"--socket"_s)
        return ServePipes(handler, arguments.value(1));
    vasclip::conduit::LinkServer server(
        handler, {arguments.value(2), u"link_peer"_s, vasclip::conduit::PeerOf, {}, {}, {}, {}});
    try {
        server.Listen();
    } catch (const vasclip::RuntimeError& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
    std::puts("listening");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

#include "app/vasctl/session.h"

#include "link/messages.h"
#include "link/transfer.h"
#include "platform/text/text.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

using GroupTransfer = link::TransferTally (*)(link::LinkDesk&, bool, int, link::What);

struct Group
{
    QLatin1StringView word;
    GroupTransfer transfer;
    int last; ///< slots
};
constexpr Group kGroups[] = {{"comps"_L1, link::TransferComps, 9},
                             {"alternates"_L1, link::TransferAltComps, 6},
                             {"listings"_L1, link::TransferListings, 6},
                             {"rentals"_L1, link::TransferRentals, 9}};

struct Order
{
    std::function<link::TransferTally(link::LinkDesk&, link::What)> run;
    QString wrong; ///< what is wrong with the command line
};

Order Read(const QStringList& arguments)
{
    const QString word = arguments.value(0);
    if (arguments.size() == 1 && word == u"subject"_s)
        return {[](link::LinkDesk& desk, link::What what) { return TransferSubject(desk, what, 0); }, {}};
    if (arguments.size() == 1 && word == u"all"_s)
        return {[](link::LinkDesk& desk, link::What what) { return TransferAllData(desk, what); }, {}};
    for (const Group& group : kGroups) {
        if (word != group.word || arguments.size() > 2)
            continue;
        if (arguments.size() == 1)
            return {[group](link::LinkDesk& desk, link::What what) {
                        return group.transfer(desk, true, 0, what);
                    },
                    {}};
        bool number = false;
        const int slot = arguments[1].toInt(&number);
        if (!number || slot < 1 || slot > group.last)
            return {{}, u"'%1' is no slot; %2 have 1 to %3."_s.arg(arguments[1], word).arg(group.last)};
        return {[group, slot](link::LinkDesk& desk, link::What what) {
                    return group.transfer(desk, false, slot, what);
                },
                {}};
    }
    return {{},
            u"Usage: vasctl transfer subject | comps [N] | alternates [N] | listings [N] | rentals [N] | all "
            u"[--data] [--pictures]"_s};
}

QJsonObject Json(const link::TransferTally& tally)
{
    return {{u"added"_s, tally.added},     {u"replaced"_s, tally.replaced}, {u"kept"_s, tally.kept},
            {u"pictures"_s, tally.pictures}, {u"failed"_s, tally.failed},
            {u"keys"_s, QJsonArray::fromStringList(tally.stored)}, {u"message"_s, tally.Text()}};
}

} // namespace

int RunTransfer(Session& session, const Output& out, const QStringList& arguments,
                const QCommandLineParser& options)
{
    const Order order = Read(arguments);
    if (!order.run) {
        out.Error(order.wrong);
        return kUsage;
    }
    const bool data = options.isSet(u"data"_s);
    const bool pictures = options.isSet(u"pictures"_s);
    const link::What what = data == pictures ? link::What::Both
                            : data           ? link::What::Data
                                             : link::What::Pic;
    if (!session.ReportIsOpen(out, link::messages::kNotRunning))
        return kNoLink;
    auto& program = session.WithReport();
    const link::TransferTally tally = order.run(program.Link(), what);
    if (tally.notRunning)
        return kNoLink; // which has been said
    if (tally.Empty()) {
        out.Error(tally.Text());
        return kNotFound;
    }
    if (tally.Failed()) {
        out.Error(tally.Text());
        return kFailed;
    }
    out.Value(Json(tally), tally.Text());
    const bool nothing = tally.stored.isEmpty() && tally.pictures == 0;
    return nothing && session.Prompter().Declined() ? kDeclined : kDone;
}

} // namespace vasclip::vasctl

#include "link/kel_channel.h"

#include "common/error_block.h"
#include "link/kel_helpers.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;
using conduit::Conduit;

namespace {

const QString kSystem = u"KEL|System"_s;
const QString kQuery = u"KEL|Query"_s;

void CloseQuietly(Conduit& txtDDE)
{
    try {
        if (txtDDE.LinkMode() != 0)
            txtDDE.SetLinkMode(0);
    } catch (const RuntimeError&) {
        // The failure that led here is the one to tell of.
    }
}

/// Runs the steps of one exchange under its name.
template <class Steps>
void Exchange(Conduit& txtDDE, const char* routine, Steps&& steps)
{
    const common::RoutineScope scope{routine};
    try {
        steps();
    } catch (const RuntimeError&) {
        CloseQuietly(txtDDE);
        throw;
    }
}

/// Opens before the item is named.
void OpenThenItem(Conduit& txtDDE, const QString& topic, const QString& item)
{
    txtDDE.SetLinkMode(0);
    txtDDE.SetLinkTopic(topic);
    txtDDE.SetLinkMode(2);
    txtDDE.SetLinkItem(item);
    txtDDE.LinkRequest();
    txtDDE.SetLinkMode(0);
}

/// Names the item before it opens.
void ItemThenOpen(Conduit& txtDDE, const QString& topic, const QString& item)
{
    txtDDE.SetLinkMode(0);
    txtDDE.SetLinkTopic(topic);
    txtDDE.SetLinkItem(item);
    txtDDE.SetLinkMode(2);
    txtDDE.LinkRequest();
    txtDDE.SetLinkMode(0);
}

/// A macro on whatever topic the previous exchange left.
void ExecuteOnSameTopic(Conduit& txtDDE, const QString& command)
{
    txtDDE.SetLinkMode(0);
    txtDDE.SetLinkMode(2);
    txtDDE.LinkExecute(text::Trim(command));
    txtDDE.SetLinkMode(0);
}

/// A topic is only assigned while the conversation is closed; one that is open on it already stays.
void TopicUnlessOpen(Conduit& txtDDE, const QString& topic)
{
    if (txtDDE.LinkMode() == 0 || txtDDE.LinkTopic() != topic)
        txtDDE.SetLinkTopic(topic);
}

} // namespace

void KelQueryActiveReports(Conduit& txtDDE)
{
    try {
        Exchange(txtDDE, "KelQueryActiveReports", [&] { OpenThenItem(txtDDE, kQuery, u"ActiveReports"_s); });
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kLinkNoAnswer)
            throw;
        txtDDE.SetText(QString());
    }
}

void KelOpenReport(Conduit& txtDDE, const QString& report)
{
    Exchange(txtDDE, "KelOpenReport", [&] { ItemThenOpen(txtDDE, u"Kel|"_s + report, u"UserID"_s); });
}

void KelListForms(Conduit& txtDDE, const QString& report)
{
    Exchange(txtDDE, "KelListForms", [&] { ItemThenOpen(txtDDE, u"KEL|"_s + report, u"ListForms"_s); });
}

QString KelGetFieldInfo(Conduit& txtDDE, const QString& report, const QString& item)
{
    if (text::Trim(item).isEmpty() || item.startsWith(u'|'))
        return {};
    Exchange(txtDDE, "KelGetFieldInfo", [&] { ItemThenOpen(txtDDE, u"KEL|"_s + report, item); });
    return txtDDE.Text();
}

QString KelRequestGlobalVar2(Conduit& txtDDE, const QString& name)
{
    Exchange(txtDDE, "KelRequestGlobalVar2", [&] { OpenThenItem(txtDDE, kSystem, name); });
    return {};
}

QString KelRequestVar(Conduit& txtDDE, const LinkState& state, const QString& name)
{
    txtDDE.SetText(u"NULL"_s);
    KelRequestGlobalVar2(txtDDE, name);
    LoopWhileNull(txtDDE, state.retryLimit);
    return txtDDE.Text();
}

void KelQueryGetImages(Conduit& txtDDE)
{
    Exchange(txtDDE, "KelQueryGetImages", [&] {
        txtDDE.SetLinkMode(0);
        txtDDE.SetLinkTopic(kSystem);
        txtDDE.SetLinkMode(2);
        txtDDE.LinkExecute(u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s);
        txtDDE.SetLinkItem(u"IMAGES"_s);
        txtDDE.LinkRequest();
        txtDDE.SetLinkMode(0);
    });
}

void KelSendScript(Conduit& txtDDE, const QString& name)
{
    Exchange(txtDDE, "KelSendScript", [&] {
        txtDDE.SetLinkMode(0);
        txtDDE.SetLinkTopic(kSystem);
        txtDDE.SetLinkMode(2);
        txtDDE.LinkExecute(text::Trim(u"[RunMacro("_s + text::Trim(name) + u")]\r"_s));
        txtDDE.SetLinkMode(0);
    });
}

void KelSendPhoto2Object(Conduit& txtDDE, const QString& object, const QString& path)
{
    Exchange(txtDDE, "KelSendPhoto2Object", [&] {
        ExecuteOnSameTopic(txtDDE, u"[RunMacro( SetImage \""_s + object + u"\", \""_s +
                                       KelDoubleBackslash(path) + u"\" ) ]\r"_s);
    });
}

void ErrClearComp(Conduit& txtDDE, int target, int source)
{
    // On the wire 1 is the subject, so a comp's number is one more.
    Exchange(txtDDE, "ErrClearComp", [&] {
        ExecuteOnSameTopic(txtDDE,
                           u"[RunMacro( SetRequest \"LASTCOMPTYPE\",\"SALES COMPARABLES\"\r\nSWAPCOMPS "_s +
                               text::Dec(source + 1) + u',' + text::Dec(target + 1) + u"\r\n)]\r"_s);
    });
}

void KelPokeText(Conduit& txtDDE, const QString& topic, const QString& item, const QString& text)
{
    Exchange(txtDDE, "KelPokeText", [&] {
        txtDDE.SetLinkMode(0);
        txtDDE.SetLinkTopic(topic);
        txtDDE.SetLinkMode(2);
        txtDDE.SetLinkItem(item);
        txtDDE.SetText(text::Trim(text));
        txtDDE.LinkPoke();
    });
}

void LoopWhileNull(Conduit& txtDDE, qint16 retryLimit)
{
    float count = 0;
    while (txtDDE.Text() == "NULL"_L1) {
        count += 1;
        if (count > static_cast<float>(retryLimit)) {
            txtDDE.SetText(QString());
            return;
        }
    }
}

bool KelIsActive(Conduit& txtDDE, LinkState& state)
{
    state.linkActive = state.populateGate = false;
    txtDDE.SetText(QString());
    KelQueryActiveReports(txtDDE);
    const QString reports = text::Trim(txtDDE.Text());
    state.linkActive = state.populateGate =
        !reports.isEmpty() && reports.compare("none"_L1, Qt::CaseInsensitive) != 0;
    return state.linkActive;
}

void KelReconnect(Conduit& txtDDE)
{
    if (txtDDE.LinkMode() != 0)
        return;
    KelQueryActiveReports(txtDDE);
    const QString report = KelFirstToken(txtDDE.Text());
    try {
        KelOpenReport(txtDDE, report);
        KelListForms(txtDDE, report);
    } catch (const RuntimeError& failure) {
        // Nobody there, or no report of that blank name: not a failure, only nothing to reopen.
        const bool refusedBlank = report.isEmpty() && failure.Number() == error::kLinkBusy;
        if (failure.Number() != error::kLinkNoAnswer && !refusedBlank)
            throw;
        txtDDE.SetText(QString());
    }
}

QString Request(Conduit& txtDDE, const QString& item)
{
    Exchange(txtDDE, "Request", [&] {
        txtDDE.SetText(QString());
        TopicUnlessOpen(txtDDE, kQuery);
        txtDDE.SetLinkItem(item);
        txtDDE.SetLinkMode(2);
        txtDDE.LinkRequest();
    });
    return txtDDE.Text();
}

void Execute(Conduit& txtDDE, const QString& command)
{
    Exchange(txtDDE, "Execute", [&] {
        txtDDE.SetText(QString());
        TopicUnlessOpen(txtDDE, kQuery);
        txtDDE.SetLinkMode(2);
        txtDDE.LinkExecute(text::Trim(command));
    });
}

QString CompForm(Conduit& txtDDE, const QString& programDir, const QString& compType)
{
    const common::RoutineScope scope{"CompForm"};
    Execute(txtDDE, u"[RUNMACRO(SetRequest \"LastCompType\", \"Sales Comparables\")]"_s);
    const QString path = DoubleSlash(programDir + u"test.rpt"_s);
    Execute(txtDDE, u"[RUNMACRO(InitEnvironment \""_s + path + u"\"\nSetRequest \"RQ_CompForm\", CompT$("_s +
                        compType + u"))]"_s);
    return Request(txtDDE, u"RQ_CompForm"_s);
}

} // namespace vasclip::link

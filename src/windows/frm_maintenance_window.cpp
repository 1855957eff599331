#include "upkeep/maintenance_messages.h"
#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kGaugeMargin = 24;
constexpr int kTitleMargin = 22; // on both sides together, as the theme has it

/// Buttons that repair the same kind of field, under its name.
QGroupBox* Group(QDialog& window, const QString& title, const QStringList& buttons)
{
    auto* group = new QGroupBox(title, &window);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(8);
    column->setContentsMargins(9, 4, 9, 9);
    group->ensurePolished();
    group->setMinimumWidth(group->fontMetrics().horizontalAdvance(title) + kTitleMargin);
    for (const QString& name : buttons)
        column->addWidget(MakeButton(window, name));
    column->addStretch(1);
    return group;
}

} // namespace

void Layout_frm_Maintenance(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* repairs = new QVBoxLayout;
    repairs->setSpacing(12);
    repairs->addWidget(Group(window, QDialog::tr("Databook - Computation / Date Fields"),
                             {u"cmdRecalc"_s, u"cmdLandSize"_s, u"cmdDeleteByDate"_s, u"cmddelloaddate"_s}));
    repairs->addWidget(Group(window, QDialog::tr("Databook - Address / Central Key"),
                             {u"cmdCorrectAddress_0"_s, u"cmdCorrectAddress_1"_s, u"cmdCorrectAddress_2"_s,
                              u"cmdRemoveIllegal"_s}));
    repairs->addWidget(
        Group(window, QDialog::tr("Databook - Mapping Fields"), {u"cmdclearAnchors"_s, u"cmdClear"_s}));
    repairs->addWidget(Group(window, QDialog::tr("User Comments Database"), {u"cmdRemoveIllegal2"_s}));
    repairs->addStretch(1);

    auto* account = new QVBoxLayout;
    account->setSpacing(8);
    auto* list = MakeList(window, u"lstaccount"_s, QDialog::tr("What was changed"));
    list->setMinimumSize(420, 200);
    list->setUniformItemSizes(true);
    account->addWidget(MakeWords(window, QDialog::tr("What &was changed"), "title", list));
    auto* heading = MakeLabel(window, u"lblAccount"_s, "quiet");
    heading->setWordWrap(true);
    account->addWidget(heading);
    account->addWidget(list, 1);
    account->addLayout(MakeButtonRow(window, {u"cmdSave"_s}));

    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(repairs);
    panes->addLayout(account, 1);
    rows->addLayout(panes, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    // It has room for the longest of its texts; there is no message while it works.
    auto* gauge = MakeGauge(window, u"gauWork"_s);
    gauge->ensurePolished();
    gauge->setMinimumWidth(gauge->fontMetrics().horizontalAdvance(upkeep::maintenance::kGaugeRecalc) + kGaugeMargin);
    foot->addWidget(gauge);
    foot->addWidget(MakeButton(window, u"cmdStop"_s));
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(1080, 620);
}

} // namespace vasclip::windows

#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The record on show, its boxes, and the steps to its neighbours.
QLayout* RecordColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeLabel(window, u"lblCentralKey"_s, "title"), 1);
    head->addWidget(MakeLabel(window, u"lblRecord"_s, "quiet"));
    column->addLayout(head);

    auto* fields = MakeFields();
    AddField(*fields, QDialog::tr("Neighbor&hood"), u"txtneighborhood"_s, window);
    AddField(*fields, QDialog::tr("C&ity"), u"txtCity"_s, window);
    AddField(*fields, QDialog::tr("&State"), u"txtState"_s, window);
    AddField(*fields, QDialog::tr("&ZIP"), u"txtZip"_s, window);
    AddField(*fields, QDialog::tr("Co&unty"), u"txtCounty"_s, window);
    column->addLayout(fields);

    auto* blank = new QCheckBox(&window);
    blank->setObjectName(u"ckbBlank"_s);
    column->addWidget(blank);
    auto* steps = new QHBoxLayout;
    steps->setSpacing(8);
    for (const QString& name : {u"cmdprev"_s, u"cmdnext"_s, u"cmdOk"_s})
        steps->addWidget(MakeButton(window, name));
    steps->addStretch(1);
    auto* all = MakeButton(window, u"cmdCopyCity"_s);
    all->setProperty("primary", true);
    steps->addWidget(all);
    column->addLayout(steps);
    return column;
}

} // namespace

void Layout_frm_MassCity(QDialog& window, forms::Screen&)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(24);
    columns->addLayout(RecordColumn(window), 3);
    columns->addLayout(MakeLocations(window), 2);
    rows->addLayout(columns, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.setMinimumWidth(860);
}

} // namespace vasclip::windows

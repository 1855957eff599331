#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QLayout* RecordColumn(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeLabel(window, u"lblCentralKey"_s, "title"), 1);
    head->addWidget(MakeLabel(window, u"lblPending"_s, "quiet"));
    column->addLayout(head);

    auto* fields = MakeFields();
    AddField(*fields, QDialog::tr("Add&ress"), u"txtAddress"_s, window);
    AddField(*fields, QDialog::tr("C&ity"), u"txtCity"_s, window);
    AddField(*fields, QDialog::tr("&State"), u"txtState"_s, window);
    AddField(*fields, QDialog::tr("&ZIP"), u"txtZip"_s, window);
    AddField(*fields, QDialog::tr("Co&unty"), u"txtCounty"_s, window);
    AddField(*fields, QDialog::tr("Neighbor&hood"), u"txtNeighborhd"_s, window);
    AddField(*fields, QDialog::tr("Sale date on re&port"), u"txtSaleFld"_s, window);
    AddField(*fields, QDialog::tr("Sale &date"), u"txtSaleDate"_s, window);
    column->addLayout(fields);

    auto* heading = new QLabel(QDialog::tr("When the report does not tell a comp's city"), &window);
    heading->setProperty("role", u"quiet"_s);
    column->addSpacing(8);
    column->addWidget(heading);
    auto* inherit = new QWidget(&window); // of its own, so that one of the three is chosen
    auto* choices = new QVBoxLayout(inherit);
    choices->setContentsMargins(0, 0, 0, 0);
    choices->setSpacing(4);
    for (int i = 0; i < 3; ++i) {
        auto* option = new QRadioButton(inherit);
        option->setObjectName(u"optUseSubjCSZ_%1"_s.arg(i));
        choices->addWidget(option);
    }
    column->addWidget(inherit);
    column->addStretch(1);
    return column;
}

} // namespace

void Layout_frm_AttachCity(QDialog& window, forms::Screen&)
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
    auto* ok = MakeButton(window, u"cmdOk"_s);
    ok->setProperty("primary", true);
    ok->setDefault(true);
    foot->addWidget(ok);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.setMinimumWidth(860);
    window.findChild<QLineEdit*>(u"txtCity"_s)->setFocus();
}

} // namespace vasclip::windows

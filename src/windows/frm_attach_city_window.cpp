#include "windows/city_layout.h"
#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What a comp inherits from the subject.
void AddChoices(QDialog& window, QVBoxLayout& column)
{
    auto* heading = new QLabel(QDialog::tr("When the report does not tell a comp's city"), &window);
    heading->setProperty("role", u"quiet"_s);
    column.addSpacing(8);
    column.addWidget(heading);
    auto* inherit = new QWidget(&window); // of its own, so that one of the three is chosen
    auto* choices = new QVBoxLayout(inherit);
    choices->setContentsMargins(0, 0, 0, 0);
    choices->setSpacing(4);
    for (int i = 0; i < 3; ++i)
        choices->addWidget(MakeOption(*inherit, u"optUseSubjCSZ_%1"_s.arg(i)));
    column.addWidget(inherit);
    column.addStretch(1);
}

} // namespace

void Layout_frm_AttachCity(QDialog& window, forms::Screen&)
{
    LayoutCityScreen(window, {.mark = u"lblPending"_s,
                              .fields = {{QDialog::tr("Add&ress"), u"txtAddress"_s},
                                         {QDialog::tr("C&ity"), u"txtCity"_s},
                                         {QDialog::tr("&State"), u"txtState"_s},
                                         {QDialog::tr("&ZIP"), u"txtZip"_s},
                                         {QDialog::tr("Co&unty"), u"txtCounty"_s},
                                         {QDialog::tr("Neighbor&hood"), u"txtNeighborhd"_s},
                                         {QDialog::tr("Sale date on re&port"), u"txtSaleFld"_s},
                                         {QDialog::tr("Sale &date"), u"txtSaleDate"_s}},
                              .under = [&window](QVBoxLayout& column) { AddChoices(window, column); },
                              .buttons = {u"cmdOk"_s, u"cmdCancel"_s}});
    auto* ok = window.findChild<QPushButton*>(u"cmdOk"_s);
    ok->setProperty("primary", true);
    ok->setDefault(true);
    window.findChild<QLineEdit*>(u"txtCity"_s)->setFocus();
}

} // namespace vasclip::windows

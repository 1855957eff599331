#include "windows/city_layout.h"
#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Which records are shown, and the steps to the neighbours of the one on show.
void AddSteps(QDialog& window, QVBoxLayout& column)
{
    column.addWidget(MakeCheck(window, u"ckbBlank"_s));
    auto* steps = new QHBoxLayout;
    steps->setSpacing(8);
    for (const QString& name : {u"cmdprev"_s, u"cmdnext"_s, u"cmdOk"_s})
        steps->addWidget(MakeButton(window, name));
    steps->addStretch(1);
    auto* all = MakeButton(window, u"cmdCopyCity"_s);
    all->setProperty("primary", true);
    steps->addWidget(all);
    column.addLayout(steps);
}

} // namespace

void Layout_frm_MassCity(QDialog& window, forms::Screen&)
{
    LayoutCityScreen(window, {.mark = u"lblRecord"_s,
                              .fields = {{QDialog::tr("Neighbor&hood"), u"txtneighborhood"_s},
                                         {QDialog::tr("C&ity"), u"txtCity"_s},
                                         {QDialog::tr("&State"), u"txtState"_s},
                                         {QDialog::tr("&ZIP"), u"txtZip"_s},
                                         {QDialog::tr("Co&unty"), u"txtCounty"_s}},
                              .under = [&window](QVBoxLayout& column) { AddSteps(window, column); },
                              .buttons = {u"cmdCancel"_s}});
}

} // namespace vasclip::windows

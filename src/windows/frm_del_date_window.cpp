#include "windows/icons.h"
#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

void Layout_frm_DelDate(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* words = MakeLabel(window, u"lblDate"_s);
    words->setWordWrap(true);
    rows->addWidget(words);
    auto* box = new QLineEdit(&window);
    box->setObjectName(u"txtDate"_s);
    box->setPlaceholderText(QDialog::tr("mm/dd/yyyy"));
    auto* date = new QHBoxLayout;
    date->setSpacing(8);
    date->addWidget(MakeWords(window, QDialog::tr("&Date"), "title", box));
    date->addWidget(box, 1);
    auto* calendar = MakeIconButton(window, u"imaDate"_s, u"calendar"_s);
    calendar->setFocusPolicy(Qt::TabFocus);
    calendar->setAccessibleName(QDialog::tr("Calendar"));
    date->addWidget(calendar);
    rows->addLayout(date);
    rows->addStretch(1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addWidget(MakeLabel(window, u"lblmsg"_s), 1);
    auto* ok = MakeButton(window, u"cmdOK"_s);
    ok->setProperty("primary", true);
    ok->setDefault(true);
    foot->addWidget(ok);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    window.resize(420, 170);
}

} // namespace vasclip::windows

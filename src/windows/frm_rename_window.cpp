#include "windows/screen_layouts.h"

#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

void Layout_frm_Rename(QDialog& window, forms::Screen&)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);

    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(16);
    fields->setVerticalSpacing(12);
    fields->setColumnStretch(1, 1);
    auto* current = new QLabel(&window);
    current->setObjectName(u"lblCentral"_s);
    current->setTextFormat(Qt::PlainText);
    current->setProperty("role", u"title"_s);
    fields->addWidget(new QLabel(QDialog::tr("Current Comp Address"), &window), 0, 0);
    fields->addWidget(current, 0, 1);
    auto* fresh = new QComboBox(&window);
    fresh->setObjectName(u"cboNewName"_s);
    fresh->setEditable(true);
    fresh->lineEdit()->setPlaceholderText(QDialog::tr("Address of a comp"));
    fresh->setMinimumContentsLength(36);
    auto* caption = new QLabel(QDialog::tr("Ne&w Comp Address"), &window);
    caption->setBuddy(fresh);
    fields->addWidget(caption, 1, 0);
    fields->addWidget(fresh, 1, 1);
    rows->addLayout(fields);

    auto* message = new QLabel(&window);
    message->setObjectName(u"lblmsg"_s);
    message->setWordWrap(true);
    message->setMinimumHeight(2 * message->fontMetrics().height());
    message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    rows->addWidget(message);
    rows->addStretch(1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addStretch(1);
    auto* action = new QPushButton(&window);
    action->setObjectName(u"cmdRename"_s);
    action->setProperty("primary", true);
    action->setDefault(true);
    auto* cancel = new QPushButton(&window);
    cancel->setObjectName(u"cmdCancel"_s);
    cancel->setAutoDefault(false);
    foot->addWidget(action);
    foot->addWidget(cancel);
    rows->addLayout(foot);
    window.setMinimumWidth(520);
    fresh->setFocus();
    fresh->lineEdit()->selectAll();
}

} // namespace vasclip::windows

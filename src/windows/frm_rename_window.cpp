#include "windows/screen_layouts.h"

#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
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

    auto* fields = new QFormLayout;
    fields->setHorizontalSpacing(16);
    fields->setVerticalSpacing(12);
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto* current = new QLabel(&window);
    current->setObjectName(u"lblCentral"_s);
    current->setTextFormat(Qt::PlainText);
    current->setProperty("role", u"title"_s);
    fields->addRow(QDialog::tr("Current Comp Address"), current);
    auto* fresh = new QComboBox(&window);
    fresh->setObjectName(u"cboNewName"_s);
    fresh->setEditable(true);
    fresh->lineEdit()->setPlaceholderText(QDialog::tr("Address of a comp"));
    fresh->setMinimumContentsLength(36);
    auto* caption = new QLabel(QDialog::tr("Ne&w Comp Address"), &window);
    caption->setBuddy(fresh);
    fields->addRow(caption, fresh);
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

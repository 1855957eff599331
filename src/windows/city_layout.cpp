#include "windows/city_layout.h"

#include "windows/layout_parts.h"

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

QLayout* RecordColumn(QDialog& window, const CityLayout& layout)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeLabel(window, u"lblCentralKey"_s, "title"), 1);
    head->addWidget(MakeLabel(window, layout.mark, "quiet"));
    column->addLayout(head);
    auto* fields = MakeFields();
    for (const auto& [words, name] : layout.fields)
        AddField(*fields, words, name, window);
    column->addLayout(fields);
    layout.under(*column);
    return column;
}

} // namespace

void LayoutCityScreen(QDialog& window, const CityLayout& layout)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(24);
    columns->addLayout(RecordColumn(window, layout), 3);
    columns->addLayout(MakeLocations(window), 2);
    rows->addLayout(columns, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    for (const QString& name : layout.buttons)
        foot->addWidget(MakeButton(window, name));
    rows->addLayout(foot);
    window.setMinimumWidth(860);
}

} // namespace vasclip::windows

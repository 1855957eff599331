#include "windows/work_parts.h"

#include "windows/layout_parts.h"
#include "windows/record_grid.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kGaugeWidth = 280; ///< of words such as "Correcting address."

} // namespace

QVBoxLayout* MakeFilesColumn(QDialog& window, const QString& heading)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* files = MakeList(window, u"filexport"_s, QDialog::tr("Databases"));
    files->setMinimumSize(300, 90);
    column->addWidget(MakeWords(window, heading, "title", files));
    column->addWidget(files, 3);
    auto* tables = MakeList(window, u"lstTables"_s, QDialog::tr("Tables"));
    tables->setMinimumHeight(70);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeWords(window, QDialog::tr("Table&s"), "title", tables), 1);
    head->addWidget(MakeLabel(window, u"lblRecordCount"_s, "quiet"));
    column->addLayout(head);
    column->addWidget(tables, 2);
    column->addLayout(MakeButtonRow(window, {u"cmdDelete"_s, u"cmdDeleteDatabase"_s}));
    return column;
}

RecordGrid* MakeGrid(QDialog& window, const QString& name, const QString& accessibleName)
{
    auto* grid = new RecordGrid(&window);
    grid->setObjectName(name);
    grid->setAccessibleName(accessibleName);
    grid->FixColumns();
    grid->setMinimumHeight(110);
    return grid;
}

void AddAccount(QVBoxLayout& rows, QDialog& window, const QString& accessibleName, int stretch)
{
    auto* account = MakeList(window, u"lstaccount"_s, accessibleName);
    account->setMinimumHeight(80);
    auto* heading = MakeLabel(window, u"lblAccount"_s, "title");
    heading->setBuddy(account);
    rows.addWidget(heading);
    rows.addWidget(account, stretch);
}

void AddWorkFoot(QVBoxLayout& rows, QDialog& window, const QStringList& buttons, const QString& primary)
{
    auto* foot = MakeFoot(window);
    auto* gauge = MakeGauge(window, u"gauWork"_s);
    gauge->setMinimumWidth(kGaugeWidth);
    foot->addWidget(gauge);
    for (const QString& name : buttons) {
        auto* button = MakeButton(window, name);
        if (name == primary)
            button->setProperty("primary", true);
        foot->addWidget(button);
    }
    rows.addLayout(foot);
}

} // namespace vasclip::windows

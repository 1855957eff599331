#include "windows/fkey_bar.h"

#include "windows/screen_layouts.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kKeys = 6;
constexpr int kColumns = 3;

} // namespace

QWidget* MakeFKeyBar(QWidget* parent)
{
    auto* bar = new QWidget(parent);
    auto* grid = new QGridLayout(bar);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    for (int i = 0; i < kKeys; ++i) {
        const QString key = u"F%1"_s.arg(i + 3);
        auto* name = new QLabel(key, bar);
        name->setProperty("role", u"quiet"_s);
        auto* button = new QPushButton(bar);
        button->setObjectName(u"cmdComment_%1"_s.arg(i));
        button->setAccessibleName(QDialog::tr("Phrase of %1").arg(key));
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::NoFocus);
        button->setMinimumWidth(120);
        grid->addWidget(name, i / kColumns, i % kColumns * 2);
        grid->addWidget(button, i / kColumns, i % kColumns * 2 + 1);
    }
    for (int column = 0; column < kColumns; ++column)
        grid->setColumnStretch(column * 2 + 1, 1);
    return bar;
}

void Layout_frm_FKey(QDialog& window, forms::Screen&)
{
    auto* rows = new QGridLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->addWidget(MakeFKeyBar(&window), 0, 0);
}

} // namespace vasclip::windows

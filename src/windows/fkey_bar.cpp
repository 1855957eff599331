#include "windows/fkey_bar.h"

#include "windows/screen_layouts.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kKeys = 6;

/// With the mouse what Ctrl+Alt and the key do in the field.
void KeepOn(int index, QWidget* field)
{
    if (field == nullptr)
        return;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F3 + index, Qt::ControlModifier | Qt::AltModifier);
    QApplication::sendEvent(field, &press);
}

} // namespace

QWidget* MakeFKeyBar(QWidget* parent)
{
    auto* bar = new QWidget(parent);
    auto* grid = new QGridLayout(bar);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    for (int i = 0; i < kKeys; ++i) {
        const QString key = u"F%1"_s.arg(i + 3);
        auto* name = new QLabel(key, bar);
        name->setProperty("role", u"quiet"_s);
        auto* button = new QPushButton(bar);
        button->setObjectName(u"cmdComment_%1"_s.arg(i));
        button->setAccessibleDescription(QDialog::tr("Phrase of %1").arg(key));
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::NoFocus);
        button->setMinimumWidth(96);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // a long phrase does not widen the window
        auto* keep = new QAction(QDialog::tr("&Keep the field's text on %1").arg(key), button);
        QObject::connect(keep, &QAction::triggered, bar, [bar, i] { KeepOn(i, bar->window()->focusWidget()); });
        button->addAction(keep);
        button->setContextMenuPolicy(Qt::ActionsContextMenu);
        grid->addWidget(name, 0, i * 2);
        grid->addWidget(button, 0, i * 2 + 1);
        grid->setColumnStretch(i * 2 + 1, 1);
    }
    auto* hint = new QLabel(QDialog::tr("A key fills its phrase into the field. To set a key, type the phrase in the "
                                        "field and press Ctrl+Shift with the key, as Ctrl+Shift+F3; Ctrl+Alt+F3 does "
                                        "the same where the desktop leaves it to programs. F2 shows all phrases of "
                                        "the field."),
                            bar);
    hint->setObjectName(u"fkeyHint"_s);
    hint->setProperty("role", u"quiet"_s);
    hint->setWordWrap(true);
    grid->addWidget(hint, 1, 0, 1, kKeys * 2);
    return bar;
}

void Layout_frm_FKey(QDialog& window, forms::Screen&)
{
    auto* rows = new QGridLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->addWidget(MakeFKeyBar(&window), 0, 0);
}

} // namespace vasclip::windows

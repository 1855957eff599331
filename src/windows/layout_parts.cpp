#include "windows/layout_parts.h"

#include "windows/icons.h"
#include "windows/picture_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFont>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kFrameAcross = 8; ///< what a desktop puts around a window
constexpr int kFrameDown = 36;

} // namespace

void PolishAll(const QWidget& window)
{
    window.ensurePolished();
    for (const QWidget* widget : window.findChildren<QWidget*>())
        widget->ensurePolished();
}

QSize RoomFor(const QWidget& window)
{
    const QScreen* screen = window.screen();
    const bool told = !screen->name().isEmpty(); // of a screen to play that it is there
    if (QGuiApplication::platformName() == QLatin1StringView("offscreen") && !told)
        return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    return screen->availableSize() - (window.isMaximized() ? QSize(0, 0) : QSize(kFrameAcross, kFrameDown));
}

QPushButton* MakeButton(QDialog& window, const QString& name)
{
    auto* button = new QPushButton(&window);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QCheckBox* MakeCheck(QWidget& parent, const QString& name)
{
    auto* box = new QCheckBox(&parent);
    box->setObjectName(name);
    return box;
}

QRadioButton* MakeOption(QWidget& parent, const QString& name)
{
    auto* option = new QRadioButton(&parent);
    option->setObjectName(name);
    return option;
}

QHBoxLayout* MakeButtonRow(QDialog& window, const QStringList& names)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    for (const QString& name : names)
        row->addWidget(MakeButton(window, name));
    row->addStretch(1);
    return row;
}

QToolButton* MakeIconButton(QDialog& window, const QString& name, const QString& icon)
{
    auto* button = new QToolButton(&window);
    button->setObjectName(name);
    button->setIcon(ThemedIcon(icon));
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QLabel* MakeLabel(QWidget& window, const QString& name, const char* role)
{
    auto* label = new QLabel(&window);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("role", QString::fromLatin1(role));
    return label;
}

QLabel* MakeWords(QDialog& window, const QString& text, const char* role, QWidget* buddy)
{
    auto* label = new QLabel(text, &window);
    label->setProperty("role", QString::fromLatin1(role));
    if (buddy != nullptr)
        label->setBuddy(buddy);
    return label;
}

QHBoxLayout* MakeNote(QWidget& parent, const QString& box)
{
    auto* words = MakeLabel(parent, u"lbl"_s + box.mid(3) + u"Note"_s);
    words->setWordWrap(true);
    auto* back = new QToolButton(&parent);
    back->setObjectName(u"cmd"_s + box.mid(3) + u"Back"_s);
    QFont underlined = back->font();
    underlined.setUnderline(true);
    back->setFont(underlined);
    back->setFocusPolicy(Qt::NoFocus); // Ctrl+Z in the box does the same
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(words, 1);
    row->addWidget(back, 0, Qt::AlignTop);
    return row;
}

QListView* MakeList(QDialog& window, const QString& name, const QString& accessibleName)
{
    auto* list = new QListView(&window);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    return list;
}

PictureView* MakePicture(QDialog& window, const QString& name, const QString& emptyText)
{
    auto* view = new PictureView(&window);
    view->setObjectName(name);
    view->SetEmptyText(emptyText);
    view->SetEmptyIcon(u"photo"_s);
    view->setFocusPolicy(Qt::NoFocus);
    view->setMinimumSize(240, 180);
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    return view;
}

QProgressBar* MakeGauge(QDialog& window, const QString& name)
{
    auto* bar = new QProgressBar(&window);
    bar->setObjectName(name);
    bar->setProperty("hideWhenIdle", true);
    bar->setMinimumWidth(220);
    return bar;
}

QVBoxLayout* MakeFolders(QDialog& window, const QString& driveName, const QString& directoryName)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* drive = new QComboBox(&window);
    drive->setObjectName(driveName);
    auto* list = MakeList(window, directoryName, QDialog::tr("Directories"));
    list->setMinimumWidth(200);
    column->addWidget(MakeWords(window, QDialog::tr("Dri&ve"), "quiet", drive));
    column->addWidget(drive);
    column->addWidget(MakeWords(window, QDialog::tr("Direc&tory"), "quiet", list));
    column->addWidget(list, 1);
    return column;
}

QVBoxLayout* MakeRows(QDialog& window)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);
    return rows;
}

QHBoxLayout* MakeFoot(QDialog& window)
{
    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    return foot;
}

QGridLayout* MakeFields()
{
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(8);
    fields->setColumnStretch(1, 1);
    return fields;
}

void AddField(QGridLayout& fields, const QString& caption, const QString& name, QWidget& parent)
{
    auto* label = new QLabel(caption, &parent);
    auto* box = new QLineEdit(&parent);
    box->setObjectName(name);
    label->setBuddy(box);
    const int row = fields.rowCount();
    fields.addWidget(label, row, 0);
    fields.addWidget(box, row, 1);
}

QVBoxLayout* MakeLocations(QDialog& window)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    auto* list = new QListView(&window);
    list->setObjectName(u"lstcity"_s);
    list->setAccessibleName(QDialog::tr("Locations"));
    list->setMinimumWidth(280);
    column->addWidget(MakeWords(window, QDialog::tr("&Locations"), "quiet", list));
    column->addWidget(list, 1);
    auto* keep = new QHBoxLayout;
    keep->setSpacing(8);
    keep->addWidget(MakeButton(window, u"cmdAdd"_s));
    keep->addWidget(MakeButton(window, u"cmdDelete"_s));
    column->addLayout(keep);
    return column;
}

} // namespace vasclip::windows

#include "windows/binder.h"

#include "windows/announce.h"
#include "windows/guard.h"
#include "windows/icons.h"
#include "windows/picture_view.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QTextCursor>
#include <QToolButton>

#include <algorithm>

// Text boxes, labels, buttons, check boxes, pictures and gauges.

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kNoLimit = 32767;

QString ToneOf(forms::Colour colour)
{
    switch (colour) {
    case forms::Colour::Blue:
        return u"blue"_s;
    case forms::Colour::Red:
        return u"red"_s;
    case forms::Colour::Green:
        return u"green"_s;
    case forms::Colour::Normal:
        break;
    }
    return u"normal"_s;
}

/// The caption as a tip: without the mark of the access key.
QString WithoutMark(QString caption)
{
    caption.replace(QLatin1StringView("&&"), QLatin1StringView("\1"));
    caption.remove(QLatin1Char('&'));
    return caption.replace(QLatin1Char('\1'), QLatin1Char('&'));
}

} // namespace

bool Binder::BindText(forms::TextBox& control, QWidget& widget)
{
    if (auto* edit = qobject_cast<QLineEdit*>(&widget)) {
        const auto show = [&control, edit] {
            // Setting it forgets what could be undone, even where it stays the same.
            if (const int most = control.MaxLength() > 0 ? control.MaxLength() : kNoLimit; edit->maxLength() != most)
                edit->setMaxLength(most);
            edit->setReadOnly(control.Locked());
            if (edit->text() != control.Text()) {
                const int cursor = edit->cursorPosition();
                edit->setText(control.Text());
                edit->setCursorPosition(edit->hasFocus() ? cursor : 0);
            }
        };
        connect(&control, &forms::Control::Changed, edit, show);
        connect(&control, &forms::TextBox::SelectAllWanted, edit, &QLineEdit::selectAll);
        connect(edit, &QLineEdit::textEdited, &control, [this, &control, edit, show](const QString& text) {
            const int cursor = edit->cursorPosition();
            m_guard.Run([&] { control.SetText(text); });
            show(); // a rule may have kept the old text
            if (edit->text() != text)
                edit->setCursorPosition(cursor); // who types stays where they are
        });
        show();
        return true;
    }
    auto* edit = qobject_cast<QPlainTextEdit*>(&widget);
    if (edit == nullptr)
        return false;
    const auto show = [&control, edit] {
        edit->setReadOnly(control.Locked());
        const QString shown = QString(control.Text()).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
        if (edit->toPlainText() == shown)
            return;
        const QSignalBlocker quiet(edit);
        const int at = edit->textCursor().position();
        edit->setPlainText(shown);
        QTextCursor cursor = edit->textCursor();
        cursor.setPosition(static_cast<int>(std::min<qsizetype>(at, shown.size())));
        edit->setTextCursor(cursor);
    };
    connect(&control, &forms::Control::Changed, edit, show);
    connect(&control, &forms::TextBox::SelectAllWanted, edit, &QPlainTextEdit::selectAll);
    connect(edit, &QPlainTextEdit::textChanged, &control, [this, &control, edit, show] {
        m_guard.Run([&] { control.SetText(edit->toPlainText()); });
        show(); // what goes beyond the limit is cut off
    });
    show();
    return true;
}

bool Binder::BindLabel(forms::Label& control, QWidget& widget)
{
    auto* label = qobject_cast<QLabel*>(&widget);
    if (label == nullptr)
        return false;
    label->setTextFormat(Qt::PlainText);
    const bool collapses = label->property("collapses").toBool(); // takes no room while it says nothing
    const bool message = control.Name() == "lblmsg"_L1;
    if (message)
        MakeAnnouncing(*label);
    const auto show = [&control, label, collapses, message] {
        const bool news = message && label->text() != control.Caption();
        label->setText(control.Caption());
        if (news)
            Announce(*label);
        if (collapses)
            label->setMaximumHeight(control.Caption().isEmpty() ? 0 : QWIDGETSIZE_MAX);
        const QString tone = ToneOf(control.Fore());
        const bool yellow = control.Back() == forms::Ground::Yellow;
        if (label->property("tone").toString() == tone && label->property("yellow").toBool() == yellow)
            return;
        label->setProperty("tone", tone);
        label->setProperty("yellow", yellow);
        label->style()->unpolish(label);
        label->style()->polish(label);
    };
    connect(&control, &forms::Control::Changed, label, show);
    show();
    return true;
}

bool Binder::BindButton(forms::Button& control, QWidget& widget)
{
    auto* button = qobject_cast<QAbstractButton*>(&widget);
    if (button == nullptr)
        return false;
    const bool ownTip = !button->toolTip().isEmpty(); // of the layout, which says more than the caption
    const bool plain = button->property("noAccessKey").toBool(); // a menu has that letter
    const auto show = [&control, button, ownTip, plain] {
        const QString caption = plain ? WithoutMark(control.Caption()) : control.Caption();
        if (button->text() != caption)
            button->setText(caption);
        if (control.ToolTipText().isEmpty() && !ownTip)
            button->setToolTip(WithoutMark(control.Caption()));
    };
    connect(&control, &forms::Control::Changed, button, show);
    connect(button, &QAbstractButton::clicked, &control,
            [this, &control] { m_guard.Run([&control] { Q_EMIT control.Clicked(); }); });
    show();
    return true;
}

bool Binder::BindCheck(forms::CheckBox& control, QWidget& widget)
{
    auto* box = qobject_cast<QAbstractButton*>(&widget);
    if (box == nullptr || (qobject_cast<QCheckBox*>(box) == nullptr && !box->isCheckable()))
        return false;
    const auto show = [&control, box] {
        box->setText(control.Caption());
        box->setChecked(control.Value());
    };
    connect(&control, &forms::Control::Changed, box, show);
    connect(box, &QAbstractButton::clicked, &control, [this, &control, show](bool on) {
        m_guard.Run([&] {
            control.SetValue(on);
            Q_EMIT control.Clicked();
        });
        show();
    });
    show();
    return true;
}

bool Binder::BindPicture(forms::PictureBox& control, QWidget& widget)
{
    if (auto* view = qobject_cast<PictureView*>(&widget)) {
        const auto show = [&control, view] {
            if (view->Picture().cacheKey() != control.Picture().cacheKey())
                view->SetPicture(control.Picture());
            view->SetWithout(control.WithoutPicture());
        };
        connect(&control, &forms::Control::Changed, view, show);
        connect(view, &PictureView::Clicked, &control,
                [this, &control] { m_guard.Run([&control] { Q_EMIT control.Clicked(); }); });
        connect(view, &PictureView::DoubleClicked, &control,
                [this, &control] { m_guard.Run([&control] { Q_EMIT control.DoubleClicked(); }); });
        connect(view, &PictureView::Pressed, &control,
                [this, &control] { m_guard.Run([&control] { Q_EMIT control.Pressed(); }); });
        connect(view, &PictureView::Hovered, &control,
                [this, &control] { m_guard.Run([&control] { Q_EMIT control.Hovered(); }); });
        connect(view, &PictureView::DragWanted, &control, [this, &control] { Q_EMIT DragWanted(control); });
        show();
        return true;
    }
    // A picture that is only ever clicked is a button with the picture as its icon; without a picture it
    // keeps the icon of the window.
    auto* button = qobject_cast<QToolButton*>(&widget);
    if (button == nullptr)
        return false;
    const auto show = [&control, button, own = button->icon()] {
        button->setIcon(control.Picture().isNull() ? own : QIcon(QPixmap::fromImage(control.Picture())));
    };
    connect(&control, &forms::Control::Changed, button, show);
    connect(button, &QToolButton::clicked, &control,
            [this, &control] { m_guard.Run([&control] { Q_EMIT control.Clicked(); }); });
    show();
    return true;
}

bool Binder::BindMonth(forms::MonthView& control, QWidget& widget)
{
    auto* calendar = qobject_cast<QCalendarWidget*>(&widget);
    if (calendar == nullptr)
        return false;
    const auto show = [&control, calendar] { calendar->setSelectedDate(control.Value()); };
    connect(&control, &forms::Control::Changed, calendar, show);
    connect(calendar, &QCalendarWidget::selectionChanged, &control,
            [this, &control, calendar] { m_guard.Run([&] { control.SetValue(calendar->selectedDate()); }); });
    connect(calendar, &QCalendarWidget::clicked, &control,
            [this, &control] { m_guard.Run([&control] { Q_EMIT control.DateClick(); }); });
    connect(calendar, &QCalendarWidget::activated, &control,
            [this, &control] { m_guard.Run([&control] { Q_EMIT control.DateDblClick(); }); });
    show();
    return true;
}

bool Binder::BindGauge(forms::Gauge& control, QWidget& widget)
{
    auto* bar = qobject_cast<QProgressBar*>(&widget);
    if (bar == nullptr)
        return false;
    // A bar with this property belongs to the work at hand and goes when no step is named.
    const bool hideWhenIdle = bar->property("hideWhenIdle").toBool();
    const auto show = [&control, bar, hideWhenIdle] {
        bar->setRange(0, control.Max());
        bar->setValue(control.Value());
        bar->setFormat(QString(control.Caption()).replace(QLatin1Char('%'), QLatin1StringView("%%")));
        bar->setTextVisible(!control.Caption().isEmpty());
        const bool shown = control.Visible() && !(hideWhenIdle && control.Caption().isEmpty());
        if (bar->isHidden() == shown)
            bar->setVisible(shown);
    };
    connect(&control, &forms::Control::Changed, bar, show);
    show();
    return true;
}

} // namespace vasclip::windows

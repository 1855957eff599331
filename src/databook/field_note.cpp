#include "databook/field_note.h"

#include "databook/messages.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;
using common::DateSense;

std::optional<DateNote> NoteOn(const QString& typed, DateSense sense, const QString& counts, const QString& means)
{
    switch (sense) {
    case DateSense::Blank:
    case DateSense::Plain:
        return std::nullopt;
    case DateSense::Loose:
        return DateNote{typed, kReadAs.arg(typed, counts)};
    case DateSense::Unreadable:
        return DateNote{typed, kNotADate.arg(typed, counts, means), true};
    case DateSense::TooEarly:
        return DateNote{typed, kTooEarly.arg(typed, counts, means), true};
    case DateSense::Future:
        return DateNote{typed, kInTheFuture.arg(typed, counts, means), true};
    }
    return std::nullopt;
}

FieldNote::FieldNote(forms::ControlSet& set, const QString& box)
    : label(set, u"lbl"_s + box.mid(3) + u"Note"_s)
    , back(set, u"cmd"_s + box.mid(3) + u"Back"_s)
{
    back.SetCaption(u"Bring back"_s);
    Hide();
}

void FieldNote::Tell(const DateNote& note, const QString& shown)
{
    label.Show(note.words, note.lost ? forms::Colour::Red : forms::Colour::Blue);
    label.SetVisible(true);
    back.SetToolTipText(kBringBack.arg(note.typed));
    back.SetVisible(shown != note.typed);
}

void FieldNote::Refuse(const QString& words)
{
    label.Show(words, forms::Colour::Red);
    label.SetVisible(true);
    back.SetVisible(false);
}

void FieldNote::Hide()
{
    label.Show({}, forms::Colour::Normal);
    label.SetVisible(false);
    back.SetVisible(false);
}

} // namespace vasclip::databook

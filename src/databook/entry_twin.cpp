#include "databook/entry_twin.h"

#include "databook/same_house.h"
#include "store/fields.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

EntryTwin::EntryTwin(const EntryDesk& desk, const EntryRecord& record, FieldNote& note)
    : m_desk(desk)
    , m_record(record)
    , m_note(note)
    , m_watch(record.datDatabook, desk.table, [this]() -> std::optional<TypedAddress> {
        if (!m_record.IsChanged(fields::ADDRESS) && !m_record.IsChanged(fields::CITY))
            return std::nullopt;
        return TypedAddress{m_record.Key(), m_record.Text(fields::ADDRESS), m_record.Text(fields::CITY)};
    })
{
    m_note.back.SetCaption(u"Look at it"_s);
    m_note.back.SetToolTipText(u"Shows that record (Alt+Down)"_s);
    QObject::connect(&m_watch, &TwinWatch::Changed, &m_watch, [this] { Show(); });
    QObject::connect(&m_note.back, &forms::Control::Clicked, &m_watch, [this] { Look(); });
}

void EntryTwin::Show()
{
    if (m_watch.Twin().isEmpty()) {
        m_note.Hide();
        return;
    }
    m_note.label.Show(TwinText(m_watch.Twin()), forms::Colour::Red);
    m_note.label.SetVisible(true);
    m_note.back.SetVisible(true);
}

bool EntryTwin::Look()
{
    const QString twin = m_watch.Twin();
    if (twin.isEmpty())
        return false;
    m_desk.ports.prompter.Info(twin, InShort(m_record.datDatabook, twin));
    return true;
}

} // namespace vasclip::databook

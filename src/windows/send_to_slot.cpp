#include "windows/send_to_slot.h"

#include "forms/drop_port.h"
#include "windows/fit_to_screen.h"
#include "windows/icons.h"
#include "windows/slot_groups.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

QString TextOf(const forms::Control* control)
{
    if (const auto* box = qobject_cast<const forms::TextBox*>(control))
        return box->Text().trimmed();
    if (const auto* combo = qobject_cast<const forms::ComboBox*>(control))
        return combo->Text().trimmed();
    return {};
}

/// A picture goes to the record on which the grid stands; what comes from a slot to the one that the slot names.
QString OnGrid(const QString& source)
{
    if (source == QLatin1StringView("imaGeneral") || source == QLatin1StringView("cboGeneral"))
        return SendToSlotDialog::tr("how general photos are saved");
    const bool slot =
        source == QLatin1StringView("txtSubject") ||
        std::any_of(SlotGroups().begin(), SlotGroups().end(), [&](const SlotGroup& group) {
            return source == QLatin1StringView(group.text) || source == QLatin1StringView(group.photo) ||
                   source == QLatin1StringView(group.box);
        });
    return slot ? SendToSlotDialog::tr("into the record of the slot")
                : SendToSlotDialog::tr("with the highlighted record");
}

} // namespace

QList<SlotChoice> SlotChoices(const forms::ControlSet& controls, const forms::DropPort& port, const QString& source)
{
    QList<SlotChoice> choices;
    const auto add = [&](forms::Control* target, const QString& title, const QString& effect,
                         const QString& now) {
        if (target != nullptr && target->Enabled() && port.Accepts(source, *target))
            choices.append({title, effect, now, target});
    };
    const QString onText = source == QLatin1StringView("txtMapProximity") ? SendToSlotDialog::tr("proximity")
                                                                          : SendToSlotDialog::tr("data and front photo");
    for (const SlotGroup& group : SlotGroups()) {
        for (int page = 0; page < group.row.pages; ++page) {
            if (!PageAvailable(controls, group, page))
                continue;
            if (group.Subject())
                add(controls.Find(u"txtSubject"_s), SendToSlotDialog::tr("Subject"),
                    SendToSlotDialog::tr("all three photos"), TextOf(controls.Find(u"txtSubject"_s)));
            for (int place = 1; place <= kSlotsOnAPage; ++place) {
                const int index = page * kSlotsOnAPage + place;
                const QString title = u"%1 %2"_s.arg(group.row.title).arg(index);
                forms::Control* text = controls.Find(QLatin1StringView(group.text), index);
                const QString now = TextOf(text);
                add(text, title, onText, now);
                add(controls.Find(QLatin1StringView(group.box), index), title,
                    SendToSlotDialog::tr("data only"), now);
                add(controls.Find(QLatin1StringView(group.photo), index), title,
                    SendToSlotDialog::tr("photo only"), now);
            }
        }
    }
    const auto other = [&](const char* name, const QString& title, const QString& effect) {
        forms::Control* target = controls.Find(QLatin1StringView(name));
        add(target, title, effect, TextOf(target));
    };
    other("grddatabook", SendToSlotDialog::tr("Databook"), OnGrid(source));
    other("txtcentralkey", SendToSlotDialog::tr("Databook"), SendToSlotDialog::tr("with the address in its box"));
    other("fraPics", SendToSlotDialog::tr("Capture directory"), SendToSlotDialog::tr("a copy goes there"));
    other("imaTrashcan", SendToSlotDialog::tr("Trashcan"), SendToSlotDialog::tr("out of the capture directory"));
    return choices;
}

SendToSlotDialog::SendToSlotDialog(const QString& record, QList<SlotChoice> choices, QWidget* parent)
    : QDialog(parent)
    , m_choices(std::move(choices))
    , m_filter(new QLineEdit(this))
    , m_list(new QListWidget(this))
{
    setObjectName(u"sendToSlot"_s);
    setWindowTitle(tr("Send to Slot"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(8);
    auto* title = new QLabel(record, this);
    title->setProperty("role", u"title"_s);
    title->setTextFormat(Qt::PlainText);
    rows->addWidget(title);
    m_filter->setPlaceholderText(tr("Type to narrow: comp 4, listing, data only"));
    m_filter->setAccessibleName(tr("Narrow the list of slots"));
    m_filter->installEventFilter(this);
    rows->addWidget(m_filter);
    m_list->setAccessibleName(tr("Slots"));
    rows->addWidget(m_list, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_send = buttons->addButton(tr("&Send"), QDialogButtonBox::AcceptRole);
    m_send->setDefault(true);
    rows->addWidget(buttons);
    connect(m_filter, &QLineEdit::textChanged, this, &SendToSlotDialog::Filter);
    connect(m_list, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Filter(QString());
    m_filter->setFocus();
    constexpr int kFrame = 64; // margins, scroll bar and the list's own padding
    resize(std::clamp(m_list->sizeHintForColumn(0) + kFrame, 440, 900), 480);
    FitToScreen(*this);
}

void SendToSlotDialog::Filter(const QString& words)
{
    m_list->clear();
    const QStringList wanted = words.simplified().split(u' ', Qt::SkipEmptyParts);
    for (int i = 0; i < m_choices.size(); ++i) {
        const SlotChoice& choice = m_choices.at(i);
        QString line = u"%1  \u2013  %2"_s.arg(choice.title, choice.effect);
        if (!choice.now.isEmpty())
            line += u"   (%1)"_s.arg(choice.now);
        const bool fits = std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
            return line.contains(word, Qt::CaseInsensitive);
        });
        if (!fits)
            continue;
        auto* item = new QListWidgetItem(line, m_list);
        item->setData(Qt::UserRole, i);
    }
    m_list->setCurrentRow(0);
    m_send->setEnabled(m_list->count() > 0);
}

/// The arrows move in the list while the words are typed.
bool SendToSlotDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_filter && event->type() == QEvent::KeyPress) {
        const int step = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down ? 1
                         : static_cast<QKeyEvent*>(event)->key() == Qt::Key_Up ? -1
                                                                               : 0;
        if (step != 0 && m_list->count() > 0) {
            m_list->setCurrentRow(std::clamp(m_list->currentRow() + step, 0, m_list->count() - 1));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

forms::Control* SendToSlotDialog::Target() const
{
    const QListWidgetItem* item = m_list->currentItem();
    return item == nullptr ? nullptr : m_choices.at(item->data(Qt::UserRole).toInt()).target;
}

} // namespace vasclip::windows

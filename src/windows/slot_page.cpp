#include "windows/slot_page.h"

#include "forms/controls.h"
#include "link/slot_table.h"
#include "windows/icons.h"
#include "windows/picture_view.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr int kGap = 8;
constexpr int kSmallGap = 4;

QString Named(const QByteArray& name, int index)
{
    return u"%1_%2"_s.arg(QLatin1StringView(name)).arg(index);
}

/// A small picture that is clicked: an icon that keeps its place while it is hidden.
QToolButton* IconButton(QWidget* parent, const QString& objectName, const char* icon, const QString& tip)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(objectName);
    button->setIcon(ThemedIcon(QLatin1StringView(icon)));
    button->setIconSize(QSize(16, 16));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    return button;
}

QString SubjectView(int index)
{
    switch (index) {
    case 1:
        return SlotPage::tr("Front view");
    case 2:
        return SlotPage::tr("Rear view");
    default:
        return SlotPage::tr("Street scene");
    }
}

} // namespace

SlotPage::SlotPage(const SlotGroup& group, int page, std::function<void(QWidget&)> built, QWidget* parent)
    : QWidget(parent)
    , m_group(group)
    , m_page(page)
    , m_built(std::move(built))
{}

void SlotPage::Build()
{
    if (m_standing)
        return;
    m_standing = true;
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, kSmallGap, 0, 0);
    rows->setSpacing(kGap);
    AddHeading(*rows);
    auto* cards = new QHBoxLayout;
    cards->setSpacing(kGap);
    for (int place = 1; place <= kSlotsOnAPage; ++place)
        cards->addWidget(Card(m_page * kSlotsOnAPage + place), 1);
    rows->addLayout(cards, 1);
    if (m_built)
        m_built(*this);
    for (QObject* child : children()) {
        if (auto* widget = qobject_cast<QWidget*>(child); widget != nullptr && !widget->isHidden())
            widget->show();
    }
}

void SlotPage::showEvent(QShowEvent* event)
{
    Build();
    QWidget::showEvent(event);
}

/// The line above the cards: the label of the page, or for the subject its address.
void SlotPage::AddHeading(QVBoxLayout& rows)
{
    if (!m_group.heading.isEmpty()) {
        auto* heading = new QLabel(this);
        heading->setObjectName(Named(m_group.heading, m_page));
        heading->setProperty("role", u"title"_s);
        rows.addWidget(heading);
    } else if (m_group.Subject()) {
        auto* line = new QHBoxLayout;
        line->setSpacing(kGap);
        auto* address = new QLineEdit(this);
        address->setObjectName(u"txtSubject"_s);
        address->setPlaceholderText(tr("Address of the subject"));
        address->setAccessibleName(tr("Address of the subject"));
        address->setToolTip(tr("Drop a record here to replace the three subject photos"));
        auto* caption = new QLabel(tr("Su&bject"), this);
        caption->setProperty("role", u"title"_s);
        caption->setBuddy(address);
        line->addWidget(caption);
        line->addWidget(address, 1);
        rows.addLayout(line);
    }
}

QWidget* SlotPage::Card(int index)
{
    auto* card = new QFrame(this);
    card->setProperty("card", true);
    auto* rows = new QVBoxLayout(card);
    rows->setContentsMargins(kGap, kSmallGap, kGap, kGap);
    rows->setSpacing(kSmallGap);

    const QString name =
        m_group.Subject() ? SubjectView(index) : u"%1 %2"_s.arg(tr(m_group.row.title.data())).arg(index);
    auto* head = new QHBoxLayout;
    head->setSpacing(0);
    auto* caption = new QLabel(name, card);
    caption->setProperty("role", u"quiet"_s);
    head->addWidget(caption, 1);
    if (!m_group.anchor.isEmpty())
        head->addWidget(
            IconButton(card, Named(m_group.anchor, index), "pin", tr("%1 has a place on the map").arg(name)));
    head->addWidget(IconButton(card, Named(m_group.icon, index), "savephoto",
                               tr("Save the photo of %1 to the Databook").arg(name)));
    rows->addLayout(head);

    auto* photo = new PictureView(card);
    photo->setObjectName(Named(m_group.photo, index));
    photo->SetEmptyIcon(u"photo"_s);
    photo->SetEmptyText(tr("Drop a photo here"));
    photo->setAccessibleName(tr("Photo of %1").arg(name));
    photo->setToolTip(tr("Drop a record here to send its photo to the report"));
    rows->addWidget(photo, 1);
    if (!m_group.text.isEmpty())
        rows->addWidget(Footer(index, name, card));
    return card;
}

QWidget* SlotPage::Footer(int index, const QString& name, QWidget* card)
{
    auto* footer = new QWidget(card);
    auto* line = new QHBoxLayout(footer);
    line->setContentsMargins(0, kSmallGap, 0, 0);
    line->setSpacing(kSmallGap);
    if (m_group.box.isEmpty()) {
        auto* view = new QComboBox(footer);
        view->setEditable(true);
        view->setObjectName(Named(m_group.text, index));
        view->lineEdit()->setPlaceholderText(tr("View"));
        view->setAccessibleName(tr("View of %1").arg(name));
        view->setMinimumContentsLength(6);
        view->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        auto* address = new QLineEdit(footer);
        address->setObjectName(Named("txtgeneraladdr", index));
        address->setPlaceholderText(tr("Address"));
        address->setAccessibleName(tr("Address of %1").arg(name));
        line->addWidget(view, 1);
        line->addWidget(address, 1);
        return footer;
    }
    auto* key = new QLineEdit(footer);
    key->setObjectName(Named(m_group.text, index));
    key->setPlaceholderText(tr("Drop a record here"));
    key->setAccessibleName(tr("Record in %1").arg(name));
    key->setToolTip(tr("Drop a record here: its data and its front photo go to the report"));
    line->addWidget(key, 1);
    auto* lamp = new PictureView(footer);
    lamp->setObjectName(Named(m_group.box, index));
    lamp->SetLamp(true);
    lamp->SetEmptyIcon(u"addendum"_s);
    lamp->setFixedSize(30, 30);
    lamp->setAccessibleName(tr("Data of %1").arg(name));
    lamp->setToolTip(tr("Drop a record here: only its data go to the report"));
    line->addWidget(lamp);
    return footer;
}

} // namespace vasclip::windows

#include "windows/guide_window.h"

#include "windows/guide.h"
#include "windows/guide_view.h"
#include "windows/icons.h"
#include "windows/layout_parts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr QSize kSize(1040, 720);

QToolButton* Tool(const QString& name, Qt::ArrowType arrow, const QString& words, const QKeySequence& keys,
                  QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAccessibleName(words);
    button->setToolTip(u"%1 (%2)"_s.arg(words, keys.toString(QKeySequence::NativeText)));
    button->setShortcut(keys);
    return button;
}

} // namespace

GuideWindow::GuideWindow(QWidget* owner)
    : QDialog(owner)
    , m_view(new GuideView(this))
    , m_find(new QLineEdit(this))
    , m_contents(new QListWidget(this))
{
    setObjectName(u"guideWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(Qt::Window);
    setWindowModality(Qt::NonModal);
    setWindowIcon(ApplicationIcon());

    m_view->setAccessibleName(tr("Page of the guide"));
    auto* column = new QWidget(this);
    BuildContents(*column);
    auto* parts = new QSplitter(this);
    parts->setChildrenCollapsible(false);
    parts->addWidget(column);
    parts->addWidget(m_view);
    parts->setStretchFactor(1, 1);
    parts->setSizes({260, kSize.width() - 260});
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(parts);

    // The source changes before the history knows it.
    connect(m_view, &QTextBrowser::historyChanged, this, &GuideWindow::PageChanged);
    connect(m_find, &QLineEdit::textChanged, this, &GuideWindow::Find);
    connect(m_find, &QLineEdit::returnPressed, this, [this] { m_view->Mark(Wanted(), true); });
    connect(m_contents, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item != nullptr && !m_following && !item->data(kPageRole).toString().isEmpty())
            m_view->Show(item->data(kPageRole).toString());
    });
    auto* toFind = new QShortcut(QKeySequence::Find, this);
    connect(toFind, &QShortcut::activated, m_find, [this] {
        m_find->setFocus(Qt::ShortcutFocusReason);
        m_find->selectAll();
    });
    resize(kSize.boundedTo(RoomFor(*this)));
    Find({});
    m_view->setFocus();
}

void GuideWindow::BuildContents(QWidget& column)
{
    auto* rows = new QVBoxLayout(&column);
    rows->setContentsMargins(16, 16, 0, 16);
    rows->setSpacing(8);
    auto* tools = new QHBoxLayout;
    tools->setSpacing(4);
    auto* back = Tool(u"guideBack"_s, Qt::LeftArrow, tr("Back"), Qt::ALT | Qt::Key_Left, &column);
    auto* forth = Tool(u"guideForward"_s, Qt::RightArrow, tr("Forward"), Qt::ALT | Qt::Key_Right, &column);
    back->setEnabled(false);
    forth->setEnabled(false);
    connect(back, &QToolButton::clicked, m_view, &QTextBrowser::backward);
    connect(forth, &QToolButton::clicked, m_view, &QTextBrowser::forward);
    connect(m_view, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(m_view, &QTextBrowser::forwardAvailable, forth, &QWidget::setEnabled);
    tools->addWidget(back);
    tools->addWidget(forth);
    m_find->setObjectName(u"guideFind"_s);
    m_find->setPlaceholderText(tr("Find in the guide"));
    m_find->setToolTip(tr("Pages that hold these words (Ctrl+F); Enter goes to the next place on the page"));
    m_find->setAccessibleName(tr("Find in the guide"));
    m_find->setClearButtonEnabled(true);
    tools->addWidget(m_find, 1);
    rows->addLayout(tools);
    m_contents->setObjectName(u"guideContents"_s);
    m_contents->setProperty("pages", true);
    m_contents->setAccessibleName(tr("Contents"));
    m_contents->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rows->addWidget(m_contents, 1);
    setTabOrder(m_find, m_contents);
    setTabOrder(m_contents, m_view);
}

QString GuideWindow::Wanted() const
{
    return m_find->text().simplified();
}

/// The contents, or the pages found.
void GuideWindow::Find(const QString& words)
{
    const bool all = words.simplified().isEmpty();
    {
        const QSignalBlocker still(m_contents);
        m_contents->clear();
        const QList<GuideLine> lines = all ? GuideContents() : FindInGuide(words);
        for (const GuideLine& line : lines) {
            auto* item = new QListWidgetItem(line.title, m_contents);
            item->setData(kPageRole, line.page);
            if (!line.page.isEmpty())
                continue;
            item->setFlags(Qt::ItemIsEnabled); // shown like the others, but not to be chosen
            QFont bold = font();
            bold.setWeight(QFont::DemiBold);
            item->setFont(bold);
        }
        if (lines.isEmpty()) {
            auto* none = new QListWidgetItem(tr("No page holds these words."), m_contents);
            none->setFlags(Qt::NoItemFlags);
        }
    }
    if (all || m_contents->item(0)->flags() == Qt::NoItemFlags)
        PageChanged();
    else
        m_contents->setCurrentRow(0);
    m_view->Mark(words, false);
}

void GuideWindow::PageChanged()
{
    m_following = true;
    m_contents->setCurrentItem(nullptr);
    for (int row = 0; row < m_contents->count(); ++row) {
        if (!Page().isEmpty() && m_contents->item(row)->data(kPageRole).toString() == Page())
            m_contents->setCurrentRow(row);
    }
    m_following = false;
    setWindowTitle(tr("%1 - Guide").arg(m_view->documentTitle()));
    if (!Wanted().isEmpty())
        m_view->Mark(Wanted(), false);
}

void GuideWindow::Show(const QString& page)
{
    m_view->Show(page);
}

QString GuideWindow::Page() const
{
    return m_view->Page();
}

void GuideWindow::reject()
{
    if (m_find->text().isEmpty())
        QDialog::reject();
    else
        m_find->clear();
}

GuideWindow& GuideWindow::Of(QWidget* owner)
{
    if (auto* there = qobject_cast<GuideWindow*>(owner))
        return *there;
    auto* beside =
        owner == nullptr ? nullptr : owner->findChild<GuideWindow*>({}, Qt::FindDirectChildrenOnly);
    return beside != nullptr ? *beside : *new GuideWindow(owner);
}

void OpenGuide(const QWidget* place, QWidget& window)
{
    GuideWindow& guide = GuideWindow::Of(&window);
    guide.Show(&guide == &window ? QString(kGuideIndex) : GuidePageOf(place));
    guide.show();
    guide.raise();
    guide.activateWindow();
}

bool GuideKey::eventFilter(QObject* watched, QEvent* event)
{
    if ((event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) ||
        !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event); // NOLINT: the type says so
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    event->accept();
    if (event->type() == QEvent::ShortcutOverride)
        return true;
    const auto* place = qobject_cast<QWidget*>(watched);
    QWidget* window = place->window();
    while (window->windowType() == Qt::Popup && window->parentWidget() != nullptr)
        window = window->parentWidget()->window(); // an open menu goes, its window stays
    OpenGuide(place, *window);
    return true;
}

} // namespace vasclip::windows

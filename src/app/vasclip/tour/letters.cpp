#include "app/vasclip/tour/letters.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QHash>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Those who answer to each letter, within one window or one menu.
class Letters
{
public:
    explicit Letters(QString place)
        : m_place(std::move(place))
    {}

    void Take(const QString& words)
    {
        const QString letter = QKeySequence::mnemonic(words).toString();
        if (!letter.isEmpty())
            m_words[letter].append(words);
    }

    [[nodiscard]] QStringList Clashes() const
    {
        QStringList found;
        for (auto at = m_words.cbegin(); at != m_words.cend(); ++at) {
            if (at->size() > 1)
                found.append(u"%1 is taken twice in %2: %3"_s.arg(at.key(), m_place, at->join(u", "_s)));
        }
        found.sort();
        return found;
    }

private:
    QString m_place;
    QHash<QString, QStringList> m_words;
};

/// Separators and entries that are not shown have no letter.
void TakeEntries(const QMenu& menu, const QString& name, QStringList& found)
{
    Letters letters(name);
    for (const QAction* entry : menu.actions()) {
        if (entry->isSeparator() || !entry->isVisible())
            continue;
        letters.Take(entry->text());
        if (const QMenu* below = entry->menu())
            TakeEntries(*below, entry->text(), found);
    }
    found.append(letters.Clashes());
}

} // namespace

QStringList SharedLetters(const QWidget& window)
{
    QStringList found;
    // Two pairs of the calendar's fixed captions share a letter, which goes from one to the other.
    static const QStringList fixed{u"Pr&ev Day"_s, u"&Prev Mo"_s};
    Letters letters(u"the window"_s);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible())
            continue;
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            if (!fixed.contains(button->text()))
                letters.Take(button->text());
        } else if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            if (label->buddy() != nullptr && label->buddy()->isVisible())
                letters.Take(label->text());
        } else if (const auto* box = qobject_cast<const QGroupBox*>(widget)) {
            letters.Take(box->title());
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i)
                letters.Take(tabs->tabText(i));
        } else if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* entry : bar->actions()) {
                letters.Take(entry->text());
                if (const QMenu* menu = entry->menu())
                    TakeEntries(*menu, entry->text(), found);
            }
        }
    }
    found.append(letters.Clashes());
    return found;
}

} // namespace vasclip::app

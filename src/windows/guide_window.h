#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QToolButton;

namespace vasclip::windows {

class GuideView;

/// The user guide: contents with a search on the left, the page on the right. It stays open beside its owner
/// and goes with it.
class GuideWindow : public QDialog
{
    Q_OBJECT
public:
    explicit GuideWindow(QWidget* owner);

    void Show(const QString& page); ///< "" is the index
    [[nodiscard]] QString Page() const;

    /// The guide of a window: the one that stands beside it, or a new one.
    static GuideWindow& Of(QWidget* owner);

    void reject() override; ///< Esc empties the search, and closes when that is empty

private:
    void BuildContents(QWidget& column);
    void Find(const QString& words);
    void PageChanged();
    [[nodiscard]] QString Wanted() const; ///< what is searched for

    GuideView* m_view;
    QLineEdit* m_find;
    QListWidget* m_contents;
    bool m_following = false; ///< the contents follow the page
};

/// Opens the guide of a window at the page about a place in it.
void OpenGuide(const QWidget* place, QWidget& window);

/// F1, anywhere in the program: the page of where the focus is.
class GuideKey : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace vasclip::windows

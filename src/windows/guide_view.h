#pragma once

#include <QTextBrowser>
#include <QTimer>

namespace vasclip::windows {

/// Shows a page of the guide in the colours of the theme; its pictures are never wider than the view.
class GuideView : public QTextBrowser
{
    Q_OBJECT
public:
    explicit GuideView(QWidget* parent = nullptr);

    void Show(const QString& page); ///< "" and an unknown page are the index
    [[nodiscard]] QString Page() const;
    /// Marks every place of the words; stands on the first one, or on the one behind the present.
    void Mark(const QString& words, bool next);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Dress();
    void Again();

    QTimer m_fit; ///< pictures follow the width once it has come to rest
    int m_width = 0;
};

} // namespace vasclip::windows

#pragma once

#include <QWidget>

namespace vasclip::windows {

/// What stands where nothing is yet: an icon, a title, a sentence.
class EmptyState : public QWidget
{
    Q_OBJECT
public:
    explicit EmptyState(QWidget* parent = nullptr);
    void SetWords(const QString& icon, const QString& title, const QString& sentence);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_icon, m_title, m_sentence;
};

} // namespace vasclip::windows

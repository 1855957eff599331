#pragma once

#include "forms/chips.h"

#include <QList>
#include <QWidget>

class QToolButton;

namespace vasclip::windows {

class ChipButton;

/// Chips in one line, each with a cross that closes it: by the mouse on the cross, by Enter, Space or Del on the
/// chip. Those that have no room stand in a menu at the end of the line.
class ChipBar : public QWidget
{
    Q_OBJECT
public:
    explicit ChipBar(QWidget* parent = nullptr);
    void SetChips(const QList<forms::Chip>& chips);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// The chips come behind this widget in the order of the Tab key.
    void FollowInTabOrder(QWidget* before) { m_before = before; }

Q_SIGNALS:
    void CloseWanted(const QString& id);
    /// There are chips now, or none any more. The latter is told late enough that the second click of a double
    /// one on the last cross does not fall on what moves up.
    void Filled(bool chips);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Arrange();
    void OpenRest();
    ChipButton& ButtonAt(qsizetype place);

    QList<forms::Chip> m_chips;
    QList<ChipButton*> m_buttons; ///< as many as were ever needed, the first ones on show
    QToolButton* m_rest = nullptr;
    QWidget* m_before = nullptr;
    qsizetype m_shown = 0;
};

} // namespace vasclip::windows

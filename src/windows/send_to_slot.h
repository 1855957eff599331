#pragma once

#include "forms/controls.h"

#include <QDialog>
#include <QList>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace vasclip::forms {
class DropPort;
}

namespace vasclip::windows {


/// A place that a record can be sent to without a mouse.
struct SlotChoice
{
    QString title;  ///< "Comp 4"
    QString effect; ///< "data and front photo"
    QString now;    ///< what the slot holds, may be empty
    forms::Control* target = nullptr;
};

/// Every text slot, data box and photo slot of the pages that the report has and that would take a drop of
/// this source now, page by page.
[[nodiscard]] QList<SlotChoice> SlotChoices(const forms::ControlSet& controls, const forms::DropPort& port,
                                            const QString& source);

/// The drag for the keyboard: the current record is picked up, a list of slots asks where to drop it.
class SendToSlotDialog : public QDialog
{
    Q_OBJECT
public:
    SendToSlotDialog(const QString& record, QList<SlotChoice> choices, QWidget* parent = nullptr);
    /// Where to; nullptr before one is chosen.
    [[nodiscard]] forms::Control* Target() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Filter(const QString& words);
    QList<SlotChoice> m_choices;
    QLineEdit* m_filter;
    QListWidget* m_list;
    QPushButton* m_send;
};

} // namespace vasclip::windows

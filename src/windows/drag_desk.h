#pragma once

#include "forms/controls.h"

#include <QHash>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QString>

class QDropEvent;
class QMimeData;
class QWidget;

namespace vasclip::windows {

class Binder;
class DropPort;

/// Drags between the controls of one window. It starts them, marks the targets that would take the drag while
/// it lasts, and hands a finished one to the port once the toolkit's own drag loop is over.
class DragDesk : public QObject
{
    Q_OBJECT
public:
    static constexpr const char* kMimeType = "application/x-vasclip-drag";

    /// Binder and port outlive the desk.
    DragDesk(Binder& binder, DropPort& port, QObject* parent = nullptr);

    /// What a drag from this control carries: its name and index, and which program it is.
    [[nodiscard]] static QMimeData* Payload(const forms::Control& source);
    /// Starts a drag from a control, as the mouse does. Returns when it has ended.
    void Start(forms::Control& source);
    /// The same as a finished drag, for the keyboard. Runs at once, under the guard.
    void Drop(forms::Control& source, forms::Control& target);

    /// What stands on the card under the pointer.
    void SetCardText(const QString& title, const QString& line);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Adopt(forms::Control& control, QWidget& widget);
    [[nodiscard]] forms::Control* SourceOf(const QMimeData* data) const;
    bool HandleEnter(QWidget& widget, QDropEvent& event);
    void Hover(QWidget* widget);
    void MarkWanted(const QString& source);
    void TakePending();
    [[nodiscard]] QPixmap CardPixmap(qreal ratio) const;

    Binder& m_binder;
    DropPort& m_port;
    QHash<const QObject*, QPointer<forms::Control>> m_targets; ///< by the widget that takes the events
    QPointer<QWidget> m_hover;
    QPointer<forms::Control> m_pendingSource, m_pendingTarget;
    bool m_dragging = false;
    QString m_cardTitle, m_cardLine;
};

} // namespace vasclip::windows

#pragma once

#include "forms/controls.h"

#include <QHash>
#include <QObject>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

class QDrag;
class QDropEvent;
class QKeyEvent;
class QMimeData;
class QWidget;

namespace vasclip::forms {
class DropPort;
}

namespace vasclip::windows {

class Binder;
class RecordGrid;

/// Drags between the controls of one window, and of files to and from other programs. It starts them, marks the
/// targets that would take the drag while it lasts, and hands a finished one to the port once the toolkit's own
/// drag loop is over. The keyboard picks up and drops; pictures and files go over the clipboard as well.
class DragDesk : public QObject
{
    Q_OBJECT
public:
    static constexpr const char* kMimeType = "application/x-vasclip-drag";

    /// Binder and port outlive the desk.
    DragDesk(Binder& binder, forms::DropPort& port, QObject* parent = nullptr);

    /// What a drag from this control carries: its name and index, and which program it is.
    [[nodiscard]] static QMimeData* Payload(const forms::Control& source);
    /// The same with the picture that the control shows, for other programs: its file and its pixels.
    [[nodiscard]] QMimeData* DataOf(const forms::Control& source);
    /// Puts that picture on the clipboard. @return false if the control shows none
    bool CopyPicture(const forms::Control& source);
    /// Drops the files of the clipboard on a control. @return false without files, or if it takes none
    bool PasteFiles(forms::Control& target);
    /// Starts a drag from a control, as the mouse does. Returns when it has ended.
    void Start(forms::Control& source);
    /// The drag of the keyboard: with nothing held it picks a control up, else it drops what is held on it.
    /// @return false if the control is no source, or would not take what is held
    bool PickUpOrDrop(forms::Control& control);
    [[nodiscard]] forms::Control* Held() const { return m_held; }
    /// May this be sent where it is picked up?
    [[nodiscard]] bool MaySend(const forms::Control& source);
    void PutDown(); ///< what is held is dropped nowhere
    /// The same as a finished drag, for the keyboard. Runs at once, under the guard.
    void Drop(forms::Control& source, forms::Control& target);

    /// What stands on the card under the pointer.
    void SetCardText(const QString& title, const QString& line);

Q_SIGNALS:
    void HeldChanged(); ///< something was picked up or put down

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Adopt(forms::Control& control, QWidget& widget);
    [[nodiscard]] forms::Control* SourceOf(const QMimeData* data) const;
    [[nodiscard]] static QStringList FilesOf(const QMimeData* data);
    bool HandlePull(QWidget& widget, const QEvent& event);
    bool HandleDrop(QWidget& widget, QDropEvent& event);
    void FocusMoved(QWidget* now);
    void Begin(const forms::Control& source);
    bool HandleEnter(QWidget& widget, QDropEvent& event);
    void Hover(QWidget* widget);
    [[nodiscard]] RecordGrid* AimedGrid(const QString& source, const forms::Control& target, QWidget& widget);
    void MarkWanted(const QString& source);
    void TakePending();
    void TellOver(const QString& source, const QString& target);
    void ShowDragIcon();
    bool HandleKey(QWidget& widget, QKeyEvent& press);
    [[nodiscard]] QPixmap CardPixmap(qreal ratio, const forms::Control& source) const;
    [[nodiscard]] QPixmap RecordCard(qreal ratio, const QString& title, const QString& line) const;
    [[nodiscard]] static QPixmap PictureCard(qreal ratio, const QImage& picture);

    Binder& m_binder;
    forms::DropPort& m_port;
    QHash<const QObject*, QPointer<forms::Control>> m_targets; ///< by the widget that takes the events
    QHash<const QObject*, QPointer<forms::Control>> m_fields;  ///< of combo boxes: they are pulled at
    QPointer<QWidget> m_hover;
    QPointer<forms::Control> m_pendingSource, m_pendingTarget;
    QPointer<forms::Control> m_held;
    QStringList m_pendingFiles;
    std::optional<std::pair<int, QString>> m_pendingRow; ///< for a drop on a row: where, and its key
    QPointer<QWidget> m_pulled; ///< pressed, and a drag if the pointer goes far enough
    QPoint m_pulledAt;
    QPointer<QDrag> m_drag;    ///< of our own, while it lasts
    QString m_cardTitle, m_cardLine;
};

} // namespace vasclip::windows

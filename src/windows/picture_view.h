#pragma once

#include "forms/controls.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace vasclip::windows {

/// Shows one picture, whole and in proportion, on a quiet rounded ground; an icon and a word while it is
/// empty.
class PictureView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString emptyText READ EmptyText WRITE SetEmptyText)
    Q_PROPERTY(QString emptyIcon READ EmptyIcon WRITE SetEmptyIcon)
    Q_PROPERTY(bool lamp READ IsLamp WRITE SetLamp)
public:
    explicit PictureView(QWidget* parent = nullptr);

    [[nodiscard]] const QImage& Picture() const { return m_picture; }
    void SetPicture(const QImage& picture);
    /// A hidden picture keeps its place and stays a drop target: it shows its empty state.
    void SetShown(bool shown);
    [[nodiscard]] bool IsShown() const { return m_shown; }
    /// A hidden picture is gone instead.
    void SetVanishes(bool vanishes);

    /// Why there is no picture: the empty state shows it.
    void SetWithout(forms::NoPicture reason);

    [[nodiscard]] const QString& EmptyText() const { return m_emptyText; }
    void SetEmptyText(const QString& text);
    [[nodiscard]] const QString& EmptyIcon() const { return m_emptyIcon; }
    void SetEmptyIcon(const QString& name); ///< an icon of the resources, "photo"
    /// A lamp is a small box without a word: margin and icon shrink.
    [[nodiscard]] bool IsLamp() const { return m_lamp; }
    void SetLamp(bool lamp) { m_lamp = lamp; }

    /// Without ground and border, for a sign.
    void SetBare(bool bare) { m_bare = bare; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void Pressed(); ///< the left button went down, or the keyboard came here
    void Hovered(); ///< the pointer came over the picture, or the keyboard
    void Clicked();
    void DoubleClicked();
    void DragWanted(); ///< the user pulls at the picture

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    void PaintEmpty(QPainter& painter, const QRectF& ground);
    QImage m_picture;
    QPixmap m_scaled; ///< the picture at the size shown last
    QString m_emptyText, m_emptyIcon;
    QPoint m_pressedAt;
    bool m_pressed = false;
    bool m_shown = true;
    bool m_lamp = false;
    bool m_bare = false;
    bool m_vanishes = false;
    forms::NoPicture m_without = forms::NoPicture::Empty;
};

} // namespace vasclip::windows

#pragma once

#include <QFrame>

#include <array>

class QFontMetrics;
class QLabel;
class QToolButton;

namespace vasclip::windows {

class PictureView;

/// A picture's name in a room that may be too narrow: what tells it from its neighbors, the number at its end, stays. The
/// kind of the file gives way first, then the middle.
[[nodiscard]] QString ShortenedName(const QString& name, const QFontMetrics& letters, int room);

/// Lays twelve thumbnails with their labels out in as many columns as make them largest.
class ThumbGrid : public QFrame
{
    Q_OBJECT
public:
    static constexpr int kThumbs = 12;
    explicit ThumbGrid(QWidget* parent = nullptr);
    [[nodiscard]] PictureView* Thumb(int index) const { return m_thumbs[static_cast<std::size_t>(index)]; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {260, 180}; }
    [[nodiscard]] QSize sizeHint() const override { return {420, 300}; }
    /// Columns, and the side of a cell, for a room of this size. @param label  height of a label, 0 without
    struct Shape
    {
        int columns = 4;
        QSize picture;
    };
    [[nodiscard]] static Shape ShapeFor(QSize room, int label);

Q_SIGNALS:
    void PageWanted(int button); ///< of imaScroll
    void DeleteWanted(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Arrange();
    bool HandleKey(int index, int key);
    void FocusThumb(int index);
    std::array<PictureView*, kThumbs> m_thumbs{};
    std::array<QLabel*, kThumbs> m_labels{};
    int m_columns = 4;
};

/// The capture browser's part of the main window, under its controls' names.
class CapturePane : public QFrame
{
    Q_OBJECT
public:
    explicit CapturePane(QWidget* parent = nullptr);

Q_SIGNALS:
    void DeleteWanted(int thumb);

private:
    QToolButton* IconButton(const QString& name, const char* icon);
    QWidget* Head();
    QWidget* Foot();
    QFrame* ListFrame();
    std::array<QToolButton*, 4> m_scroll{};
};

} // namespace vasclip::windows

#pragma once

#include <QImage>
#include <QScrollArea>

namespace vasclip::upkeep {
class frm_ReportPreview;
}

namespace vasclip::windows {

class EventGuard;

/// A page of the report as it will be on paper, always light. Page Up and Page Down, Home and End turn the
/// pages; Ctrl with the wheel, "+" or "-" makes it larger or smaller.
class PaperView : public QScrollArea
{
    Q_OBJECT
public:
    PaperView(upkeep::frm_ReportPreview& screen, EventGuard& guard, QWidget* parent);

    [[nodiscard]] const QImage& Shown() const { return m_image; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Draw();
    bool Turn(int key); ///< @return false for a key that turns no page
    [[nodiscard]] double Dots() const; ///< an inch, of the screen's own

    upkeep::frm_ReportPreview& m_screen;
    EventGuard& m_guard;
    QImage m_image;
    QWidget* m_sheet;
};

} // namespace vasclip::windows

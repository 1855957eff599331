#pragma once

#include "platform/street/cell.h"
#include "platform/street/draw/style.h"
#include "platform/street/draw/view.h"

#include <QImage>
#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <set>

namespace vasclip::street::draw {

/// Ground and labels of a map that is moved about. Worker threads draw them; whoever paints never waits: where the
/// fine part is not there yet, one of another scale is stretched.
///
/// Painted and destroyed in the thread that made it, where `more` is called, later, when a part has come.
class Tiles
{
public:
    /// Boxes, in pixels of a frame, that labels keep off.
    using Keep = std::function<std::vector<QRectF>(const Projection&)>;

    Tiles(std::shared_ptr<const CellSource> source, std::function<void()> more);
    ~Tiles();
    Tiles(const Tiles&) = delete;
    Tiles& operator=(const Tiles&) = delete;

    /// Other maps, or none.
    void SetSource(std::shared_ptr<const CellSource> source);
    /// @param frame  snapped
    /// @param keep  asked when labels are drawn anew, which they are when `version` differs from the last one
    /// @return true when nothing is missing any more
    bool Paint(QPainter& painter, const Frame& frame, const Look& look, const Keep& keep, quint64 version);
    /// Bytes of the pictures at hand.
    [[nodiscard]] qsizetype Bytes() const;
    /// Waits until the workers have nothing to do: for tests and benchmarks.
    void Wait();

    static constexpr int kSide = 512; ///< of a part in pixels
    static constexpr qsizetype kBytes = 16 * 1024 * 1024; ///< kept beyond what a picture needs

private:
    struct Key
    {
        double scale = 0;
        qint64 column = 0;
        qint64 row = 0;
        friend auto operator<=>(const Key&, const Key&) = default;
    };
    struct Part
    {
        Key key;
        double ratio = 1;
        QImage image;
    };
    struct LabelSheetOf
    {
        Frame frame; ///< wider than what was in sight
        quint64 version = 0;
        QImage image;
    };
    struct LabelOrder
    {
        Frame frame;
        quint64 version = 0;
        std::vector<QRectF> keep;
    };

    void Renew(const Look& look, double ratio);
    bool PaintParts(QPainter& painter, const Frame& frame, const QRect& sheet);
    void PaintStretched(QPainter& painter, const Frame& frame, const QRect& sheet) const;
    bool PaintLabels(QPainter& painter, const Frame& frame, const Keep& keep, quint64 version);
    void StartWorkers();
    void Work();
    bool DrawNextPart(std::unique_lock<std::mutex>& lock);
    bool DrawNextLabels(std::unique_lock<std::mutex>& lock);
    void Forget();
    void Tell();

    QObject m_here; ///< in the thread of whoever paints
    const std::function<void()> m_more;
    std::atomic<bool> m_told = false;

    mutable std::mutex m_guard; ///< over all that follows
    std::shared_ptr<const CellSource> m_source;
    Look m_look;
    double m_ratio = 1;
    quint64 m_generation = 0; ///< parts of an earlier one are of no use
    std::list<Part> m_parts; ///< what was painted last is the first
    std::list<Key> m_wanted; ///< the nearest to the middle first
    std::set<Key> m_underWay;
    LabelSheetOf m_labels;
    std::unique_ptr<LabelOrder> m_labelsWanted;
    bool m_labelsUnderWay = false;
    LabelOrder m_labelsAsked; ///< the order that was given last
    qsizetype m_needed = 0; ///< bytes of the parts in sight
    int m_workers = 0;
    bool m_ending = false;
    QThreadPool m_pool;
};

} // namespace vasclip::street::draw

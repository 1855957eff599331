#include "platform/street/draw/tiles.h"

#include "platform/street/draw/map_sheet.h"

#include <QThread>

#include <algorithm>
#include <cmath>

namespace vasclip::street::draw {

namespace {

constexpr int kMargin = 160; // pixels of 1/96 inch that labels reach beyond the sheet

Frame FrameOfPart(double scale, qint64 column, qint64 row, double ratio)
{
    const double side = Tiles::kSide;
    return {(static_cast<double>(column) + 0.5) * side / scale, -(static_cast<double>(row) + 0.5) * side / scale,
            scale, QSize(Tiles::kSide, Tiles::kSide), ratio};
}

QRectF SheetOf(const Frame& frame)
{
    return {frame.Corner(), QSizeF(frame.size)};
}

/// Where a picture that was drawn for `from` lies on `to`.
QRectF Onto(const Frame& from, const Frame& to)
{
    const double grow = to.scale / from.scale;
    const QRectF sheet = SheetOf(from);
    return {sheet.topLeft() * grow - to.Corner(), sheet.size() * grow};
}

} // namespace

Tiles::Tiles(std::shared_ptr<const CellSource> source, std::function<void()> more)
    : m_more(std::move(more)), m_source(std::move(source))
{
    m_pool.setMaxThreadCount(std::clamp(QThread::idealThreadCount(), 1, 4));
    m_pool.setExpiryTimeout(-1); // a thread that ends takes its fonts with it
}

Tiles::~Tiles()
{
    {
        const std::lock_guard lock(m_guard);
        m_ending = true;
    }
    m_pool.waitForDone();
}

void Tiles::SetSource(std::shared_ptr<const CellSource> source)
{
    const std::lock_guard lock(m_guard);
    m_source = std::move(source);
    Forget();
}

void Tiles::Forget()
{
    ++m_generation;
    m_parts.clear();
    m_wanted.clear();
    m_labels = {};
    m_labelsWanted.reset();
    m_labelsAsked = {};
}

void Tiles::Renew(const Look& look, double ratio)
{
    if (m_look == look && m_ratio == ratio)
        return;
    m_look = look;
    m_ratio = ratio;
    Forget();
}

bool Tiles::Paint(QPainter& painter, const Frame& frame, const Look& look, const Keep& keep, quint64 version)
{
    const std::lock_guard lock(m_guard);
    Renew(look, frame.ratio);
    const QRect sheet(QPoint(0, 0), frame.size);
    if (m_source == nullptr) {
        painter.fillRect(sheet, PaletteOf(look.dark).land);
        return true;
    }
    const bool ground = PaintParts(painter, frame, sheet);
    const bool labels = PaintLabels(painter, frame, keep, version);
    StartWorkers();
    return ground && labels;
}

bool Tiles::PaintParts(QPainter& painter, const Frame& frame, const QRect& sheet)
{
    const QPointF corner = frame.Corner();
    const auto first = [](double at) { return static_cast<qint64>(std::floor(at / kSide)); };
    const qint64 left = first(corner.x());
    const qint64 top = first(corner.y());
    const qint64 right = first(corner.x() + frame.size.width() - 1);
    const qint64 bottom = first(corner.y() + frame.size.height() - 1);
    m_needed = (right - left + 1) * (bottom - top + 1) * kSide * kSide * 4;

    std::vector<Key> missing;
    std::vector<std::pair<QPoint, const QImage*>> there;
    for (qint64 row = top; row <= bottom; ++row) {
        for (qint64 column = left; column <= right; ++column) {
            const Key key{frame.scale, column, row};
            const auto part =
                std::find_if(m_parts.begin(), m_parts.end(), [&key](const Part& one) { return one.key == key; });
            if (part == m_parts.end()) {
                missing.push_back(key);
                continue;
            }
            m_parts.splice(m_parts.begin(), m_parts, part);
            there.emplace_back(QPoint(static_cast<int>(std::lround(static_cast<double>(column * kSide) - corner.x())),
                                      static_cast<int>(std::lround(static_cast<double>(row * kSide) - corner.y()))),
                               &m_parts.front().image);
        }
    }
    if (!missing.empty())
        PaintStretched(painter, frame, sheet);
    for (const auto& [at, image] : there)
        painter.drawImage(at, *image);

    const double middleX = corner.x() + frame.size.width() / 2.0;
    const double middleY = corner.y() + frame.size.height() / 2.0;
    const auto away = [&](const Key& key) {
        return std::hypot((static_cast<double>(key.column) + 0.5) * kSide - middleX,
                          (static_cast<double>(key.row) + 0.5) * kSide - middleY);
    };
    std::stable_sort(missing.begin(), missing.end(), [&](const Key& a, const Key& b) { return away(a) < away(b); });
    m_wanted.assign(missing.begin(), missing.end());
    return missing.empty();
}

void Tiles::PaintStretched(QPainter& painter, const Frame& frame, const QRect& sheet) const
{
    painter.fillRect(sheet, PaletteOf(m_look.dark).land);
    // The parts of other scales, the one painted last on top.
    for (auto part = m_parts.rbegin(); part != m_parts.rend(); ++part) {
        if (part->key.scale == frame.scale)
            continue;
        const Frame from = FrameOfPart(part->key.scale, part->key.column, part->key.row, part->ratio);
        const QRectF onto = Onto(from, frame);
        // A part far finer than the sheet would be a speck, one far coarser a blur.
        if (onto.width() < kSide / 8.0 || onto.width() > kSide * 8.0 || !onto.intersects(sheet))
            continue;
        painter.drawImage(onto, part->image);
    }
}

bool Tiles::PaintLabels(QPainter& painter, const Frame& frame, const Keep& keep, quint64 version)
{
    const QRectF view = SheetOf(frame);
    bool fit = false;
    if (!m_labels.image.isNull()) {
        if (m_labels.frame.scale == frame.scale) {
            const QPointF at = m_labels.frame.Corner() - frame.Corner();
            painter.drawImage(QPoint(qRound(at.x()), qRound(at.y())), m_labels.image);
            fit = m_labels.version == version && SheetOf(m_labels.frame).contains(view);
        } else {
            painter.drawImage(Onto(m_labels.frame, frame), m_labels.image);
        }
    }
    // Drawn anew in good time: when half of what lies beyond the sheet is used up.
    const int margin = static_cast<int>(kMargin * frame.ratio);
    const auto serves = [&](const Frame& drawn, quint64 drawnVersion) {
        return drawn.scale == frame.scale && drawnVersion == version &&
               SheetOf(drawn).contains(view.adjusted(-margin / 2.0, -margin / 2.0, margin / 2.0, margin / 2.0));
    };
    if (!serves(m_labelsAsked.frame, m_labelsAsked.version)) {
        Frame wide = frame;
        wide.size += QSize(2 * margin, 2 * margin);
        m_labelsAsked = {wide, version, keep ? keep(Projection(wide)) : std::vector<QRectF>()};
        m_labelsWanted = std::make_unique<LabelOrder>(m_labelsAsked);
    }
    return fit;
}

void Tiles::StartWorkers()
{
    const auto work = static_cast<int>(m_wanted.size()) + (m_labelsWanted ? 1 : 0);
    for (; m_workers < std::min(work, m_pool.maxThreadCount()); ++m_workers)
        m_pool.start([this] { Work(); });
}

void Tiles::Work()
{
    std::unique_lock lock(m_guard);
    while (!m_ending && (DrawNextPart(lock) || DrawNextLabels(lock)))
        Tell();
    --m_workers;
}

bool Tiles::DrawNextPart(std::unique_lock<std::mutex>& lock)
{
    while (!m_wanted.empty() && m_underWay.contains(m_wanted.front()))
        m_wanted.pop_front();
    if (m_wanted.empty())
        return false;
    const Key key = m_wanted.front();
    m_wanted.pop_front();
    m_underWay.insert(key);
    const auto source = m_source;
    const Look look = m_look;
    const double ratio = m_ratio;
    const quint64 generation = m_generation;
    lock.unlock();
    QImage image = DrawGround(*source, Projection(FrameOfPart(key.scale, key.column, key.row, ratio)), look);
    lock.lock();
    m_underWay.erase(key);
    if (generation != m_generation)
        return true;
    m_parts.push_front({key, ratio, std::move(image)});
    const qsizetype most = std::max(kBytes, m_needed * 3 / 2);
    while (static_cast<qsizetype>(m_parts.size()) * kSide * kSide * 4 > most)
        m_parts.pop_back();
    return true;
}

bool Tiles::DrawNextLabels(std::unique_lock<std::mutex>& lock)
{
    if (!m_labelsWanted || m_labelsUnderWay)
        return false;
    const std::unique_ptr<LabelOrder> order = std::move(m_labelsWanted);
    m_labelsUnderWay = true;
    const auto source = m_source;
    Look look = m_look;
    look.furniture = false; // it stays on the sheet while the map moves
    const quint64 generation = m_generation;
    lock.unlock();
    QImage image = DrawLabels(*source, Projection(order->frame), look, order->keep);
    lock.lock();
    m_labelsUnderWay = false;
    if (generation == m_generation)
        m_labels = {order->frame, order->version, std::move(image)};
    return true;
}

void Tiles::Tell()
{
    // One call is enough for all parts that come before it is heard.
    if (m_told.exchange(true))
        return;
    QMetaObject::invokeMethod(
        &m_here,
        [this] {
            m_told = false;
            if (m_more)
                m_more();
        },
        Qt::QueuedConnection);
}

qsizetype Tiles::Bytes() const
{
    const std::lock_guard lock(m_guard);
    return static_cast<qsizetype>(m_parts.size()) * kSide * kSide * 4 + m_labels.image.sizeInBytes();
}

void Tiles::Wait()
{
    m_pool.waitForDone();
}

} // namespace vasclip::street::draw

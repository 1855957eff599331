#include "platform/engine/jet/entry_sorter.h"

#include "platform/text/runtime_error.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kBlock = 64 << 10;
constexpr qsizetype kLength = 4; ///< bytes ahead of each entry in the scratch file

bool Less(QByteArrayView left, QByteArrayView right)
{
    const int order = std::memcmp(left.data(), right.data(), static_cast<std::size_t>(std::min(left.size(), right.size())));
    return order != 0 ? order < 0 : left.size() < right.size();
}

[[noreturn]] void ThrowFull(const QString& path)
{
    throw RuntimeError(error::kDiskFull, u"The disk is full: there is no room beside %1 to sort its keys"_s.arg(path));
}

} // namespace

EntrySorter::EntrySorter(QString beside, qsizetype most)
    : m_beside(std::move(beside))
    , m_most(most)
{}

void EntrySorter::Add(const QByteArray& entry)
{
    if (m_arena.size() + entry.size() > m_most)
        Spill();
    m_places.push_back({static_cast<quint32>(m_arena.size()), static_cast<quint32>(entry.size())});
    m_arena += entry;
}

void EntrySorter::SortArena()
{
    std::sort(m_places.begin(), m_places.end(),
              [this](const Place& left, const Place& right) { return Less(View(left), View(right)); });
}

void EntrySorter::Spill()
{
    SortArena();
    if (!m_scratch) {
        m_scratch = std::make_unique<QTemporaryFile>(m_beside + u".sortXXXXXX"_s);
        if (!m_scratch->open())
            ThrowFull(m_beside);
    }
    Run run{m_scratch->size(), 0, {}, 0, {}};
    m_scratch->seek(run.at);
    for (const Place& place : m_places) {
        char length[kLength];
        qToLittleEndian(place.size, length);
        if (m_scratch->write(length, kLength) != kLength ||
            m_scratch->write(View(place).data(), place.size) != place.size)
            ThrowFull(m_beside);
    }
    if (!m_scratch->flush())
        ThrowFull(m_beside);
    run.end = m_scratch->pos();
    m_runs.push_back(std::move(run));
    m_places.clear();
    m_arena.clear();
}

bool EntrySorter::Advance(Run& run)
{
    const auto need = [&](qsizetype bytes) {
        while (run.block.size() - run.used < bytes && run.at < run.end) {
            run.block = run.block.mid(run.used);
            run.used = 0;
            m_scratch->seek(run.at);
            const QByteArray more = m_scratch->read(std::min(kBlock, run.end - run.at));
            if (more.isEmpty())
                ThrowFull(m_beside);
            run.at += more.size();
            run.block += more;
        }
        return run.block.size() - run.used >= bytes;
    };
    if (!need(kLength))
        return false;
    const auto size = static_cast<qsizetype>(qFromLittleEndian<quint32>(run.block.constData() + run.used));
    need(kLength + size);
    run.entry = run.block.mid(run.used + kLength, size);
    run.used += kLength + size;
    return true;
}

void EntrySorter::Sort()
{
    if (m_runs.empty())
        return SortArena();
    if (!m_places.empty())
        Spill();
    m_arena.squeeze();
    for (Run& run : m_runs)
        static_cast<void>(Advance(run));
    std::make_heap(m_runs.begin(), m_runs.end(),
                   [](const Run& left, const Run& right) { return Less(right.entry, left.entry); });
}

bool EntrySorter::Next(QByteArray& entry)
{
    if (!m_scratch) {
        if (m_next == m_places.size())
            return false;
        entry = View(m_places[m_next++]).toByteArray();
        return true;
    }
    if (m_runs.empty())
        return false;
    const auto later = [](const Run& left, const Run& right) { return Less(right.entry, left.entry); };
    std::pop_heap(m_runs.begin(), m_runs.end(), later);
    entry = m_runs.back().entry;
    if (Advance(m_runs.back()))
        std::push_heap(m_runs.begin(), m_runs.end(), later);
    else
        m_runs.pop_back();
    return true;
}

} // namespace vasclip::engine::jet

#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <memory>
#include <vector>

namespace vasclip::engine::jet {

/// Puts byte strings in order, however many they are: what memory should not hold lies sorted in a scratch file.
class EntrySorter
{
public:
    /// @param beside  the file beside which the scratch file lies while it is needed
    /// @param most    bytes that are kept in memory
    explicit EntrySorter(QString beside, qsizetype most = kMost);

    void Add(const QByteArray& entry); ///< @throws 61
    void Sort();                       ///< after the last one
    [[nodiscard]] bool Next(QByteArray& entry); ///< the entries in order; false at the end

    static constexpr qsizetype kMost = 8 << 20;

private:
    struct Place
    {
        quint32 at;
        quint32 size;
    };
    /// A sorted piece of the scratch file that is read a block at a time.
    struct Run
    {
        qint64 at = 0;
        qint64 end = 0;
        QByteArray block;
        qsizetype used = 0;
        QByteArray entry;
    };

    [[nodiscard]] QByteArrayView View(const Place& place) const
    {
        return {m_arena.constData() + place.at, static_cast<qsizetype>(place.size)};
    }
    void SortArena();
    void Spill();
    [[nodiscard]] bool Advance(Run& run);

    QString m_beside;
    qsizetype m_most;
    QByteArray m_arena;
    std::vector<Place> m_places;
    std::size_t m_next = 0;
    std::unique_ptr<QTemporaryFile> m_scratch;
    std::vector<Run> m_runs; ///< a heap while they are merged, the least entry on top
};

} // namespace vasclip::engine::jet

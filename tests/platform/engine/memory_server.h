#pragma once

#include "platform/engine/types.h"
#include "platform/engine/waits.h"

#include <QHash>
#include <QVariant>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace vasclip::engine {

/// What a server can do wrong.
struct MemoryFaults
{
    std::function<void()> delay;   ///< turned before every call
    std::chrono::milliseconds answersAfter{0}; ///< each call; the time passes without a clock
    int failAfter = -1;            ///< so many calls succeed, then the connection is lost; -1 for never
    bool loseCommitAnswer = false; ///< the next commit happens, and its answer does not arrive
};

struct MemoryRow
{
    qint64 version = 1;
    QVariantList values; ///< one for each field of the table
};

struct MemoryTable
{
    TableDef def;
    std::map<qint64, MemoryRow> rows;
    qint64 nextId = 1;
    bool mayChange = true; ///< this user's right to it
};

/// Tables in memory with the manners of a server: calls cost, fail and get lost, and after an error within a
/// transaction it refuses everything until that statement is taken back.
class MemoryServer
{
public:
    MemoryFaults faults;
    int calls = 0;
    std::shared_ptr<Waits> waits; ///< of the engine whose calls these are

    // Every access is one call. @throws 3151 when the connection is lost or no answer came in time, 3059 when
    // the wait was given up
    [[nodiscard]] MemoryTable& Table(const QString& name); ///< @throws 3078
    [[nodiscard]] const QList<MemoryTable>& Tables();
    [[nodiscard]] qint64 Generation() const { return m_generation; }

    // Transactions; a statement outside of one commits by itself.
    void Begin();
    void Commit();
    void Rollback();
    [[nodiscard]] bool InTransaction() const { return !m_saved.empty(); }

    /// Runs one statement: it happens whole or not at all. In a transaction it is refused after an error that
    /// was not taken back by `TakeBack`.
    void Statement(const std::function<void(QList<MemoryTable>&)>& change);
    void Savepoint();
    void TakeBack(); ///< to the last savepoint, after which statements are taken again

private:
    void Call();

    QList<MemoryTable> m_tables;
    std::vector<QList<MemoryTable>> m_saved; ///< as they were when each open transaction began
    QList<MemoryTable> m_savepoint;
    bool m_refuses = false;
    qint64 m_generation = 0;
};

} // namespace vasclip::engine

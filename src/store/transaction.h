#pragma once

#include "store/change.h"

namespace vasclip::store {

/// Who watches the sources of one database, and the steps that he has not heard of yet.
class Watcher
{
public:
    std::function<void(const Step&)> watch;
    std::function<void()> takenBack;

private:
    friend class Transaction;
    QList<Step> m_steps; ///< of the transactions that are open, in their order
    int m_depth = 0;
};

/// Changes that belong together: all of them are stored, or none. Rolls back unless committed.
///
/// Transactions of a database nest, and a step is handed to the watcher by the outermost one alone, just before it
/// commits. One that is rolled back takes its steps with it. Where the commit fails, or the watcher throws, he is told
/// that what he heard was taken back.
class Transaction
{
public:
    explicit Transaction(DataSource& source); ///< @throws RuntimeError as Database::BeginTrans
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Heard(const Step& step); ///< what a watcher is to hear of
    [[nodiscard]] bool IsHeard() const { return static_cast<bool>(m_watcher->watch); } ///< is there one?
    /// @throws what the watcher throws, and as Database::CommitTrans
    void Commit();

private:
    void HandOut();

    std::shared_ptr<Watcher> m_watcher;
    engine::Transaction m_whole;
    qsizetype m_before; ///< steps of the transactions around this one
    bool m_committed = false;
};

} // namespace vasclip::store

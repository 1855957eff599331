#include "platform/engine/memory_server.h"

#include "platform/engine/errors.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

void MemoryServer::Call()
{
    if (waits)
        waits->NeedFree();
    ++calls;
    if (const auto delay = faults.delay) // which may take itself away
        delay();
    constexpr std::chrono::milliseconds kLook{10};
    for (auto waited = kLook; waits && waited < faults.answersAfter; waited += kLook) {
        if (waits->GoOn(waited))
            continue;
        if (waits->TakeGivenUp())
            throw RuntimeError(error::kWaitGivenUp, u"The wait for the server was given up"_s);
        throw RuntimeError(error::kConnectionLost, u"The server did not answer in time"_s);
    }
    if (faults.failAfter == 0)
        throw RuntimeError(error::kConnectionLost, u"The connection to the server is lost"_s);
    if (faults.failAfter > 0)
        --faults.failAfter;
}

MemoryTable& MemoryServer::Table(const QString& name)
{
    Call();
    for (MemoryTable& table : m_tables) {
        if (table.def.name.compare(name.trimmed(), Qt::CaseInsensitive) == 0)
            return table;
    }
    throw RuntimeError(error::kTableUnknown, u"There is no table '%1' on the server"_s.arg(name));
}

const QList<MemoryTable>& MemoryServer::Tables()
{
    Call();
    return m_tables;
}

void MemoryServer::Begin()
{
    Call();
    m_saved.push_back(m_tables);
}

void MemoryServer::Commit()
{
    Call();
    if (m_saved.empty())
        throw RuntimeError(error::kNoTransaction, u"There is no transaction to commit"_s);
    if (m_refuses)
        throw RuntimeError(error::kInternalEngine, u"The transaction is aborted"_s);
    m_saved.pop_back();
    if (m_saved.empty() && std::exchange(faults.loseCommitAnswer, false))
        throw RuntimeError(error::kConnectionLost, u"The connection was lost while a change was stored"_s);
}

void MemoryServer::Rollback()
{
    if (m_saved.empty())
        throw RuntimeError(error::kNoTransaction, u"There is no transaction to roll back"_s);
    m_tables = m_saved.back();
    m_saved.pop_back();
    m_refuses = false;
    ++m_generation;
}

void MemoryServer::Statement(const std::function<void(QList<MemoryTable>&)>& change)
{
    Call();
    if (m_refuses)
        throw RuntimeError(error::kInternalEngine,
                           u"The transaction is aborted: statements are refused until its end"_s);
    const QList<MemoryTable> before = m_tables;
    try {
        change(m_tables);
    } catch (...) {
        m_tables = before;
        m_refuses = InTransaction();
        throw;
    }
    ++m_generation;
    if (!InTransaction() && std::exchange(faults.loseCommitAnswer, false))
        throw RuntimeError(error::kConnectionLost, u"The connection was lost while a change was stored"_s);
}

void MemoryServer::Savepoint()
{
    Call();
    m_savepoint = m_tables;
}

void MemoryServer::TakeBack()
{
    m_tables = m_savepoint;
    m_refuses = false;
}

} // namespace vasclip::engine

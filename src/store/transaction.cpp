#include "store/transaction.h"

namespace vasclip::store {

Transaction::Transaction(DataSource& source)
    : m_watcher(source.m_watcher)
    , m_whole(source.Database())
    , m_before(m_watcher->m_steps.size())
{
    ++m_watcher->m_depth;
}

Transaction::~Transaction()
{
    if (m_committed)
        return;
    --m_watcher->m_depth;
    m_watcher->m_steps.resize(m_before);
}

void Transaction::Heard(const Step& step)
{
    m_watcher->m_steps.append(step);
}

void Transaction::Commit()
{
    const bool outermost = m_watcher->m_depth == 1;
    const bool told = outermost && !m_watcher->m_steps.isEmpty();
    try {
        if (outermost)
            HandOut();
        m_whole.Commit();
    } catch (...) {
        if (told && m_watcher->takenBack)
            m_watcher->takenBack();
        throw;
    }
    m_committed = true;
    --m_watcher->m_depth;
    if (outermost)
        m_watcher->m_steps.clear();
}

/// A watcher may store something himself, which is part of the same transaction.
void Transaction::HandOut()
{
    for (qsizetype i = 0; i < m_watcher->m_steps.size(); ++i)
        if (m_watcher->watch)
            m_watcher->watch(Step(m_watcher->m_steps.at(i)));
}

} // namespace vasclip::store

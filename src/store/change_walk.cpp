#include "store/change_walk.h"

#include "store/messages.h"

namespace vasclip::store {

namespace {

QStringList Held(const DataSource& source, const QStringList& fields)
{
    QStringList held;
    for (const QString& field : fields)
        if (source.FieldIndex(field) >= 0)
            held.append(field);
    return held;
}

} // namespace

ChangeWalk::ChangeWalk(DataSource& source, const QStringList& fields, const QString& words)
    : m_whole(source)
    , m_rows(source.Database(), source.RecordSource(), Held(source, fields))
    , m_table(source.RecordSource())
    , m_words(words)
{
    for (int i = 0; i < m_rows.Fields().size(); ++i)
        m_names.append(m_rows.Fields().at(i).name.toUpper());
    for (int i = 0; i < m_names.size(); ++i)
        m_byName.insert(m_names.at(i), i);
    m_key = FieldIndex(kKeyIndex);
}

int ChangeWalk::FieldIndex(const QString& name) const
{
    const auto found = m_byName.constFind(name);
    return found == m_byName.cend() ? m_byName.value(name.toUpper(), -1) : *found;
}

Step ChangeWalk::StepOf(Step::Kind kind, const QString& words) const
{
    Step step{.kind = kind, .words = words, .table = m_table};
    step.key = m_key < 0 ? QString() : Value(m_key).toString().trimmed();
    step.words.replace(QLatin1StringView("%1"), step.key);
    return step;
}

void ChangeWalk::Set(int field, const QVariant& value)
{
    if (!m_whole.IsHeard()) {
        m_rows.Set(field, value);
        return;
    }
    if (!m_step)
        m_step = StepOf(Step::Kind::Edited, m_words);
    const QString& name = NameAt(field);
    const QVariant before = Value(field);
    m_rows.Set(field, value);
    if (!m_step->before.contains(name))
        m_step->before.insert(name, before);
    m_step->after.insert(name, Value(field));
}

void ChangeWalk::Store()
{
    m_rows.Update();
    if (m_step)
        m_whole.Heard(*m_step);
    m_step.reset();
}

void ChangeWalk::Delete(const QString& words)
{
    m_step.reset();
    if (m_whole.IsHeard()) {
        Step step = StepOf(Step::Kind::Deleted, words);
        for (auto field = m_byName.cbegin(); field != m_byName.cend(); ++field)
            if (const QVariant& value = Value(field.value()); value.isValid())
                step.before.insert(field.key(), value);
        m_whole.Heard(step);
    }
    m_rows.Delete();
}

} // namespace vasclip::store

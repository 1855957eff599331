#include "mapdata/account.h"

namespace vasclip::mapdata {

using namespace Qt::StringLiterals;

bool Account::Open(const QString& file, QString& problem)
{
    if (file.isEmpty())
        return true;
    const QFileInfo there(file);
    static const QStringList texts{u"txt"_s, u"csv"_s, u"log"_s};
    if (there.size() > 0 && !texts.contains(there.suffix(), Qt::CaseInsensitive)) {
        problem = u"the account can't be written to %1: something else is there; choose a name that ends in .txt"_s.arg(file);
        return false;
    }
    m_file.setFileName(file);
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return true;
    problem = u"the account can't be written to %1: %2"_s.arg(file, m_file.errorString());
    return false;
}

void Account::Line(const QString& line)
{
    if (m_file.isOpen() && m_file.write(line.toUtf8() + '\n') < 0)
        m_failed = true;
}

void Account::Left(const QString& source, const QString& record, const QString& why)
{
    ++m_left[why];
    Line(u"left out: %1: %2: %3"_s.arg(source, record, why));
}

void Account::Remark(const QString& source, const QString& record, const QString& what)
{
    ++m_remarks[what];
    Line(u"remark: %1: %2: %3"_s.arg(source, record, what));
}

void Account::Note(const QString& words)
{
    m_notes.append(words);
    Line(u"note: %1"_s.arg(words));
}

void Account::Several(const QString& source, qint64 count, const QString& what)
{
    if (count == 0)
        return;
    m_remarks[what] += count;
    Line(u"remark: %1: %2 records: %3"_s.arg(source, QString::number(count), what));
}

bool Account::Close()
{
    if (!m_file.isOpen())
        return true;
    Line({});
    const auto sums = [this](const QMap<QString, qint64>& counts, const QString& head) {
        for (auto at = counts.cbegin(); at != counts.cend(); ++at)
            Line(u"%1 %2: %3"_s.arg(head, QString::number(at.value()), at.key()));
    };
    sums(m_taken, u"taken"_s);
    sums(m_remarks, u"with a remark"_s);
    sums(m_left, u"left out"_s);
    m_failed = !m_file.flush() || m_failed;
    m_file.close();
    return !m_failed;
}

} // namespace vasclip::mapdata

// vasctl killed at any moment of a change: what it said to be done is done, and no record is half one.

#include "faults/fault_home.h"

#include <random>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

class Killed : public FaultHome
{
protected:
    /// Starts vasctl and kills it after a time. @return true if it said before that it was done
    bool RunAndKill(const QStringList& command, int milliseconds) const
    {
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(ProgramHome::Program(u"vasctl"_s), QStringList{u"--home"_s, home.Path()} + command);
        process.waitForFinished(milliseconds);
        process.kill();
        process.waitForFinished();
        const QByteArray said = process.readAllStandardOutput();
        return said.contains("was added.") || said.contains("was changed.");
    }
    /// CITY and NOTES by key.
    [[nodiscard]] QMap<QString, QPair<QString, QString>> Rows() const
    {
        QMap<QString, QPair<QString, QString>> rows;
        const Ended list = home.Vasctl(
            {u"sql"_s, u"SELECT CENTRALKEY, CITY, NOTES FROM COMPS WHERE CENTRALKEY LIKE '*KILL RD'"_s});
        EXPECT_EQ(list.code, kDone) << list.err.toStdString();
        for (const QJsonValue& value : list.Array()) {
            const QJsonObject row = value.toObject();
            rows.insert(row[u"CENTRALKEY"_s].toString(),
                        {row[u"CITY"_s].toString(), row[u"NOTES"_s].toString()});
        }
        return rows;
    }
    static QStringList Fields(const QString& value)
    {
        return {u"--set"_s, u"CITY="_s + value, u"--set"_s, u"NOTES="_s + value};
    }
    /// Moments from the start of the program to a little after its usual end.
    int Moment() { return static_cast<int>(m_random() % static_cast<unsigned>(m_usualMs * 5 / 4 + 1)); }
    void MeasureAdd(const QString& key)
    {
        const Timed usual = Vasctl(QStringList{u"records"_s, u"add"_s, key} + Fields(u"C0"_s));
        ASSERT_EQ(usual.code, kDone) << usual.Story();
        m_usualMs = static_cast<int>(usual.seconds * 1000);
    }

private:
    std::mt19937 m_random{20040307};
    int m_usualMs = 0;
};

TEST_F(Killed, AddingLeavesWholeRecordsOnly)
{
    MeasureAdd(u"0 Kill Rd"_s);
    QStringList done{u"0 KILL RD"_s};
    constexpr int kRuns = 24;
    for (int i = 1; i <= kRuns; ++i) {
        const QString key = u"%1 KILL RD"_s.arg(i);
        if (RunAndKill(QStringList{u"records"_s, u"add"_s, key} + Fields(u"C%1"_s.arg(i)), Moment()))
            done.append(key);
    }
    const auto rows = Rows();
    for (const QString& key : done)
        EXPECT_TRUE(rows.contains(key)) << key.toStdString() << " was reported done and is not there";
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        const QString value = u"C"_s + row.key().section(u' ', 0, 0);
        EXPECT_EQ(row.value().first, value) << row.key().toStdString();
        EXPECT_EQ(row.value().second, value) << row.key().toStdString();
    }
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 60 + rows.size()) << "all others stay";
    EXPECT_EQ(Vasctl({u"records"_s, u"add"_s, u"999 Kill Rd"_s}).code, kDone) << "and the next one is taken";
    EXPECT_EQ(Vasctl({u"doctor"_s}).code, kDone);
}

TEST_F(Killed, EditingLeavesTheOldValuesOrTheNew)
{
    MeasureAdd(u"1 Kill Rd"_s);
    QString known = u"C0"_s; // what was reported done last
    constexpr int kRuns = 24;
    for (int i = 1; i <= kRuns; ++i) {
        const QString value = u"C%1"_s.arg(i);
        const bool reported =
            RunAndKill(QStringList{u"records"_s, u"edit"_s, u"1 Kill Rd"_s} + Fields(value), Moment());
        const auto row = Rows().value(u"1 KILL RD"_s);
        EXPECT_EQ(row.first, row.second) << "half an edit in run " << i;
        EXPECT_TRUE(row.first == value || (!reported && row.first == known))
            << row.first.toStdString() << " after " << known.toStdString() << " and " << value.toStdString();
        known = row.first;
    }
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 61);
}

} // namespace
} // namespace vasclip::tests

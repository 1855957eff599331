// A transfer into the Databook in which one of the two programs dies: each record is whole or untouched, and
// no picture is lost.

#include "faults/fault_home.h"

#include <random>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

class TransferFaults : public FaultHome
{
protected:
    static constexpr int kComps = 9;
    inline static const QStringList kSpoiled{u"1"_s, u"Spoiled"_s, u"Spoiled"_s};

    /// Nine comps with pictures in the report; their records then lack what the report holds.
    void FillReport()
    {
        ASSERT_TRUE(StartForms({u"--save-on-exit"_s}));
        const Ended list =
            home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY FROM COMPS WHERE FRONT = '1' ORDER BY CENTRALKEY"_s});
        for (const QJsonValue& row : list.Array()) {
            if (m_keys.size() == kComps)
                break;
            const QString key = row.toObject()[u"CENTRALKEY"_s].toString().trimmed();
            m_keys.append(key);
            const QString slot = u"txtComp:%1"_s.arg(m_keys.size());
            const Timed run = Vasctl({u"--yes"_s, u"drop"_s, key, u"--on"_s, slot});
            ASSERT_EQ(run.code, kDone) << run.Story();
        }
        ASSERT_EQ(m_keys.size(), kComps);
        ProgramHome::Stop(home.forms);
        m_whole = Values();
        Spoil();
    }
    /// Gives every record of the report other values than the report's.
    void Spoil()
    {
        const QMap<QString, QStringList> now = Values();
        for (const QString& key : m_keys) {
            if (now[key] == kSpoiled)
                continue;
            const Timed run = Vasctl({u"records"_s, u"edit"_s, key, u"--set"_s, u"GLA=1"_s, u"--set"_s,
                                      u"CONDITION=Spoiled"_s, u"--set"_s, u"PARKING=Spoiled"_s});
            ASSERT_EQ(run.code, kDone) << run.Story();
        }
    }
    /// What the report's first, a middle and one of its last lines lead to, of each record of the report.
    [[nodiscard]] QMap<QString, QStringList> Values() const
    {
        QMap<QString, QStringList> values;
        for (const QJsonValue& row :
             home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, GLA, CONDITION, PARKING FROM COMPS"_s}).Array()) {
            const QJsonObject record = row.toObject();
            const QString key = record[u"CENTRALKEY"_s].toString().trimmed();
            if (!m_keys.contains(key))
                continue;
            for (const QString& field : {u"GLA"_s, u"CONDITION"_s, u"PARKING"_s})
                values[key].append(record[field].toVariant().toString()); // numbers are numbers
        }
        EXPECT_EQ(values.size(), m_keys.size());
        return values;
    }
    /// @return how many records hold the report's values; every other one holds those it had before
    int ExpectWholeOrUntouched(const std::string& when) const
    {
        int whole = 0;
        const QMap<QString, QStringList> values = Values();
        for (const QString& key : m_keys) {
            const QStringList now = values[key];
            const bool stored = now == m_whole[key];
            whole += stored ? 1 : 0;
            EXPECT_TRUE(stored || now == kSpoiled)
                << when << ": " << key.toStdString() << " holds " << now.join(u", "_s).toStdString();
        }
        EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), m_records) << when;
        const Timed verify = Vasctl({u"photos"_s, u"verify"_s});
        EXPECT_EQ(verify.code, kDone) << when << ": " << verify.Story();
        return whole;
    }
    [[nodiscard]] QStringList SubjectPictures() const
    {
        QStringList lost;
        for (const QString& name : {u"OAKST114_1.JPG"_s, u"OAKST114_2.JPG"_s, u"OAKST114_3.JPG"_s})
            if (!QFile::exists(home.Native(u"KEL/DATA/"_s + name)))
                lost.append(name);
        return lost;
    }

    QStringList m_keys;
    QMap<QString, QStringList> m_whole;
    int m_records = 60;
};

TEST_F(TransferFaults, AFormsProgramThatDiesLeavesTheCompItWasAtAndThoseAfterIt)
{
    FillReport();
    ASSERT_TRUE(StartForms({u"--log"_s, home.Path() + u"/exchanges"_s}));
    ASSERT_EQ(Vasctl({u"--yes"_s, u"transfer"_s, u"comps"_s, u"--data"_s}).code, kDone);
    EXPECT_EQ(ExpectWholeOrUntouched("no fault"), kComps);
    ProgramHome::Stop(home.forms);
    const qsizetype exchanges = Bytes(home.Path() + u"/exchanges"_s).count('\n');
    ASSERT_GT(exchanges, kComps * 30);

    QList<int> stored;
    for (const int percent : {50, 75, 95}) {
        Spoil();
        const auto answers = exchanges / 2 * percent / 100;
        ASSERT_TRUE(StartForms({u"--die-after"_s, QString::number(answers)}));
        const Timed run =
            Vasctl({u"--time-limit"_s, u"5"_s, u"--yes"_s, u"transfer"_s, u"comps"_s, u"--data"_s});
        EXPECT_EQ(run.code, kFailed) << percent << ": " << run.Story();
        EXPECT_TRUE(run.Says(u"The forms program closed the link in the middle of an answer"_s))
            << percent << ": " << run.Story();
        EXPECT_TRUE(home.forms.waitForFinished(kPatienceMs));
        stored.append(ExpectWholeOrUntouched(std::to_string(percent) + " %"));
    }
    EXPECT_LT(stored.first(), stored.last()) << "the faults fell on different comps";
    EXPECT_LT(stored.last(), kComps);
}

TEST_F(TransferFaults, AVasctlThatIsKilledLeavesWholeRecordsAndPictures)
{
    FillReport();
    const QString log = home.Path() + u"/exchanges"_s;
    ASSERT_TRUE(StartForms({u"--log"_s, log}));
    const auto said = [&log] { return QFileInfo(log).size(); };
    const QStringList transfer{u"--yes"_s, u"transfer"_s, u"all"_s};
    const qint64 before = said();
    const Timed usual = Vasctl(transfer);
    ASSERT_EQ(usual.code, kDone) << usual.Story();
    const qint64 whole = said() - before;
    ASSERT_GT(whole, 0);
    m_records = 61; // with the subject
    ASSERT_EQ(ExpectWholeOrUntouched("no fault"), kComps);

    std::mt19937 random{20040307};
    int partly = 0;
    const int kills = Kills(12);
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        Spoil();
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(ProgramHome::Program(u"vasctl"_s), QStringList{u"--home"_s, home.Path()} + transfer);
        // The moment is told by what has been said, not by the clock: the machine is now slow, now fast.
        const qint64 until = said() + whole * static_cast<int>(random() % 100) / 100;
        while (process.state() != QProcess::NotRunning && said() < until)
            process.waitForFinished(1);
        process.kill();
        process.waitForFinished();
        const int stored = ExpectWholeOrUntouched("run " + std::to_string(i));
        partly += stored > 0 && stored < kComps ? 1 : 0;
        EXPECT_EQ(SubjectPictures(), QStringList()) << "run " << i;
    }
    EXPECT_TRUE(partly > 0 || kills < 12) << "no run was killed among the comps, where a few may miss them";
    ASSERT_EQ(Vasctl(transfer).code, kDone) << "and the next one goes through";
    EXPECT_EQ(ExpectWholeOrUntouched("in the end"), kComps);
    EXPECT_EQ(Vasctl({u"doctor"_s}).code, kDone);
}

} // namespace
} // namespace vasclip::tests

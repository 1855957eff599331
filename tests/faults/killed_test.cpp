// vasctl killed at any moment of a change: what it said to be done is done, and no record is half one.

#include "faults/fault_home.h"

#include <optional>
#include <random>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

class Killed : public FaultHome
{
protected:
    /// Starts vasctl and kills it at a moment about its end. @return true if it said before that it was done
    bool RunAndKill(const QStringList& command)
    {
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(ProgramHome::Program(u"vasctl"_s), QStringList{u"--home"_s, home.Path()} + command);
        const bool finished =
            process.waitForFinished(m_usualMs * static_cast<int>(50 + m_random() % 70) / 100);
        process.kill();
        process.waitForFinished();
        // The machine is now slow, now fast: the moment follows it, so that kills fall on both sides of the
        // end.
        m_usualMs = finished ? m_usualMs * 3 / 4 + 1 : m_usualMs * 4 / 3 + 1;
        const QByteArray said = process.readAllStandardOutput();
        const bool done = said.contains("was added.") || said.contains("was changed.") ||
                          said.contains(" now.") || said.contains("was copied to") ||
                          said.contains("was deleted.") || said.contains("were changed.") ||
                          said.contains("was added to") || said.contains("were converted to") || said.contains("was saved.");
        ++(done ? m_done : m_killed);
        return done;
    }
    void TearDown() override
    {
        EXPECT_GT(m_done, 0) << "no run was let through";
        EXPECT_GT(m_killed, 0) << "no run was killed in time";
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
    void MeasureAdd(const QString& key)
    {
        const Timed usual = Vasctl(QStringList{u"records"_s, u"add"_s, key} + Fields(u"C0"_s));
        ASSERT_EQ(usual.code, kDone) << usual.Story();
        Usually(usual);
    }
    void Usually(const Timed& run) { m_usualMs = static_cast<int>(run.seconds * 1000); }

private:
    std::mt19937 m_random{20040307};
    int m_usualMs = 0;
    int m_done = 0;
    int m_killed = 0;
};

TEST_F(Killed, AConversionHasMadeTheWholeFileOrNone)
{
    const QString book = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
    const QByteArray before = Bytes(Databook());
    Usually(Vasctl({u"convert"_s, book, u"C:\\FIRST.MDB"_s, u"--to"_s, u"access"_s}));
    constexpr int kRuns = 24;
    for (int run = 0; run < kRuns; ++run) {
        const QString kind = run % 2 == 0 ? u"access"_s : u"vasclip"_s;
        const QString target = u"C:\\MADE%1.MDB"_s.arg(run);
        const bool done = RunAndKill({u"convert"_s, u"C:\\FIRST.MDB"_s, target, u"--to"_s, kind});
        const bool there = QFile::exists(home.Path() + u"/drive_c/MADE%1.MDB"_s.arg(run));
        EXPECT_TRUE(there || !done) << target.toStdString();
        if (there) {
            const Ended count = home.Vasctl({u"sql"_s, u"--file"_s, target, u"SELECT COUNT(*) AS N FROM COMPS"_s});
            EXPECT_EQ(count.Array()[0].toObject()[u"N"_s].toInt(), 60) << target.toStdString();
        }
    }
    EXPECT_EQ(Bytes(Databook()), before);
}

TEST_F(Killed, AddingLeavesWholeRecordsOnly)
{
    MeasureAdd(u"0 Kill Rd"_s);
    QStringList done{u"0 KILL RD"_s};
    constexpr int kRuns = 24;
    for (int i = 1; i <= kRuns; ++i) {
        const QString key = u"%1 KILL RD"_s.arg(i);
        if (RunAndKill(QStringList{u"records"_s, u"add"_s, key} + Fields(u"C%1"_s.arg(i))))
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
            RunAndKill(QStringList{u"records"_s, u"edit"_s, u"1 Kill Rd"_s} + Fields(value));
        const auto row = Rows().value(u"1 KILL RD"_s);
        EXPECT_EQ(row.first, row.second) << "half an edit in run " << i;
        EXPECT_TRUE(row.first == value || (!reported && row.first == known))
            << row.first.toStdString() << " after " << known.toStdString() << " and " << value.toStdString();
        known = row.first;
    }
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 61);
}

TEST_F(Killed, DeletingTakesARecordBeforeItsPicturesAndNeverThemAlone)
{
    struct Comp
    {
        QString key;
        QStringList pictures;
    };
    QList<Comp> comps;
    const QString pictures = home.Vasctl({u"settings"_s, u"get"_s, u"PHOTODIR"_s})
                                 .Object()[u"value"_s]
                                 .toString()
                                 .mid(3)
                                 .replace(u'\\', u'/');
    const auto photosOf = [&](const QString& key) -> std::optional<QString> {
        const Ended shown = home.Vasctl({u"records"_s, u"show"_s, key});
        if (shown.code != kDone)
            return std::nullopt;
        return shown.Object()[u"PHOTOS"_s].toString();
    };
    for (const QJsonValue& value : home.Vasctl({u"records"_s, u"list"_s}).Array()) {
        Comp comp{value.toObject()[u"CENTRALKEY"_s].toString(), {}};
        for (const QString& line : photosOf(comp.key).value_or(QString()).split(u"\r\n"_s))
            if (line.contains(u'|'))
                comp.pictures.append(
                    home.Native(pictures + u'/' + line.section(u'|', 1).trimmed() + u".jpg"_s));
        if (!comp.pictures.isEmpty())
            comps.append(comp);
        if (comps.size() == 20)
            break;
    }
    ASSERT_EQ(comps.size(), 20);
    const Timed usual = Vasctl({u"--yes"_s, u"records"_s, u"delete"_s, comps.takeFirst().key});
    ASSERT_EQ(usual.code, kDone) << usual.Story();
    Usually(usual);
    for (const Comp& comp : comps) {
        const bool reported = RunAndKill({u"--yes"_s, u"records"_s, u"delete"_s, comp.key});
        const bool there = photosOf(comp.key).has_value();
        EXPECT_FALSE(reported && there) << comp.key.toStdString() << " was reported deleted and is there";
        for (const QString& picture : comp.pictures) {
            EXPECT_FALSE(there && !QFile::exists(picture))
                << comp.key.toStdString() << " is there without " << picture.toStdString();
            EXPECT_FALSE(reported && QFile::exists(picture)) << picture.toStdString() << " was left";
        }
    }
    EXPECT_EQ(Vasctl({u"doctor"_s}).code, kDone);
}

TEST_F(Killed, AssigningACityChangesAllRecordsOfANeighborhoodOrNone)
{
    Usually(Vasctl({u"records"_s, u"add"_s, u"0 Kill Rd"_s, u"--set"_s, u"NEIGHBORHD=Kill"_s}));
    for (int i = 1; i < 6; ++i)
        ASSERT_EQ(
            Vasctl({u"records"_s, u"add"_s, u"%1 Kill Rd"_s.arg(i), u"--set"_s, u"NEIGHBORHD=Kill"_s}).code,
            kDone);
    QString known;
    for (int i = 1; i <= 20; ++i) {
        const QString city = u"C%1"_s.arg(i);
        const bool reported = RunAndKill({u"cities"_s, u"assign"_s, u"Kill"_s, u"--city"_s, city});
        const auto rows = Rows();
        ASSERT_EQ(rows.size(), 6);
        const QString now = rows.first().first;
        for (const auto& row : rows)
            EXPECT_EQ(row.first, now) << "half a neighborhood in run " << i;
        EXPECT_TRUE(now == city || (!reported && now == known)) << now.toStdString() << " in run " << i;
        known = now;
    }
}

TEST_F(Killed, TheListOfCitiesIsTheOldOneOrTheNewOne)
{
    const auto cities = [this] {
        QStringList lines;
        for (const QJsonValue& value : home.Vasctl({u"cities"_s, u"list"_s}).Array())
            lines.append(value.toObject()[u"CITY"_s].toString());
        return lines;
    };
    const Timed usual = Vasctl({u"cities"_s, u"add"_s, u"--city"_s, u"K0"_s});
    ASSERT_EQ(usual.code, kDone) << usual.Story();
    Usually(usual);
    const QString settings =
        home.Vasctl({u"settings"_s, u"get"_s, u"PHOTODIR"_s}).Object()[u"value"_s].toString();
    QStringList known = cities();
    for (int i = 1; i <= 20; ++i) {
        const QString city = u"K%1"_s.arg(i);
        const bool reported = RunAndKill({u"cities"_s, u"add"_s, u"--city"_s, city});
        const QStringList now = cities();
        EXPECT_TRUE(now == known + QStringList{city} || (!reported && now == known))
            << now.join(u'|').toStdString() << " in run " << i;
        known = now;
    }
    EXPECT_EQ(home.Vasctl({u"settings"_s, u"get"_s, u"PHOTODIR"_s}).Object()[u"value"_s].toString(), settings)
        << "the rest of the file stays";
}

TEST_F(Killed, APhraseIsStoredWholeOrNotAtAll)
{
    const QString field = u"STORAGE"_s;
    const auto phrases = [&] {
        QStringList all;
        const Ended list = home.Vasctl({u"comments"_s, u"list"_s, field});
        EXPECT_EQ(list.code, kDone) << list.err.toStdString();
        for (const QJsonValue& value : list.Array())
            all.append(value.toObject()[u"PHRASE"_s].toString());
        return all;
    };
    const Timed usual = Vasctl({u"comments"_s, u"add"_s, field, u"phrase 0"_s});
    ASSERT_EQ(usual.code, kDone) << usual.Story();
    Usually(usual);
    QStringList known = phrases();
    for (int i = 1; i <= 16; ++i) {
        const QString phrase = u"phrase %1"_s.arg(i);
        const bool reported = RunAndKill({u"comments"_s, u"add"_s, field, phrase});
        const QStringList now = phrases();
        EXPECT_TRUE(now == known + QStringList{phrase} || (!reported && now == known))
            << now.join(u'|').toStdString() << " in run " << i;
        known = now;
    }
}

TEST_F(Killed, ASettingIsTheOldOneOrTheNewOneAndTheRestStays)
{
    const auto settings = [this] {
        QMap<QString, QString> all;
        const Ended list = home.Vasctl({u"settings"_s, u"list"_s});
        EXPECT_EQ(list.code, kDone) << list.err.toStdString();
        for (const QJsonValue& value : list.Array()) {
            const QJsonObject row = value.toObject();
            all.insert(row[u"section"_s].toString() + u'/' + row[u"key"_s].toString(),
                       row[u"value"_s].toString());
        }
        return all;
    };
    const QString key = u"PREFERENCES/QUALITY"_s;
    const Timed usual = Vasctl({u"settings"_s, u"set"_s, u"QUALITY"_s, u"50"_s});
    ASSERT_EQ(usual.code, kDone) << usual.Story();
    Usually(usual);
    QMap<QString, QString> known = settings();
    ASSERT_EQ(known.value(key), u"50"_s);
    for (int i = 51; i <= 66; ++i) {
        const bool reported = RunAndKill({u"settings"_s, u"set"_s, u"QUALITY"_s, QString::number(i)});
        const QMap<QString, QString> now = settings();
        QMap<QString, QString> wanted = known;
        wanted[key] = QString::number(i);
        EXPECT_TRUE(now == wanted || (!reported && now == known)) << "in run " << i;
        known = now;
    }
}

TEST_F(Killed, ALayoutIsSavedWholeOrNotAtAll)
{
    const auto layouts = [this] {
        QStringList all;
        const Ended list = home.Vasctl({u"layouts"_s, u"list"_s});
        EXPECT_EQ(list.code, kDone) << list.err.toStdString();
        for (const QJsonValue& value : list.Array()) {
            all.append(value.toObject()[u"layout"_s].toString());
            EXPECT_EQ(value.toObject()[u"columns"_s], 29) << all.last().toStdString();
        }
        return all;
    };
    const Timed usual = Vasctl({u"layouts"_s, u"save"_s, u"Kill 0"_s});
    ASSERT_EQ(usual.code, kDone) << usual.Story();
    Usually(usual);
    QStringList known = layouts();
    for (int i = 1; i <= 16; ++i) {
        const QString name = u"Kill %1"_s.arg(i);
        const bool reported = RunAndKill({u"layouts"_s, u"save"_s, name});
        const QStringList now = layouts();
        EXPECT_TRUE(now == known + QStringList{name} || (!reported && now == known))
            << now.join(u'|').toStdString() << " in run " << i;
        known = now;
    }
}

TEST_F(Killed, RenamingAndCopyingLeaveTheOldRecordOrTheNewOneWhole)
{
    MeasureAdd(u"0 Kill Rd"_s);
    QString name = u"0 KILL RD"_s;
    constexpr int kRuns = 12;
    for (int i = 1; i <= kRuns; ++i) {
        const QString next = u"%1 KILL RD"_s.arg(i);
        const bool reported = RunAndKill({u"records"_s, u"rename"_s, name, next});
        const auto rows = Rows();
        ASSERT_EQ(rows.size(), 1) << "after renaming in run " << i;
        EXPECT_TRUE(rows.contains(next) || (!reported && rows.contains(name)))
            << rows.firstKey().toStdString() << " in run " << i;
        EXPECT_EQ(rows.first(), qMakePair(u"C0"_s, u"C0"_s)) << "in run " << i;
        name = rows.firstKey();
    }
    for (int i = 101; i <= 100 + kRuns; ++i) {
        const QString copy = u"%1 KILL RD"_s.arg(i);
        const bool reported = RunAndKill({u"records"_s, u"copy"_s, name, copy});
        const auto rows = Rows();
        EXPECT_TRUE(rows.contains(copy) || !reported) << copy.toStdString() << " was reported done";
        for (auto row = rows.cbegin(); row != rows.cend(); ++row)
            EXPECT_EQ(row.value(), qMakePair(u"C0"_s, u"C0"_s)) << row.key().toStdString();
        EXPECT_TRUE(rows.contains(name)) << "the source stays";
    }
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 60 + Rows().size());
}

} // namespace
} // namespace vasclip::tests

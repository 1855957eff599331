#pragma once

#include "faults/kills.h"
#include "support/processes.h"

#include <QFileInfo>
#include <QMap>

#include <gtest/gtest.h>

#include <initializer_list>

namespace vasclip::tests {

using namespace Qt::StringLiterals;

// The exit codes of vasctl.
inline constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotFound = 3, kDeclined = 4, kNoLink = 5;

/// A run of vasctl with its seconds.
struct Timed : Ended
{
    double seconds = 0;
    [[nodiscard]] bool Says(const QString& words) const { return err.contains(words.toUtf8()); }
    [[nodiscard]] std::string Story() const
    {
        return "exit " + std::to_string(code) + " after " + std::to_string(seconds) + " s\n" +
               out.toStdString() + err.toStdString();
    }
};

/// Another program that does one thing and waits.
class Helper
{
public:
    ~Helper() { End(); }
    /// @return false unless the program said "ready"
    bool Start(const QString& program, const QStringList& arguments)
    {
        m_process.start(program, arguments);
        while (m_process.waitForReadyRead(kPatienceMs)) {
            if (m_process.readAllStandardOutput().contains("ready"))
                return true;
        }
        return false;
    }
    void End()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

/// A demo home of its own, and what it held when the test began.
class FaultHome : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(home.Make());
        m_before = Files();
    }

    [[nodiscard]] Timed Vasctl(const QStringList& arguments) const
    {
        QElapsedTimer timer;
        timer.start();
        Timed run{home.Vasctl(QStringList{u"--plain"_s} + arguments), 0};
        run.seconds = static_cast<double>(timer.elapsed()) / 1000;
        return run;
    }

    static QByteArray Bytes(const QString& native)
    {
        QFile file(native);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
    }
    static bool Write(const QString& native, const QByteArray& bytes)
    {
        QFile file(native);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    [[nodiscard]] QString Databook() const { return home.Native(u"DATABOOK/DATABOOK.MDB"_s); }
    [[nodiscard]] QString Settings() const { return home.Native(u"APPRAISE/VAS2000.INI"_s); }
    [[nodiscard]] QString KelIni() const { return home.Native(u"APPRAISE/KEL.INI"_s); }
    [[nodiscard]] QString Mapping() const { return home.Native(u"VAS2000/Comp2Kel.mdb"_s); }

    [[nodiscard]] QMap<QString, QByteArray> Files() const
    {
        QMap<QString, QByteArray> files;
        for (const QString& file :
             {Databook(), Settings(), KelIni(), Mapping(), home.Native(u"KEL/DATA/OAKST114.RPT"_s),
              home.Native(u"KEL/DATA/FERRY22.RPT"_s)})
            files.insert(file, Bytes(file));
        return files;
    }
    /// Databook, settings, mapping and reports hold what they held when Remember was called, byte for byte.
    void ExpectWhole(const QString& after) const
    {
        const auto now = Files();
        for (auto file = m_before.cbegin(); file != m_before.cend(); ++file)
            EXPECT_TRUE(file.value() == now.value(file.key()))
                << file.key().toStdString() << " has changed after " << after.toStdString();
    }
    /// Takes what a test did to its home for what has to stay.
    void Remember() { m_before = Files(); }

    [[nodiscard]] QString FirstKey() const
    {
        return home.Vasctl({u"records"_s, u"list"_s, u"--limit"_s, u"1"_s})
            .Array()[0]
            .toObject()[u"CENTRALKEY"_s]
            .toString();
    }
    [[nodiscard]] QString CityOf(const QString& key) const
    {
        return home.Vasctl({u"records"_s, u"show"_s, key}).Object()[u"CITY"_s].toString();
    }
    /// Starts the forms program with faults, without spending any of its answers.
    bool StartForms(const QStringList& options,
                    const QStringList& reports = {u"C:\\KEL\\DATA\\OAKST114.RPT"_s})
    {
        home.forms.setProcessEnvironment(home.environment);
        home.forms.start(ProgramHome::Program(u"kelforms"_s),
                         QStringList{u"--home"_s, home.Path(), u"--headless"_s} + options + reports);
        while (home.forms.waitForReadyRead(kPatienceMs)) {
            if (home.forms.readAllStandardOutput().contains("listening at"))
                return true;
        }
        return false;
    }

    ProgramHome home;

private:
    QMap<QString, QByteArray> m_before;
};

} // namespace vasclip::tests

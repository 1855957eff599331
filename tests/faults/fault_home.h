#pragma once

#include "faults/kills.h"
#include "support/processes.h"

#include <QFileInfo>
#include <QMap>

#include <gtest/gtest.h>

#include <initializer_list>

namespace vasclip::tests {

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
        Timed run{home.Vasctl(QStringList{QStringLiteral("--plain")} + arguments), 0};
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

    [[nodiscard]] QString Databook() const { return home.Native(QStringLiteral("DATABOOK/DATABOOK.MDB")); }
    [[nodiscard]] QString Settings() const { return home.Native(QStringLiteral("APPRAISE/VAS2000.INI")); }
    [[nodiscard]] QString KelIni() const { return home.Native(QStringLiteral("APPRAISE/KEL.INI")); }
    [[nodiscard]] QString Mapping() const { return home.Native(QStringLiteral("VAS2000/Comp2Kel.mdb")); }

    [[nodiscard]] QMap<QString, QByteArray> Files() const
    {
        QMap<QString, QByteArray> files;
        for (const QString& file : {Databook(), Settings(), KelIni(), Mapping(),
                                    home.Native(QStringLiteral("KEL/DATA/OAKST114.RPT")),
                                    home.Native(QStringLiteral("KEL/DATA/FERRY22.RPT"))})
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
        return home
            .Vasctl({QStringLiteral("records"), QStringLiteral("list"), QStringLiteral("--limit"),
                     QStringLiteral("1")})
            .Array()[0]
            .toObject()[QStringLiteral("CENTRALKEY")]
            .toString();
    }
    [[nodiscard]] QString CityOf(const QString& key) const
    {
        return home.Vasctl({QStringLiteral("records"), QStringLiteral("show"), key})
            .Object()[QStringLiteral("CITY")]
            .toString();
    }
    /// Starts the forms program with faults, without spending any of its answers.
    bool StartForms(const QStringList& options,
                    const QStringList& reports = {QStringLiteral("C:\\KEL\\DATA\\OAKST114.RPT")})
    {
        home.forms.setProcessEnvironment(home.environment);
        home.forms.start(ProgramHome::Program(QStringLiteral("kelforms")),
                         QStringList{QStringLiteral("--home"), home.Path(), QStringLiteral("--headless")} +
                             options + reports);
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

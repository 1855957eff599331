#pragma once

#include "app/vasclip/link_recorder.h"
#include "platform/files/disk.h"

#include <QDir>
#include <QProcess>

namespace vasclip::app {

/// The forms program of a tour: another process that works on a copy of a report of the home.
class FormsProgram
{
public:
    /// @param directory  of the tour; the copy is `report.json` there
    FormsProgram(const QDir& directory, const QString& program);
    ~FormsProgram();

    /// Copies the largest report of the home, opens it and waits for the link.
    /// @return what went wrong, "" if nothing did; Report() tells the report's name then
    QString Start(const files::Disk& disk, const QString& socketPath);
    [[nodiscard]] const QString& Report() const { return m_report; }

    /// The program's own picture of its window.
    /// @param page  to turn to first; "" for the one on show
    /// @return the file's name in the directory, "" if it took none
    QString TakePicture(const QString& page);

    /// Ends the program, which saves. @return false if it does not stop
    bool Stop();
    /// Holds what was sent against the saved report. @return a line for each difference
    [[nodiscard]] QStringList Differences(const LinkRecorder& sent) const;

private:
    QDir m_directory;
    QString m_program;
    QString m_report;
    QProcess m_process;
};

} // namespace vasclip::app

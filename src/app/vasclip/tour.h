#pragma once

#include "app/vasclip/link_recorder.h"
#include "shell/frm_main.h"

#include <QDir>
#include <QProcess>
#include <QWidget>

namespace vasclip::app {

/// Plays the main job through on a home with the real programs, without a person: start, refresh, three comps
/// dropped (one replacing another, with its question), and leaves pictures of both windows, `report.json` and
/// `steps.txt`.
class Tour
{
public:
    /// @param directory    where pictures and files go; what an earlier tour left there is removed
    /// @param formsProgram native path of the forms program
    Tour(const QString& directory, const QString& formsProgram);
    ~Tour();

    /// Copies the first report of the forms program's data directory and opens it there.
    /// @return false after saying why
    bool StartFormsProgram(const files::Disk& disk, const QString& socketPath);
    /// Plays the steps on the window. @return false if one of them did not do what it should
    bool Play(shell::frm_Main& main, QWidget& window, const LinkRecorder& recorder);
    /// Ends the forms program, which saves, and holds what was sent against what the report holds.
    /// @return the process's exit code: 0 only if everything arrived
    int Finish(const LinkRecorder& recorder);

    void Shoot(QWidget& window, const QString& name); ///< DIR/NN-name.png
    void Step(const QString& text);                   ///< a line of steps.txt, and of the terminal

private:
    struct Stop
    {
        QString key;
        QString slotName;
        int index;
    };
    bool DropOne(shell::frm_Main& main, QWidget& window, const LinkRecorder& recorder, const Stop& stop);
    [[nodiscard]] QStringList Candidates(shell::frm_Main& main) const;
    void AnswerNextQuestion();
    void ShootFormsProgram(const QString& name);

    QDir m_directory;
    QString m_formsPath;
    QProcess m_forms;
    QStringList m_steps;
    int m_pictures = 0;
    int m_questions = 0;
    bool m_ok = true;
};

} // namespace vasclip::app

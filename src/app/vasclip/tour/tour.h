#pragma once

#include "app/vasclip/link_recorder.h"
#include "app/vasclip/tour/forms_program.h"
#include "app/vasclip/tour/strangers.h"
#include "shell/frm_main.h"

#include <QDir>
#include <QSet>
#include <QWidget>

#include <functional>

namespace vasclip::app {

/// Plays the main job through on a home with the real programs, without a person: the steps of tour/steps.h
/// one after the other. It leaves pictures of both programs, `report.json` and `steps.txt`.
class Tour
{
public:
    /// @param directory    where pictures and files go; what an earlier tour left there is removed
    /// @param formsProgram native path of the forms program
    Tour(const QString& directory, const QString& formsProgram);

    /// Copies the first report of the forms program's data directory and opens it there.
    /// @return false after saying why
    bool StartFormsProgram(const files::Disk& disk, const QString& socketPath);
    /// Plays the steps on the window. @return false if one of them did not do what it should
    bool Play(shell::frm_Main& main, QWidget& window, const LinkRecorder& recorder);
    /// Ends the forms program, which saves, and holds what was sent against what the report holds.
    /// @return the process's exit code: 0 only if every step did what it should and everything arrived
    int Finish(const LinkRecorder& recorder);

    // What the steps use.

    void Step(const QString& text);                   ///< a line of steps.txt, and of the terminal
    bool Fail(const QString& text);                   ///< the same; the tour has failed. @return false
    void Shoot(QWidget& window, const QString& name); ///< DIR/NN-name.png
    /// Fails for what can't be reached, read or heard of a window; of each that a picture is taken of too.
    void Check(const QWidget& window);
    /// The same, of the other program's window; it turns to a page first, "" for the one on show.
    void ShootFormsProgram(const QString& name, const QString& page = {});

    using Visit = std::function<void(QWidget& dialog)>;
    /// Does what opens a modal dialog, visits it and closes it if the visit has not.
    /// @param visit  runs once on the dialog, which stands on the screen; it may open another by During
    /// @return false, and the tour has failed, if no dialog came up
    bool During(const QString& what, const std::function<void()>& open, const Visit& visit);
    /// Chooses an entry of a window's menu bar by its words: "Setup > Grid Layout". @return false, and the
    /// tour has failed, if there is no such entry or it is disabled
    bool Choose(QWidget& window, const QString& words);
    /// Where a file goes that the tour leaves; native.
    [[nodiscard]] QString PathOf(const QString& name) const { return m_directory.absoluteFilePath(name); }

private:
    /// A picture of a dialog that nobody expects, and what it says. The tour has failed.
    void TellOf(QWidget& stranger);

    QDir m_directory;
    FormsProgram m_forms;
    Strangers m_strangers;
    QString m_playing; ///< name of the step
    QStringList m_steps;
    QSet<QString> m_opened; ///< object names of the dialogs that came up
    int m_pictures = 0;
    bool m_ok = true;
};

/// Lets the window paint and the pictures settle before they are taken.
void Settle(int milliseconds = 120);

} // namespace vasclip::app

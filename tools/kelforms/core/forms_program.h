#pragma once

#include "kelforms/core/macro.h"
#include "kelforms/core/reports.h"
#include "platform/conduit/link_session.h"
#include "platform/files/disk.h"

#include <QMap>

namespace kelforms {

/// What forms programs have been seen to answer where nothing says what they must.
struct Habits
{
    enum class NoValue {
        Echo, ///< the question: MACRO(GETREQUEST$("SC_1"))
        Null, ///< NULL
        Tail, ///< ERAL), what is left of a question that was cut
    };
    NoValue noValue = NoValue::Echo; ///< for a variable that has no value
    bool bareLists = false;          ///< lists end without their last comma
    bool blankForNone = false;       ///< no report open: a blank answer in place of "none"
};

/// What the forms program answers on the link: reports, cells, variables and macros.
///
/// Whatever it does not understand it refuses in words (RuntimeError 285) and changes nothing.
class FormsProgram final : public vasclip::conduit::LinkHandler
{
public:
    /// @param iniFile  drive path of KEL.INI; it names the directory of the scripts
    FormsProgram(Reports& reports, const vasclip::files::Disk& disk, QString iniFile, Habits habits = {});

    [[nodiscard]] QString Request(const QString& topic, const QString& item) override;
    void Poke(const QString& topic, const QString& item, const QString& text) override;
    void Execute(const QString& topic, const QString& command) override;

    /// Is there anything to say about a topic: the program itself, or a report that is open?
    [[nodiscard]] bool Takes(const QString& topic) const;

    /// "name|path;" for every image object of the report's pages.
    [[nodiscard]] static QString ImagesList(const Report& report);

private:
    /// The report that a topic or, for the two general topics, the order of the reports means.
    [[nodiscard]] Report* ReportOf(const QString& topic) const;
    [[nodiscard]] QString ActiveReports() const;
    [[nodiscard]] QString Variable(const QString& name) const;
    [[nodiscard]] QString List(const QStringList& names) const;
    [[nodiscard]] QString NoValueOf(const QString& name) const;
    [[nodiscard]] QString ReadCell(const Report& report, const QString& item) const;

    void Run(Report* report, const QList<MacroStatement>& statements);
    void Check(const Report* report, const MacroStatement& statement) const;
    void Run(Report* report, const MacroStatement& statement);
    [[nodiscard]] QString ValueOf(const Report* report, const MacroValue& value) const;
    [[nodiscard]] QList<MacroStatement> ReadScript(const QString& name) const;

    Reports& m_reports;
    const vasclip::files::Disk& m_disk;
    QString m_iniFile;
    Habits m_habits;
    QMap<QString, QString> m_variables; ///< by upper-cased name; they are the program's, not a report's
};

} // namespace kelforms

#include "kelforms/core/forms_program.h"

#include "kelforms/core/comps.h"
#include "platform/files/profile.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using vasclip::formsbook::Group;

namespace kelforms {

namespace error = vasclip::error;
using vasclip::RuntimeError;

namespace {

[[noreturn]] void Refuse(const QString& words)
{
    throw RuntimeError(error::kLinkBusy, words);
}

bool Same(const QString& a, QLatin1StringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// The part of a topic behind the service. The service is "KEL" in any case.
QString TopicName(const QString& topic)
{
    const qsizetype bar = topic.indexOf(u'|');
    if (bar < 0 || !Same(topic.left(bar).trimmed(), "KEL"_L1))
        Refuse(u"\"%1\" is not a topic of this program: KEL|System, KEL|Query or KEL|report is wanted"_s.arg(
            topic.left(80)));
    return topic.mid(bar + 1).trimmed();
}

bool IsGeneral(const QString& name)
{
    return Same(name, "System"_L1) || Same(name, "Query"_L1);
}

QString SubjectField(const Report& report, QLatin1StringView field)
{
    const auto* page = report.Layout(report.MainForm());
    if (page == nullptr)
        return {};
    for (const auto& section : page->sections) {
        for (const auto& line : section.lines) {
            if (section.subject && line.field == field)
                return report.Cell(CellAddress{page->code, line.subjectRow, line.subjectCell}.Key());
        }
    }
    return {};
}

struct CaptionRow
{
    QLatin1StringView prefix;
    Group group;
    int count;
};

constexpr CaptionRow kCaptions[] = {
    {"SC_"_L1, Group::Sale, 9}, {"LC_"_L1, Group::List, 6}, {"RC_"_L1, Group::Rent, 9}};

struct SubjectRow
{
    QLatin1StringView variable, field;
};

constexpr SubjectRow kSubjectVariables[] = {
    {"Address"_L1, "ADDRESS"_L1}, {"City"_L1, "CITY"_L1}, {"State"_L1, "ST"_L1}, {"Zip"_L1, "ZIP"_L1}};

/// The statements with what they take, for the check and for its words.
struct StatementRow
{
    QLatin1StringView keyword;
    int values;
    QLatin1StringView takes;
};

constexpr StatementRow kStatements[] = {
    {"SETREQUEST"_L1, 2, "a name and a value"_L1}, {"SETIMAGE"_L1, 2, "an image object and a path"_L1},
    {"SWAPCOMPS"_L1, 2, "two numbers"_L1},         {"INITENVIRONMENT"_L1, 1, "a path"_L1},
    {"RECALCULATE"_L1, 0, "nothing"_L1},           {"REPAINT"_L1, 0, "nothing"_L1},
};

/// The number on the wire is one more than the comp's.
int CompOf(const MacroValue& value)
{
    const int number = value.text.toInt();
    if (value.kind != MacroValue::Kind::Number || number < 2 || number > 10)
        Refuse(u"SWAPCOMPS takes numbers from 2 to 10 (character %1)"_s.arg(value.at));
    return number - 1;
}

/// The kinds of comps that CompT$ takes, each by its first word in the singular or plural, a word behind it being
/// an ornament: "Sales Comparables", "LIST", "Rentals".
struct KindRow
{
    QLatin1StringView word;
    Group group;
};

constexpr KindRow kKinds[] = {
    {"SALE"_L1, Group::Sale},        {"SALES"_L1, Group::Sale},    {"COMP"_L1, Group::Sale},
    {"COMPS"_L1, Group::Sale},       {"COMPARABLE"_L1, Group::Sale}, {"COMPARABLES"_L1, Group::Sale},
    {"ALT"_L1, Group::Alt},          {"ALTERNATE"_L1, Group::Alt}, {"ALTERNATES"_L1, Group::Alt},
    {"LIST"_L1, Group::List},        {"LISTING"_L1, Group::List},  {"LISTINGS"_L1, Group::List},
    {"RENT"_L1, Group::Rent},        {"RENTAL"_L1, Group::Rent},   {"RENTALS"_L1, Group::Rent},
};

/// A kind of comps as it stands between the parentheses, bare or in quotes. nullopt for anything else.
std::optional<Group> KindOf(QString argument)
{
    if (argument.size() >= 2 && argument.startsWith(u'"') && argument.endsWith(u'"'))
        argument = argument.mid(1, argument.size() - 2);
    const QStringList words = argument.simplified().toUpper().split(u' ');
    const bool ornament = words.size() == 2 && (words[1] == u"COMPS"_s || words[1] == u"COMPARABLES"_s);
    for (const KindRow& row : kKinds) {
        if (words[0] == row.word && (words.size() == 1 || ornament))
            return row.group;
    }
    return std::nullopt;
}

void CheckCall(const MacroValue& call)
{
    if (call.text == u"GETIMAGES$"_s) {
        if (call.argument != u"1"_s)
            Refuse(u"GETIMAGES$ takes 1, for every page (character %1)"_s.arg(call.at));
    } else if (call.text == u"COMPT$"_s) {
        if (!KindOf(call.argument))
            Refuse(u"COMPT$ takes a kind of comps: Sales, Alternates, Listings or Rentals (character %1)"_s.arg(
                call.at));
    } else {
        Refuse(u"\"%1\" is no function (character %2)"_s.arg(call.text, QString::number(call.at)));
    }
}

} // namespace

FormsProgram::FormsProgram(Reports& reports, const vasclip::files::Disk& disk, QString iniFile, Habits habits)
    : m_reports(reports)
    , m_disk(disk)
    , m_iniFile(std::move(iniFile))
    , m_habits(habits)
{}

bool FormsProgram::Takes(const QString& topic) const
{
    return Same(topic.section(u'|', 0, 0).trimmed(), "KEL"_L1) && topic.contains(u'|') &&
           (IsGeneral(TopicName(topic)) || ReportOf(topic) != nullptr);
}

QString FormsProgram::Request(const QString& topic, const QString& item)
{
    const QString name = TopicName(topic);
    if (Same(name, "Query"_L1) && Same(item.trimmed(), "ActiveReports"_L1))
        return ActiveReports();
    if (IsGeneral(name))
        return Variable(item.trimmed());
    const Report* report = ReportOf(topic);
    if (report == nullptr)
        Refuse(u"No report named %1 is open"_s.arg(name));
    if (Same(item.trimmed(), "UserID"_L1))
        return qEnvironmentVariable("USER", u"appraiser"_s);
    if (Same(item.trimmed(), "ListForms"_L1))
        return List(report->Forms());
    return ReadCell(*report, item);
}

void FormsProgram::Poke(const QString& topic, const QString& item, const QString& text)
{
    const QString name = TopicName(topic);
    Report* report = IsGeneral(name) ? nullptr : ReportOf(topic);
    if (report == nullptr)
        Refuse(IsGeneral(name) ? u"Values go to a report, not to %1"_s.arg(topic)
                               : u"No report named %1 is open"_s.arg(name));
    const CellAddress address = ReadItem(item);
    if (!report->HasForm(address.form))
        Refuse(u"The report %1 has no page %2"_s.arg(report->Name(), address.form));
    if (address.row == 0)
        return; // a page without a cell takes nothing
    const auto* page = report->Layout(address.form);
    if (page != nullptr && !page->HasCell(address.row, address.cell) && !report->HoldsCell(address.Key()))
        Refuse(
            u"The page %1 has no cell %2 in row %3"_s.arg(address.form).arg(address.cell).arg(address.row));
    m_reports.SetCell(*report, address.Key(), vasclip::text::Trim(text));
}

void FormsProgram::Execute(const QString& topic, const QString& command)
{
    const QString name = TopicName(topic);
    Report* report = ReportOf(topic);
    if (report == nullptr && !IsGeneral(name))
        Refuse(u"No report named %1 is open"_s.arg(name));
    const Macro macro = ParseCommand(command);
    Run(report, macro.script.isEmpty() ? macro.statements : ReadScript(macro.script));
}

QString FormsProgram::ImagesList(const Report& report)
{
    QString list;
    for (const QString& object : report.Objects())
        list += object + u'|' + report.Image(object) + u';';
    return list;
}

Report* FormsProgram::ReportOf(const QString& topic) const
{
    const QString name = TopicName(topic);
    return IsGeneral(name) ? m_reports.Active() : m_reports.Find(name);
}

QString FormsProgram::ActiveReports() const
{
    QStringList names;
    for (const auto& report : m_reports.All())
        names.append(report->Name());
    if (names.isEmpty())
        return m_habits.blankForNone ? QString() : u"none"_s;
    return List(names);
}

QString FormsProgram::List(const QStringList& names) const
{
    return m_habits.bareLists ? names.join(u',') : names.join(u',') + u',';
}

QString FormsProgram::NoValueOf(const QString& name) const
{
    switch (m_habits.noValue) {
    case Habits::NoValue::Null:
        return u"NULL"_s;
    case Habits::NoValue::Tail:
        return u"ERAL)"_s;
    case Habits::NoValue::Echo:
        break;
    }
    for (const SubjectRow& row : kSubjectVariables) {
        if (Same(name, row.variable))
            return {};
    }
    return u"MACRO(GETREQUEST$(\"%1\"))"_s.arg(name);
}

QString FormsProgram::Variable(const QString& name) const
{
    if (const auto set = m_variables.constFind(name.toUpper()); set != m_variables.cend())
        return *set;
    const Report* report = m_reports.Active();
    if (report == nullptr)
        return NoValueOf(name);
    if (const std::optional<QString> value = report->Variable(name))
        return *value;
    for (const SubjectRow& row : kSubjectVariables) {
        if (!Same(name, row.variable))
            continue;
        const QString value = SubjectField(*report, row.field);
        return value.isEmpty() ? NoValueOf(name) : value;
    }
    for (const CaptionRow& row : kCaptions) {
        const int comp = name.startsWith(row.prefix, Qt::CaseInsensitive) ? name.mid(3).toInt() : 0;
        const QString caption = comp >= 1 && comp <= row.count
                                    ? report->Cell(AddressCell(*report, row.group, comp))
                                    : QString();
        if (!caption.isEmpty())
            return caption;
    }
    return NoValueOf(name);
}

QString FormsProgram::ReadCell(const Report& report, const QString& item) const
{
    const CellAddress address = ReadItem(item);
    // A page that the report has not, but could have, is read as empty: other programs ask for every page.
    if (!report.HasForm(address.form) && report.Layout(address.form) == nullptr)
        Refuse(u"There is no page %1 for the form %2"_s.arg(address.form, report.MainForm()));
    return address.row == 0 ? QString() : report.Cell(address.Key());
}

void FormsProgram::Run(Report* report, const QList<MacroStatement>& statements)
{
    for (const MacroStatement& statement : statements)
        Check(report, statement);
    for (const MacroStatement& statement : statements)
        Run(report, statement);
}

void FormsProgram::Check(const Report* report, const MacroStatement& statement) const
{
    const StatementRow* known = nullptr;
    for (const StatementRow& row : kStatements) {
        if (statement.keyword == row.keyword)
            known = &row;
    }
    if (known == nullptr)
        Refuse(u"\"%1\" is no statement (character %2)"_s.arg(statement.keyword, QString::number(statement.at)));
    if (statement.values.size() != known->values)
        Refuse(u"%1 takes %2 (character %3)"_s.arg(statement.keyword, known->takes).arg(statement.at));
    for (const MacroValue& value : statement.values) {
        if (value.kind == MacroValue::Kind::Call)
            CheckCall(value);
    }
    const bool general = statement.keyword == u"SETREQUEST"_s || statement.keyword == u"INITENVIRONMENT"_s;
    if (general) {
        if (statement.values[0].kind != MacroValue::Kind::Text)
            Refuse(u"%1 takes %2 (character %3)"_s.arg(statement.keyword, known->takes)
                       .arg(statement.values[0].at));
        return;
    }
    if (statement.keyword == u"SETIMAGE"_s) {
        if (report == nullptr)
            Refuse(u"No report is open"_s);
        const MacroValue& object = statement.values[0];
        const MacroValue& path = statement.values[1];
        if (object.kind != MacroValue::Kind::Text || path.kind != MacroValue::Kind::Text)
            Refuse(u"SETIMAGE takes an image object and a path (character %1)"_s.arg(statement.at));
        if (report->FindObject(object.text).isEmpty())
            Refuse(u"The report %1 has no image object \"%2\""_s.arg(report->Name(), object.text));
        if (!path.text.isEmpty() && !m_disk.FileExists(path.text))
            Refuse(u"There is no picture %1"_s.arg(path.text));
    }
    if (statement.keyword == u"SWAPCOMPS"_s) {
        if (report == nullptr)
            Refuse(u"No report is open"_s);
        for (const MacroValue& value : statement.values) {
            const int comp = CompOf(value);
            const auto* form = vasclip::formsbook::FindForm(report->MainForm());
            if (form == nullptr ||
                !report->HasForm(vasclip::formsbook::GridPage(*form, Group::Sale, (comp - 1) / 3 * 3 + 1)))
                Refuse(u"The report %1 has no page for comparable %2"_s.arg(report->Name(), QString::number(comp)));
        }
    }
}

void FormsProgram::Run(Report* report, const MacroStatement& statement)
{
    if (statement.keyword == u"SETREQUEST"_s)
        m_variables.insert(statement.values[0].text.toUpper(), ValueOf(report, statement.values[1]));
    else if (statement.keyword == u"INITENVIRONMENT"_s)
        m_variables.insert(u"ENVIRONMENT"_s, statement.values[0].text);
    else if (statement.keyword == u"SETIMAGE"_s)
        m_reports.SetImage(*report, report->FindObject(statement.values[0].text), statement.values[1].text);
    else if (statement.keyword == u"SWAPCOMPS"_s)
        SwapComps(m_reports, *report, CompOf(statement.values[0]), CompOf(statement.values[1]));
    else if (statement.keyword == u"RECALCULATE"_s && report != nullptr)
        Recalculate(m_reports, *report);
    else if (statement.keyword == u"REPAINT"_s)
        m_reports.Repaint();
}

QString FormsProgram::ValueOf(const Report* report, const MacroValue& value) const
{
    if (value.kind != MacroValue::Kind::Call)
        return value.text;
    if (report == nullptr)
        return {};
    if (value.text == u"GETIMAGES$"_s)
        return ImagesList(*report);
    // CompT$: the page on which comps of that kind begin.
    const auto* form = vasclip::formsbook::FindForm(report->MainForm());
    if (form == nullptr)
        return {};
    return vasclip::formsbook::GridPage(*form, KindOf(value.argument).value_or(Group::Sale), 1);
}

QList<MacroStatement> FormsProgram::ReadScript(const QString& name) const
{
    QString directory =
        vasclip::files::GetPrivateProfileString(m_disk, u"DIRECTORIES"_s, u"APPDIR"_s, {}, m_iniFile);
    if (directory.isEmpty())
        Refuse(u"There are no scripts: %1 names no APPDIR"_s.arg(m_iniFile));
    if (!directory.endsWith(u'\\'))
        directory += u'\\';
    // The program's directory only: a path in the name would lead elsewhere.
    if (name.contains(u'\\') || name.contains(u'/') || name.contains(u':') ||
        !m_disk.FileExists(directory + name))
        Refuse(u"There is no script %1 in %2"_s.arg(name, directory));
    try {
        return ParseScript(QString::fromUtf8(m_disk.ReadWhole(directory + name)));
    } catch (const RuntimeError& wrong) {
        Refuse(u"Script %1: %2"_s.arg(name, wrong.Description()));
    }
}

} // namespace kelforms

#include "app/vasctl/list_options.h"
#include "app/vasctl/session.h"

#include "common/paths.h"
#include "platform/text/counted.h"
#include "platform/text/text.h"
#include "upkeep/list_presets.h"
#include "upkeep/rehearsal.h"
#include "upkeep/target_file.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kUsageText = "Usage: vasctl import FILE [--table NAME] [--pictures] [--rehearse] [--choose KIND=CHOICE ...] "
                            "[--refused FILE] [--map HEADING=FIELD ...] [--preset NAME] [--delimiter C] [--code-page NAME] "
                            "[--sheet NAME] [--headings LINE] [--dates mdy|dmy|ymd] [--decimal point|comma]"_L1;

struct Word
{
    QLatin1StringView word;
    int value;
};
constexpr Word kKinds[] = {{"new"_L1, int(upkeep::RowKind::New)},
                           {"changed"_L1, int(upkeep::RowKind::Changed)},
                           {"twin"_L1, int(upkeep::RowKind::Twin)}};
constexpr Word kChoices[] = {{"add"_L1, int(upkeep::RowChoice::Add)},
                             {"mine"_L1, int(upkeep::RowChoice::KeepMine)},
                             {"theirs"_L1, int(upkeep::RowChoice::TakeTheirs)},
                             {"blanks"_L1, int(upkeep::RowChoice::FillBlanks)}};

template <std::size_t N>
std::optional<int> ValueOf(const Word (&words)[N], const QString& word)
{
    for (const Word& one : words)
        if (word == one.word)
            return one.value;
    return std::nullopt;
}

const text::Counted kRefusedRows{u"refused row is in "_s, u"refused rows are in "_s};

/// A bare name stands in the import directory.
QString SourceOf(Session& session, const QString& given)
{
    const bool bare = !given.contains(u'\\') && !given.contains(u'/');
    return bare ? common::CkRSlash(session.Home().globals.G_ImportDir) + given : DrivePathOf(session.Disk(), given);
}

/// One import: the file, or what a list was read into.
class Job
{
public:
    Job(Session& session, const Output& out, const QCommandLineParser& options, const QString& source)
        : m_session(session)
        , m_out(out)
        , m_options(options)
        , m_program(session.WithDatabook())
        , m_desk{.databook = m_program.sources.datDatabook, .globals = m_program.globals, .ports = session.Ports()}
        , m_given(source)
        , m_line(out)
    {}

    int Run()
    {
        m_order.source = m_given;
        m_order.pictures = m_options.isSet(u"pictures"_s);
        m_order.table = text::Trim(m_options.isSet(u"table"_s) ? m_options.value(u"table"_s)
                                                               : m_program.globals.G_ImportTable);
        const bool list = upkeep::IsListName(m_given);
        if (!list && RefusesListOptions(m_out, m_options))
            return kUsage;
        if (!list && !upkeep::IsTableName(m_order.table)) {
            m_out.Error(QString::fromUtf16(upkeep::kTableNameWords));
            return kUsage;
        }
        if (list)
            if (const int code = ReadList(); code != kDone)
                return code;
        return m_options.isSet(u"rehearse"_s) || m_options.isSet(u"choose"_s) || m_options.isSet(u"refused"_s) ? Rehearse()
                                                                                                               : Import();
    }

private:
    upkeep::WorkStep Step()
    {
        return [this](qint64 done, qint64 of, const QString& words) {
            m_line.Show(words, done, of);
            return true;
        };
    }

    int ReadList()
    {
        const auto choice = ListChoiceOf(m_out, m_options);
        if (!choice)
            return kUsage;
        const auto file = std::make_shared<const upkeep::ListFile>(m_session.Disk(), m_given);
        if (RefusesOtherKind(m_out, *file, *choice))
            return kUsage;
        upkeep::ListLook look = upkeep::LookAtList(m_desk, *file, *choice).look;
        const QStringList mapped = m_options.values(u"map"_s);
        if (!std::ranges::all_of(mapped, [&](const QString& one) { return MapColumn(m_out, m_desk, look, one); }))
            return kUsage;
        TellLook(m_out, *file, look);
        if (!mapped.isEmpty())
            upkeep::KeepColumns(m_desk, look);
        m_order = upkeep::OrderOf(std::make_shared<const upkeep::ListSource>(m_desk, file, look, Step()));
        m_line.Clear();
        return kDone;
    }

    QJsonArray RefusedLines(const QList<upkeep::RefusedRow>& rows) const
    {
        QJsonArray refused;
        for (const upkeep::RefusedRow& row : rows) {
            QJsonObject one{{u"key"_s, row.key}, {u"why"_s, row.why}};
            if (!row.table.isEmpty())
                one[u"table"_s] = row.table;
            one[row.table.isEmpty() ? u"line"_s : u"row"_s] = row.place;
            refused.append(one);
            if (!m_out.Json())
                m_out.Line(upkeep::NameOf(row) + u": "_s + row.why);
        }
        return refused;
    }

    /// @return the exit code of what was done, which may not be all that the file once held
    int EndedWith(const QStringList& damage) const
    {
        for (const QString& one : damage)
            m_out.Error(one);
        return damage.isEmpty() ? kDone : kFailed;
    }

    static QJsonObject PicturesOf(const upkeep::SavedImages& pictures)
    {
        return {{u"written"_s, pictures.written},
                {u"writtenOver"_s, pictures.over},
                {u"there"_s, pictures.same},
                {u"kept"_s, pictures.kept},
                {u"refused"_s, QJsonArray::fromStringList(pictures.notSaved)}};
    }

    int Import()
    {
        const upkeep::ImportResult result = upkeep::ImportTable(m_desk, m_order, Step());
        m_line.Clear();
        const QJsonArray refused = RefusedLines(result.refused);
        if (!m_out.Json())
            for (const QString& one : std::as_const(result.pictures.notSaved))
                m_out.Line(one);
        const QString words = upkeep::WordsOf(result);
        m_out.Value({{u"file"_s, m_given},
                     {u"table"_s, result.table},
                     {u"rows"_s, result.rows},
                     {u"added"_s, result.appended},
                     {u"refused"_s, refused},
                     {u"fieldsLeftBehind"_s, QJsonArray::fromStringList(result.leftBehind + result.otherKind)},
                     {u"pictures"_s, PicturesOf(result.pictures)},
                     {u"message"_s, words}},
                    words);
        return result.done ? EndedWith(result.damage) : result.pictures.declined ? kDeclined : kFailed;
    }

    bool Choose(upkeep::Rehearsal& rehearsal)
    {
        for (const QString& choice : m_options.values(u"choose"_s)) {
            const auto kind = ValueOf(kKinds, choice.section(u'=', 0, 0));
            const auto what = ValueOf(kChoices, choice.section(u'=', 1));
            if (!kind || !what || !upkeep::Rehearsal::Fits(upkeep::RowKind(*kind), upkeep::RowChoice(*what))) {
                m_out.Error(u"--choose takes new=add or mine; changed=mine, theirs or blanks; twin=add, mine, theirs or "
                            "blanks; not '%1'."_s.arg(choice));
                return false;
            }
            rehearsal.ChooseAll(upkeep::RowKind(*kind), upkeep::RowChoice(*what));
        }
        return true;
    }

    int Rehearse()
    {
        upkeep::Rehearsal rehearsal(m_desk, m_order, Step());
        if (!Choose(rehearsal))
            return kUsage;
        m_line.Clear();
        if (m_options.isSet(u"refused"_s)) {
            const QString file = DrivePathOf(m_desk.Disk(), m_options.value(u"refused"_s));
            if (file.isEmpty()) {
                m_out.Error(u"%1 lies on none of the program's drives."_s.arg(m_options.value(u"refused"_s)));
                return kUsage;
            }
            const qsizetype kept = rehearsal.WriteRefused(file);
            m_out.Error(kept == 0 ? u"No row was refused: %1 is as it was."_s.arg(file)
                                 : kRefusedRows(kept) + file + u'.');
        }
        return m_options.isSet(u"choose"_s) && !m_options.isSet(u"rehearse"_s) ? Carry(rehearsal) : Show(rehearsal);
    }

    int Show(const upkeep::Rehearsal& rehearsal)
    {
        static const QString kPictures[] = {u""_s, u"new"_s, u"there"_s, u"writes over another"_s, u"refused"_s};
        QList<QStringList> rows;
        for (const upkeep::RehearsedRow& row : rehearsal.Rows()) {
            QStringList fields;
            if (row.kind == upkeep::RowKind::Changed || row.kind == upkeep::RowKind::Twin)
                for (const upkeep::FieldPair& pair : rehearsal.FieldsOf(row))
                    fields.append(u"%1: %2 -> %3"_s.arg(pair.field, pair.mine, pair.theirs));
            rows.append({row.key, upkeep::NameOf(row.kind), upkeep::NameOf(row.choice), row.mine,
                         kPictures[static_cast<int>(row.picture)], row.why.isEmpty() ? fields.join(u"; "_s) : row.why});
        }
        m_out.Table({u"key"_s, u"kind"_s, u"choice"_s, u"record"_s, u"picture"_s, u"why"_s}, rows);
        if (!m_out.Json())
            m_out.Line(upkeep::SummaryOf(rehearsal));
        return EndedWith(rehearsal.Damage());
    }

    int Carry(upkeep::Rehearsal& rehearsal)
    {
        const upkeep::RehearsalResult result = rehearsal.Carry(Step());
        m_line.Clear();
        if (!m_out.Json())
            for (const QString& one : result.undone + result.pictures.notSaved)
                m_out.Line(one);
        const QString words = upkeep::WordsOf(result);
        m_out.Value({{u"file"_s, m_given},
                     {u"added"_s, result.added},
                     {u"changed"_s, result.changed},
                     {u"notDone"_s, QJsonArray::fromStringList(result.undone)},
                     {u"pictures"_s, PicturesOf(result.pictures)},
                     {u"message"_s, words}},
                    words);
        return result.done ? EndedWith(result.damage) : result.pictures.declined ? kDeclined : kFailed;
    }

    Session& m_session;
    const Output& m_out;
    const QCommandLineParser& m_options;
    shell::Program& m_program;
    upkeep::TransferDesk m_desk;
    QString m_given;
    ProgressLine m_line;
    upkeep::ImportOrder m_order;
};

} // namespace

int RunImport(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    if (arguments.size() != 1 || arguments[0].trimmed().isEmpty()) {
        out.Error(kUsageText);
        return kUsage;
    }
    const QString name = arguments[0].mid(std::max(arguments[0].lastIndexOf(u'\\'), arguments[0].lastIndexOf(u'/')) + 1);
    if (name.contains(u'-')) { // before anything is touched
        out.Error(u"The file '%1' contains dashes (-) and must be renamed before it can be imported."_s.arg(name));
        return kUsage;
    }
    const QString source = SourceOf(session, arguments[0]);
    if (!source.isEmpty() && session.Disk().DirExists(source)) {
        out.Error(u"%1 is a directory. Name the file in it that is to be imported."_s.arg(source));
        return kUsage;
    }
    if (source.isEmpty() || !session.Disk().Found(source, files::ReadOnly | files::Hidden)) {
        out.Error(u"File %1 does not exist."_s.arg(source.isEmpty() ? arguments[0] : source));
        return kNotFound;
    }
    if (text::Folded(source) == text::Folded(session.WithDatabook().sources.datDatabook.DatabaseName())) {
        out.Error(u"Cannot Import %1 unto itself!"_s.arg(name));
        return kUsage;
    }
    return Job(session, out, options, source).Run();
}

} // namespace vasclip::vasctl

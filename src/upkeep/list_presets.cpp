#include "upkeep/list_presets.h"

#include "common/paths.h"
#include "platform/text/runtime_error.h"
#include "upkeep/list_guess.h"
#include "upkeep/list_headings.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kChoices = u"ListColumns.json"_s; ///< by headings
const QString kPresets = u"ListPresets.json"_s; ///< by name
const QString kFields = u"fields"_s;
const QString kDates = u"dates"_s;
const QString kDecimal = u"decimal"_s;
const QString kDelimiter = u"delimiter"_s;
const QString kCodePage = u"codePage"_s;
const QString kSheet = u"sheet"_s;
const QString kHeading = u"headingLine"_s;
const QString kNoHeadings = u"%1 has no line of headings"_s;
const QString kNoPreset = u"There is no preset %1; these are kept: %2"_s;

QString PathOf(const TransferDesk& desk, const QString& name)
{
    return common::CkRSlash(desk.globals.G_UserDir) + name;
}

/// A file that is damaged counts as empty: it holds habits, no records.
QJsonObject Kept(const TransferDesk& desk, const QString& name)
{
    const QString file = PathOf(desk, name);
    return desk.Disk().FileExists(file) ? QJsonDocument::fromJson(desk.Disk().ReadWhole(file)).object() : QJsonObject();
}

void Keep(const TransferDesk& desk, const QString& name, const QJsonObject& all)
{
    desk.Disk().WriteWhole(PathOf(desk, name), QJsonDocument(all).toJson());
}

/// The reason in a file of refused lines makes no other list of it.
QString NameOfHeadings(const QList<ListColumn>& columns)
{
    QStringList bare;
    for (const ListColumn& column : columns)
        if (const QString name = BareHeading(column.heading); name != kReasonHeading)
            bare.append(name);
    return bare.join(u'|');
}

QJsonObject Written(const ListLook& look)
{
    QJsonObject fields;
    for (const ListColumn& column : look.columns)
        fields.insert(BareHeading(column.heading), column.field);
    return {{kFields, fields}, {kDates, static_cast<int>(look.dates)}, {kDecimal, QString(look.decimal)}};
}

void TakeFields(const QJsonObject& kept, ListLook& look)
{
    const QJsonObject fields = kept.value(kFields).toObject();
    for (ListColumn& column : look.columns)
        if (const QJsonValue field = fields.value(BareHeading(column.heading)); field.isString())
            column.field = field.toString();
    DropDoubles(look.columns);
}

std::optional<DateOrder> DatesIn(const QJsonObject& kept)
{
    const int order = kept.value(kDates).toInt(-1);
    return order < 0 || order > static_cast<int>(DateOrder::YearFirst) ? std::nullopt
                                                                       : std::optional(static_cast<DateOrder>(order));
}

QChar SignIn(const QJsonObject& kept, const QString& name)
{
    const QString sign = kept.value(name).toString();
    return sign.size() == 1 ? sign[0] : QChar();
}

QJsonObject Preset(const TransferDesk& desk, const QString& name)
{
    const QJsonObject presets = Kept(desk, kPresets);
    if (name.isEmpty() || presets.contains(name))
        return presets.value(name).toObject();
    throw RuntimeError(error::kInvalidOperation, kNoPreset.arg(name, presets.isEmpty() ? u"none"_s : presets.keys().join(u", "_s)));
}

/// Delimiter, code page, sheet and line of headings: what the lines are.
ListLook Lines(const ListFile& file, const ListChoice& choice, const QJsonObject& preset)
{
    ListLook look;
    if (file.IsWorkbook()) {
        const QStringList sheets = file.Sheets();
        const QString kept = preset.value(kSheet).toString();
        look.sheet = !choice.sheet.isEmpty()                                  ? choice.sheet
                     : sheets.contains(kept, Qt::CaseInsensitive) ? kept
                                                                              : sheets.value(0);
        return look;
    }
    look.codePage = choice.codePage.isEmpty() ? preset.value(kCodePage).toString() : choice.codePage;
    file.Guess(look);
    if (const QChar kept = SignIn(preset, kDelimiter); !kept.isNull())
        look.delimiter = kept;
    if (!choice.delimiter.isNull())
        look.delimiter = choice.delimiter;
    return look;
}

QList<ListColumn> Columns(const ListSample& sample, qint64 headingLine)
{
    QStringList headings;
    for (const ListLine& line : sample.lines) {
        if (headingLine == 0)
            headings.resize(std::max(headings.size(), line.cells.size()));
        else if (line.number == headingLine)
            for (const ListCell& cell : line.cells)
                headings.append(cell.text);
    }
    return ColumnsOf(headings);
}

} // namespace

ListProposal LookAtList(const TransferDesk& desk, const ListFile& file, const ListChoice& choice)
{
    const QJsonObject preset = Preset(desk, choice.preset);
    ListProposal proposal{.look = Lines(file, choice, preset)};
    ListLook& look = proposal.look;
    const ListSample sample = SampleOf(file, look, kSampleLines);
    const qint64 kept = preset.value(kHeading).toInteger(-1);
    look.headingLine = choice.headingLine ? *choice.headingLine : kept >= 0 ? kept : HeadingLineOf(sample);
    look.columns = Columns(sample, look.headingLine);
    if (look.columns.isEmpty())
        throw RuntimeError(error::kUnrecognisedDatabase, kNoHeadings.arg(file.File()));
    const QJsonObject chosen = choice.preset.isEmpty() ? Kept(desk, kChoices).value(NameOfHeadings(look.columns)).toObject() : preset;
    TakeFields(chosen, look);
    const auto told = DatesOf(sample, look);
    const auto before = DatesIn(chosen);
    look.dates = choice.dates ? *choice.dates : told ? *told : before.value_or(DateOrder::MonthFirst);
    proposal.datesOpen = !choice.dates && !told;
    const QChar habit = SignIn(chosen, kDecimal);
    const QChar decimal = DecimalOf(sample, look).value_or(habit.isNull() ? QChar(u'.') : habit);
    look.decimal = choice.decimal.isNull() ? decimal : choice.decimal;
    return proposal;
}

void KeepColumns(const TransferDesk& desk, const ListLook& look)
{
    QJsonObject all = Kept(desk, kChoices);
    all.insert(NameOfHeadings(look.columns), Written(look));
    Keep(desk, kChoices, all);
}

QStringList PresetNames(const TransferDesk& desk)
{
    return Kept(desk, kPresets).keys();
}

void KeepPreset(const TransferDesk& desk, const QString& name, const ListLook& look)
{
    QJsonObject preset = Written(look);
    if (look.sheet.isEmpty()) {
        preset.insert(kDelimiter, QString(look.delimiter));
        preset.insert(kCodePage, look.codePage);
    } else {
        preset.insert(kSheet, look.sheet);
    }
    preset.insert(kHeading, look.headingLine);
    QJsonObject all = Kept(desk, kPresets);
    all.insert(name, preset);
    Keep(desk, kPresets, all);
}

void ForgetPreset(const TransferDesk& desk, const QString& name)
{
    QJsonObject all = Kept(desk, kPresets);
    all.remove(name);
    Keep(desk, kPresets, all);
}

} // namespace vasclip::upkeep

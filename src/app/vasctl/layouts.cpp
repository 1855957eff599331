#include "app/vasctl/session.h"

#include "databook/grid.h"
#include "databook/layout_work.h"
#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

int Show(const files::Disk& disk, const Output& out, const QString& file, const QString& name)
{
    const auto layouts = databook::LayoutFile::ReadOrNew(disk, file);
    const databook::Layout* layout = layouts.Find(name);
    if (layout == nullptr) {
        out.Error(u"There is no grid layout %1 in %2."_s.arg(name, file));
        return kNotFound;
    }
    QList<QStringList> rows;
    for (const databook::LayoutColumn& column : layout->columns)
        rows.append({column.field, column.visible ? u"yes"_s : u"no"_s, QString::number(column.width)});
    out.Table({u"field"_s, u"visible"_s, u"width"_s}, rows, {Kind::Text, Kind::Text, Kind::Number});
    return kDone;
}

int List(const files::Disk& disk, const Output& out, const QString& file)
{
    QList<QStringList> rows;
    const auto layouts = databook::LayoutFile::ReadOrNew(disk, file);
    for (const QString& name : layouts.Layouts()) {
        const auto& columns = layouts.Find(name)->columns;
        const auto visible =
            std::count_if(columns.begin(), columns.end(), [](const auto& column) { return column.visible; });
        rows.append({name, QString::number(visible), QString::number(columns.size())});
    }
    out.Table({u"layout"_s, u"visible"_s, u"columns"_s}, rows, {Kind::Text, Kind::Number, Kind::Number});
    return kDone;
}

/// What the box of the layouts' screen would not take; "" for what it would.
QString WrongName(const QString& name, int longest)
{
    if (name.size() > longest)
        return u"The name of a grid layout has at most %1 characters; this one has %2."_s.arg(longest).arg(
            name.size());
    const bool plain = std::none_of(name.cbegin(), name.cend(),
                                    [](QChar letter) { return letter.category() == QChar::Other_Control; });
    return plain ? QString() : u"The name of a grid layout is one line of plain text."_s;
}

} // namespace

/// The rules of the layouts, on the grid as the program left it: its layout is "Current (User)".
int RunLayouts(Session& session, const Output& out, const QStringList& arguments)
{
    const QString verb = arguments.value(0);
    const bool named = arguments.size() == 2;
    auto& program = session.Home();
    const files::Disk& disk = session.Disk();
    const QString file = program.globals.G_ProgramDir + databook::kUserLayouts;
    if (verb == u"list"_s && arguments.size() == 1)
        return List(disk, out, file);
    if (verb == u"show"_s && named)
        return Show(disk, out, file, arguments[1]);
    const bool standard = verb == u"default"_s && arguments.size() == 1;
    if (!standard && (!named || !QStringList{u"save"_s, u"delete"_s, u"use"_s}.contains(verb))) {
        out.Error(u"Usage: vasctl layouts list | show NAME | save NAME | delete NAME | use NAME | default"_s);
        return kUsage;
    }
    auto& grid = program.records.grddatabook;
    databook::SetGridSettings(grid, u"DEFAULT"_s);
    databook::LoadGrid(disk, grid, file, databook::kCurrentLayout);
    databook::LayoutWork work(disk, session.Ports(), grid, program.globals.G_ProgramDir);
    const QString name = text::Trim(arguments.value(1));
    const bool known = databook::LayoutFile::ReadOrNew(disk, file).Find(name) != nullptr;
    if (const QString wrong = WrongName(name, databook::kLongestLayoutName); !wrong.isEmpty()) {
        out.Error(wrong);
        return kUsage;
    }
    if ((verb == u"delete"_s || verb == u"use"_s) && !known) {
        out.Error(u"There is no grid layout %1 in %2."_s.arg(name, file));
        return kNotFound;
    }
    const databook::LayoutOutcome outcome = standard              ? work.UseDefault()
                                            : verb == u"save"_s   ? work.Save(name)
                                            : verb == u"delete"_s ? work.Delete(name)
                                                                  : work.Use(name);
    if (standard && outcome.done)
        work.LayoutSaveLayout(databook::kCurrentLayout);
    if (!outcome.refused.isEmpty())
        session.Prompter().Box(outcome.refusedTitle, outcome.refused);
    if (!outcome.done)
        return session.Prompter().Declined() ? kDeclined : kFailed;
    out.Line(outcome.said);
    return kDone;
}

} // namespace vasclip::vasctl

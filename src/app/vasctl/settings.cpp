#include "app/vasctl/session.h"

#include "common/settings.h"
#include "shell/config_fields.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

QString FileName(common::IniFile file)
{
    switch (file) {
    case common::IniFile::Application:
        return u"VAS2000.INI"_s;
    case common::IniFile::Kel:
        return u"KEL.INI"_s;
    case common::IniFile::PwStreet:
        return u"pwstreet.ini"_s;
    }
    return {};
}

/// A setting by KEY or by SECTION KEY; a key that stands in two sections must be named with its section.
const common::SettingRow* Find(const Output& out, const QStringList& names)
{
    QList<const common::SettingRow*> found;
    for (const common::SettingRow& row : common::Settings()) {
        const bool key = names.last().compare(row.key, Qt::CaseInsensitive) == 0;
        const bool section =
            names.size() == 1 || names.first().compare(row.section, Qt::CaseInsensitive) == 0;
        if (key && section)
            found.append(&row);
    }
    // The program's own ini comes first: that is the file people mean.
    for (const common::SettingRow* row : found) {
        if (row->file == common::IniFile::Application &&
            std::count_if(found.begin(), found.end(),
                          [](const auto* other) { return other->file == common::IniFile::Application; }) == 1)
            return row;
    }
    if (found.size() == 1)
        return found.first();
    out.Error(
        found.isEmpty()
            ? u"There is no setting '%1'. 'vasctl settings list' shows them all."_s.arg(names.join(u' '))
            : u"'%1' stands in several sections; name the section too."_s.arg(names.last()));
    return nullptr;
}

QStringList Line(const common::SettingRow& row, const common::Globals& globals)
{
    const shell::ConfigField* field =
        shell::FieldOf(row); // null for what has no place on the settings screen
    return {FileName(row.file),
            row.section,
            row.key,
            common::SettingText(row, globals),
            field ? shell::PageCaption(field->page) : QString(),
            field ? field->Words() : QString()};
}

} // namespace

int RunSettings(Session& session, const Output& out, const QStringList& arguments)
{
    const QString verb = arguments.value(0);
    auto& program = session.Home();
    const QStringList headings{u"file"_s, u"section"_s, u"key"_s, u"value"_s, u"page"_s, u"label"_s};
    if (verb == u"list"_s && arguments.size() == 1) {
        QList<QStringList> rows;
        for (const common::SettingRow& row : common::Settings()) {
            if (row.readBy != common::ReadBy::Nothing)
                rows.append(Line(row, program.globals));
        }
        out.Table(headings, rows);
        return kDone;
    }
    if (verb == u"get"_s && (arguments.size() == 2 || arguments.size() == 3)) {
        const auto* row = Find(out, arguments.mid(1));
        if (!row)
            return kNotFound;
        const QString value = common::SettingText(*row, program.globals);
        out.Value({{u"section"_s, QString(row->section)}, {u"key"_s, QString(row->key)}, {u"value"_s, value}},
                  value);
        return kDone;
    }
    if (verb == u"set"_s && (arguments.size() == 3 || arguments.size() == 4)) {
        const auto* row = Find(out, arguments.mid(1, arguments.size() - 2));
        if (!row)
            return kNotFound;
        if (row->file != common::IniFile::Application) {
            out.Error(u"%1 belongs to another program and is only read here."_s.arg(FileName(row->file)));
            return kFailed;
        }
        common::WriteSetting(*row, arguments.last(), program.globals, session.Disk());
        out.Line(u"%1 is '%2' now."_s.arg(row->key, common::SettingText(*row, program.globals)));
        return kDone;
    }
    out.Error(u"Usage: vasctl settings list | get [SECTION] KEY | set [SECTION] KEY VALUE"_s);
    return kUsage;
}

} // namespace vasclip::vasctl

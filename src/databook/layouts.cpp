#include "databook/layouts.h"

#include "common/error_block.h"
#include "databook/grid.h"
#include "platform/text/text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using common::RoutineScope;

namespace {

constexpr int kVersion = 1;
constexpr int kMinWidth = 16;
constexpr int kMaxWidth = 4000;
const QString kFormat = u"vasclip grid layouts"_s;

[[noreturn]] void Refuse(const QString& file, const QString& why)
{
    throw RuntimeError(kInvalidLayoutFile,
                       u"The grid layout file %1 can't be used: %2. Move it away or restore its backup "
                       "(.gbk), then try again"_s.arg(file, why));
}

bool SameName(const QString& one, const QString& other)
{
    return text::Folded(one) == text::Folded(other);
}

LayoutColumn ParseColumn(const QJsonValue& value, const QString& file, const QString& layoutName)
{
    const QJsonObject object = value.toObject();
    const QString field = object.value(u"field"_s).toString();
    const QJsonValue visible = object.value(u"visible"_s);
    const QJsonValue width = object.value(u"width"_s);
    if (field.isEmpty() || !visible.isBool() || !width.isDouble())
        Refuse(file,
               u"a column of the layout \"%1\" lacks its field, its width or whether it is visible"_s.arg(
                   layoutName));
    return {field, visible.toBool(),
            static_cast<int>(std::clamp<double>(width.toDouble(), kMinWidth, kMaxWidth))};
}

Layout ParseLayout(const QJsonValue& value, const QString& file)
{
    const QJsonObject object = value.toObject();
    Layout layout;
    layout.name = object.value(u"name"_s).toString();
    const QJsonValue columns = object.value(u"columns"_s);
    if (text::Trim(layout.name).isEmpty() || !columns.isArray())
        Refuse(file, u"one of its layouts has no name or no columns"_s);
    for (const QJsonValue column : columns.toArray())
        layout.columns.append(ParseColumn(column, file, layout.name));
    return layout;
}

Layout LayoutOf(const forms::Grid& grid, const QString& name)
{
    Layout layout;
    layout.name = text::Trim(name);
    for (const forms::GridColumn& column : grid.Columns())
        layout.columns.append({column.field, column.visible, column.width});
    return layout;
}

bool IsReadable(const files::Disk& disk, const QString& file)
{
    try {
        (void)LayoutFile::Read(disk, file);
        return true;
    } catch (const RuntimeError& failure) {
        if (failure.Number() != kInvalidLayoutFile)
            throw;
        return false;
    }
}

/// Before a file is replaced: a good one goes to its backup, any other is moved aside.
void Retire(const files::Disk& disk, const QString& file)
{
    if (!disk.Found(file))
        return;
    if (IsReadable(disk, file)) {
        RefreshLayoutFile(disk, file);
        return;
    }
    const QString aside = file.chopped(3) + u"bad"_s;
    if (disk.Found(aside))
        disk.Kill(aside);
    disk.Name(file, aside);
}

/// Columns of the plan as a layout wants them.
QList<forms::GridColumn> Arranged(const Layout& layout)
{
    QList<forms::GridColumn> left = DefaultColumns();
    QList<forms::GridColumn> arranged;
    for (const LayoutColumn& wanted : layout.columns) {
        const auto found = std::find_if(left.begin(), left.end(), [&wanted](const forms::GridColumn& column) {
            return column.field.compare(wanted.field, Qt::CaseInsensitive) == 0;
        });
        if (found == left.end())
            continue;
        forms::GridColumn column = *found;
        column.width = wanted.width;
        column.visible = wanted.visible || column.fixed;
        arranged.append(column);
        left.erase(found);
    }
    return arranged + left;
}

} // namespace

LayoutFile LayoutFile::Parse(const QByteArray& content, const QString& file)
{
    QJsonParseError failure;
    const QJsonDocument document = QJsonDocument::fromJson(content, &failure);
    if (failure.error != QJsonParseError::NoError)
        Refuse(file, u"it is damaged at byte %1 (%2)"_s.arg(failure.offset).arg(failure.errorString()));
    const QJsonObject root = document.object();
    if (root.value(u"format"_s).toString() != kFormat)
        Refuse(file, u"it is no list of grid layouts of this program"_s);
    const int version = root.value(u"version"_s).toInt();
    if (version != kVersion)
        Refuse(file, u"it has version %1 and this program reads version %2"_s.arg(version).arg(kVersion));
    if (!root.value(u"layouts"_s).isArray())
        Refuse(file, u"it has no list of layouts"_s);
    LayoutFile layouts;
    for (const QJsonValue layout : root.value(u"layouts"_s).toArray())
        layouts.Add(ParseLayout(layout, file));
    return layouts;
}

LayoutFile LayoutFile::Read(const files::Disk& disk, const QString& file)
{
    return Parse(disk.ReadWhole(file), file);
}

LayoutFile LayoutFile::ReadOrNew(const files::Disk& disk, const QString& file)
{
    return disk.Found(file) ? Read(disk, file) : LayoutFile();
}

QStringList LayoutFile::Layouts() const
{
    QStringList names;
    for (const Layout& layout : m_layouts)
        names.append(layout.name);
    return names;
}

const Layout* LayoutFile::Find(const QString& name) const
{
    for (const Layout& layout : m_layouts)
        if (SameName(layout.name, name))
            return &layout;
    return nullptr;
}

void LayoutFile::Add(const Layout& layout)
{
    for (Layout& kept : m_layouts)
        if (SameName(kept.name, layout.name)) {
            kept = layout;
            return;
        }
    m_layouts.append(layout);
}

bool LayoutFile::Remove(const QString& name)
{
    return m_layouts.removeIf([&name](const Layout& layout) { return SameName(layout.name, name); }) > 0;
}

QByteArray LayoutFile::Text() const
{
    QJsonArray layouts;
    for (const Layout& layout : m_layouts) {
        QJsonArray columns;
        for (const LayoutColumn& column : layout.columns)
            columns.append(QJsonObject{
                {u"field"_s, column.field}, {u"visible"_s, column.visible}, {u"width"_s, column.width}});
        layouts.append(QJsonObject{{u"name"_s, layout.name}, {u"columns"_s, columns}});
    }
    const QJsonObject root{{u"format"_s, kFormat}, {u"version"_s, kVersion}, {u"layouts"_s, layouts}};
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

void LayoutFile::Write(const files::Disk& disk, const QString& file) const
{
    const QByteArray content = Text();
    // Each start writes the program's plan anew; where it stands already, the disk is not asked to flush it
    // again.
    if (disk.FileExists(file) && disk.ReadWhole(file) == content)
        return;
    disk.WriteWhole(file, content);
}

void SaveGrid(const files::Disk& disk, const forms::Grid& grid, const QString& file,
              const QString& layoutName)
{
    const RoutineScope scope{"SaveGrid"};
    LayoutFile layouts = LayoutFile::ReadOrNew(disk, file);
    const Layout layout = LayoutOf(grid, layoutName);
    const Layout* kept = layouts.Find(layoutName);
    if (kept && *kept == layout)
        return;
    layouts.Add(layout);
    layouts.Write(disk, file);
}

bool LoadGrid(const files::Disk& disk, forms::Grid& grid, const QString& file, const QString& layoutName)
{
    const RoutineScope scope{"LoadGrid"};
    if (!disk.Found(file))
        return false;
    const LayoutFile layouts = LayoutFile::Read(disk, file);
    const Layout* layout = layouts.Find(layoutName);
    if (!layout)
        return false;
    grid.SetColumns(Arranged(*layout));
    return true;
}

void RefreshLayoutFile(const files::Disk& disk, const QString& file)
{
    const RoutineScope scope{"RefreshLayoutFile"};
    if (disk.Found(file) && IsReadable(disk, file)) {
        const QString backup = file.chopped(2) + u"bk"_s;
        if (!disk.FileExists(backup) || disk.ReadWhole(backup) != disk.ReadWhole(file))
            disk.FileCopy(file, backup);
    }
}

void RebuildLayoutFile(const files::Disk& disk, const forms::Grid& grid, const QString& file,
                       const QString& layoutName)
{
    const RoutineScope scope{"SaveGrid"};
    Retire(disk, file);
    LayoutFile layouts;
    layouts.Add(LayoutOf(grid, layoutName));
    layouts.Write(disk, file);
}

void ReplaceLayoutFile(const files::Disk& disk, const QString& source, const QString& target)
{
    const LayoutFile layouts = LayoutFile::Read(disk, source);
    Retire(disk, target);
    layouts.Write(disk, target);
}

QStringList LayoutNames(const files::Disk& disk, const QString& file)
{
    return LayoutFile::ReadOrNew(disk, file).Layouts();
}

bool RemoveLayout(const files::Disk& disk, const QString& file, const QString& layoutName)
{
    LayoutFile layouts = LayoutFile::ReadOrNew(disk, file);
    if (!layouts.Remove(layoutName))
        return false;
    layouts.Write(disk, file);
    return true;
}

} // namespace vasclip::databook

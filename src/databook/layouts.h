#pragma once

#include "forms/grid.h"
#include "platform/files/disk.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace vasclip::databook {

using namespace Qt::StringLiterals;

/// What a layout keeps of a column: its field, whether it shows, its width; the order is the order of the
/// list.
struct LayoutColumn
{
    QString field;
    bool visible = true;
    int width = 90; ///< device-independent pixels
    bool operator==(const LayoutColumn&) const = default;
};

struct Layout
{
    QString name;
    QList<LayoutColumn> columns;
    bool operator==(const Layout&) const = default;
};

/// A .grx file: a list of named layouts. Names are compared without regard to case and outer blanks.
class LayoutFile
{
public:
    /// @throws RuntimeError 53 no such file, 321 if the file is damaged or none of ours: the description
    /// names the file and the place
    [[nodiscard]] static LayoutFile Read(const files::Disk& disk, const QString& file);
    /// As Read; a file that is not there gives an empty list.
    [[nodiscard]] static LayoutFile ReadOrNew(const files::Disk& disk, const QString& file);
    [[nodiscard]] static LayoutFile Parse(const QByteArray& content, const QString& file);

    [[nodiscard]] QStringList Layouts() const;                   ///< the names, in order of saving
    [[nodiscard]] const Layout* Find(const QString& name) const; ///< nullptr if absent
    void Add(const Layout& layout);                              ///< replaces one of the same name
    bool Remove(const QString& name);                            ///< @return false if absent
    [[nodiscard]] QByteArray Text() const;
    void Write(const files::Disk& disk,
               const QString& file) const; ///< replaces the file whole; @throws 61, 70, 75

private:
    QList<Layout> m_layouts;
};

/// Error number of a file that is damaged or none of ours.
inline constexpr int kInvalidLayoutFile = 321;

/// The two files, both in the program directory: the user's and the program's own.
inline const QString kUserLayouts = u"VAS2000.grx"_s;
inline const QString kProgramLayouts = u"default.grx"_s;

/// Names of the two layouts that the program keeps itself.
inline const QString kDefaultLayout = u"Default"_s;
inline const QString kCurrentLayout = u"Current (User)"_s;

/// Saves the grid's layout under a name. A damaged or foreign file is left alone. @throws as LayoutFile
void SaveGrid(const files::Disk& disk, const forms::Grid& grid, const QString& file,
              const QString& layoutName);

/// Gives the grid a saved layout. Columns that the layout does not know stand behind, as the default plan has
/// them; fields that the plan does not know are passed over; the key is always shown.
/// @return false if file or layout is not there; the grid then keeps what it has. @throws 321 for a damaged
/// file
bool LoadGrid(const files::Disk& disk, forms::Grid& grid, const QString& file, const QString& layoutName);

/// Copies the file, if it is there, beside itself with the last two letters of its name replaced by "bk". A
/// damaged or foreign file leaves the backup as it is: it may be the only good copy.
void RefreshLayoutFile(const files::Disk& disk, const QString& file);

/// Writes a file anew that holds this one layout, the grid's. See ReplaceLayoutFile for what becomes of the
/// old one.
void RebuildLayoutFile(const files::Disk& disk, const forms::Grid& grid, const QString& file,
                       const QString& layoutName);

/// Gives `target` the layouts of `source` and no others. What `target` held stands in its backup
/// (RefreshLayoutFile); a damaged or foreign file is renamed to end in ".bad" instead.
/// @throws as LayoutFile::Read for the source, before anything is changed
void ReplaceLayoutFile(const files::Disk& disk, const QString& source, const QString& target);

/// The names of a file's layouts; empty if it is not there.
[[nodiscard]] QStringList LayoutNames(const files::Disk& disk, const QString& file);
/// Removes a layout. @return false if file or layout is not there
bool RemoveLayout(const files::Disk& disk, const QString& file, const QString& layoutName);

} // namespace vasclip::databook

#pragma once

#include "formsbook/layout.h"

#include <QJsonObject>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace kelforms {

/// A cell of a report: "FORM|ROW|CELL".
struct CellAddress
{
    QString form; ///< upper case
    int row = 0;
    int cell = 0;

    [[nodiscard]] QString Key() const;
};

/// What a link item says: a cell, or a page without a cell (`row` 0).
///
/// The form may stand twice in front ("UA5|UA5|6|1"); it is the same cell.
/// @throws RuntimeError 285 that says what is wrong with the item
[[nodiscard]] CellAddress ReadItem(const QString& item);

/// One report: its forms, the texts in its cells, its pictures, its variables.
///
/// On disk it is a JSON object {"name","forms","cells","images","variables"}; members that are none of these
/// are kept as they came.
class Report
{
public:
    /// @throws RuntimeError 53, 75 the file cannot be read; 321 it is no report (what and where is said)
    [[nodiscard]] static Report Load(const QString& nativePath);
    /// @throws RuntimeError 321
    [[nodiscard]] static Report FromJson(const QByteArray& json, const QString& nativePath);
    [[nodiscard]] QByteArray ToJson() const;

    /// Writes a new file beside the report's own, flushes it and renames it into place.
    /// @throws RuntimeError 61, 70, 75; the old file is then untouched
    void Save();
    void SaveAs(const QString& nativePath);

    [[nodiscard]] const QString& Name() const { return m_name; }
    [[nodiscard]] const QString& Path() const { return m_path; }
    [[nodiscard]] const QStringList& Forms() const { return m_forms; }
    [[nodiscard]] QString MainForm() const { return m_forms.value(0); }
    [[nodiscard]] bool HasForm(const QString& code) const { return m_codes.contains(code.toUpper()); }
    [[nodiscard]] bool Modified() const { return m_modified; }

    /// The layout of one of its pages; nullptr for a page that the forms book does not know.
    [[nodiscard]] const vasclip::formsbook::Page* Layout(const QString& pageCode) const;

    [[nodiscard]] QString Cell(const QString& key) const { return m_cells.value(key); }
    [[nodiscard]] bool HoldsCell(const QString& key) const { return m_cells.contains(key); }
    void SetCell(const QString& key, const QString& text);
    /// Exchanges what two cells hold; one that was never written stays so on the other side.
    void SwapCells(const QString& a, const QString& b);
    void ClearCell(const QString& key);
    [[nodiscard]] const QMap<QString, QString>& Cells() const { return m_cells; }

    /// Every image object of its pages, in the order of the pages.
    [[nodiscard]] QStringList Objects() const;
    /// The object that a name means, without regard to case. "" for none: a name without its size ("CMP_1_") is
    /// none either.
    [[nodiscard]] QString FindObject(const QString& name) const;
    /// The object of a comp's or a view's picture, whatever its size: the one that "CMP_1_" begins. "" for none.
    [[nodiscard]] QString ObjectOf(const QString& prefix) const;
    [[nodiscard]] QString Image(const QString& object) const { return m_images.value(object); }
    void SetImage(const QString& object, const QString& path);
    [[nodiscard]] const QMap<QString, QString>& Images() const { return m_images; }

    /// What the file gives a variable, named without regard to case. No program changes it: what is set over the
    /// link belongs to the forms program.
    [[nodiscard]] std::optional<QString> Variable(const QString& name) const;

private:
    QString m_name, m_path;
    QStringList m_forms;
    QSet<QString> m_codes; ///< of m_forms; a report may have a great many
    QMap<QString, QString> m_cells, m_images, m_variables;
    QJsonObject m_rest;
    bool m_modified = false;
    mutable std::map<QString, std::optional<vasclip::formsbook::Page>> m_layouts;
};

} // namespace kelforms

#pragma once

#include "platform/sheet/cell_values.h"
#include "platform/sheet/package.h"

#include <QStringList>

namespace vasclip::sheet {

class SheetReader;

/// A spreadsheet file, opened for reading.
class Workbook
{
public:
    /// @param file  native path. @throws RuntimeError 53, 75 of the disk, 3343 for what is no workbook, encrypted, of an old
    /// kind or damaged
    explicit Workbook(const QString& file);
    ~Workbook();

    /// Of the sheets that have cells, in their order; hidden ones too.
    [[nodiscard]] QStringList Sheets() const;
    /// The rows of a sheet from its first one on; the workbook outlives the reader.
    /// @throws RuntimeError 3343, which names the sheets there are for one that is not there
    [[nodiscard]] std::unique_ptr<SheetReader> Open(const QString& sheet) const;

private:
    friend class SheetReader;
    struct Sheet
    {
        QString name, part;
    };
    void ReadBook();
    void ReadStyles(const QString& part);
    void ReadTexts(const QString& part) const;
    /// Texts that cells name by their place, read when the first one asks. @return nullptr for a place that there is not
    [[nodiscard]] const QString* SharedText(qsizetype place) const;
    [[nodiscard]] NumberStyle StyleOf(qsizetype place) const { return m_styles.value(place); }

    Package m_package;
    DaySystem m_days = DaySystem::From1900;
    QList<Sheet> m_sheets;
    QList<NumberStyle> m_styles;
    QString m_textsPart;
    mutable QStringList m_texts;
    mutable bool m_textsRead = false;
};

} // namespace vasclip::sheet

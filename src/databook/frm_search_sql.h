#pragma once

#include "common/globals.h"
#include "databook/field_note.h"
#include "databook/grid.h"
#include "databook/search_sql.h"
#include "forms/screen.h"

#include <memory>
#include <vector>

namespace vasclip::databook {

/// The values of one field of a source's records, for a list that shows them.
class FieldLines : public forms::ListSource
{
public:
    FieldLines(const store::DataSource& source, const QString& field);
    [[nodiscard]] int Count() const override;
    [[nodiscard]] QString Line(int index) const override; ///< trimmed; "" for a record that is gone

private:
    const store::DataSource& m_source;
    QString m_field;
};

/// A field of the search screen with its label, and its range where it has one.
struct SearchBox
{
    const SearchField& row;
    std::unique_ptr<forms::Label> label;
    std::unique_ptr<forms::Control> value;
    std::unique_ptr<forms::Label> rangeLabel;
    std::unique_ptr<forms::Control> range;
    std::unique_ptr<FieldNote> note; ///< of a date
};

/// Searches the Databook by its fields: builds one SELECT, and shows its records in the grid.
class frm_SearchSQL : public forms::Screen
{
    Q_OBJECT
public:
    /// What it works with; all of it outlives the screen.
    struct Base
    {
        const forms::Ports& ports;
        const files::Disk& disk;
        const common::Globals& globals;
        RecordDesk& records;
        store::DataSource& datsql;
        GridRows& rows;
    };
    explicit frm_SearchSQL(const Base& base);
    ~frm_SearchSQL() override;

    forms::ComboBox cboCity, cboapprslType;
    forms::PictureBox imaSaleCal, imaLoadCal;
    forms::ControlArray<forms::CheckBox> optSort; ///< one of them is ticked
    forms::CheckBox ckbIgnorePending;
    forms::Button cmdSearch, cmdClear, cmdExit;
    forms::Label lblmsg;
    forms::Label lblSQL; ///< the statement, also one that could not be run

    /// A value or range by its control's name; nullptr if there is none.
    [[nodiscard]] forms::Control* Box(const QString& control) const;
    [[nodiscard]] QString TextOf(const QString& control) const; ///< "" if there is none
    void SetText(const QString& control, const QString& text);
    [[nodiscard]] const std::vector<SearchBox>& Boxes() const { return m_boxes; }

    /// What the screen says now.
    [[nodiscard]] SearchForm Form() const;

protected:
    void Form_Load() override;

private:
    void MakeBoxes();
    void Wire();
    void WireRange(const SearchBox& box);
    void WireDate(const SearchBox& box);
    void FixDateBox(const SearchBox& box);
    void BringBack(const SearchBox& box);
    void PickDate(const QString& control, const QString& title);
    void optSort_Click(int chosen);
    void cboCity_Click();
    void cboapprslType_Click();
    void cmdSearch_Click();
    void cmdClear_Click();
    void FillKeyLists();

    Base m_base;
    std::vector<SearchBox> m_boxes;
    QHash<QString, QString> m_typed; ///< by control, what a date box said before it was read
    bool m_fixing = false;
    FieldLines m_keys;
    FieldLines m_addresses;
};

} // namespace vasclip::databook

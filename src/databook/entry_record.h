#pragma once

#include "databook/entry_forms.h"
#include "databook/field_note.h"
#include "databook/load_comp_form.h"
#include "store/data_source.h"

#include <QHash>

#include <optional>

namespace vasclip::databook {

/// Kept: nothing was stored, the user goes on with the texts as they are. TookTheirs: nothing was stored, the
/// texts are now those that somebody else stored.
enum class Stored { Done, Kept, TookTheirs };

/// One comp while it is edited: its stored texts, what the user has made of them, and how they get back.
///
/// The edit is under way from the beginning, so that a change by somebody else meanwhile is noticed and told
/// before anything is stored. Only the fields that the user changed are written, all in one update.
class EntryRecord
{
public:
    EntryRecord(const EntryDesk& desk, const EntryForm& form, const QString& centralKey);

    store::DataSource datDatabook;
    QHash<QString, DateNote> dateNotes; ///< by field, as long as its text is what they are about; pages come and go

    /// Binds the Databook and begins to edit the record; a second call does nothing. @return false if the
    /// Databook has no such record @throws forms::EndOfProgram, RuntimeError
    [[nodiscard]] bool Open();

    [[nodiscard]] const EntryForm& Form() const { return m_form; }
    [[nodiscard]] const QString& Key() const { return m_key; }
    [[nodiscard]] bool Updatable() const; ///< false in a Databook that cannot be written
    [[nodiscard]] bool Has(const QString& field) const;
    [[nodiscard]] int Size(const QString& field) const; ///< of the field in the open table; 0 if it has none
    [[nodiscard]] QString Text(const QString& field) const; ///< "" for a field that the table lacks
    void SetText(const QString& field, const QString& text);
    [[nodiscard]] bool Changed() const; ///< blanks at the ends do not count
    [[nodiscard]] bool WasStored() const { return m_stored; }

    /// A changed field whose text is no number, and the words about it; nullopt if all can be stored.
    struct Refusal
    {
        QString field, text;
    };
    [[nodiscard]] std::optional<Refusal> Refused() const;
    /// Is the text another than the stored one? Blanks at the ends do not count.
    [[nodiscard]] bool IsChanged(const QString& field) const;

    /// Stores the changed texts, prices and areas as plain numbers, and today as MODIFIEDDATE. What is computed from a changed text follows it.
    Stored Save();
    /// The same, with what leaving a screen does: load date, sale date, serials and price per area are made
    /// good, and a changed age loses what is no number; a blank number becomes 0.
    Stored SaveForExit();
    void Cancel(); ///< drops the edit

private:
    void Read();
    void Begin();
    Stored Write(bool leaving);
    void Put(bool leaving);
    void PutDates(bool leaving);
    void PutNumbers(bool leaving);
    [[nodiscard]] QString AgeDigits(const QString& text) const;
    [[nodiscard]] bool OnForm(const QString& field) const;
    [[nodiscard]] Stored AskAboutTheirs();
    [[nodiscard]] QDate Today() const { return m_desk.ports.clock.Today(); }

    const EntryDesk& m_desk;
    const EntryForm& m_form;
    QString m_key;
    QHash<QString, QString> m_read;  ///< as stored, trimmed
    QHash<QString, QString> m_texts; ///< as they stand in the boxes
    bool m_theirsUntold = false;     ///< somebody's change was told, and the user goes on without a decision
    bool m_stored = false;
};

/// The text with all but the digits and minus signs taken out; "0" if nothing is left.
[[nodiscard]] QString DigitsOrZero(const QString& text);
/// The digits and minus signs among the first four characters of a box's text; "" if there are none.
[[nodiscard]] QString ReturnRentalAge(const QString& text);

} // namespace vasclip::databook

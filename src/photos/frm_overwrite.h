#pragma once

#include "forms/ports.h"
#include "forms/screen.h"
#include "photos/slots.h"

namespace vasclip::photos {

/// Asks whether a picture may take the place of the one that a record has under the same view. Both are shown.
class frm_Overwrite : public forms::Screen
{
    Q_OBJECT
public:
    /// @param existing  path of the stored picture; @param fresh  path of the picture that is to be filed
    /// @param record    key of the record
    frm_Overwrite(SlotLoader& loader, const QString& existing, const QString& fresh, const QString& record);

    forms::Label lblQuestion, lblExisting, lblFresh;
    forms::PictureBox geaExisting, geaFresh;
    forms::Button cmdYes, cmdNo, cmdCancel;

    /// Yes, No or Cancel; Cancel when the screen was closed.
    [[nodiscard]] forms::Answer Answer() const { return m_answer; }

protected:
    void Form_Load() override;

private:
    void Close(forms::Answer answer);
    SlotLoader& m_loader;
    QString m_existing, m_fresh;
    forms::Answer m_answer = forms::Answer::Cancel;
};

} // namespace vasclip::photos

#pragma once

#include "drops/drop_desk.h"

namespace vasclip::drops {

/// The view that is proposed for a picture of this source. @param text  of the source where it has one
[[nodiscard]] QString ProposedView(const QString& source, int index, const QString& text);

/// The view that AskView writes beside a general slot. The report has taken none of it yet: unless it does, what stood
/// there comes back at the end of the scope, but not into a box that another report has filled by then.
class GeneralCaption
{
public:
    GeneralCaption(DropDesk& desk, int index);
    ~GeneralCaption();
    GeneralCaption(const GeneralCaption&) = delete;
    GeneralCaption& operator=(const GeneralCaption&) = delete;
    void Taken() { m_taken = true; }

private:
    DropDesk& m_desk;
    int m_index;
    QString m_before, m_report;
    bool m_taken = false;
};

/// Asks which view a picture is, with the proposal of its source; the answer stands in CurrentView.
/// @param source   GEATHUMB, FILCAPTURE, CBOGENERAL, TXTVIEW, ...; of the last two the control takes the answer
/// @param picture  path, may be empty
/// @param whose    what the picture belongs to or goes to, which the dialogue names
/// @return the view as a record can hold it; "" if the user gave up, and then nothing is taken
QString AskView(DropDesk& desk, const QString& source, int index, const QString& picture, const QString& whose);

/// What became of the texts of a general slot on their way to the report.
struct GeneralTold
{
    bool viewFailed = false, addressFailed = false; ///< reported; after a failed view the address is not tried
    /// What a message about the picture goes on with: "; its description and address are not." and the like, "." if
    /// both went.
    [[nodiscard]] QString Words() const;
    [[nodiscard]] bool Failed() const { return viewFailed || addressFailed; }
};

/// The view and the address of a general slot go to the report.
/// @param caption  of a view that was asked; none for one that is typed there
GeneralTold TellGeneral(DropDesk& desk, int index, GeneralCaption* caption = nullptr);

} // namespace vasclip::drops

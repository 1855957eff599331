#pragma once

#include "forms/screen.h"

namespace vasclip::shell {

/// The choice of another database: the list `lstdatabases` of those that the data directory offers.
class frm_ChangeDB : public forms::Screen
{
    Q_OBJECT
public:
    /// @param offered  file names; @param current  the one that is open now, selected at first
    frm_ChangeDB(const QString& directory, const QStringList& offered, const QString& current);

    forms::Label lblDirectory;
    forms::ListBox lstdatabases;
    forms::Button cmdOk, cmdCancel;

    [[nodiscard]] const QString& Chosen() const { return m_chosen; } ///< file name; "" after Cancel

private:
    void cmdOk_Click();
    QString m_chosen;
};

} // namespace vasclip::shell

#pragma once

#include "forms/ports.h"
#include "forms/screen.h"
#include "store/data_source.h"

namespace vasclip::databook {

enum class RenameMode { Copy, Rename };

/// Gives a comp another address, or copies it to another one.
class frm_Rename : public forms::Screen
{
    Q_OBJECT
public:
    /// @param databook  table-type source of COMPS; outlives the screen
    /// @param key       the record that the screen is about
    /// @param newNames  what the list offers
    frm_Rename(const forms::Ports& ports, store::DataSource& databook, RenameMode mode, const QString& key,
               const QStringList& newNames);

    forms::Label lblCentral;
    forms::ComboBox cboNewName;
    forms::Label lblmsg;
    forms::Button cmdRename, cmdCancel;

    /// The key that the copy or the record has now; "" while nothing was done.
    [[nodiscard]] const QString& NewKey() const { return m_newKey; }

    void cmdRename_Click();

protected:
    void Form_Load() override;

private:
    forms::Ports m_ports;
    store::DataSource& m_databook;
    QString m_key;
    QString m_newKey;
};

} // namespace vasclip::databook

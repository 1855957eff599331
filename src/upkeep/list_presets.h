#pragma once

#include "upkeep/list_file.h"
#include "upkeep/transfer_desk.h"

namespace vasclip::upkeep {

/// What somebody says of a list; what is left open is found out.
struct ListChoice
{
    QChar delimiter = {};
    QString codePage = {}; ///< as CodePages spells it
    QString sheet = {};
    std::optional<qint64> headingLine = {};
    std::optional<DateOrder> dates = {};
    QChar decimal = {};
    QString preset = {}; ///< name of one that is kept
};

struct ListProposal
{
    ListLook look;
    bool datesOpen = false; ///< no date of the first lines tells the order
};

/// Reads the headings and the first lines of a list and proposes where each column goes and how values are written. What the
/// values tell comes before what was chosen for the same headings before.
/// @throws RuntimeError as ListFile, 3343 for a list without lines, 3219 for a preset that is not kept
[[nodiscard]] ListProposal LookAtList(const TransferDesk& desk, const ListFile& file, const ListChoice& choice = {});

/// Keeps a choice of columns for lists of the same headings. @throws RuntimeError of the disk
void KeepColumns(const TransferDesk& desk, const ListLook& look);

// Choices under a name, for lists of any headings.
[[nodiscard]] QStringList PresetNames(const TransferDesk& desk); ///< in their alphabet
void KeepPreset(const TransferDesk& desk, const QString& name, const ListLook& look);
void ForgetPreset(const TransferDesk& desk, const QString& name);

/// Lines that are looked at for a proposal and a preview.
inline constexpr qsizetype kSampleLines = 1000;

} // namespace vasclip::upkeep

#pragma once

#include "common/settings.h"

#include <QLatin1StringView>
#include <QStringList>

#include <span>

namespace vasclip::shell {

/// The pages of the settings screen, in their order.
enum class ConfigPage { Appearance, Pictures, Databook, Comments, Map, Directories, Transfer, CopyDevices };

/// How a setting is edited.
enum class ConfigKind {
    Text,      ///< a text box
    Number,    ///< a text box whose range is checked when the user leaves it
    Directory, ///< a text box with a button to choose the directory
    ShownOnly, ///< a text box that only shows the value
    Check,     ///< a check box
    Options,   ///< option buttons; the index of the one that is on is the value
};

/// One setting as the settings screen edits it: what ties its control to its row of the settings, to its
/// words and to its place.
struct ConfigField
{
    QLatin1StringView control;
    ConfigKind kind;
    common::SettingTarget setting; ///< the global, which leads to section, key and range
    QLatin1StringView label;       ///< "&" marks the access key; of option buttons their heading
    ConfigPage page;
    QLatin1StringView group; ///< heading of the group within the page
    std::span<const QLatin1StringView> options = {};
    QLatin1StringView refusal = {}; ///< the box for a number out of range
    QLatin1StringView hint = {};    ///< a quiet note behind the label

    [[nodiscard]] const common::SettingRow& Row() const;
    /// The label without the mark of its access key.
    [[nodiscard]] QString Words() const;
};

/// Every setting of the screen, page by page.
[[nodiscard]] std::span<const ConfigField> ConfigFields();
/// The field that edits a row; nullptr if the screen has none for it.
[[nodiscard]] const ConfigField* FieldOf(const common::SettingRow& row);

/// The directories that saving makes if they are not there, in the order of making.
[[nodiscard]] std::span<const common::SettingTarget> ConfigDirectories();

/// What saving writes, in the order of writing.
[[nodiscard]] std::span<const common::SettingTarget> ConfigWritingOrder();

[[nodiscard]] QString PageCaption(ConfigPage page);
[[nodiscard]] QStringList PageCaptions();

} // namespace vasclip::shell

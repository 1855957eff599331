#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

namespace vasclip::house {

/// Text of each source by its path from the root of the project: "src/link/tabs.cpp",
/// "tools/kelforms/main.cpp".
using Sources = QMap<QString, QString>;

/// Rooms of one floor stand in one line; a room may include what stands in lines before its own.
[[nodiscard]] const QList<QStringList>& Floors();

/// Everything that breaks the plan of the house, one sentence each: includes that run up or sideways or to
/// nowhere, circles between files, widgets below the windows, checks for a system outside platform/, changes of records outside
/// store.
/// @param widgetHeaders  names of the headers that only the widget library has
[[nodiscard]] QStringList Violations(const Sources& sources, const QSet<QString>& widgetHeaders);

/// The headers and sources under src/ and tools/.
[[nodiscard]] Sources ReadSources(const QString& projectDirectory);

/// The headers of QtWidgets that are not QtGui's as well.
[[nodiscard]] QSet<QString> ReadWidgetHeaders(const QStringList& includeDirectories);

} // namespace vasclip::house

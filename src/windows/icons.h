#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QPainter;

namespace vasclip::windows {

/// An icon of the program by name ("refresh" is resources/icons/refresh.svg), drawn in the text colour of the
/// theme at hand. Its file is read when it is first painted.
[[nodiscard]] QIcon ThemedIcon(const QString& name);

/// The same in a colour of its own, whatever the mode.
[[nodiscard]] QIcon ColouredIcon(const QString& name, const QColor& colour);

/// Paints an icon in one colour.
void PaintIcon(QPainter& painter, const QString& name, const QRectF& target, const QColor& colour);

/// Makes the icon resources reachable; ThemedIcon and its like do so by themselves.
void InitIcons();

/// The program's own sign, in colour.
[[nodiscard]] QIcon ApplicationIcon();

} // namespace vasclip::windows

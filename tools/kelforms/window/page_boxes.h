#pragma once

#include "kelforms/core/report.h"

#include <QList>
#include <QRect>
#include <QString>

namespace kelforms {

/// A rectangle of a page as it is drawn.
struct Box
{
    enum class Kind { Title, Heading, ColumnHead, Label, Value, Adjust, Check, Total, Field, Picture };
    Kind kind = Kind::Label;
    QRect rect;
    QString text; ///< what stands there; the small label of a Field
    QString key;  ///< the cell ("UA5|44|3") or image object whose content is drawn
};

/// A page laid out for a width.
struct PageBoxes
{
    QList<Box> boxes;
    int height = 0;
};

[[nodiscard]] PageBoxes LayOut(const Report& report, const QString& pageCode, int width);

/// The objects to show beside a page: those of the comps in its grids, the subject's first. Empty for a page
/// that has pictures of its own.
[[nodiscard]] QStringList ObjectsBeside(const Report& report, const QString& pageCode);

/// The line below a picture: whose it is and, for a comp, its address.
[[nodiscard]] QString PictureCaption(const Report& report, const QString& object);

} // namespace kelforms

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

class QDialog;
class QVBoxLayout;

namespace vasclip::windows {

/// What the two screens that complete cities differ in.
struct CityLayout
{
    QString mark; ///< the label beside the record's key
    QList<std::pair<QString, QString>> fields; ///< words and name
    std::function<void(QVBoxLayout& column)> under; ///< what stands under the fields
    QStringList buttons; ///< at the foot
};

/// A record's boxes beside the locations that the user keeps, with the message and the buttons under both.
void LayoutCityScreen(QDialog& window, const CityLayout& layout);

} // namespace vasclip::windows

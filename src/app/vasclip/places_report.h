#pragma once

#include "windows/main_window.h"

#include <QJsonObject>
#include <QObject>
#include <QTimer>

namespace vasclip::app {

/// Keeps a file with the place of every control that can be seen on the screen, for programs that drive the
/// pointer:
/// {"txtComp_4": [x, y, width, height], "TabData#1": ..., "rows": [[row, x, y, width, height], ...]} in
/// screen pixels; "#" names one tab of a tab control, the rows are those of the Databook grid that can be
/// seen. Rewritten whole when something has moved.
class PlacesReport : public QObject
{
public:
    PlacesReport(windows::MainWindow& window, const QString& file);

private:
    void Write();
    [[nodiscard]] QJsonObject Places() const;

    windows::MainWindow& m_window;
    QString m_file;
    QJsonObject m_last;
    QTimer m_timer;
};

} // namespace vasclip::app

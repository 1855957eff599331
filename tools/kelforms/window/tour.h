#pragma once

#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

namespace kelforms {

/// Takes pictures of the window for another program: whenever a file "shoot" appears in the directory, and on
/// demand.
///
/// The file may hold lines "page=CODE" (the page to turn to) and "name=WORD" (the picture is then
/// kelforms-WORD.png instead of kelforms-N.png). It is taken away once the picture is there, so the other
/// program waits for that. It should be renamed into place.
class Tour
{
public:
    Tour(QWidget& window, QString directory, std::function<void(const QString& page)> showPage);

    /// Writes the next kelforms-N.png.
    void Shoot();

private:
    void Look();
    void Take(const QString& name);

    QWidget& m_window;
    QString m_directory;
    std::function<void(const QString&)> m_showPage;
    QTimer m_timer;
    bool m_busy = false;
    int m_count = 0;
};

/// A picture of the window as it stands, written beside the file and renamed into place.
/// @throws RuntimeError 75
void SavePicture(QWidget& window, const QString& file);

} // namespace kelforms

#include "windows/window_places.h"

#include "ui_frm_main.h"
#include "windows/layout_parts.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

const QString kGeometry = u"window/geometry"_s;
const QString kMainSplitter = u"window/mainSplitter"_s;
const QString kTopSplitter = u"window/topSplitter"_s;
const QString kBottomSplitter = u"window/bottomSplitter"_s;

} // namespace

WindowPlaces::WindowPlaces(QMainWindow& window, Ui::frm_Main& ui, QSettings& settings)
    : m_window(window)
    , m_ui(ui)
    , m_settings(settings)
{}

void WindowPlaces::ResetLayout()
{
    const int height = m_ui.mainSplitter->height();
    const int width = m_ui.topSplitter->width();
    m_ui.mainSplitter->setSizes({height / 2, height - height / 2});
    m_ui.topSplitter->setSizes({width * 5 / 7, width - width * 5 / 7});
    m_ui.bottomSplitter->setSizes({width * 9 / 14, width - width * 9 / 14});
}

void WindowPlaces::TakeFirstSize()
{
    const QSize room = RoomFor(m_window);
    if (room.width() == QWIDGETSIZE_MAX)
        m_window.resize(1440, 900); // nothing stands in the way of a whole picture
    else
        m_window.resize(QSize(1600, 960).boundedTo(room - QSize(32, 24)));
}

void WindowPlaces::ResetSize()
{
    if (m_window.isMaximized() || m_window.isFullScreen())
        m_window.showNormal();
    TakeFirstSize();
    m_window.move(m_window.screen()->availableGeometry().center() - m_window.rect().center());
    QCoreApplication::sendPostedEvents(); // the panes share the new size
    ResetLayout();
}

void WindowPlaces::Restore()
{
    const bool noDisplay = QGuiApplication::platformName() == QLatin1StringView("offscreen");
    if (noDisplay || !m_window.restoreGeometry(m_settings.value(kGeometry).toByteArray()))
        TakeFirstSize();
    m_ui.topSplitter->setSizes({5000, 2000});
    m_ui.bottomSplitter->setSizes({5000, 2200});
    m_ui.mainSplitter->setSizes({5000, 5000});
    m_ui.mainSplitter->restoreState(m_settings.value(kMainSplitter).toByteArray());
    m_ui.topSplitter->restoreState(m_settings.value(kTopSplitter).toByteArray());
    m_ui.bottomSplitter->restoreState(m_settings.value(kBottomSplitter).toByteArray());
}

void WindowPlaces::Save()
{
    m_settings.setValue(kGeometry, m_window.saveGeometry());
    m_settings.setValue(kMainSplitter, m_ui.mainSplitter->saveState());
    m_settings.setValue(kTopSplitter, m_ui.topSplitter->saveState());
    m_settings.setValue(kBottomSplitter, m_ui.bottomSplitter->saveState());
}

} // namespace vasclip::windows

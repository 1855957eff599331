#include "windows/screens.h"

#include "windows/fit_to_screen.h"
#include "windows/guard.h"
#include "windows/icons.h"
#include "windows/screen_layouts.h"

#include <QApplication>
#include <QCloseEvent>

#include <algorithm>

namespace vasclip::windows {

std::span<const ScreenEntry> Screens()
{
    using namespace Qt::Literals::StringLiterals;
    // clang-format off
    static const std::vector<ScreenEntry> kScreens{
        {"frm_CompMnt1"_L1, Layout_EntryScreen},
        {"frm_CompMnt2"_L1, Layout_EntryScreen},
        {"frm_CompMntC"_L1, Layout_EntryScreen},
        {"frm_CompMntL"_L1, Layout_EntryScreen},
        {"frm_CompMntM"_L1, Layout_EntryScreen},
        {"frm_CompMntR"_L1, Layout_EntryScreen},
        {"frm_CompMntS"_L1, Layout_EntryScreen},
        {"frm_Calendar"_L1, Layout_frm_Calendar},
        {"frm_SearchSQL"_L1, Layout_frm_SearchSQL},
        {"frm_Comment"_L1, Layout_frm_Comment},
        {"frm_FKey"_L1, Layout_frm_FKey},
        {"frm_CopyPics"_L1, Layout_frm_CopyPics},
        {"frm_Archive"_L1, Layout_frm_Archive},
        {"frm_DelDate"_L1, Layout_frm_DelDate},
        {"frm_Double"_L1, Layout_frm_Double},
        {"frm_GenView"_L1, Layout_frm_GenView},
        {"frm_Grid"_L1, Layout_frm_Grid},
        {"frm_ChangeDB"_L1, Layout_frm_ChangeDB},
        {"frm_Config"_L1, Layout_frm_Config},
        {"frm_AttachCity"_L1, Layout_frm_AttachCity},
        {"frm_MassCity"_L1, Layout_frm_MassCity},
        {"frm_CameraDir"_L1, Layout_frm_CameraDir},
        {"frm_Overwrite"_L1, Layout_frm_Overwrite},
        {"frm_Crystal"_L1, Layout_frm_Crystal},
        {"frm_ReportPreview"_L1, Layout_frm_ReportPreview},
        {"frm_Rename"_L1, Layout_frm_Rename},
        {"frm_SearchPics"_L1, Layout_frm_SearchPics},
        {"frm_StreetFind"_L1, Layout_frm_StreetFind},
        {"frm_Maintenance"_L1, Layout_frm_Maintenance},
        {"frm_Manual"_L1, Layout_frm_Manual},
        {"frm_MapPreview"_L1, Layout_frm_MapPreview},
        {"frm_MapData"_L1, Layout_frm_MapData},
        {"frm_Export"_L1, Layout_frm_Export},
        {"frm_Import"_L1, Layout_frm_Import},
        {"frm_ListColumns"_L1, Layout_frm_ListColumns},
        {"frm_Rehearse"_L1, Layout_frm_Rehearse},
        {"frm_Trash"_L1, Layout_frm_Trash},
    };
    // clang-format on
    return kScreens;
}

ScreenWindow::ScreenWindow(forms::Screen& screen, EventGuard& guard, QWidget* parent)
    : QDialog(parent)
    , m_screen(screen)
    , m_guard(guard)
    , m_binder(screen.controls, guard)
{
    const auto known = Screens();
    const auto entry = std::find_if(known.begin(), known.end(),
                                    [&](const ScreenEntry& row) { return screen.Name() == row.name; });
    if (entry == known.end())
        throw RuntimeError(error::kInvalidOperation, u"The screen %1 has no window"_s.arg(screen.Name()));
    entry->layout(*this, screen);
    setObjectName(screen.Name());
    setWindowIcon(ApplicationIcon());
    setWindowTitle(screen.Caption());
    connect(&screen, &forms::Screen::CaptionChanged, this, [this] { setWindowTitle(m_screen.Caption()); });
    connect(&screen, &forms::Screen::Unloaded, this, [this] { QDialog::accept(); });
    m_binder.Bind(*this);
    if (forms::Screen* companion = screen.Companion()) {
        m_companion = std::make_unique<Binder>(companion->controls, guard);
        m_companion->Bind(*this);
    }
    FitToScreen(*this);
}

QStringList ScreenWindow::Leftovers() const
{
    return m_binder.Leftovers(*this) + (m_companion ? m_companion->Leftovers(*this) : QStringList());
}

void ScreenWindow::reject()
{
    m_guard.Run([this] { m_screen.Unload(); });
}

void ScreenWindow::closeEvent(QCloseEvent* event)
{
    reject();
    event->setAccepted(!m_screen.IsOpen());
}

void WindowScreens::ShowModal(forms::Screen& screen)
{
    Q_ASSERT(m_guard);
    // The screen is loaded before it has a window: where it wants the focus then is kept for the window.
    QPointer<forms::Control> focus;
    QObject loading;
    for (forms::Control* control : screen.controls.All())
        QObject::connect(control, &forms::Control::FocusWanted, &loading, [&focus, control] { focus = control; });
    screen.Open();
    {
        QWidget* active = QApplication::activeModalWidget();
        ScreenWindow window(screen, *m_guard, active ? active : m_owner.data());
        if (QWidget* wanted = focus ? window.Bindings().WidgetOf(*focus) : nullptr)
            wanted->setFocus(Qt::OtherFocusReason);
        m_open.append(&window);
        if (screen.IsOpen())
            window.exec();
        m_open.removeOne(&window);
    }
    screen.End();
}

void WindowScreens::UnloadAllForms()
{
    const QList<QPointer<ScreenWindow>> open = m_open;
    for (auto window = open.crbegin(); window != open.crend(); ++window)
        if (*window)
            (*window)->done(QDialog::Rejected); // its ShowModal runs Form_Unload when it returns
}

} // namespace vasclip::windows

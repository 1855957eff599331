#include "windows/splash_window.h"

#include "ui_frm_splash.h"
#include "windows/icons.h"
#include "windows/theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {
constexpr int kLogoPixels = 144; // twice its place, for a screen at 200 %
}

SplashWindow::SplashWindow(forms::ControlSet& controls, EventGuard& guard, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
    , m_ui(std::make_unique<Ui::frm_Splash>())
    , m_binder(controls, guard)
{
    m_ui->setupUi(this);
    setWindowIcon(ApplicationIcon());
    m_ui->imgLogo->SetBare(true);
    m_ui->imgLogo->setFocusPolicy(Qt::NoFocus);
    m_ui->imgLogo->setAccessibleName(tr("Vasclip"));
    if (auto* logo = qobject_cast<forms::PictureBox*>(controls.Find(u"imgLogo"_s));
        logo != nullptr && logo->Picture().isNull())
        logo->SetPicture(ApplicationIcon().pixmap(QSize(kLogoPixels, kLogoPixels), 1.0).toImage());
    m_binder.Bind(*this);
}

SplashWindow::~SplashWindow() = default;

void SplashWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Colours().window);
    painter.setPen(QPen(Theme::Colours().borderStrong, 1));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace vasclip::windows

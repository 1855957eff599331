#include "forms/screen.h"
#include "windows/layout_parts.h"
#include "windows/picture_view.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize kPicture{1500, 1000};
constexpr int kRim = 40; ///< what frame and buttons take

} // namespace

/// The picture at its own size, a pixel of it a pixel of the screen; what does not fit is scrolled to, or the whole is seen
/// smaller.
void Layout_frm_MapPreview(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* area = new QScrollArea(&window);
    area->setAccessibleName(QDialog::tr("The map as it goes into the report"));
    area->setFrameShape(QFrame::NoFrame);
    auto* picture = new PictureView(area);
    picture->setObjectName(u"mapPreview"_s);
    picture->SetBare(true);
    picture->setAccessibleName(QDialog::tr("Map picture"));
    constexpr QSize kEdge{2, 2}; // that a view leaves around its picture
    const QSize own = (QSizeF(kPicture) / window.devicePixelRatioF()).toSize() + kEdge;
    picture->setFixedSize(own);
    area->setWidget(picture);
    rows->addWidget(area, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* whole = new QCheckBox(QDialog::tr("Whole picture"), &window);
    whole->setObjectName(u"wholePicture"_s);
    whole->setToolTip(QDialog::tr("Shows all of the picture; without it, each of its pixels"));
    QObject::connect(whole, &QCheckBox::toggled, area, [area, picture, own](bool all) {
        picture->setMinimumSize(all ? QSize(0, 0) : own);
        picture->setMaximumSize(all ? QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : own);
        area->setWidgetResizable(all);
    });
    foot->addWidget(whole);
    foot->addStretch(1);
    auto* send = MakeButton(window, u"cmdSend"_s);
    send->setDefault(true);
    send->setProperty("primary", true);
    foot->addWidget(send);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    const QSize room = window.screen()->availableSize() - QSize(kRim, 2 * kRim);
    const QSize wanted = own + QSize(kRim, 2 * kRim);
    window.resize(room.boundedTo(wanted));
    whole->setChecked(wanted.width() > room.width() || wanted.height() > room.height());
}

} // namespace vasclip::windows

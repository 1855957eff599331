#include "forms/screen.h"
#include "windows/layout_parts.h"
#include "windows/picture_view.h"
#include "windows/screen_layouts.h"

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

/// The picture at its own size, a pixel of it a pixel of the screen; what does not fit is scrolled to.
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
    picture->setFixedSize((QSizeF(kPicture) / window.devicePixelRatioF()).toSize() + kEdge);
    area->setWidget(picture);
    rows->addWidget(area, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addStretch(1);
    auto* send = MakeButton(window, u"cmdSend"_s);
    send->setDefault(true);
    send->setProperty("primary", true);
    foot->addWidget(send);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    rows->addLayout(foot);
    const QSize room = window.screen()->availableSize() - QSize(kRim, 2 * kRim);
    window.resize(room.boundedTo(picture->size() + QSize(kRim, 2 * kRim)));
}

} // namespace vasclip::windows

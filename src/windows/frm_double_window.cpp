#include "forms/screen.h"
#include "windows/layout_parts.h"
#include "windows/picture_view.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A picture with what is known of its file below.
QLayout* PictureColumn(QDialog& window, const QString& picture, const QString& title, int side)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    column->addWidget(MakeWords(window, title, "title"));
    auto* view = MakePicture(window, picture, QDialog::tr("Nothing compressed yet"));
    view->setMinimumSize(300, 200);
    column->addWidget(view, 1);
    auto* facts = new QFormLayout;
    facts->setHorizontalSpacing(12);
    facts->setVerticalSpacing(2);
    const std::pair<QString, QString> rows[] = {
        {QDialog::tr("File"), u"lblFilename_%1"_s},       {QDialog::tr("Size"), u"lblSize_%1"_s},
        {QDialog::tr("Date"), u"lblDate_%1"_s},           {QDialog::tr("Format"), u"lblFormat_%1"_s},
        {QDialog::tr("Compression"), u"lblCompression_%1"_s}, {QDialog::tr("Resolution"), u"lblResolution_%1"_s},
        {QDialog::tr("Colors"), u"lblBitDepth_%1"_s},
    };
    for (const auto& [words, name] : rows)
        facts->addRow(MakeWords(window, words, "quiet"), MakeLabel(window, name.arg(side)));
    column->addLayout(facts);
    return column;
}

QSlider* MakeSlider(QDialog& window, const QString& name, const QString& accessibleName)
{
    auto* slider = new QSlider(Qt::Horizontal, &window);
    slider->setObjectName(name);
    slider->setAccessibleName(accessibleName);
    slider->setPageStep(10);
    slider->setMinimumWidth(240);
    return slider;
}

QLayout* Controls(QDialog& window)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    auto* quality = MakeSlider(window, u"hsbquality"_s, QDialog::tr("Quality"));
    auto* brightness = MakeSlider(window, u"hsbcapturebrightness"_s, QDialog::tr("Brightness"));
    grid->addWidget(MakeLabel(window, u"lblQualityCaption"_s), 0, 0);
    grid->addWidget(quality, 0, 1);
    auto* qualityValue = MakeLabel(window, u"lblQuality"_s);
    qualityValue->setMinimumWidth(40);
    grid->addWidget(qualityValue, 0, 2);
    grid->addWidget(MakeWords(window, QDialog::tr("&Brightness"), "", brightness), 1, 0);
    grid->addWidget(brightness, 1, 1);
    grid->addWidget(MakeLabel(window, u"lblBrightness"_s), 1, 2);
    auto* show = MakeIconButton(window, u"imacapturebrightness"_s, u"sun"_s);
    show->setFocusPolicy(Qt::StrongFocus); // no other control does this
    grid->addWidget(show, 1, 3);
    return grid;
}

} // namespace

void Layout_frm_Double(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* pictures = new QHBoxLayout;
    pictures->setSpacing(16);
    pictures->addLayout(PictureColumn(window, u"bmpDouble"_s, QDialog::tr("The picture as it stands"), 0), 1);
    pictures->addLayout(PictureColumn(window, u"bmpDouble2"_s, QDialog::tr("The new compression"), 1), 1);
    rows->addLayout(pictures, 1);

    auto* middle = new QHBoxLayout;
    middle->setSpacing(16);
    middle->addLayout(Controls(window), 1);
    auto* steps = MakeList(window, u"lstHow2"_s, QDialog::tr("Instructions"));
    steps->setSelectionMode(QAbstractItemView::NoSelection);
    steps->setFocusPolicy(Qt::NoFocus);
    steps->setMaximumHeight(4 * steps->fontMetrics().height() + 24);
    middle->addWidget(steps, 1);
    rows->addLayout(middle);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    foot->addWidget(MakeLabel(window, u"lblPending"_s, "quiet"));
    foot->addWidget(message, 1);
    foot->addWidget(MakeButton(window, u"cmdReset"_s));
    auto* compress = MakeButton(window, u"cmdCompress"_s);
    compress->setProperty("primary", true);
    foot->addWidget(compress);
    foot->addWidget(MakeButton(window, u"cmdCancel"_s));
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(1040, 660);
}

} // namespace vasclip::windows

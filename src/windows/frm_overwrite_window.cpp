#include "windows/screen_layouts.h"

#include "windows/picture_view.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

void Layout_frm_Overwrite(QDialog& window, forms::Screen&)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);
    auto* question = new QLabel(&window);
    question->setObjectName(u"lblQuestion"_s);
    question->setProperty("role", u"title"_s);
    question->setWordWrap(true);
    rows->addWidget(question);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(16);
    const std::pair<QString, QString> sides[] = {{u"lblExisting"_s, u"geaExisting"_s},
                                                 {u"lblFresh"_s, u"geaFresh"_s}};
    for (const auto& [label, picture] : sides) {
        auto* side = new QVBoxLayout;
        side->setSpacing(6);
        auto* caption = new QLabel(&window);
        caption->setObjectName(label);
        caption->setProperty("role", u"quiet"_s);
        auto* view = new PictureView(&window);
        view->setObjectName(picture);
        view->SetEmptyIcon(u"photo"_s);
        view->setFocusPolicy(Qt::NoFocus);
        view->setMinimumSize(280, 210);
        side->addWidget(caption);
        side->addWidget(view, 1);
        columns->addLayout(side, 1);
    }
    rows->addLayout(columns, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addStretch(1);
    for (const QString& name : {u"cmdYes"_s, u"cmdNo"_s, u"cmdCancel"_s}) {
        auto* button = new QPushButton(&window);
        button->setObjectName(name);
        button->setAutoDefault(true); // Enter presses the one that has the focus
        foot->addWidget(button);
    }
    rows->addLayout(foot);
}

} // namespace vasclip::windows

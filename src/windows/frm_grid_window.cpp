#include "windows/record_grid.h"
#include "windows/screen_layouts.h"

#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

QPushButton* Button(QDialog& window, const char* name, const QString& tip)
{
    auto* button = new QPushButton(&window);
    button->setObjectName(QLatin1StringView(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

QLabel* Words(QDialog& window, const QString& text, const char* role)
{
    auto* label = new QLabel(text, &window);
    label->setProperty("role", QLatin1StringView(role));
    return label;
}

} // namespace

/// The names and what is done with them on the left, the preview on the right.
void Layout_frm_Grid(QDialog& window, forms::Screen&)
{
    const auto tr = [](const char* text) { return QDialog::tr(text); };
    auto* list = new QListView(&window);
    list->setObjectName(u"lstLayout"_s);
    list->setAccessibleName(tr("Saved grid layouts"));
    auto* name = new QLineEdit(&window);
    name->setObjectName(u"txtLayout"_s);
    name->setAccessibleName(tr("Name of the layout"));
    auto* saved = Words(window, tr("Saved &layouts"), "title");
    saved->setBuddy(list);
    auto* nameCaption = Words(window, tr("&Name"), "quiet");
    nameCaption->setBuddy(name);

    QPushButton* use = Button(window, "cmdUseSelected", tr("Arrange the Databook grid like this layout"));
    QPushButton* save = Button(window, "cmdSave", tr("Save the Databook grid's arrangement under the name"));
    QPushButton* remove = Button(window, "cmdDelete", tr("Delete the layout named in the box"));
    QPushButton* refresh = Button(window, "cmdRefresh", tr("Read the list of layouts again"));
    QPushButton* standard = Button(window, "cmddefault", tr("Arrange the Databook grid as the program does"));
    QPushButton* removeAll =
        Button(window, "cmdRemoveAll", tr("Erase all saved layouts and go back to the program's"));
    QPushButton* ok = Button(window, "cmdOK", tr("Close"));
    // Return in the box uses what it names, once the user has named it: the box opens with a layout that
    // would take the place of the user's own.
    ok->setDefault(true);
    const auto named = [use, &window] {
        if (window.isVisible())
            use->setDefault(true);
    };
    QObject::connect(name, &QLineEdit::textChanged, use, named);
    QObject::connect(list, &QListView::clicked, use, named);

    auto* actions = new QGridLayout;
    actions->setSpacing(8);
    actions->addWidget(use, 0, 0);
    actions->addWidget(save, 0, 1);
    actions->addWidget(standard, 1, 0);
    actions->addWidget(remove, 1, 1);
    actions->addWidget(refresh, 2, 0);
    actions->addWidget(removeAll, 2, 1);

    auto* left = new QVBoxLayout;
    left->setSpacing(8);
    left->addWidget(saved);
    left->addWidget(list, 1);
    left->addWidget(nameCaption);
    left->addWidget(name);
    left->addSpacing(4);
    left->addLayout(actions);

    auto* preview = new RecordGrid(&window);
    preview->setObjectName(u"grdLayout"_s);
    preview->setAccessibleName(tr("Preview of the layout"));
    preview->FixColumns();
    preview->setMinimumSize(360, 200);
    auto* shown = Words(window, QString(), "title");
    shown->setObjectName(u"lblPreview"_s);
    auto* hint = Words(window,
                       tr("Arrange the columns in the Databook grid itself: drag a heading, or press "
                          "Ctrl+Shift with an arrow key."),
                       "quiet");
    hint->setWordWrap(true);
    auto* right = new QVBoxLayout;
    right->setSpacing(8);
    right->addWidget(shown);
    right->addWidget(preview, 1);
    right->addWidget(hint);

    auto* panes = new QHBoxLayout;
    panes->setSpacing(16);
    panes->addLayout(left, 2);
    panes->addLayout(right, 5);

    auto* message = new QLabel(&window);
    message->setObjectName(u"lblmsg"_s);
    message->setWordWrap(true);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addWidget(message, 1);
    ok->setMinimumWidth(96);
    foot->addWidget(ok);

    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(16);
    rows->addLayout(panes, 1);
    rows->addLayout(foot);
    window.resize(960, 520);

    const QList<QWidget*> order{list, name, use, save, standard, remove, refresh, removeAll, preview, ok};
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order.at(i - 1), order.at(i));
}

} // namespace vasclip::windows

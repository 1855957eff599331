#include "windows/screen_layouts.h"

#include <QAbstractButton>
#include <QAbstractTextDocumentLayout>
#include <QCheckBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kKeys = 6;
constexpr int kLeastHeight = 20; ///< of a line, as line edits have it
constexpr int kMostLines = 5;    ///< further ones are scrolled to
constexpr int kSlack = 2;        ///< a line that is short of its height is scrolled

/// The phrase of a key, as high as its text. It is read, not written.
class PhraseBox : public QPlainTextEdit
{
public:
    explicit PhraseBox(QWidget* parent)
        : QPlainTextEdit(parent)
    {
        setTabChangesFocus(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        document()->setDocumentMargin(0);
        connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
                [this] { Fit(); });
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QPlainTextEdit::resizeEvent(event);
        Fit();
    }

private:
    void Fit()
    {
        const int lines = std::clamp(qRound(document()->size().height()), 1, kMostLines);
        const int text = lines * fontMetrics().lineSpacing() + kSlack;
        const int spare = std::max(0, kLeastHeight - text);
        setViewportMargins(0, std::min(spare, (spare + kSlack) / 2), 0, 0); // the slack is below the text
        const QMargins frame = contentsMargins();
        setFixedHeight(std::max(kLeastHeight, text) + frame.top() + frame.bottom());
    }
};

template <class T>
T* Named(const QString& name, QWidget* parent)
{
    auto* widget = new T(parent);
    widget->setObjectName(name);
    return widget;
}

QPushButton* Button(const QString& name, QWidget* parent)
{
    auto* button = Named<QPushButton>(name, parent);
    button->setAutoDefault(false);
    return button;
}

/// The keys work here as they do in a field.
void OnKey(QDialog& window, const QKeySequence& keys, QAbstractButton* button)
{
    auto* shortcut = new QShortcut(keys, &window);
    QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
}

/// A card with its heading; what it holds comes below.
QFrame* Card(const QString& heading, QDialog& window, QVBoxLayout*& rows)
{
    auto* card = new QFrame(&window);
    card->setProperty("card", true);
    rows = new QVBoxLayout(card);
    rows->setContentsMargins(12, 8, 12, 12);
    rows->setSpacing(8);
    auto* title = new QLabel(heading, card);
    title->setProperty("role", u"title"_s);
    rows->addWidget(title);
    return card;
}

QFrame* FunctionKeys(QDialog& window)
{
    QVBoxLayout* rows = nullptr;
    QFrame* group = Card(QDialog::tr("Function keys"), window, rows);
    auto* grid = new QGridLayout;
    rows->addLayout(grid, 1);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    for (int i = 0; i < kKeys; ++i) {
        const QString key = u"F%1"_s.arg(i + 3);
        auto* name = new QLabel(key, group);
        auto* phrase = Named<PhraseBox>(u"txtFKey_%1"_s.arg(i), group);
        phrase->setAccessibleName(QDialog::tr("Phrase of %1").arg(key));
        phrase->setPlaceholderText(QDialog::tr("empty"));
        phrase->setMinimumWidth(220);
        phrase->setFocusPolicy(Qt::ClickFocus); // its buttons are the way from the keyboard
        auto* read = Button(u"optRead_%1"_s.arg(i), group);
        auto* store = Button(u"optGet_%1"_s.arg(i), group);
        for (QPushButton* option : {read, store})
            option->setCheckable(true);
        read->setAccessibleName(QDialog::tr("Read %1").arg(key));
        store->setAccessibleName(QDialog::tr("Store on %1").arg(key));
        grid->addWidget(name, i, 0);
        grid->addWidget(phrase, i, 1);
        grid->addWidget(read, i, 2);
        grid->addWidget(store, i, 3);
        OnKey(window, QKeySequence(Qt::Key(Qt::Key_F3 + i)), read);
        for (const Qt::KeyboardModifier second : {Qt::AltModifier, Qt::ShiftModifier})
            OnKey(window, QKeySequence(QKeyCombination(Qt::ControlModifier | second, Qt::Key(Qt::Key_F3 + i))), store);
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(kKeys, 1);
    grid->addWidget(Named<QCheckBox>(u"ckbAdvance"_s, group), kKeys + 1, 0, 1, 4);
    return group;
}

QFrame* FreeList(QDialog& window)
{
    QVBoxLayout* whole = nullptr;
    QFrame* group = Card(QDialog::tr("Phrases"), window, whole);
    auto* columns = new QHBoxLayout;
    whole->addLayout(columns, 1);
    columns->setSpacing(8);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(8);
    for (const QString& name : {u"CmdInsertRow"_s, u"cmdRead"_s, u"cmdDeleteRow"_s})
        buttons->addWidget(Button(name, group));
    buttons->addStretch(1);
    columns->addLayout(buttons);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(8);
    auto* list = Named<QListWidget>(u"lstComment"_s, group);
    list->setAccessibleName(QDialog::tr("Phrases of this field"));
    list->setMinimumSize(240, 200);
    rows->addWidget(list, 1);
    rows->addWidget(Named<QCheckBox>(u"ckbAlphabetic"_s, group));
    columns->addLayout(rows, 1);
    Named<QListWidget>(u"lstSorted"_s, group)->hide();
    return group;
}

} // namespace

void Layout_frm_Comment(QDialog& window, forms::Screen&)
{
    auto* rows = new QVBoxLayout(&window);
    rows->setContentsMargins(16, 16, 16, 16);
    rows->setSpacing(12);

    auto* label = new QLabel(QDialog::tr("&Phrase:"), &window);
    auto* phrase = Named<QLineEdit>(u"txtAddComment"_s, &window);
    phrase->setClearButtonEnabled(true);
    label->setBuddy(phrase);
    auto* head = new QHBoxLayout;
    head->setSpacing(8);
    head->addWidget(label);
    head->addWidget(phrase, 1);
    rows->addLayout(head);

    auto* both = new QHBoxLayout;
    both->setSpacing(12);
    both->addWidget(FunctionKeys(window), 1);
    both->addWidget(FreeList(window), 1);
    rows->addLayout(both, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    auto* message = Named<QLabel>(u"lblmsg"_s, &window);
    message->setWordWrap(true);
    foot->addWidget(message, 1);
    auto* ok = Button(u"cmdOK"_s, &window);
    ok->setDefault(true);
    foot->addWidget(ok);
    foot->addWidget(Button(u"cmdCancel"_s, &window));
    rows->addLayout(foot);
    window.resize(860, 420);
    phrase->setFocus();
}

} // namespace vasclip::windows

#include "shell/frm_config.h"
#include "windows/icons.h"
#include "windows/screen_layouts.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;
using shell::ConfigKind;
using shell::frm_Config;

namespace {

constexpr int kLabelWidth = 200;
constexpr int kNumberWidth = 110;

QLabel* Words(const QString& text, const char* role, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("role", QString::fromLatin1(role));
    return label;
}

QPushButton* MadeButton(const forms::Control& control, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(control.ObjectName());
    button->setAutoDefault(false);
    return button;
}

/// One field on its page: what hides and lights up by the search.
struct Row
{
    const frm_Config::Field* field;
    QFrame* frame;
    QWidget* group;
};

class Pages
{
public:
    Pages(QDialog& window, frm_Config& screen)
        : m_window(window)
        , m_screen(screen)
    {}

    QStackedWidget* Build()
    {
        m_book = new QStackedWidget(&m_window);
        for (int page = 0; page < m_screen.SSConfig.Tabs(); ++page) {
            auto* scroller = new QScrollArea(m_book);
            scroller->setWidgetResizable(true);
            scroller->setFrameShape(QFrame::NoFrame);
            scroller->setFocusPolicy(Qt::NoFocus);
            auto* ground = new QWidget(scroller);
            auto* rows = new QVBoxLayout(ground);
            rows->setContentsMargins(4, 0, 12, 8);
            rows->setSpacing(12);
            rows->addWidget(Words(m_screen.SSConfig.TabCaption(page), "heading", ground));
            FillPage(static_cast<shell::ConfigPage>(page), *ground, *rows);
            rows->addStretch(1);
            scroller->setWidget(ground);
            m_book->addWidget(scroller);
        }
        return m_book;
    }

    [[nodiscard]] const std::vector<Row>& Rows() const { return m_rows; }
    [[nodiscard]] const QList<QWidget*>& Groups() const { return m_groups; }

private:
    void FillPage(shell::ConfigPage page, QWidget& ground, QVBoxLayout& rows)
    {
        QString heading;
        for (const auto& field : m_screen.Fields()) {
            if (field.about.page != page)
                continue;
            if (heading != field.about.group) {
                heading = field.about.group;
                BeginGroup(heading, ground, rows);
            }
            AddRow(field);
        }
    }

    void BeginGroup(const QString& heading, QWidget& ground, QVBoxLayout& rows)
    {
        auto* card = new QFrame(&ground);
        card->setProperty("card", true);
        m_group = card;
        m_groupRows = new QVBoxLayout(card);
        m_groupRows->setContentsMargins(8, 12, 8, 8);
        m_groupRows->setSpacing(0);
        auto* title = Words(heading, "title", card);
        title->setContentsMargins(8, 0, 0, 4);
        m_groupRows->addWidget(title);
        rows.addWidget(card);
        m_groups.append(card);
        if (heading == "User Interface"_L1) {
            auto* line = new QHBoxLayout;
            line->setContentsMargins(8, 4, 8, 4);
            line->setSpacing(8);
            line->addWidget(MadeButton(m_screen.cmdResetSize, card));
            auto* words =
                Words(QDialog::tr("Puts the main window back to its first size and panes"), "quiet", card);
            words->setWordWrap(true);
            line->addWidget(words, 1);
            m_groupRows->addLayout(line);
        }
    }

    void AddRow(const frm_Config::Field& field)
    {
        auto* frame = new QFrame(m_group);
        auto* line = new QVBoxLayout(frame);
        line->setContentsMargins(8, 4, 8, 4);
        line->setSpacing(4);
        switch (field.about.kind) {
        case ConfigKind::Check:
            AddCheck(field, *frame, *line);
            break;
        case ConfigKind::Options:
            AddOptions(field, *frame, *line);
            break;
        default:
            AddText(field, *frame, *line);
        }
        m_groupRows->addWidget(frame);
        m_rows.push_back({&field, frame, m_group});
    }

    static void AddCheck(const frm_Config::Field& field, QWidget& frame, QVBoxLayout& line)
    {
        auto* box = new QCheckBox(&frame);
        box->setObjectName(field.check->ObjectName());
        if (field.about.hint.isEmpty())
            return line.addWidget(box);
        auto* columns = new QHBoxLayout;
        columns->setSpacing(8);
        columns->addWidget(box);
        columns->addWidget(Words(QString(field.about.hint), "quiet", &frame));
        columns->addStretch(1);
        line.addLayout(columns);
    }

    static void AddOptions(const frm_Config::Field& field, QWidget& frame, QVBoxLayout& line)
    {
        if (field.about.label != field.about.group)
            line.addWidget(Words(field.about.Words(), "", &frame));
        // Short words stand side by side, sentences below each other.
        const bool wide = field.options.size() > 3 || field.options.front()->Caption().size() > 12;
        auto* choices = new QBoxLayout(wide ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
        choices->setSpacing(wide ? 4 : 16);
        for (const auto& option : field.options) {
            auto* button = new QRadioButton(&frame);
            button->setObjectName(option->ObjectName());
            choices->addWidget(button);
        }
        choices->addStretch(1);
        line.addLayout(choices);
    }

    static void AddText(const frm_Config::Field& field, QWidget& frame, QVBoxLayout& line)
    {
        auto* columns = new QHBoxLayout;
        columns->setSpacing(8);
        auto* words = Words(QString(field.about.label), "", &frame);
        words->setMinimumWidth(kLabelWidth);
        columns->addWidget(words);
        auto* edit = new QLineEdit(&frame);
        edit->setObjectName(field.text->ObjectName());
        edit->setAccessibleName(field.about.Words());
        words->setBuddy(edit);
        auto* note = new QLabel(&frame);
        note->setObjectName(field.note->ObjectName());
        note->setProperty("collapses", true);
        note->setWordWrap(true);
        columns->addWidget(edit, field.about.kind == ConfigKind::Number ? 0 : 1);
        if (field.about.kind == ConfigKind::Number) {
            edit->setFixedWidth(kNumberWidth);
            columns->addWidget(note, 1); // beside it: there is room
        }
        if (field.browse)
            columns->addWidget(MadeButton(*field.browse, &frame));
        line.addLayout(columns);
        if (field.about.kind != ConfigKind::Number) {
            note->setContentsMargins(kLabelWidth + 8, 0, 0, 0);
            line.addWidget(note);
        }
    }

    QDialog& m_window;
    frm_Config& m_screen;
    QStackedWidget* m_book = nullptr;
    QWidget* m_group = nullptr;
    QVBoxLayout* m_groupRows = nullptr;
    std::vector<Row> m_rows;
    QList<QWidget*> m_groups;
};

/// While a search is on, only what it found is shown, lit up.
void ShowFound(const frm_Config& screen, const std::vector<Row>& rows, const QList<QWidget*>& groups)
{
    const bool searching = !screen.txtFind.Text().trimmed().isEmpty();
    for (QWidget* group : groups)
        group->setVisible(!searching);
    for (const Row& row : rows) {
        row.frame->setVisible(!searching || row.field->found);
        if (searching && row.field->found)
            row.group->setVisible(true);
        row.frame->setProperty("found", searching && row.field->found);
        row.frame->style()->unpolish(row.frame);
        row.frame->style()->polish(row.frame);
    }
}

} // namespace

void Layout_frm_Config(QDialog& window, forms::Screen& shown)
{
    auto& screen = dynamic_cast<frm_Config&>(shown);
    auto* whole = new QVBoxLayout(&window);
    whole->setContentsMargins(16, 16, 16, 16);
    whole->setSpacing(12);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(16);
    whole->addLayout(columns, 1);

    auto* aside = new QVBoxLayout;
    aside->setSpacing(8);
    auto* find = new QLineEdit(&window);
    find->setObjectName(screen.txtFind.ObjectName());
    find->setPlaceholderText(QDialog::tr("Find a setting (Ctrl+F)"));
    find->setAccessibleName(QDialog::tr("Find a setting by its label"));
    find->setClearButtonEnabled(true);
    find->addAction(ThemedIcon(u"search"_s), QLineEdit::LeadingPosition);
    aside->addWidget(find);
    auto* count = Words({}, "quiet", &window);
    count->setObjectName(screen.lblFind.ObjectName());
    count->setProperty("collapses", true);
    aside->addWidget(count);
    auto* list = new QListWidget(&window);
    list->setObjectName(screen.SSConfig.ObjectName());
    list->setProperty("pages", true);
    list->setAccessibleName(QDialog::tr("Pages of settings"));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    aside->addWidget(list, 1);
    find->setFixedWidth(220);
    count->setFixedWidth(220);
    list->setFixedWidth(220);
    columns->addLayout(aside);

    Pages pages(window, screen);
    QStackedWidget* book = pages.Build();
    columns->addWidget(book, 1);

    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    QPushButton* cancel = MadeButton(screen.cmdCancel, &window);
    cancel->setToolTip(QDialog::tr("Shows the saved settings again"));
    cancel->setFocusPolicy(Qt::TabFocus); // a click on it leaves no field, so nothing is checked
    foot->addWidget(cancel);
    foot->addStretch(1);
    QPushButton* save = MadeButton(screen.cmdSave, &window);
    save->setDefault(true);
    foot->addWidget(save);
    foot->addWidget(MadeButton(screen.CmdOK, &window));
    whole->addLayout(foot);

    QObject::connect(list, &QListWidget::currentRowChanged, book, &QStackedWidget::setCurrentIndex);
    QObject::connect(
        &screen, &frm_Config::Searched, book,
        [&screen, rows = pages.Rows(), groups = pages.Groups()] { ShowFound(screen, rows, groups); });
    // Enter saves; the field that it was pressed in is left first, so that it is checked.
    for (QLineEdit* edit : book->findChildren<QLineEdit*>())
        QObject::connect(edit, &QLineEdit::returnPressed, save, [save] { save->setFocus(); });
    auto* toFind = new QShortcut(QKeySequence::Find, &window);
    QObject::connect(toFind, &QShortcut::activated, find, [find] {
        find->setFocus(Qt::ShortcutFocusReason);
        find->selectAll();
    });
    const QSize room = window.screen()->availableSize();
    window.resize(std::min(960, room.width() - 40), std::min(640, room.height() - 80));
    list->setFocus();
}

} // namespace vasclip::windows

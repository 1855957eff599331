#include "windows/layout_parts.h"
#include "windows/screen_layouts.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <array>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A length with what it is good for under it.
void AddLength(QDialog& window, QVBoxLayout& column, int index, const QString& words)
{
    auto* option = MakeOption(window, u"optSelected_%1"_s.arg(index));
    option->setAutoExclusive(false); // the screen knows which go together
    column.addWidget(option);
    auto* quiet = MakeWords(window, words, "quiet");
    quiet->setWordWrap(true);
    quiet->setIndent(24);
    column.addWidget(quiet);
    option->setAccessibleDescription(words);
}

} // namespace

void Layout_frm_Crystal(QDialog& window, forms::Screen&)
{
    auto* rows = MakeRows(window);
    auto* count = new QHBoxLayout;
    count->addWidget(MakeWords(window, QDialog::tr("Records in the current search"), ""));
    auto* number = MakeLabel(window, u"lblRecordCount"_s, "title");
    count->addWidget(number);
    count->addStretch(1);
    rows->addLayout(count);

    auto* group = new QGroupBox(QDialog::tr("Report Length"), &window);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(4);
    const std::array words{QDialog::tr("A line for each record: a list to look through."),
                           QDialog::tr("A block for each record, with its front photo."),
                           QDialog::tr("Everything a record holds, with all its photos.")};
    for (int i = 0; i < static_cast<int>(words.size()); ++i)
        AddLength(window, *column, i, words[static_cast<std::size_t>(i)]);
    rows->addWidget(group);

    auto* own = new QComboBox(&window);
    own->setObjectName(u"cboLayout"_s);
    auto* ownRow = new QHBoxLayout;
    ownRow->setSpacing(8);
    ownRow->addWidget(MakeWords(window, QDialog::tr("&Layout of your own"), "", own));
    ownRow->addWidget(own, 1);
    rows->addLayout(ownRow);

    auto* message = MakeLabel(window, u"lblmsg"_s);
    message->setWordWrap(true);
    rows->addWidget(message);
    rows->addStretch(1);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addStretch(1);
    auto* print = MakeButton(window, u"cmdPrint"_s);
    print->setDefault(true);
    print->setProperty("primary", true);
    foot->addWidget(print);
    foot->addWidget(MakeButton(window, u"cmdExit"_s));
    rows->addLayout(foot);
    window.resize(460, 330);
}

} // namespace vasclip::windows

#include "windows/about_box.h"

#include "windows/fit_to_screen.h"
#include "windows/icons.h"
#include "windows/layout_parts.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr int kNarrowest = 440;
constexpr QSize kSizeWithChanges(640, 560);

QLabel* Plain(const QString& text, const char* role, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setProperty("role", QString::fromLatin1(role));
    return label;
}

/// The file is wrapped for a terminal, here lines follow the window: what is indented goes on with its line.
QString Unwrapped(const QString& text)
{
    QString lines;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const bool goesOn = line.startsWith(QLatin1StringView("  ")) && !lines.isEmpty();
        if (!lines.isEmpty())
            lines += QLatin1Char(goesOn ? ' ' : '\n');
        lines += goesOn ? line.trimmed() : line;
    }
    return lines;
}

/// What is no item of a list is the heading of one.
void StressHeadings(QPlainTextEdit& text)
{
    QTextCharFormat stressed;
    stressed.setFontWeight(QFont::DemiBold);
    for (QTextBlock line = text.document()->begin(); line.isValid(); line = line.next()) {
        if (line.text().startsWith(QLatin1StringView("- ")))
            continue;
        QTextCursor cursor(line);
        cursor.select(QTextCursor::BlockUnderCursor);
        cursor.mergeCharFormat(stressed);
    }
}

} // namespace

AboutBox::AboutBox(const AboutText& text, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(u"frm_About"_s);
    setWindowTitle(tr("About %1").arg(text.product));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(24, 24, 24, 16);
    rows->setSpacing(16);
    auto* head = new QHBoxLayout;
    head->setSpacing(16);
    auto* logo = new QLabel(this);
    logo->setPixmap(ApplicationIcon().pixmap(QSize(72, 72), devicePixelRatioF()));
    logo->setAccessibleName(text.product);
    head->addWidget(logo, 0, Qt::AlignTop);
    auto* names = new QVBoxLayout;
    names->setSpacing(4);
    names->addWidget(Plain(text.product, "heading", this));
    names->addWidget(Plain(tr("Version %1").arg(text.version), "quiet", this));
    if (!text.company.isEmpty())
        names->addWidget(Plain(text.company, "quiet", this));
    names->addWidget(Plain(tr("Photos, comparables and the appraisal report, side by side."), "", this));
    head->addLayout(names, 1);
    rows->addLayout(head);
    auto* facts = new QFormLayout;
    facts->setHorizontalSpacing(16);
    facts->setVerticalSpacing(8);
    for (const auto& [name, value] : text.facts) {
        QLabel* shown = Plain(value, "", this);
        shown->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        facts->addRow(Plain(name, "quiet", this), shown);
    }
    rows->addLayout(facts);
    if (!text.changes.isEmpty()) {
        setWindowTitle(tr("What's New?"));
        auto* changes = new QPlainTextEdit(Unwrapped(text.changes), this);
        StressHeadings(*changes);
        changes->setReadOnly(true);
        changes->setAccessibleName(tr("What is new"));
        rows->addWidget(changes, 1);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    rows->addStretch(text.changes.isEmpty() ? 1 : 0);
    rows->addWidget(buttons);
    setMinimumWidth(kNarrowest);
    // Wrapped lines need the height that goes with the width they get.
    PolishAll(*this);
    const QSize least = text.changes.isEmpty() ? QSize(kNarrowest, 0) : kSizeWithChanges;
    const int width = std::max(least.width(), sizeHint().width());
    setMinimumHeight(rows->totalHeightForWidth(width));
    resize(width, std::max(least.height(), minimumHeight()));
    FitToScreen(*this);
}

} // namespace vasclip::windows

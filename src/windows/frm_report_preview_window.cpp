#include "windows/send_to_printer.h"

#include "upkeep/frm_report_preview.h"
#include "windows/guard.h"
#include "windows/layout_parts.h"
#include "windows/paper_view.h"
#include "windows/screen_layouts.h"
#include "windows/screens.h"
#include "windows/work_parts.h"

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

using Preview = upkeep::frm_ReportPreview;

QComboBox* MakeCombo(QDialog& window, const QString& name, const QString& accessible)
{
    auto* box = new QComboBox(&window);
    box->setObjectName(name);
    box->setAccessibleName(accessible);
    return box;
}

/// Which report on which paper, and what becomes of it.
QHBoxLayout* TopRow(QDialog& window)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    auto* layout = MakeCombo(window, u"cboLayout"_s, QDialog::tr("Report"));
    row->addWidget(MakeWords(window, QDialog::tr("Repor&t"), "", layout));
    row->addWidget(layout);
    auto* paper = MakeCombo(window, u"cboPaper"_s, QDialog::tr("Paper"));
    row->addWidget(MakeWords(window, QDialog::tr("Pap&er"), "", paper));
    row->addWidget(paper);
    for (int i : {0, 1}) {
        auto* option = MakeOption(window, u"optOrientation_%1"_s.arg(i));
        option->setAutoExclusive(false);
        row->addWidget(option);
    }
    row->addStretch(1);
    row->addWidget(MakeButton(window, u"cmdPDF"_s));
    row->addWidget(MakeButton(window, u"cmdCSV"_s));
    auto* print = MakeButton(window, u"cmdPrint"_s);
    print->setProperty("primary", true);
    row->addWidget(print);
    return row;
}

/// Which page, how large, and what is looked for.
QHBoxLayout* BottomRow(QDialog& window)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(MakeButton(window, u"cmdFirst"_s));
    row->addWidget(MakeButton(window, u"cmdPrevious"_s));
    auto* page = new QLineEdit(&window);
    page->setObjectName(u"txtPage"_s);
    page->setFixedWidth(64);
    page->setAlignment(Qt::AlignRight);
    row->addWidget(MakeWords(window, QDialog::tr("Pa&ge"), "", page));
    row->addWidget(page);
    row->addWidget(MakeLabel(window, u"lblPages"_s));
    row->addWidget(MakeButton(window, u"cmdNext"_s));
    row->addWidget(MakeButton(window, u"cmdLast"_s));
    row->addSpacing(12);
    auto* zoom = MakeCombo(window, u"cboZoom"_s, QDialog::tr("Zoom"));
    row->addWidget(MakeWords(window, QDialog::tr("&Zoom"), "", zoom));
    row->addWidget(zoom);
    row->addStretch(1);
    auto* find = new QLineEdit(&window);
    find->setObjectName(u"txtFind"_s);
    find->setMinimumWidth(140);
    row->addWidget(MakeWords(window, QDialog::tr("&Find"), "", find));
    row->addWidget(find);
    row->addWidget(MakeButton(window, u"cmdFind"_s));
    QObject::connect(new QShortcut(QKeySequence::Find, &window), &QShortcut::activated, find, [find] {
        find->setFocus(Qt::ShortcutFocusReason);
        find->selectAll();
    });
    return row;
}

void AskForFile(QDialog& window, Preview& preview, const QString& extension)
{
    const QString directory = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString filter =
        extension == u"pdf"_s ? QDialog::tr("PDF files (*.pdf)") : QDialog::tr("Text files (*.csv)");
    QFileDialog dialog(&window, QDialog::tr("Save the report"), directory, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(extension);
    dialog.selectFile(preview.SuggestedName() + u'.' + extension);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString file = dialog.selectedFiles().first();
    if (extension == u"pdf"_s)
        preview.SavePdf(file);
    else
        preview.SaveCsv(file);
}

} // namespace

void Layout_frm_ReportPreview(QDialog& window, forms::Screen& screen)
{
    auto& preview = dynamic_cast<Preview&>(screen);
    auto* rows = MakeRows(window);
    rows->addLayout(TopRow(window));
    EventGuard& guard = dynamic_cast<ScreenWindow&>(window).Bindings().Guard();
    auto* view = new PaperView(preview, guard, &window);
    rows->addWidget(view, 1);
    rows->addLayout(BottomRow(window));
    AddWorkFoot(*rows, window, {u"cmdStop"_s, u"cmdExit"_s});

    // Pages are counted while nothing else is to be done.
    auto* counting = new QTimer(&window);
    const auto count = [counting, &preview, &guard] {
        counting->stop(); // a box that tells why it can't be read turns the queue
        bool all = false;
        if (guard.Run([&] { all = preview.CountSome(); }) && !all)
            counting->start(0);
    };
    QObject::connect(counting, &QTimer::timeout, &window, count);
    QObject::connect(&preview, &Preview::CountWanted, counting, [counting] { counting->start(0); });
    counting->start(0);
    QObject::connect(&preview, &Preview::FileWanted, &window, [&window, &preview](const QString& extension) {
        AskForFile(window, preview, extension);
    });
    QObject::connect(&preview, &Preview::PrinterWanted, &window,
                     [&window, &preview] { AskForPrinter(window, preview); });
    window.resize(1100, 700);
    view->setFocus();
}

} // namespace vasclip::windows

#pragma once

#include "forms/screen.h"
#include "upkeep/layout_files.h"
#include "upkeep/report_desk.h"
#include "upkeep/report_pictures.h"
#include "upkeep/report_print.h"
#include "upkeep/report_table.h"
#include "upkeep/report_view.h"

#include <QElapsedTimer>

namespace vasclip::upkeep {

/// What is to be said of pages that a printer got.
struct PrinterAnswer
{
    QString refusal = {}; ///< why it has not taken them after all
    QString note = {};    ///< what else a user should know, a sentence
};

/// The report as it will be on paper, from the filled report database: other layouts and papers of the same
/// records, printing, PDF.
class frm_ReportPreview : public forms::Screen
{
    Q_OBJECT
public:
    /// @param file  the filled report database
    frm_ReportPreview(const ReportDesk& desk, QString file, QString layoutName, QString statement);
    ~frm_ReportPreview() override;

    forms::ComboBox cboLayout, cboPaper;
    forms::ControlArray<forms::CheckBox> optOrientation; ///< portrait, landscape
    forms::Button cmdFirst, cmdPrevious, cmdNext, cmdLast;
    forms::TextBox txtPage;
    forms::Label lblPages; ///< "of 12"
    forms::ComboBox cboZoom;
    forms::TextBox txtFind;
    forms::Button cmdFind;
    forms::Label lblmsg;
    forms::Gauge gauWork;
    forms::Button cmdStop;
    forms::Button cmdPrint, cmdPDF, cmdCSV, cmdExit;

    // For the window.
    [[nodiscard]] const paper::Page& Shown() const { return m_shown; }
    [[nodiscard]] const paper::Sheet& Sheet() const { return m_sheet; }
    [[nodiscard]] const QList<QRect>& Found() const { return m_found; } ///< on the page on show
    [[nodiscard]] paper::PictureSource& Pictures() { return m_pictures; }
    /// Dots an inch on a screen of 96 in hundredths; 0 for the whole page, -1 for its width.
    [[nodiscard]] int Zoom() const;
    [[nodiscard]] int Pages() const { return m_view ? m_view->Pages() : 0; }
    [[nodiscard]] QString SuggestedName() const; ///< of a file, without extension
    /// Counts pages for a moment; the window asks again while there are more. @return true when all are
    /// counted
    bool CountSome();
    void ShowPage(int number);
    void ZoomBy(int steps);
    /// @param file  native path
    void SavePdf(const QString& file);
    void SaveCsv(const QString& file);
    /// Counts the rest of the pages. @return false if it was stopped
    /// @param asked  has the focus behind it
    [[nodiscard]] bool CountAll(forms::Control& asked);
    /// Another paper, as if it had been chosen here. @param name  one of paper::PaperNames()
    void ChoosePaper(const QString& name, bool landscape);
    /// @param wanted  numbers of pages; empty for all, also while they are still counted
    /// @param answer  asked when the printer has all that it gets
    void PrintTo(QPagedPaintDevice& printer, double dots, const QPageRanges& wanted = {},
                 const std::function<PrinterAnswer()>& answer = {});
    void TellNoPrinter();
    void TellOtherPaper(const QString& paper); ///< of which there are no reports

Q_SIGNALS:
    void PageChanged(); ///< another page, paper or zoom is on show
    void CountWanted(); ///< there are pages to be counted
    void PrinterWanted();
    void FileWanted(const QString& extension); ///< "pdf", "csv"

protected:
    void Form_Load() override;
    bool QueryUnload() override;

private:
    void ListLayoutNames();
    void OpenNamed(const QString& name);
    void Rebuild();
    void TakePaper();
    void FindNext(forms::Control& asked);
    void DrawPage();
    void ShowCount();
    void ShowTypedPage();
    [[nodiscard]] ReportBook Book(paper::PictureSource& pictures);
    [[nodiscard]] bool Progress(const QString& doing, qint64 done, qint64 total);
    /// Does long work with the gauge; nothing else begins meanwhile.
    /// @param asked  has the focus behind it; the button that stops has it meanwhile
    void Work(forms::Control& asked, const std::function<void()>& work);
    void Tell(paper::Made made, const QString& done, qsizetype missing = 0);
    void TellPrinted(const SentPages& printed, const QPageRanges& wanted, const PrinterAnswer& answer,
                     qsizetype missing);

    ReportDesk m_desk;
    QString m_file;
    QString m_layoutName;
    QString m_statement;
    QStringList m_names; ///< of the lines of cboLayout
    std::unique_ptr<ReportLayout> m_layout;
    std::unique_ptr<ReportTable> m_table;
    std::unique_ptr<ReportView> m_view;
    ReportPictures m_pictures; ///< of the pages on show; what is printed or saved counts its own
    paper::Sheet m_sheet;
    ReportFacts m_facts;
    paper::Page m_shown;
    QList<QRect> m_found;
    int m_page = 1;
    bool m_filling = false; ///< the lists are being filled
    bool m_opened = false;  ///< the layout that is chosen, whose click comes next
    bool m_busy = false, m_stop = false;
    QElapsedTimer m_sincePump;
};

} // namespace vasclip::upkeep

#pragma once

#include "kelforms/app/service.h"
#include "kelforms/window/page_view.h"
#include "kelforms/window/picture_cache.h"
#include "kelforms/window/picture_strip.h"
#include "kelforms/window/report_list.h"
#include "kelforms/window/theme.h"

#include <QElapsedTimer>
#include <QMainWindow>

class QAction;
class QLabel;
class QScrollArea;

namespace kelforms {

/// The viewer: open reports on the left, the page in the middle, its pictures on the right, the link below.
class MainWindow final : public QMainWindow, private ReportsObserver
{
public:
    /// @param askBeforeLoss  false when everything is saved on the way out anyway
    MainWindow(Service& service, bool dark, bool askBeforeLoss);
    ~MainWindow() override;

    /// Shows a page of the active report; "" its main form.
    void ShowPage(const QString& page);
    /// What is written glows as long as the window stands: for pictures.
    void KeepGlow();

    [[nodiscard]] QString ShownReport() const { return m_report; }
    [[nodiscard]] QString ShownPage() const { return m_page; }
    [[nodiscard]] QString LinkWords() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void ReportsChanged() override;
    void CellChanged(const Report& report, const QString& key) override;
    void ImageChanged(const Report& report, const QString& object) override;
    void RepaintAsked() override;

    void MakeActions();
    void MakePanes();
    void UseTheme();
    void Show(const QString& report, const QString& page);
    void ScrollTo(const QString& key);
    void Refresh();
    void TellLink(int clients);
    void TellExchange(const vasclip::conduit::LinkMessage& message,
                      const vasclip::conduit::LinkAnswer& answer);

    void AskOpen();
    void SaveShown();
    void CloseShown();
    [[nodiscard]] bool MayLose(const Report& report);
    /// Runs a step; what it throws is shown in a box.
    template <class Step>
    bool Guarded(Step&& step);

    Service& m_service;
    Reports& m_reports;
    PictureCache m_pictures;
    bool m_dark;
    bool m_askBeforeLoss;
    QString m_report, m_page;
    QString m_scrollKey;
    QElapsedTimer m_sinceWrite;
    bool m_refreshDue = false;
    qint64 m_exchanges = 0;
    int m_clients = 0;

    ReportList* m_list = nullptr;
    PageView* m_view = nullptr;
    PictureStrip* m_strip = nullptr;
    QScrollArea* m_viewArea = nullptr;
    QScrollArea* m_stripArea = nullptr;
    QLabel* m_linkLabel = nullptr;
    QLabel* m_lastLabel = nullptr;
    QAction* m_open = nullptr;
    QAction* m_save = nullptr;
    QAction* m_close = nullptr;
    QAction* m_activate = nullptr;
    QAction* m_follow = nullptr;
    QAction* m_darkSwitch = nullptr;
};

} // namespace kelforms

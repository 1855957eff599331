#pragma once

#include "kelforms/core/reports.h"

#include <QTreeWidget>

#include <functional>

namespace kelforms {

/// The open reports, the active one first, each with its pages.
class ReportList final : public QTreeWidget
{
public:
    explicit ReportList(const Reports& reports);

    /// Reads the reports anew and keeps what is chosen and folded.
    void Fill();
    /// Chooses a page without telling `onChosen`.
    void Choose(const QString& report, const QString& page);

    std::function<void(const QString& report, const QString& page)> onChosen;

private:
    const Reports& m_reports;
    bool m_quiet = false;
};

} // namespace kelforms

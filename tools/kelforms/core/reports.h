#pragma once

#include "kelforms/core/report.h"

#include <QString>

#include <memory>
#include <vector>

namespace kelforms {

/// Who wants to know what happens to the open reports: the window, or nobody.
class ReportsObserver
{
public:
    virtual ~ReportsObserver() = default;
    virtual void ReportsChanged() = 0; ///< opened, closed, saved, or another is active
    virtual void CellChanged(const Report& report, const QString& key) = 0;
    virtual void ImageChanged(const Report& report, const QString& object) = 0;
    virtual void RepaintAsked() = 0;
};

/// The open reports, the active one first.
class Reports
{
public:
    void SetObserver(ReportsObserver* observer) { m_observer = observer; }

    /// Opens a report and makes it the active one.
    /// @throws RuntimeError as Report::Load; 55 if a report of that name is open
    Report& Open(const QString& nativePath);
    void Close(const QString& name);
    void Activate(const QString& name);
    void Save(Report& report);
    /// Saves what was changed. @throws RuntimeError of the first that failed, after all were tried
    void SaveAll();

    [[nodiscard]] Report* Active() const;
    [[nodiscard]] Report* Find(const QString& name) const; ///< without regard to case; nullptr for none
    [[nodiscard]] const std::vector<std::unique_ptr<Report>>& All() const { return m_reports; }

    void SetCell(Report& report, const QString& key, const QString& text);
    void ClearCell(Report& report, const QString& key);
    void SwapCells(Report& report, const QString& a, const QString& b);
    void SetImage(Report& report, const QString& object, const QString& path);
    void Repaint();

private:
    [[nodiscard]] size_t IndexOf(const QString& name) const;
    void Tell() const;

    std::vector<std::unique_ptr<Report>> m_reports;
    ReportsObserver* m_observer = nullptr;
};

} // namespace kelforms

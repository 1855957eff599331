#include "kelforms/core/reports.h"

#include "platform/text/runtime_error.h"

#include <algorithm>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace error = vasclip::error;
using vasclip::RuntimeError;

Report& Reports::Open(const QString& nativePath)
{
    auto report = std::make_unique<Report>(Report::Load(nativePath));
    if (Find(report->Name()) != nullptr)
        throw RuntimeError(error::kFileAlreadyOpen,
                           u"A report named %1 is open already"_s.arg(report->Name()));
    m_reports.insert(m_reports.begin(), std::move(report));
    Tell();
    return *m_reports.front();
}

void Reports::Close(const QString& name)
{
    const size_t index = IndexOf(name);
    if (index == m_reports.size())
        return;
    m_reports.erase(m_reports.begin() + static_cast<std::ptrdiff_t>(index));
    Tell();
}

void Reports::Activate(const QString& name)
{
    const size_t index = IndexOf(name);
    if (index == m_reports.size() || index == 0)
        return;
    const auto chosen = m_reports.begin() + static_cast<std::ptrdiff_t>(index);
    std::rotate(m_reports.begin(), chosen, chosen + 1);
    Tell();
}

void Reports::Save(Report& report)
{
    report.Save();
    Tell();
}

void Reports::SaveAll()
{
    std::optional<RuntimeError> failure;
    for (const auto& report : m_reports) {
        if (!report->Modified())
            continue;
        try {
            report->Save();
        } catch (const RuntimeError& failed) {
            if (!failure)
                failure = failed;
        }
    }
    Tell();
    if (failure)
        throw RuntimeError(*failure);
}

Report* Reports::Active() const
{
    return m_reports.empty() ? nullptr : m_reports.front().get();
}

Report* Reports::Find(const QString& name) const
{
    const size_t index = IndexOf(name);
    return index == m_reports.size() ? nullptr : m_reports[index].get();
}

void Reports::SetCell(Report& report, const QString& key, const QString& text)
{
    const bool wasModified = report.Modified();
    report.SetCell(key, text);
    if (m_observer != nullptr)
        m_observer->CellChanged(report, key);
    if (!wasModified)
        Tell();
}

void Reports::ClearCell(Report& report, const QString& key)
{
    if (!report.HoldsCell(key))
        return;
    report.ClearCell(key);
    if (m_observer != nullptr)
        m_observer->CellChanged(report, key);
}

void Reports::SwapCells(Report& report, const QString& a, const QString& b)
{
    const bool differ = report.Cell(a) != report.Cell(b);
    report.SwapCells(a, b);
    if (m_observer != nullptr && differ) {
        m_observer->CellChanged(report, a);
        m_observer->CellChanged(report, b);
    }
}

void Reports::SetImage(Report& report, const QString& object, const QString& path)
{
    report.SetImage(object, path);
    if (m_observer != nullptr)
        m_observer->ImageChanged(report, object);
    Tell();
}

void Reports::Repaint()
{
    if (m_observer != nullptr)
        m_observer->RepaintAsked();
}

size_t Reports::IndexOf(const QString& name) const
{
    const auto found = std::ranges::find_if(m_reports, [&name](const std::unique_ptr<Report>& report) {
        return report->Name().compare(name, Qt::CaseInsensitive) == 0;
    });
    return static_cast<size_t>(found - m_reports.begin());
}

void Reports::Tell() const
{
    if (m_observer != nullptr)
        m_observer->ReportsChanged();
}

} // namespace kelforms

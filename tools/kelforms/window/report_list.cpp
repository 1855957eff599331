#include "kelforms/window/report_list.h"

#include <QHeaderView>
#include <QScopedValueRollback>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace {

constexpr int kReportRole = Qt::UserRole;
constexpr int kPageRole = Qt::UserRole + 1;

} // namespace

ReportList::ReportList(const Reports& reports)
    : m_reports(reports)
{
    setHeaderHidden(true);
    setIndentation(14);
    setAccessibleName(u"Open reports and their pages"_s);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle); // titles differ at their end
    connect(this, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (!m_quiet && item != nullptr && onChosen)
            onChosen(item->data(0, kReportRole).toString(), item->data(0, kPageRole).toString());
    });
}

void ReportList::Fill()
{
    const QScopedValueRollback quiet(m_quiet, true);
    const QTreeWidgetItem* current = currentItem();
    const QString report = current == nullptr ? QString() : current->data(0, kReportRole).toString();
    const QString page = current == nullptr ? QString() : current->data(0, kPageRole).toString();
    QStringList folded;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (!topLevelItem(i)->isExpanded())
            folded.append(topLevelItem(i)->data(0, kReportRole).toString());
    }
    clear();
    for (const auto& open : m_reports.All()) {
        auto* top = new QTreeWidgetItem(this);
        const bool active = open.get() == m_reports.Active();
        top->setText(0,
                     open->Name() + (open->Modified() ? u" *"_s : u""_s) + (active ? u"   active"_s : u""_s));
        top->setToolTip(0, open->Path());
        top->setData(0, kReportRole, open->Name());
        top->setData(0, kPageRole, open->MainForm());
        QFont bold = font();
        bold.setBold(active);
        top->setFont(0, bold);
        for (const QString& form : open->Forms()) {
            auto* item = new QTreeWidgetItem(top);
            const auto* layout = open->Layout(form);
            const QString title = layout == nullptr ? u"Unknown page"_s : layout->title;
            item->setText(0, form == open->MainForm() ? u"Main form  "_s + form : title);
            item->setToolTip(0, form + u"\n"_s + title);
            item->setData(0, kReportRole, open->Name());
            item->setData(0, kPageRole, form);
        }
        top->setExpanded(!folded.contains(open->Name()));
    }
    if (!report.isEmpty())
        Choose(report, page);
}

void ReportList::Choose(const QString& report, const QString& page)
{
    const QScopedValueRollback quiet(m_quiet, true);
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* top = topLevelItem(i);
        if (top->data(0, kReportRole).toString() != report)
            continue;
        for (int n = 0; n < top->childCount(); ++n) {
            if (top->child(n)->data(0, kPageRole).toString() == page) {
                setCurrentItem(top->child(n));
                scrollToItem(top->child(n));
            }
        }
    }
}

} // namespace kelforms

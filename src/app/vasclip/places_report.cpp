#include "app/vasclip/places_report.h"

#include "windows/record_grid.h"

#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QTabBar>
#include <QTabWidget>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLookMilliseconds = 200;

QJsonArray Rectangle(const QWidget& widget, const QRect& place)
{
    const qreal scale = widget.devicePixelRatioF();
    const QPoint corner = widget.mapToGlobal(place.topLeft());
    const auto pixels = [scale](int length) { return qRound(length * scale); };
    return {pixels(corner.x()), pixels(corner.y()), pixels(place.width()), pixels(place.height())};
}

} // namespace

PlacesReport::PlacesReport(windows::MainWindow& window, const QString& file)
    : m_window(window)
    , m_file(file)
{
    connect(&m_timer, &QTimer::timeout, this, [this] { Write(); });
    m_timer.start(kLookMilliseconds);
}

QJsonObject PlacesReport::Places() const
{
    QJsonObject places;
    for (const forms::Control* control : m_window.Bindings().Controls().All()) {
        const QWidget* widget = m_window.Bindings().WidgetOf(*control);
        if (!widget || !widget->isVisible())
            continue;
        places.insert(control->ObjectName(), Rectangle(*widget, widget->rect()));
        if (const auto* tabs = qobject_cast<const QTabWidget*>(widget)) {
            for (int page = 0; page < tabs->count(); ++page)
                places.insert(u"%1#%2"_s.arg(control->ObjectName()).arg(page),
                              Rectangle(*tabs->tabBar(), tabs->tabBar()->tabRect(page)));
        }
    }
    QJsonArray rows;
    const auto& grid = m_window.Databook();
    const int first = grid.rowAt(0);
    for (int row = first; row >= 0 && row < grid.model()->rowCount(); ++row) {
        const int top = grid.rowViewportPosition(row);
        if (top + grid.rowHeight(row) > grid.viewport()->height())
            break;
        QJsonArray line{row};
        const QRect place(0, top, grid.viewport()->width(), grid.rowHeight(row));
        for (const QJsonValue& value : Rectangle(*grid.viewport(), place))
            line.append(value);
        rows.append(line);
    }
    places.insert(u"rows"_s, rows);
    QJsonObject heads; // by field
    const QHeaderView& header = *grid.horizontalHeader();
    const auto& columns = grid.Control()->Columns();
    for (int column = 0; column < columns.size(); ++column) {
        const QRect place(header.sectionViewportPosition(column), 0, header.sectionSize(column), header.height());
        if (!header.isSectionHidden(column) && header.viewport()->rect().contains(place))
            heads.insert(columns.at(column).field, Rectangle(*header.viewport(), place));
    }
    places.insert(u"heads"_s, heads);
    return places;
}

void PlacesReport::Write()
{
    const QJsonObject places = Places();
    if (places == m_last)
        return;
    QSaveFile file(m_file);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(QJsonDocument(places).toJson(QJsonDocument::Compact));
    if (file.commit())
        m_last = places;
}

} // namespace vasclip::app

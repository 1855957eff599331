// The peer of the start-up benchmark: an empty window that opens the same database with the bare library and
// reads one screen of records into a table.

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QPaintEvent>
#include <QTableWidget>
#include <QTimer>

#include <sqlite3.h>

#include <cstdio>

namespace {

constexpr int kScreen = 30;

class Table : public QTableWidget
{
public:
    using QTableWidget::QTableWidget;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QTableWidget::paintEvent(event);
        QTimer::singleShot(0, qApp, &QApplication::quit);
    }
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    if (app.arguments().size() != 2) {
        std::fprintf(stderr, "usage: empty_window DATABOOK\n");
        return 2;
    }
    sqlite3* database = nullptr;
    if (sqlite3_open_v2(app.arguments()[1].toUtf8().constData(), &database, SQLITE_OPEN_READONLY, nullptr) !=
        SQLITE_OK)
        return 1;
    sqlite3_stmt* rows = nullptr;
    const char* sql =
        "SELECT ADDRESS, CITY, ST, ZIP, GLA, SELLINGPR, BEDROOM, BATH, SALEDATE FROM COMPS LIMIT 30";
    if (sqlite3_prepare_v2(database, sql, -1, &rows, nullptr) != SQLITE_OK)
        return 1;
    QMainWindow window;
    auto* table = new Table(kScreen, 9);
    for (int row = 0; sqlite3_step(rows) == SQLITE_ROW; ++row) {
        for (int column = 0; column < 9; ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(rows, column));
            table->setItem(row, column, new QTableWidgetItem(QString::fromUtf8(text)));
        }
    }
    sqlite3_finalize(rows);
    sqlite3_close(database);
    window.setCentralWidget(table);
    window.resize(1366, 768);
    window.show();
    return app.exec();
}

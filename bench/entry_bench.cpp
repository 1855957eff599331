// Opening an entry screen beside an empty dialog with as many boxes, and saving one comp beside the bare
// durable update of the same row, in one run.
// usage: bench_entry [DIRECTORY]; saving is measured on the disk of that directory, by default the current
// one

#include "databook/entry_screen.h"
#include "forms/system_ports.h"
#include "platform/engine/sqlite/functions.h"
#include "still_ports.h"
#include "store/schema.h"
#include "store/store.h"
#include "windows/guard.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

using namespace vasclip;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString kPath = u"C:\\DATABOOK.MDB"_s;
const QString kComp = u"101 OAK ST"_s;

/// Shows a screen until it is painted, then closes it.
class ShowOnce : public forms::ScreenPort
{
public:
    explicit ShowOnce(windows::EventGuard& guard)
        : m_guard(guard)
    {}
    void ShowModal(forms::Screen& screen) override
    {
        screen.Open();
        windows::ScreenWindow window(screen, m_guard);
        window.show();
        QCoreApplication::processEvents();
        screen.Unload();
        screen.End();
    }

private:
    windows::EventGuard& m_guard;
};

void ShowEmpty(std::size_t boxes)
{
    QDialog dialog;
    auto* grid = new QGridLayout(&dialog);
    for (int i = 0; i < static_cast<int>(boxes); ++i) {
        grid->addWidget(new QLabel(u"Field"_s, &dialog), i / 3, i % 3 * 2);
        grid->addWidget(new QLineEdit(&dialog), i / 3, i % 3 * 2 + 1);
    }
    for (int i = 0; i < 4; ++i)
        grid->addWidget(new QPushButton(u"Button"_s, &dialog), static_cast<int>(boxes) / 3 + 1, i);
    dialog.show();
    QCoreApplication::processEvents();
}

/// Medians of two works that take turns, so that what else the machine does meets both; in milliseconds.
std::pair<double, double> Medians(int rounds, const std::function<void()>& first,
                                  const std::function<void()>& second)
{
    std::vector<double> times[2];
    for (int round = 0; round < rounds; ++round) {
        for (int which = 0; which < 2; ++which) {
            QElapsedTimer timer;
            timer.start();
            (which == 0 ? first : second)();
            times[which].push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
    }
    for (auto& taken : times)
        std::sort(taken.begin(), taken.end());
    return {times[0][times[0].size() / 2], times[1][times[1].size() / 2]};
}

void Check(int code, sqlite3* handle)
{
    if (code == SQLITE_OK || code == SQLITE_DONE)
        return;
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(handle));
    std::exit(1);
}

void Report(const char* what, double ours, double bare, double bound)
{
    std::printf("%-24s %8.2f ms, bare %8.2f ms, ratio %.2f (at most %.1f)\n", what, ours, bare, ours / bare,
                bound);
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    windows::Theme theme(app);
    const QString place = app.arguments().value(1, u"."_s);
    QTemporaryDir dir(place + u"/entry-bench-XXXXXX"_s);
    const files::Disk disk(dir.path());
    const bench::StoppedClock time;
    engine::Engine engine(disk, time);
    bench::Nobody prompter;
    forms::QtEventPump pump;
    forms::SystemClock clock;
    forms::SystemRandom random;
    bench::NoWindow window;
    windows::EventGuard guard(prompter, {});
    ShowOnce screens(guard);
    const forms::Ports ports{prompter, pump, clock, random, window, screens};

    store::MakeDatabase(engine, kPath);
    {
        const auto database = engine.OpenDatabase(kPath);
        engine::Transaction all(*database);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (int i = 0; i < 2000; ++i) {
            const QString key = i == 0 ? kComp : u"%1 ELM ST"_s.arg(i);
            rows->AddNew();
            for (const auto& [field, value] : {std::pair{u"CENTRALKEY"_s, key.leftJustified(35)},
                                               {u"ADDRESS"_s, key.leftJustified(35)},
                                               {u"SELLINGPR"_s, u"389000"_s},
                                               {u"GLA"_s, u"1860"_s}})
                rows->SetValue(field, value);
            rows->Update();
        }
        all.Commit();
    }
    store::DataSource opened(engine, u"datDatabook"_s); // as the main window holds it
    store::Connect2mdb(ports, opened, kPath, u"COMPS"_s, store::SourceKind::Table);
    const databook::EntryDesk desk{ports, engine, kPath, u"COMPS"_s, {}, nullptr, &opened};
    for (const databook::EntryForm& form : databook::EntryForms()) {
        if (form.secondPage)
            continue;
        std::size_t boxes = 0;
        for (const databook::EntryGroup& group : form.groups)
            boxes += group.fields.size();
        const QString type = form.screen == "frm_CompMnt1"_L1 ? u"F"_s : QString(QChar(form.screen.back()));
        const auto open = [&] { databook::LoadCompForm(desk, kComp, type); };
        const auto bare = [&] { ShowEmpty(boxes); };
        open();
        bare();
        const auto [ours, peer] = Medians(15, open, bare);
        Report(form.screen.data(), ours, peer, 3.0);
    }

    databook::EntryRecord record(desk, databook::EntryForms().front(), kComp);
    if (!record.Open())
        return 1;
    int number = 0;
    const auto save = [&] {
        record.SetText(u"CITY"_s, u"City %1"_s.arg(++number));
        if (record.Save() != databook::Stored::Done)
            std::exit(1);
    };
    sqlite3* handle = nullptr;
    Check(sqlite3_open(disk.ToNative(kPath).toUtf8().constData(), &handle), handle);
    engine::RegisterCollation(handle);
    sqlite3_stmt* update = nullptr;
    Check(sqlite3_prepare_v2(handle,
                             "UPDATE COMPS SET CITY = ?1, MODIFIEDDATE = '5/17/2024', vas_version = "
                             "vas_version + 1 WHERE vas_id = 1000",
                             -1, &update, nullptr),
          handle);
    const auto bare = [&] {
        const QByteArray city = QByteArray("City ") + QByteArray::number(++number);
        sqlite3_bind_text(update, 1, city.constData(), -1, SQLITE_TRANSIENT);
        Check(sqlite3_step(update), handle);
        sqlite3_reset(update);
    };
    save();
    bare();
    const auto [ours, peer] = Medians(200, save, bare);
    Report("save one comp", ours, peer, 1.3);
    sqlite3_finalize(update);
    sqlite3_close(handle);
    return 0;
}

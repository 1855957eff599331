#include "faults/desktop_user.h"

#include "photos/capture_desk.h"
#include "photos/frm_gen_view.h"
#include "photos/frm_overwrite.h"
#include "platform/engine/database.h"
#include "platform/text/runtime_error.h"
#include "shell/frm_main.h"
#include "app/places.h"
#include "forms/system_ports.h"
#include "shell/start_up.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"

#include <QCoreApplication>

#include <cstdio>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Takes another view for each picture, some of them over the one that is there.
class QuickUser : public forms::ScreenPort
{
public:
    void ShowModal(forms::Screen& screen) override
    {
        screen.Open();
        if (auto* view = dynamic_cast<photos::frm_GenView*>(&screen)) {
            view->txtView.SetText(u"VIEW %1"_s.arg(++m_asked % 4));
            view->cmdOK_Click();
        } else if (auto* overwrite = dynamic_cast<photos::frm_Overwrite*>(&screen)) {
            Q_EMIT overwrite->cmdYes.Clicked();
        }
        if (screen.IsOpen())
            screen.Unload();
        screen.End();
    }

private:
    int m_asked = 0;
};

void Say(const QByteArray& words)
{
    std::puts(words.constData());
    std::fflush(stdout);
}

} // namespace

int WorkAtTheMainScreen(const QString& home)
try {
    test::RecordingConduit conduit;
    conduit.running = false;
    TestPorts doubles;
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    QuickUser user;
    forms::SystemClock clock;
    forms::SystemRandom random;
    const forms::Ports ports{doubles.prompter, doubles.pump, clock, random, doubles.window, user};
    shell::Program program{home, {conduit, ports}};
    shell::frm_Main main{program};
    main.program.LocateInis(app::Places(program.Disk()), shell::Silence::Silent);
    main.program.ReadSettings();
    main.program.ConnectDatabook();
    main.DisplayAllRecords();
    main.ShowCapture();
    Say("ready");
    for (int row = 0; main.capture.geathumb(0).Visible(); ++row) {
        main.records.grddatabook.SetRow(row % 5);
        const drops::Drag drag = main.drags.Router().Start(main.capture.geathumb(0));
        if (main.drags.Router().End(drag, main.records.grddatabook).done)
            Say("filed " + drag.picture.path.toUtf8());
        main.Capture().RefreshCapture();
        if (row % 3 == 2) {
            main.photoLists.lstViews.SetListIndex(main.photoLists.lstViews.ListCount() - 1);
            Q_EMIT main.photoLists.CmdDeletePhoto.Clicked();
            Say("deleted");
        }
        if (row > 60)
            break; // what is deleted comes back to be filed
    }
    Say("end");
    return 0;
} catch (const RuntimeError& failure) {
    std::fprintf(stderr, "%s\n", qPrintable(failure.Description()));
    return 1;
}

} // namespace vasclip::tests

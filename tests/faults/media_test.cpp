// A process killed at any moment of copying from a card, of trashing and of restoring: no picture is lost, and none is
// half written under its name. VASCLIP_KILLS sets how often; 1000 for the long run.

#include "faults/kills.h"
#include "photos/card_copy.h"
#include "photos/photo_files.h"
#include "photos/trash.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <chrono>
#include <random>
#include <thread>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace vasclip::tests {
namespace {

using namespace Qt::Literals::StringLiterals;

class KilledMedia : public testing::Test
{
protected:
    const QStringList names{u"A.JPG"_s, u"B.JPG"_s, u"C.JPG"_s, u"D.BMP"_s};

    static QByteArray Content(const QString& name, const QByteArray& kind)
    {
        return (kind + ' ' + name.toUtf8() + '\n').repeated(20000); // some 300 KB
    }
    /// Runs work in a process of its own and kills that at a random moment about its end.
    /// @return true if it came to its end
    template <class Work>
    bool RunAndKill(Work&& work)
    {
        const pid_t child = fork();
        if (child == 0) {
            work();
            _exit(0);
        }
        const auto moment = std::chrono::microseconds(m_random() % (m_usual.count() * 5 / 4 + 1));
        std::this_thread::sleep_for(moment);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        const bool finished = WIFEXITED(status);
        m_usual = finished ? m_usual * 9 / 10 + std::chrono::microseconds(50) : m_usual * 11 / 10;
        ++(finished ? m_finished : m_killed);
        return finished;
    }
    void TearDown() override
    {
        EXPECT_GT(m_killed, 0) << "no run was killed in time";
        EXPECT_GT(m_finished, 0) << "no run was let through";
    }
    static QMap<QString, QByteArray> Files(const TempHome& home, const QString& directory)
    {
        QMap<QString, QByteArray> found;
        const QDir native(home.disk.ToNative(directory));
        for (const QString& name : native.entryList(QDir::Files)) { // hidden ones are no pictures
            QFile file(native.filePath(name));
            if (file.open(QIODevice::ReadOnly))
                found.insert(name, file.readAll());
        }
        return found;
    }

private:
    std::mt19937 m_random{20040307};
    std::chrono::microseconds m_usual{20000};
    int m_finished = 0;
    int m_killed = 0;
};

TEST_F(KilledMedia, CopyingLeavesWholePicturesAndKeepsWhatItReplaces)
{
    for (int run = 0; run < Kills(40); ++run) {
        const TempHome home;
        for (const QString& name : names)
            home.Put(u"C:\\CARD\\"_s + name, Content(name, "card"));
        home.Put(u"C:\\VASSNAP\\B.JPG"_s, Content(u"B.JPG"_s, "earlier"));
        home.Put(u"C:\\VASSNAP\\TRASHCAN\\B.JPG"_s, Content(u"B.JPG"_s, "earliest"));
        const bool finished = RunAndKill([&] {
            TestPorts doubles;
            common::Globals globals;
            globals.G_CaptureDir = u"C:\\VASSNAP\\"_s;
            (void)photos::CopyFromMedia({doubles.Get(), home.disk, globals}, u"C:\\CARD\\"_s, names, {});
        });
        const auto card = Files(home, u"C:\\CARD"_s);
        const auto capture = Files(home, u"C:\\VASSNAP"_s);
        const auto trash = Files(home, u"C:\\VASSNAP\\TRASHCAN"_s);
        for (const QString& name : names)
            EXPECT_EQ(card.value(name), Content(name, "card")) << "the card changed in run " << run;
        for (auto file = capture.cbegin(); file != capture.cend(); ++file) {
            const bool whole = file.value() == Content(file.key(), "card") ||
                               (file.key() == u"B.JPG"_s && file.value() == Content(u"B.JPG"_s, "earlier"));
            EXPECT_TRUE(whole) << file.key().toStdString() << " is half written in run " << run;
        }
        EXPECT_TRUE(capture.contains(u"B.JPG"_s)) << "run " << run;
        EXPECT_EQ(trash.value(u"B.JPG"_s), Content(u"B.JPG"_s, "earliest")) << "run " << run;
        EXPECT_TRUE(capture.value(u"B.JPG"_s) == Content(u"B.JPG"_s, "earlier") ||
                    trash.value(u"B (2).JPG"_s) == Content(u"B.JPG"_s, "earlier"))
            << "the replaced picture is lost in run " << run;
        if (finished) {
            EXPECT_EQ(capture.size(), names.size());
        }
    }
}

TEST_F(KilledMedia, TrashingLeavesEachPictureWholeInOneOfBothPlaces)
{
    for (int run = 0; run < Kills(40); ++run) {
        const TempHome home;
        for (const QString& name : names)
            home.Put(u"C:\\VASSNAP\\"_s + name, Content(name, "filed"));
        RunAndKill([&] {
            TestPorts doubles;
            common::Globals globals;
            for (const QString& name : names)
                photos::SendToTrashCan({doubles.Get(), home.disk, globals}, photos::PictureIs::Saved,
                                       u"C:\\VASSNAP"_s, u"C:\\VASSNAP\\"_s + name, name.section(u'.', 0, 0),
                                       name.section(u'.', 1));
        });
        const auto capture = Files(home, u"C:\\VASSNAP"_s);
        const auto trash = Files(home, u"C:\\VASSNAP\\TRASHCAN"_s);
        for (const QString& name : names) {
            const QByteArray whole = Content(name, "filed");
            EXPECT_TRUE(capture.value(name) == whole || trash.value(name) == whole)
                << name.toStdString() << " is lost in run " << run;
            EXPECT_TRUE(!capture.contains(name) || capture.value(name) == whole) << run;
            EXPECT_TRUE(!trash.contains(name) || trash.value(name) == whole)
                << name.toStdString() << " is half written in run " << run;
        }
    }
}

TEST_F(KilledMedia, RestoringOntoAnotherPictureLosesNeither)
{
    for (int run = 0; run < Kills(40); ++run) {
        const TempHome home;
        home.Put(u"C:\\VASSNAP\\A.JPG"_s, Content(u"A.JPG"_s, "present"));
        home.Put(u"C:\\VASSNAP\\TRASHCAN\\A.JPG"_s, Content(u"A.JPG"_s, "trashed"));
        RunAndKill([&] {
            TestPorts doubles;
            doubles.prompter.AnswerAlways(forms::Answer::Yes);
            common::Globals globals;
            photos::RestoreFromTrash({doubles.Get(), home.disk, globals}, u"C:\\VASSNAP\\TRASHCAN\\"_s, u"A.JPG"_s);
        });
        QList<QByteArray> left = Files(home, u"C:\\VASSNAP"_s).values();
        left += Files(home, u"C:\\VASSNAP\\TRASHCAN"_s).values();
        EXPECT_TRUE(left.contains(Content(u"A.JPG"_s, "present"))) << run;
        EXPECT_TRUE(left.contains(Content(u"A.JPG"_s, "trashed"))) << run;
        for (const QByteArray& content : std::as_const(left))
            EXPECT_TRUE(content == Content(u"A.JPG"_s, "present") || content == Content(u"A.JPG"_s, "trashed"))
                << "half a picture in run " << run;
    }
}

} // namespace
} // namespace vasclip::tests

#include "common/globals.h"
#include "support/databook_home.h"
#include "upkeep/frm_archive.h"
#include "windows/window_prompter.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

// "Create" on the screen of the archive, with the dialog and the question that its user sees.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class ArchiveDialog : public tests::DatabookHome
{
protected:
    WindowPrompter prompter{disk};
    forms::Ports real{prompter, doubles.pump, doubles.clock, doubles.random, doubles.window, doubles.screens};
    common::Globals globals;
    store::DataSource source{engine, u"datDatabook"_s};
    std::unique_ptr<upkeep::frm_Archive> screen;

    void SetUp() override
    {
        DatabookHome::SetUp();
        disk.MkDir(u"C:\\ARCHIVE"_s);
        globals.G_DataDir = u"C:\\"_s;
        globals.G_ArchiveDir = u"C:\\ARCHIVE\\"_s;
        globals.G_ArchiveFile = u"OLD.MDB"_s;
        globals.G_ArchiveTable = table;
        Bind(source);
        screen = std::make_unique<upkeep::frm_Archive>(upkeep::TransferDesk{source, globals, real}, [] {}, [] {});
        screen->Open();
    }
    /// Types a name into the dialog and answers the boxes behind it. @return their texts
    QStringList Create(const QString& name, QMessageBox::StandardButton answer)
    {
        QStringList texts;
        bool typed = false;
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                texts.append(box->text());
                QTest::mouseClick(box->button(box->button(answer) != nullptr ? answer : QMessageBox::Ok), Qt::LeftButton);
            } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
                if (std::exchange(typed, true))
                    return dialog->reject(); // it does not take the name
                auto* field = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
                field->clear();
                QTest::keyClicks(field, name);
                QTest::keyClick(field, Qt::Key_Return);
            }
        });
        hand.start(50);
        Q_EMIT screen->cmdcreate.Clicked();
        return texts;
    }
};

TEST_F(ArchiveDialog, TakesANameThatIsNotThereWhateverItsEnd)
{
    for (const QString& name : {u"SIXTIES"_s, u"SEVENTIES."_s, u"EIGHTIES.TXT"_s, u"NINETIES.MDB"_s}) {
        const QString file = u"C:\\ARCHIVE\\"_s + name.section(u'.', 0, 0) + u".MDB"_s;
        EXPECT_EQ(Create(name, QMessageBox::No), QStringList{u"Create %1?"_s.arg(file)});
        EXPECT_FALSE(disk.FileExists(file)) << "No";
        EXPECT_EQ(Create(name, QMessageBox::Yes), QStringList{u"Create %1?"_s.arg(file)});
        EXPECT_TRUE(disk.FileExists(file)) << name.toStdString();
        EXPECT_EQ(screen->txtFileName.Text(), file.mid(11));
        EXPECT_EQ(Create(name, QMessageBox::Yes), QStringList{u"Open %1?"_s.arg(file)}) << "one question, of ours";
    }
}

} // namespace
} // namespace vasclip::windows

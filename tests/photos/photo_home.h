#pragma once

#include "photos/photo_desk.h"
#include "platform/picture/picture.h"
#include "support/databook_home.h"

#include <deque>

namespace vasclip::tests {

using namespace Qt::StringLiterals;

/// Answers the two questions about pictures from queues and records them.
class ScriptedQuestions : public photos::PhotoQuestions
{
public:
    forms::Answer Overwrite(const QString& existing, const QString& fresh, const QString& record) override
    {
        asked << existing + u" <- "_s + fresh;
        whose << record;
        return overwrite;
    }
    QString View(const QString& picture, const QString& proposal, const QString& named) override
    {
        asked << picture + u" ? "_s + proposal;
        whose << named;
        return view;
    }
    forms::Answer overwrite = forms::Answer::Yes;
    QString view;
    QStringList asked;
    QStringList whose; ///< what each question named
};

/// A home with a Databook, directories and a desk to file pictures on.
class PhotoHome : public DatabookHome
{
protected:
    forms::ControlSet set;
    common::StatusDesk status{set};
    photos::PhotoLists lists{set};
    photos::SlotTable table_;
    photos::SlotLoader loader{disk, ports, table_};
    forms::PictureBox geamaintain{set, u"geamaintain"_s};
    forms::PictureBox imaComp{set, u"imaComp"_s, 1};
    common::Globals globals;
    store::DataSource datDatabook{engine, u"datDatabook"_s};
    ScriptedQuestions questions;
    photos::PhotoDesk desk{ports, disk, globals, datDatabook, lists, loader, status, questions};

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.G_UserDir = u"C:\\VAS2000\\"_s;
        globals.G_ProgramDir = u"C:\\PROGRAM\\"_s;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        globals.G_CaptureDir = u"C:\\VASSNAP\\"_s;
        for (const QString& directory : {u"C:\\VAS2000"_s, u"C:\\PROGRAM"_s, u"C:\\JPG"_s, u"C:\\VASSNAP"_s})
            disk.MkDir(directory);
        doubles.random.sequence = {0.7055475, 0.533424, 0.5795186, 0.2895625, 0.301948};
        for (int more = 0; more < 200; ++more) // enough for all that a test files
            doubles.random.sequence.push_back(0.7747401 + more * 0.001);
        Bind(datDatabook);
    }

    /// Colours run across, so that a turned picture shows.
    static QImage Sample(int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, 128));
        return image;
    }
    QString PutJpeg(const QString& name, int width = 640, int height = 480) const
    {
        const QString file = globals.G_CaptureDir + name;
        picture::SaveJpeg(disk, Sample(width, height), file, 95);
        return file;
    }
    QStringList Stored() const { return disk.Dir(globals.G_PhotoDir + u"*.*"_s); }
    QString PhotosOf(const QString& address)
    {
        EXPECT_TRUE(store::FindRecord(ports, datDatabook, address, u"CENTRALKEY"_s));
        return datDatabook.Recordset().Value(u"PHOTOS"_s).toString();
    }
};

} // namespace vasclip::tests

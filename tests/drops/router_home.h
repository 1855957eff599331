#pragma once

#include "drops/router.h"
#include "link/desk_test.h"
#include "photos/capture_home.h"
#include "photos/photo_home.h"
#include "platform/picture/picture.h"
#include "store/change.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

/// A router on a desk: two comps with photos and one without a front view, every group mapped, a report of all
/// pages, three capture pictures.
class RouterTest : public link::DeskTest
{
protected:
    tests::ScriptedQuestions questions;
    photos::PhotoDesk filing{desk.ports, home.disk, globals, sources.datDatabook, lists, loader, status, questions};
    photos::CaptureControls controls{set};
    std::shared_ptr<tests::NamedThumbs::Log> thumbs = std::make_shared<tests::NamedThumbs::Log>();
    photos::CaptureDesk capture{{home.disk, desk.ports, globals, status, loader},
                                controls,
                                std::make_unique<tests::NamedThumbs>(thumbs),
                                std::make_unique<work::ThreadWorkers>()};
    forms::Grid grddatabook{set, u"grddatabook"_s};
    forms::TextBox txtcentralkey{set, u"txtcentralkey"_s};
    forms::TextBox txtMapAddress{set, u"txtMapAddress"_s};
    DropDesk drops{desk, filing, capture, grddatabook, txtcentralkey, txtMapAddress};
    Router router{drops};
    QStringList changes; ///< the words of each change of a record

    static inline const QString kSnap = u"C:\\SNAP\\"_s;

    void SetUp() override
    {
        DeskTest::SetUp();
        globals.G_CaptureDir = kSnap;
        globals.imageFileNames = u"ON"_s;
        globals.imageListBox = u"OFF"_s;
        globals.trashcan = 1;
        globals.autoDelete = 0;
        globals.autoSave = 0;
        home.MakeDirs(u"C:\\SNAP"_s);
        AddComp(u"12 Oak St"_s,
                {{u"GLA"_s, u"1850"_s}, {u"PHOTOS"_s, u"FRONT VIEW|OAK\r\nREAR VIEW|OAKR\r\n"_s}});
        AddComp(u"14 Elm St"_s, {{u"GLA"_s, u"990"_s}, {u"PHOTOS"_s, u"REAR VIEW|ELM\r\n"_s}});
        for (const QString& stem : {u"OAK"_s, u"OAKR"_s, u"ELM"_s})
            Picture(u"C:\\JPG\\"_s + stem + u".jpg"_s);
        for (const QString& mark : {u"Added"_s, u"Full"_s, u"Empty"_s})
            Picture(u"C:\\VAS2000\\Addendum_"_s + mark + u".bmp"_s);
        for (const QString& group : {u"SALE"_s, u"ALT"_s, u"LIST"_s, u"RENT"_s})
            Map({u"UA5"_s, group + u"PAGE"_s, u"GLA"_s, u"12"_s, u"3"_s, group, u"1"_s, u"2"_s});
        OpenReport(u"SMITH"_s, u"UA5,SUBPHOTO,"_s);
        loader.SetThumbTags(&controls.lbltag);
        desk.photoDesk = &filing;
        sources.datDatabook.Watch([this](const store::Step& step) { changes << step.words; });
        doubles.random.sequence = {0.7055475, 0.533424, 0.5795186, 0.2895625, 0.301948};
        for (int stem = 1; stem <= 40; ++stem)
            doubles.random.sequence.push_back(stem / 41.0);
    }

    /// Real pictures in the capture directory, which is then on show.
    void Browse()
    {
        for (const QString& name : {u"A.JPG"_s, u"B.JPG"_s, u"C.JPG"_s})
            Picture(kSnap + name);
        capture.ViewFilCapture();
        capture.StartBrowsing();
    }
    Outcome DropOn(forms::Control& target, const QString& key = u"12 OAK ST"_s)
    {
        return router.DropUntold({u"grddatabook"_s, -1, key, {}, {}}, target);
    }
    Outcome DropThumb(int index, forms::Control& target)
    {
        return router.DropUntold(router.Start(controls.geathumb(index)), target);
    }
    [[nodiscard]] QStringList Trash() const { return home.disk.Dir(kSnap + u"TRASHCAN\\*.*"_s); }
    [[nodiscard]] QString Shows(const forms::PictureBox& box) const { return table.ErrGetPict(box); }
    [[nodiscard]] QString PhotosOf(const QString& key)
    {
        StandOn(key);
        return store::GetFieldData(sources.datDatabook, u"PHOTOS"_s);
    }
    static QString SetImage(const QString& object, const QString& path)
    {
        return u"[RunMacro( SetImage \""_s + object + u"\", \""_s + path + u"\" ) ]\r"_s;
    }
    static QString Doubled(QString path) { return path.replace(u"\\"_s, u"\\\\"_s); }
};

} // namespace vasclip::drops

#include "app/vasctl/session.h"

#include "common/paths.h"
#include "databook/records.h"
#include "link/kel_channel.h"
#include "link/link_desk.h"
#include "link/slot_photos.h"
#include "photos/photo_records.h"
#include "photos/store_check.h"
#include "photos/view_name.h"
#include "platform/picture/picture.h"
#include "platform/text/counted.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kRecords{u"record"_s, u"records"_s};
const text::Counted kPhotos{u"photo"_s, u"photos"_s};

/// The questions of the screens, asked on the terminal.
class TerminalQuestions : public photos::PhotoQuestions
{
public:
    TerminalQuestions(TerminalPrompter& prompter, QString view = {})
        : m_prompter(prompter)
        , m_view(std::move(view))
    {}
    forms::Answer Overwrite(const QString& existing, const QString& fresh, const QString& record) override
    {
        return m_prompter.MsgBox(
            forms::Buttons::YesNoCancel, forms::Icon::Question, {},
            u"%1 has a photo of that view, %2. Shall %3 take its place?"_s.arg(record, existing, fresh));
    }
    QString View(const QString&, const QString&, const QString&) override { return m_view; }

private:
    TerminalPrompter& m_prompter;
    QString m_view;
};

/// The desk that the commands work on, with the parts of the program.
struct Work
{
    Work(Session& session, shell::Program& program, QString view = {})
        : questions(session.Prompter(), std::move(view))
        , desk(session.Ports(), session.Disk(), program.globals, program.sources.datDatabook, program.photoLists,
               program.Link().loader, program.status, questions)
        , box(program.slots.geamaintain)
    {
        desk.addRecord = [&session, &program](const QString& key) {
            (void)databook::AddRecord(session.Ports(), program.sources.datDatabook, key, u'F',
                                      program.globals.addressCase);
        };
    }
    TerminalQuestions questions;
    photos::PhotoDesk desk;
    forms::PictureBox& box;
};

int NoRecord(const Output& out, const QString& key)
{
    out.Error(u"There is no record '%1' in the Databook. 'vasctl records list' shows what is there."_s.arg(
        databook::KeyOf(key)));
    return kNotFound;
}

bool Find(Session& session, shell::Program& program, const QString& key)
{
    return store::FindRecord(session.Ports(), program.sources.datDatabook, databook::KeyOf(key), u"Centralkey"_s);
}

/// What was made of a view, to put behind a sentence; "" if it stayed as it was.
QString Cleaned(const QString& view)
{
    const QString told = photos::CleanedView(view);
    return told.isEmpty() ? told : u' ' + told;
}

/// Reads the record's lists and selects the row of the view. @return kDone, or why not
int Select(Session& session, shell::Program& program, const Output& out, const QString& key, const QString& view)
{
    if (!Find(session, program, key))
        return NoRecord(out, key);
    photos::PhotoLists& lists = program.photoLists;
    photos::ReadPhotoLists(program.sources.datDatabook, lists.lstViews, lists.lstimages);
    const int row = lists.lstViews.IndexOf(photos::CleanView(view));
    if (row < 0) {
        out.Error(u"%1 has no photo '%2'. 'vasctl photos list' shows what it has."_s.arg(
            databook::KeyOf(key), view));
        return kNotFound;
    }
    lists.lstViews.SetListIndex(row);
    return kDone;
}

int List(Session& session, const Output& out, const QString& key)
{
    auto& program = session.WithDatabook();
    if (!Find(session, program, key))
        return NoRecord(out, key);
    QList<QStringList> table;
    for (const auto& [view, stem] :
         photos::ParsePhotos(store::GetFieldData(program.sources.datDatabook, fields::PHOTOS))) {
        const QString file = program.globals.G_PhotoDir + text::Trim(stem) + u".jpg"_s;
        QString size = u"missing"_s;
        QString bytes;
        if (session.Disk().FileExists(file)) {
            bytes = QString::number(session.Disk().FileLen(file));
            try {
                const QSize pixels = picture::PictureSize(session.Disk(), file);
                size = u"%1 x %2"_s.arg(pixels.width()).arg(pixels.height());
            } catch (const RuntimeError&) {
                size = u"damaged"_s;
            }
        }
        table.append({view, stem, size, bytes, file});
    }
    out.Table({u"VIEW"_s, u"STEM"_s, u"SIZE"_s, u"BYTES"_s, u"FILE"_s}, table,
              {Kind::Text, Kind::Text, Kind::Text, Kind::Number, Kind::Text});
    return kDone;
}

/// The drive path of a file that is given as such or as the system writes it; "" if there is no such file.
QString SourceOf(const files::Disk& disk, const QString& file)
{
    const QString path = DrivePathOf(disk, file);
    return disk.FileExists(path) ? path : QString();
}

int File(Session& session, const Output& out, const QString& key, const QString& view, const QString& file)
{
    if (text::Trim(key).isEmpty() || text::Trim(photos::CleanView(view)).isEmpty()) {
        out.Error(u"A photo needs the key of its record and a view; one of them is blank."_s + Cleaned(view));
        return kUsage;
    }
    const QString source = SourceOf(session.Disk(), file);
    if (source.isEmpty()) {
        out.Error(u"There is no picture '%1', or it is empty."_s.arg(file));
        return kNotFound;
    }
    auto& program = session.WithDatabook();
    Work work(session, program);
    if (!photos::SavePhotoToRecord(work.desk, databook::KeyOf(key), source, view)) {
        if (session.Prompter().Declined())
            return kDeclined;
        const QString why = work.desk.notSaved;
        out.Error(u"'%1' was not filed with %2%3"_s.arg(source, databook::KeyOf(key),
                                                        why.isEmpty() ? u"."_s : u": "_s + why));
        return kFailed;
    }
    const auto record = store::ReadRecord(session.Ports(), program.sources.datDatabook, key);
    const photos::PhotoList filed = record ? photos::PhotoList(*record) : photos::PhotoList();
    const QString clean = photos::CleanView(view);
    out.Line(u"'%1' is the %2 of %3 now, stored as %4."_s.arg(source, filed.NameOf(clean), databook::KeyOf(key),
                                                             filed.StemOf(clean)) +
             Cleaned(view));
    return kDone;
}

int Rename(Session& session, const Output& out, const QString& key, const QString& view, const QString& fresh)
{
    const QString clean = photos::CleanView(fresh);
    if (text::Trim(clean).isEmpty()) {
        out.Error(u"The new view is blank."_s + Cleaned(fresh));
        return kUsage;
    }
    auto& program = session.WithDatabook();
    if (const int wrong = Select(session, program, out, key, view); wrong != kDone)
        return wrong;
    Work work(session, program, fresh);
    if (photos::CmdRenamePhotoView(work.desk) == photos::PhotoChange::None)
        return kFailed; // its box has said why
    out.Line(u"The %1 of %2 is its %3 now."_s.arg(view, databook::KeyOf(key), clean) + Cleaned(fresh));
    return kDone;
}

int Delete(Session& session, const Output& out, const QString& key, const QString& view)
{
    auto& program = session.WithDatabook();
    if (const int wrong = Select(session, program, out, key, view); wrong != kDone)
        return wrong;
    Work work(session, program);
    if (photos::CmdDeletePhoto(work.desk, work.box) == photos::PhotoChange::None) {
        if (session.Prompter().Declined())
            return kDeclined;
        if (!work.desk.notSaved.isEmpty())
            out.Error(work.desk.notSaved + u'.');
        return kFailed;
    }
    out.Line(u"The %1 of %2 was deleted; its picture is back in %3."_s.arg(view, databook::KeyOf(key),
                                                                         program.globals.G_CaptureDir));
    return kDone;
}

QStringList LineOf(const photos::LostPhoto& lost)
{
    return {lost.key, lost.view, lost.stem, lost.why.isEmpty() ? u"The file is not there"_s : lost.why};
}

int Orphans(Session& session, const Output& out)
{
    auto& program = session.WithDatabook();
    const photos::StoreCheck check =
        photos::CheckStore(program.sources.datDatabook, session.Disk(), program.globals.G_PhotoDir);
    QList<QStringList> table;
    for (const photos::LostPhoto& lost : check.lost)
        table.append(LineOf(lost));
    QStringList inReport; // a picture may stand in a report and in no record
    if (!check.unnamed.isEmpty() && link::KelIsActive(session.Conduit(), program.linkState))
        inReport = link::PicturesOfReport(session.WithReport().Link());
    for (const QString& name : check.unnamed)
        if (!inReport.contains(text::Folded(common::CkRSlash(program.globals.G_PhotoDir) + name)))
            table.append({{}, {}, name.chopped(4), u"No record names the file"_s});
    out.Table({fields::CENTRALKEY, u"VIEW"_s, u"STEM"_s, u"WHY"_s}, table);
    return kDone;
}

int Verify(Session& session, const Output& out)
{
    auto& program = session.WithDatabook();
    ProgressLine line(out);
    const photos::StoreCheck check = photos::VerifyStore(
        program.sources.datDatabook, session.Disk(), program.globals.G_PhotoDir, [&line](int records) {
            line.Show(u"Looking at the photos of record %1"_s.arg(records + 1));
            return true;
        });
    line.Clear();
    for (const photos::LostPhoto& lost : check.lost)
        out.Error(LineOf(lost).join(u"  "_s));
    const int whole = check.photos - static_cast<int>(check.lost.size());
    out.Value({{u"records"_s, check.records}, {u"photos"_s, check.photos}, {u"whole"_s, whole}},
              u"%1 of %2 of %3 %4 whole."_s.arg(QString::number(whole), kPhotos(check.photos), kRecords(check.records),
                                            whole == 1 ? u"is"_s : u"are"_s));
    return check.lost.isEmpty() ? kDone : kFailed;
}

} // namespace

int RunPhotos(Session& session, const Output& out, const QStringList& arguments)
{
    const QString verb = arguments.value(0);
    const auto needs = [&](qsizetype count) { return arguments.size() == count + 1; };
    if (verb == u"list"_s && needs(1))
        return List(session, out, arguments[1]);
    if (verb == u"file"_s && needs(3))
        return File(session, out, arguments[1], arguments[2], arguments[3]);
    if (verb == u"rename-view"_s && needs(3))
        return Rename(session, out, arguments[1], arguments[2], arguments[3]);
    if (verb == u"delete"_s && needs(2))
        return Delete(session, out, arguments[1], arguments[2]);
    if (verb == u"orphans"_s && needs(0))
        return Orphans(session, out);
    if (verb == u"verify"_s && needs(0))
        return Verify(session, out);
    out.Error(u"Usage: vasctl photos list KEY | file KEY VIEW FILE | rename-view KEY VIEW NEW | delete KEY VIEW | "
              u"orphans | verify"_s);
    return kUsage;
}

} // namespace vasclip::vasctl

#include "demo/home.h"

#include "demo/artwork.h"
#include "demo/card.h"
#include "demo/databook_file.h"
#include "demo/forms_files.h"
#include "demo/home_marker.h"
#include "demo/map_files.h"
#include "demo/market.h"
#include "demo/other_files.h"
#include "demo/photo_shoot.h"
#include "demo/settings_files.h"
#include "forms/system_ports.h"
#include "platform/street/draw/mark.h"
#include "platform/text/runtime_error.h"
#include "store/schema.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

const QString kIniDirectory = u"C:\\APPRAISE\\"_s;
const QString kProgram = u"C:\\VAS2000\\"_s;
const QString kDatabook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
const QString kPhotos = u"C:\\VASCLIPS\\JPG\\"_s;
const QString kCapture = u"C:\\VASSNAP\\"_s;
const QString kCard = u"C:\\CARD\\DCIM\\100DEMO\\"_s;

/// With the directories above it.
void MakeDirectory(const files::Disk& disk, const QString& path)
{
    for (qsizetype at = path.indexOf(u'\\', 3); at > 0; at = path.indexOf(u'\\', at + 1))
        if (!disk.DirExists(path.left(at)))
            disk.MkDir(path.left(at));
}

QList<Shot> ShotsOf(const QList<Comp>& comps)
{
    QList<Shot> shots;
    for (const Comp& comp : comps) {
        for (const Photo& photo : comp.photos) {
            const View view = photo.view == "REAR VIEW"_L1      ? View::Rear
                              : photo.view == "STREET SCENE"_L1 ? View::Street
                                                                : View::Front;
            shots.append({kPhotos + photo.stem + u".jpg"_s, comp.look, view});
        }
    }
    return shots;
}

/// A home with a drive C of its own never reaches the machine's.
void MakeOwnDrive(const QString& directory)
{
    const QString drive = QDir(directory).filePath(u"drive_c"_s);
    if (!QDir().mkpath(drive))
        throw RuntimeError(error::kPathFileAccess, u"%1 cannot be made"_s.arg(drive));
}

void RefuseWhileInUse(const QString& directory)
{
    MakeOwnDrive(directory);
    const files::Disk disk(directory);
    const forms::SystemClock clock;
    const engine::Engine engine(disk, clock);
    if (!disk.Found(kDatabook))
        return;
    for (const engine::User& user : engine.Users(kDatabook))
        if (user.alive)
            throw RuntimeError(
                error::kPermissionDenied,
                u"Process %1 on %2 has the Databook of this home open. Close it, then try again"_s
                    .arg(user.process)
                    .arg(user.host));
}

} // namespace

HomeOutcome MakeHome(const HomeOptions& options, const std::function<void(const QString& line)>& say)
{
    const QString directory = QDir(options.directory).absolutePath();
    const HomeState state = StateOfHome(directory);
    if (state != HomeState::Foreign)
        RefuseLinkedDrive(directory);
    switch (state) {
    case HomeState::Foreign:
        throw RuntimeError(
            error::kFileExists,
            u"%1 holds files that are not a demo home's, and they are left alone. Name a directory "
            u"that is empty or does not exist yet"_s.arg(directory));
    case HomeState::Complete:
        if (!options.force) {
            say(u"%1 is complete; nothing to do. (--force makes it anew.)"_s.arg(directory));
            return HomeOutcome::WasComplete;
        }
        RefuseWhileInUse(directory);
        break;
    case HomeState::Older:
        RefuseWhileInUse(directory);
        if (options.force)
            break;
        say(u"The home is of another version; it is made anew. What it held is kept in %1."_s.arg(
            KeepOlderHome(directory)));
        break;
    case HomeState::Unfinished:
        say(u"An earlier run did not finish; its files are made anew."_s);
        break;
    case HomeState::Empty:
        break;
    }
    MarkHome(directory, HomeState::Unfinished, options.comps);
    ClearHome(directory);
    MakeOwnDrive(directory);

    say(u"Making the demo home in %1"_s.arg(directory));
    const files::Disk disk(directory);
    const forms::SystemClock clock;
    engine::Engine engine(disk, clock);
    for (const QString& path : SettingsDirectories() + QStringList{kIniDirectory} + FormsDirectories())
        MakeDirectory(disk, path);
    disk.WriteWhole(kIniDirectory + u"VAS2000.INI"_s, ApplicationIniText().toLatin1());
    MakeArtwork(disk, kProgram);
    const QStringList missing = street::draw::DeliverMarks(QCoreApplication::applicationDirPath() + u"/arrows"_s,
                                                           disk.ToNative(kProgram + u"arrows"_s));
    if (!missing.isEmpty())
        throw RuntimeError(error::kPermissionDenied, missing.front());

    disk.WriteWhole(kIniDirectory + u"pwstreet.ini"_s, StreetIniText().toLatin1());

    if (HasMapImporter()) {
        say(u"Street map"_s);
        MakeMap(disk, MapDirectory());
    } else if (!CopyMap(disk, ReadyMap(), MapDirectory())) {
        say(u"No street map: vasclip-mapdata, which makes it, is not installed."_s);
    }

    say(u"Templates"_s);
    for (const auto name : {"NEWDATA.MDB"_L1, "NEWCMTS.MDB"_L1, "appraisal.mbk"_L1, "Report_Brief.mdb"_L1,
                            "Report_Medium.mdb"_L1, "Report_Detail.mdb"_L1, "Report_NonDesc.mdb"_L1})
        store::MakeDatabase(engine, kProgram + name);
    MakeComments(engine, kProgram + u"comments.mdb"_s);

    const QList<Comp> comps = MakeMarket(options.comps);
    const QList<Comp> strangers = MakeMarket(options.comps + kStrangers).mid(options.comps);
    say(u"Databook of %1 comps"_s.arg(comps.size()));
    MakeDatabook(engine, kDatabook, comps);
    say(u"Files of another office, of an older version and of old sales"_s);
    MakeOtherFiles(disk, comps, strangers);

    say(u"Forms: KEL.INI, mapping, scripts, reports"_s);
    MakeFormsFiles(engine, comps, {kIniDirectory, kProgram, kPhotos});

    const QList<Shot> shots = ShotsOf(comps) + SubjectPictures() + CapturePictures(kCapture);
    ShootAll(disk, shots, [&](int done) {
        if (done % 40 == 0 || done == shots.size())
            say(u"Pictures: %1 of %2"_s.arg(done).arg(shots.size()));
    });

    MakeDirectory(disk, kCard);
    MakeCard(disk, kCard, [&](int done) {
        if (done % 50 == 0)
            say(u"Card: %1 of %2"_s.arg(done).arg(kCardPictures));
    });

    MarkHome(directory, HomeState::Complete, options.comps);
    say(u"The demo home is complete."_s);
    return HomeOutcome::Made;
}

} // namespace vasclip::demo

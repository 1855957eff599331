#include "upkeep/repairs.h"

#include "comments/comment_file.h"
#include "common/error_block.h"
#include "photos/photo_files.h"
#include "platform/text/runtime_error.h"
#include "store/fields.h"
#include "store/store.h"
#include "upkeep/clean_texts.h"
#include "upkeep/maintenance_messages.h"
#include "upkeep/named_pictures.h"
#include "upkeep/recalculate.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;
using namespace maintenance;

namespace {

const QString kTable = u"COMPS"_s;

/// The walk of one repair over the Databook.
class RepairWalk
{
public:
    RepairWalk(const RepairDesk& desk, Repair repair, const Deletion& deletion, Account& account,
               const RepairStep& step)
        : m_desk(desk)
        , m_repair(repair)
        , m_text(TextOf(repair))
        , m_deletion(deletion)
        , m_account(account)
        , m_step(step)
        , m_today(desk.ports.clock.Today())
    {}

    RepairResult Run();

private:
    [[nodiscard]] QString Gauge() const;
    [[nodiscard]] std::function<void(RowEdit&)> Rule();
    [[nodiscard]] QStringList Reads() const;
    [[nodiscard]] QString EndMessage();
    [[nodiscard]] QString DeletePictures(const LineFile& stems);
    void Clean(RowEdit& row);
    void LandSize(RowEdit& row) const;
    void Recalculate(RowEdit& row);

    const RepairDesk& m_desk;
    Repair m_repair;
    const RepairText& m_text;
    const Deletion& m_deletion;
    Account& m_account;
    const RepairStep& m_step;
    QDate m_today;
    StoredDates m_dates{m_today};
    std::unique_ptr<store::DataSource> m_comments;
    QStringList m_textFields; ///< of the comment file
    qint64 m_found = 0;       ///< illegal characters
    qint64 m_cleared = 0;     ///< records that had photos
};

QString RepairWalk::Gauge() const
{
    if (!DeletesByDate(m_repair))
        return m_text.gauge;
    const bool sale = m_repair == Repair::DeleteBySale;
    if (m_deletion.pending)
        return sale ? kGaugePending : kGaugeLoads;
    return (sale ? kGaugeSale : kGaugeLoad).arg(m_deletion.date);
}

void RepairWalk::Recalculate(RowEdit& row)
{
    RecalcPriceSqFt(row);
    RecalcAge(row, m_dates);
    RecalcSaleDate(row, m_dates);
    RecalcLoadDate(row, m_dates);
    FixFrontFlag(row);
}

void RepairWalk::LandSize(RowEdit& row) const
{
    // "IRREGULAR" and "0.25 AC" say something.
    const QString held = row.Text(fields::LANDSIZE);
    bool isNumber = false;
    const bool isZero = held.toDouble(&isNumber) == 0 && isNumber;
    if (row.Text(fields::APPRSLTYPE).startsWith(u'L', Qt::CaseInsensitive) && (held.isEmpty() || isZero))
        row.Set(fields::LANDSIZE, row.Text(fields::GLA));
}

void RepairWalk::Clean(RowEdit& row)
{
    m_found += CleanKeyAndAddress(row, [this](const QString& key) {
        return store::ReadRecord(m_desk.databook, key).has_value();
    });
}

std::function<void(RowEdit&)> RepairWalk::Rule()
{
    switch (m_repair) {
    case Repair::Recalc:
        return [this](RowEdit& row) { Recalculate(row); };
    case Repair::ClearAnchors:
        return [](RowEdit& row) {
            row.Set(fields::LATITUDE, {});
            row.Set(fields::LONGITUDE, {});
            row.Set(fields::ANCHORED, u"0"_s);
        };
    case Repair::ClearPhotos:
        return [this](RowEdit& row) {
            m_cleared += row.Text(fields::PHOTOS).isEmpty() ? 0 : 1;
            row.Set(fields::PHOTOS, {});
            row.Set(fields::FRONT, {});
        };
    case Repair::LandSize:
        return [this](RowEdit& row) { LandSize(row); };
    case Repair::IllegalInKeys:
        return [this](RowEdit& row) { Clean(row); };
    case Repair::IllegalInComments:
        return [this](RowEdit& row) { m_found += CleanTexts(row, m_textFields); };
    case Repair::MatchKey:
    case Repair::ProperCase:
    case Repair::UpperCase: {
        const AddressFrom from = m_repair == Repair::MatchKey     ? AddressFrom::Key
                                 : m_repair == Repair::ProperCase ? AddressFrom::ProperCase
                                                                  : AddressFrom::UpperCase;
        return [this, from](RowEdit& row) { CorrectAddress(row, from, m_desk.globals.addressCase); };
    }
    case Repair::DeleteBySale:
    case Repair::DeleteByLoad: {
        const QString field = m_repair == Repair::DeleteBySale ? fields::SALEDATE : fields::LOADDATE;
        return [this, field](RowEdit& row) {
            if (TestRec(row.Text(field), m_deletion, m_today))
                row.Remove();
        };
    }
    }
    return {};
}

/// The fields that the most frequent repairs look at, so that a record of 150 fields is not read for ten of them.
QStringList RepairWalk::Reads() const
{
    switch (m_repair) {
    case Repair::Recalc:
        return {fields::CENTRALKEY, fields::SELLINGPR,  fields::GLA,      fields::PRICEGLA,   fields::YEARBUILT,
                fields::AGE,        fields::SALEDATE,   fields::SALEFLD,  fields::SALESERIAL, fields::LOADDATE,
                fields::LOADSERIAL, fields::PHOTOS,     fields::FRONT};
    case Repair::ClearAnchors:
        return {fields::CENTRALKEY, fields::LATITUDE, fields::LONGITUDE, fields::ANCHORED};
    case Repair::ClearPhotos:
        return {fields::CENTRALKEY, fields::PHOTOS, fields::FRONT};
    case Repair::LandSize:
        return {fields::CENTRALKEY, fields::APPRSLTYPE, fields::LANDSIZE, fields::GLA};
    default:
        return {};
    }
}

/// Nobody asks for the files again once the records are gone, so they are the last step and can't be stopped.
QString RepairWalk::DeletePictures(const LineFile& stems)
{
    if (stems.Count() == 0)
        return {};
    NamedPictures named;
    try {
        named = NamedPictures(m_desk.databook);
    } catch (const RuntimeError&) {
        return u' ' + kPicturesLeft(stems.Count()); // the records are gone; which files others name can't be told
    }
    if (!m_desk.disk.DirExists(m_desk.globals.G_PhotoDir))
        return u' ' + kPicturesLeft(stems.Count()); // it went meanwhile, with all that is in it
    qint64 left = 0;
    for (qint64 i = 0; i < stems.Count(); ++i) {
        static_cast<void>(m_step(kDeletingPictures, i, stems.Count()));
        if (named.Has(stems.Line(i)))
            continue;
        left += photos::DeletePhotos(m_desk.ports, m_desk.disk, m_desk.globals.G_PhotoDir, {stems.Line(i)}).size();
    }
    return left == 0 ? QString() : u' ' + kPicturesLeft(left);
}

QString RepairWalk::EndMessage()
{
    switch (m_repair) {
    case Repair::ClearPhotos:
        return kCleared.arg(kRecordsCount(m_cleared));
    case Repair::IllegalInKeys:
    case Repair::IllegalInComments:
        if (m_found == 0)
            return kNoneIllegal;
        m_desk.ports.prompter.Box(u"Data Maintenance"_s, kNumberIllegal.arg(m_found));
        return kEndIllegal.arg(m_found);
    case Repair::DeleteBySale:
        return kEndSale.arg(m_deletion.date);
    case Repair::DeleteByLoad:
        return kEndLoad.arg(m_deletion.date);
    default:
        return m_text.end;
    }
}

RepairResult RepairWalk::Run()
{
    store::DataSource* source = &m_desk.databook;
    if (m_repair == Repair::IllegalInComments) {
        m_comments = std::make_unique<store::DataSource>(m_desk.databook.Engine(), u"datComment"_s);
        m_comments->Open(comments::CommentFilePath(m_desk.globals), kTable, store::SourceKind::Table);
        for (const engine::Field& field : m_comments->Fields())
            if (field.type == engine::FieldType::Text)
                m_textFields.append(field.name);
        source = m_comments.get();
    }
    m_account.Begin(u"%1, %2, %3"_s.arg(m_text.what, m_desk.ports.clock.Now().toString(u"MM/dd/yyyy hh:mm"_s),
                                        source->DatabaseName()));
    // Nobody could tell afterwards which files belonged to the records that are gone.
    if (DeletesByDate(m_repair) && !m_desk.disk.DirExists(m_desk.globals.G_PhotoDir) &&
        NamedPictures(m_desk.databook).Any())
        throw RuntimeError(error::kPathNotFound, kNoPhotoDirectory.arg(m_desk.globals.G_PhotoDir));
    const QString gauge = Gauge();
    Walk walk(*source, m_account, m_text.what + u": %1"_s, Reads());
    const auto step = [&](qint64 done, qint64 of) { return m_step(gauge, done, of); };
    if (!walk.Run(step, Rule()))
        return {RepairEnd::Stopped, kStopped};
    // A correction of addresses takes a record without a key out; its question says nothing of pictures.
    const QString left = DeletesByDate(m_repair) ? DeletePictures(walk.Pictures()) : QString();
    return {RepairEnd::Done, EndMessage() + left};
}

} // namespace

std::span<const RepairText> RepairTexts()
{
    using enum Repair;
    using forms::Icon;
    static const RepairText kTexts[] = {
        {Recalc, "recalc"_L1, u"Recalculate"_s, kAskRecalc, Icon::Exclamation, kGaugeRecalc, kEndRecalc},
        {ClearAnchors, "clear-anchors"_L1, u"Clear anchors"_s, kAskAnchors, Icon::Question, kGaugeAnchors, kEndAnchors},
        {ClearPhotos, "clear-photos"_L1, u"Clear photos"_s, kAskPhotos, Icon::Question, kGaugePhotos, {}},
        {LandSize, "land-size"_L1, u"Correct land sizes"_s, kAskLandSize, Icon::Question, kGaugeLandSize, kEndLandSize},
        {IllegalInKeys, "clean-keys"_L1, u"Clean keys and addresses"_s, kAskIllegal.arg(kKeyAndAddress), Icon::Question,
         kGaugeIllegal, {}},
        {IllegalInComments, "clean-comments"_L1, u"Clean comments"_s, kAskIllegal.arg(kComments), Icon::Question,
         kGaugeIllegal, {}},
        {MatchKey, "match-key"_L1, u"Match addresses to keys"_s, kAskMatchKey, Icon::Question, kGaugeAddress, kEndAddress},
        {ProperCase, "proper-case"_L1, u"Addresses in proper case"_s, kAskProperCase, Icon::Question, kGaugeAddress,
         kEndAddress},
        {UpperCase, "upper-case"_L1, u"Addresses in upper case"_s, kAskUpperCase, Icon::Question, kGaugeAddress,
         kEndAddress},
        {DeleteBySale, "delete-by-sale"_L1, u"Delete by sale date"_s, {}, Icon::Question, kTitleSale, {}},
        {DeleteByLoad, "delete-by-load"_L1, u"Delete by load date"_s, {}, Icon::Question, kTitleLoad, {}},
    };
    return kTexts;
}

const RepairText& TextOf(Repair repair)
{
    const auto texts = RepairTexts();
    return *std::ranges::find(texts, repair, &RepairText::repair);
}

bool DeletesByDate(Repair repair)
{
    return repair == Repair::DeleteBySale || repair == Repair::DeleteByLoad;
}

bool AskRepair(forms::Prompter& prompter, Repair repair, const Deletion& deletion)
{
    const RepairText& text = TextOf(repair);
    QString question = text.question;
    if (repair == Repair::DeleteBySale)
        question = deletion.pending ? kAskAllPending : kAskSale.arg(deletion.date);
    else if (repair == Repair::DeleteByLoad)
        question = deletion.pending ? kAskAllLoads : kAskLoad.arg(deletion.date);
    return prompter.MsgBox(forms::Buttons::YesNo, text.icon, u"Data Maintenance"_s, question) == forms::Answer::Yes;
}

RepairResult RunRepair(const RepairDesk& desk, Repair repair, const Deletion& deletion, Account& account,
                       const RepairStep& step)
{
    const common::RoutineScope scope{"Maintenance"};
    return RepairWalk(desk, repair, deletion, account, step).Run();
}

} // namespace vasclip::upkeep

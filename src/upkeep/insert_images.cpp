#include "upkeep/insert_images.h"

#include "common/paths.h"
#include "photos/photo_files.h"
#include "photos/photo_list.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/long_fields.h"
#include "store/transaction.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kPiece = 32768;
constexpr int kBetweenTurns = 64; ///< pieces of a picture
const QString kFrontView = u"FRONT VIEW"_s;
const QString kWords = u"Put the picture of %1 into its row"_s;
const QString kStepWords = u"Picture of %1"_s;
const QString kNotThere = u"%1: the file %2 is not there"_s;
const QString kNoName = u"%1: \"%2\" is no name of a picture"_s;
const QString kEmpty = u"%1: the file %2 is empty"_s;
const QString kNotRead = u"%1: %2"_s;

enum class PhotoText { Rewrite, Keep };

/// @return false if it was stopped
bool AppendFile(store::DataSource& data, const files::Disk& disk, const QString& file, const std::function<bool()>& goOn)
{
    int pieces = 0;
    bool whole = true;
    disk.ReadPieces(file, [&](QByteArrayView piece) {
        for (qsizetype at = 0; at < piece.size(); at += kPiece) {
            if (++pieces % kBetweenTurns == 0 && !goOn())
                return whole = false;
            const QByteArrayView some = piece.sliced(at, std::min(kPiece, piece.size() - at));
            store::AppendChunk(data, fields::FRONTPHOTO, some.toByteArray());
        }
        return true;
    });
    return whole;
}

class Images
{
public:
    Images(const TransferDesk& desk, store::DataSource& data, PhotoText photoText)
        : m_desk(desk)
        , m_data(data)
        , m_photoText(photoText)
        , m_keyed(data.FieldIndex(fields::CENTRALKEY) >= 0)
    {}

    [[nodiscard]] QString Key() const
    {
        return m_keyed ? text::Trim(m_data.Value(fields::CENTRALKEY).toString()) : QString();
    }

    void TakeRecord(InsertedImages& result, const std::function<bool()>& goOn)
    {
        const photos::PhotoList photos(photos::ParsePhotos(m_data.Value(fields::PHOTOS).toString()));
        const QString stem = photos.StemOf(kFrontView);
        if (stem.isEmpty()) {
            ++result.without;
            return;
        }
        if (!photos::IsPlainStem(stem)) {
            result.notIn.append(kNoName.arg(Key(), stem));
            return;
        }
        const QString file = common::CkRSlash(m_desk.globals.G_PhotoDir) + stem + u".jpg"_s;
        if (!m_desk.Disk().FileExists(file)) {
            const bool empty = m_desk.Disk().Found(file, files::ReadOnly | files::Hidden);
            result.notIn.append((empty ? kEmpty : kNotThere).arg(Key(), file));
            return;
        }
        store::Change change(m_data, kWords);
        try {
            result.stopped = !AppendFile(m_data, m_desk.Disk(), file, goOn);
        } catch (const RuntimeError& failure) {
            result.notIn.append(kNotRead.arg(Key(), failure.Description()));
            return;
        }
        if (result.stopped)
            return;
        if (m_photoText == PhotoText::Rewrite)
            change.Set(fields::PHOTOS, photos::PhotoList({{kFrontView, stem}}).Text());
        change.Store();
        ++result.in;
    }

private:
    const TransferDesk& m_desk;
    store::DataSource& m_data;
    PhotoText m_photoText;
    bool m_keyed;
};

InsertedImages Insert(const TransferDesk& desk, const QString& file, const QString& table, PhotoText photoText,
                      const WorkStep& step)
{
    InsertedImages result;
    store::DataSource data(desk.Engine(), u"DATTEMP"_s);
    data.Open(file, table, store::SourceKind::Query);
    const qint64 count = data.Count();
    if (count == 0 || data.FieldIndex(fields::PHOTOS) < 0)
        return result;
    store::Transaction whole(data);
    Images images(desk, data, photoText);
    data.MoveFirst();
    for (qint64 done = 0; !data.AtEnd(); ++done, data.MoveNext()) {
        const auto goOn = [&] { return step(done, count, kStepWords.arg(images.Key())); };
        result.stopped = !goOn();
        if (!result.stopped)
            images.TakeRecord(result, goOn);
        if (result.stopped)
            return result;
    }
    whole.Commit();
    return result;
}

} // namespace

InsertedImages InsertImages(const TransferDesk& desk, const QString& file, const QString& table, const WorkStep& step)
{
    return Insert(desk, file, table, PhotoText::Rewrite, step);
}

InsertedImages InsertImages2(const TransferDesk& desk, const QString& file, const QString& table, const WorkStep& step)
{
    return Insert(desk, file, table, PhotoText::Keep, step);
}

} // namespace vasclip::upkeep

#include "upkeep/insert_images.h"

#include "common/paths.h"
#include "photos/photo_files.h"
#include "photos/photo_list.h"
#include "platform/engine/long_source.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/transaction.h"

#include <QFile>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kBetweenTurns = 2 << 20; ///< bytes of a picture
const QString kFrontView = u"FRONT VIEW"_s;
const QString kWords = u"Put the picture of %1 into its row"_s;
const QString kStepWords = u"Picture of %1"_s;
const QString kNotThere = u"%1: the file %2 is not there"_s;
const QString kNoName = u"%1: \"%2\" is no name of a picture"_s;
const QString kEmpty = u"%1: the file %2 is empty"_s;
const QString kNotRead = u"%1: the file %2 can't be read; make sure that you have rights to it"_s;
const QString kCut = u"%1: the file %2 could not be read to its end"_s;

enum class PhotoText { Rewrite, Keep };

/// A picture on its way into its row: the file is read while the record is stored.
class PictureFile
{
public:
    struct Stopped
    {};

    PictureFile(const files::Disk& disk, const QString& file, const std::function<bool()>& goOn)
        : m_file(disk.ToNative(file))
        , m_goOn(goOn)
    {}

    /// @return false if the file can't be read
    [[nodiscard]] bool Open() { return m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    [[nodiscard]] bool IsCut() const { return m_cut; } ///< what was read of it was less than there should be
    /// It does not outlive this. Its reading throws Stopped.
    [[nodiscard]] QVariant Value()
    {
        return engine::LongValue({m_file.size(), [this](qint64 offset, qint64 bytes) { return Read(offset, bytes); }});
    }

private:
    QByteArray Read(qint64 offset, qint64 bytes)
    {
        if (offset / kBetweenTurns > m_turned && !m_goOn())
            throw Stopped();
        m_turned = offset / kBetweenTurns;
        QByteArray piece = m_file.seek(offset) ? m_file.read(bytes) : QByteArray();
        m_cut = m_cut || piece.size() < bytes;
        return piece;
    }

    QFile m_file;
    const std::function<bool()>& m_goOn;
    qint64 m_turned = 0;
    bool m_cut = false;
};

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
        PictureFile picture(m_desk.Disk(), file, goOn);
        if (!picture.Open()) {
            result.notIn.append(kNotRead.arg(Key(), file));
            return;
        }
        try {
            Store(picture, stem);
            ++result.in;
        } catch (const PictureFile::Stopped&) {
            result.stopped = true;
        } catch (const RuntimeError&) {
            if (!picture.IsCut())
                throw;
            result.notIn.append(kCut.arg(Key(), file));
        }
    }

private:
    void Store(PictureFile& picture, const QString& stem)
    {
        store::Change change(m_data, kWords);
        change.Set(fields::FRONTPHOTO, picture.Value());
        if (m_photoText == PhotoText::Rewrite)
            change.Set(fields::PHOTOS, photos::PhotoList({{kFrontView, stem}}).Text());
        change.Store();
    }

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

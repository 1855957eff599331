#include "platform/sheet/package.h"

#include "platform/text/runtime_error.h"

#include <QFile>
#include <QFileInfo>

#include <zip.h>

#include <algorithm>

namespace vasclip::sheet {

using namespace Qt::StringLiterals;

namespace {

const QString kNoSheet = u"it is no spreadsheet file of the kind .xlsx"_s;
const QString kCut = u"it is damaged or was cut short (%1)"_s;
const QString kEncrypted = u"it is protected by a password; save it without one"_s;
const QString kOldKind = u"it is a spreadsheet of the old kind .xls; save it as .xlsx or .csv"_s;
const QString kOldOther = u"it is a document of an old kind; save it as .xlsx or .csv"_s;
const QString kTooLarge = u"it has more than %1 MB"_s;
const QString kPartTooLarge = u"%2 in it has more than %1 MB when it is unpacked"_s;
const QString kManyParts = u"it has more than %1 parts"_s;
const QString kNoPart = u"%1 is missing in it"_s;

QString TooLarge(const QString& part)
{
    return kPartTooLarge.arg(Package::kLargestPart >> 20).arg(part);
}

/// The letters of a name as old documents have them in their directory.
QByteArray Wide(const char* name)
{
    QByteArray wide;
    for (; *name != 0; ++name)
        wide.append(*name).append('\0');
    return wide;
}

/// Which document is it that begins with the mark of the old container?
QString WordsOfOld(const QByteArray& bytes)
{
    if (bytes.contains(Wide("EncryptedPackage")))
        return kEncrypted;
    return bytes.contains(Wide("Workbook")) || bytes.contains(Wide("Book")) ? kOldKind : kOldOther;
}

} // namespace

void Refuse(const QString& file, const QString& why)
{
    throw RuntimeError(error::kUnrecognisedDatabase, u"%1 can't be read: %2"_s.arg(QFileInfo(file).fileName(), why));
}

Part::Part(zip_file* file, QString name)
    : m_file(file)
    , m_name(std::move(name))
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

Part::~Part()
{
    zip_fclose(m_file);
}

qint64 Part::readData(char* data, qint64 size)
{
    const zip_int64_t read = m_fault.isEmpty() ? zip_fread(m_file, data, static_cast<zip_uint64_t>(size)) : -1;
    m_taken += std::max<zip_int64_t>(read, 0);
    m_ended = read <= 0;
    // What the directory says of a part's size is checked here, against what comes out of it.
    if (read >= 0 && m_taken <= Package::kLargestPart)
        return read;
    m_ended = true;
    if (m_fault.isEmpty())
        m_fault = read < 0 ? kCut.arg(m_name) : TooLarge(m_name);
    return -1;
}

void Package::Closer::operator()(zip* archive) const
{
    zip_discard(archive);
}

Package::Package(const QString& file)
    : m_file(file)
{
    QFile disk(file);
    if (!disk.exists())
        throw RuntimeError(error::kFileNotFound, u"File %1 does not exist"_s.arg(QFileInfo(file).fileName()));
    if (disk.size() > kLargestFile)
        Refuse(file, kTooLarge.arg(kLargestFile >> 20));
    if (!disk.open(QIODevice::ReadOnly))
        throw RuntimeError(error::kPathFileAccess,
                           u"The file %1 could not be read: %2"_s.arg(QFileInfo(file).fileName(), disk.errorString()));
    m_bytes = disk.readAll();
    if (m_bytes.startsWith(QByteArray::fromHex("d0cf11e0a1b11ae1")))
        Refuse(file, WordsOfOld(m_bytes));
    if (!m_bytes.startsWith("PK"))
        Refuse(file, kNoSheet);
    zip_error_t failure;
    zip_error_init(&failure);
    zip_source_t* source =
        zip_source_buffer_create(m_bytes.constData(), static_cast<zip_uint64_t>(m_bytes.size()), 0, &failure);
    m_archive.reset(source == nullptr ? nullptr : zip_open_from_source(source, ZIP_RDONLY, &failure));
    const QString why = QString::fromUtf8(zip_error_strerror(&failure));
    zip_error_fini(&failure);
    if (!m_archive) {
        zip_source_free(source);
        Refuse(file, kCut.arg(why));
    }
    if (zip_get_num_entries(m_archive.get(), 0) > kMostParts)
        Refuse(file, kManyParts.arg(kMostParts));
}

Package::~Package() = default;

qint64 Package::PlaceOf(const QString& part) const
{
    return zip_name_locate(m_archive.get(), part.toUtf8().constData(), ZIP_FL_NOCASE);
}

bool Package::Has(const QString& part) const
{
    return PlaceOf(part) >= 0;
}

qint64 Package::SizeOf(const QString& part) const
{
    zip_stat_t known;
    zip_stat_init(&known);
    const qint64 place = PlaceOf(part);
    if (place < 0 || zip_stat_index(m_archive.get(), static_cast<zip_uint64_t>(place), 0, &known) != 0)
        return 0;
    return static_cast<qint64>(std::min<zip_uint64_t>(known.size, std::numeric_limits<qint64>::max()));
}

std::unique_ptr<Part> Package::Open(const QString& part) const
{
    const qint64 place = PlaceOf(part);
    if (place < 0)
        Refuse(m_file, kNoPart.arg(part));
    if (SizeOf(part) > kLargestPart)
        Refuse(m_file, TooLarge(part));
    zip_file_t* opened = zip_fopen_index(m_archive.get(), static_cast<zip_uint64_t>(place), 0);
    if (opened == nullptr) {
        const int code = zip_error_code_zip(zip_get_error(m_archive.get()));
        Refuse(m_file, code == ZIP_ER_NOPASSWD || code == ZIP_ER_ENCRNOTSUPP ? kEncrypted : kCut.arg(part));
    }
    return std::make_unique<Part>(opened, part);
}

} // namespace vasclip::sheet

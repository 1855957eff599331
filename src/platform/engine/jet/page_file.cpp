#include "platform/engine/jet/page_file.h"

#include "platform/engine/errors.h"
#include "platform/engine/jet/rc4.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t kPagesKept = 512;
constexpr qsizetype kMaskStart = 0x18;
constexpr quint32 kCatalogue = 2; ///< the page that every file defines its list of tables on
const QByteArray kDefinitionBegin("\x02\x01", 2);

} // namespace

bool IsGenuineHeader(const QByteArray& begin)
{
    return begin.mid(4, 15) == "Standard Jet DB" || begin.mid(4, 15) == "Standard ACE DB";
}

PageFile::PageFile(const QString& native, const QString& shown)
    : m_file(native)
    , m_shown(shown)
    , m_kept(kPagesKept)
{
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RuntimeError(
            error::kCouldNotOpenFile,
            u"The file %1 can not be opened. Make sure that you have the right to read it"_s.arg(shown));
    m_size = m_file.size();
    ReadHeader();
    m_pages = static_cast<quint32>(std::min<qint64>(m_size / Shape().pageSize, 0xFFFFFF));
    if (m_header.pageKey != 0 && m_pages > kCatalogue && !Page(kCatalogue).startsWith(kDefinitionBegin))
        throw RuntimeError(error::kNotValidPassword,
                           u"The Access database %1 is encrypted, so that nothing in it can be read here. It is not "
                           "damaged. Take its encryption off in the program that made it (there it is called a "
                           "database password or encoding), and try again"_s.arg(shown));
}

void PageFile::ReadHeader()
{
    QByteArray page = m_file.read(kJet3.pageSize);
    if (!IsGenuineHeader(page))
        throw RuntimeError(error::kUnrecognisedDatabase, u"The file %1 is not an Access database"_s.arg(m_shown));
    if (page.size() < kJet3.pageSize)
        throw RuntimeError(
            error::kCorruptDatabase,
            u"The file %1 is damaged: it breaks off in its first %2 bytes. Restore it from a backup"_s.arg(
                m_shown, QString::number(page.size())));
    m_header.ace = page.mid(9, 3) == "ACE";
    m_header.version = qFromLittleEndian<quint32>(page.constData() + 0x14);
    Mask(page.data() + kMaskStart, m_header.version == 0 ? 126 : 128, QByteArray("\xC7\xDA\x39\x6B", 4));
    const Bytes bytes(page);
    m_header.codePage = bytes.U16(0x3C);
    m_header.pageKey = bytes.U32(0x3E);
}

QByteArray PageFile::Page(quint32 number)
{
    Kept& kept = m_kept[number % kPagesKept];
    if (kept.number == number && !kept.bytes.isEmpty())
        return kept.bytes;
    if (number >= m_pages)
        throw Damaged(u"page %1 is not there: the file has %2"_s.arg(QString::number(number),
                                                                    QString::number(m_pages)));
    const int size = Shape().pageSize;
    QByteArray page(size, Qt::Uninitialized);
    if (!m_file.seek(static_cast<qint64>(number) * size) || m_file.read(page.data(), size) != size)
        throw Damaged(u"page %1 can not be read from the disk"_s.arg(number));
    if (m_header.pageKey != 0 && number != 0) {
        QByteArray key(4, '\0');
        qToLittleEndian(m_header.pageKey ^ number, key.data());
        Mask(page.data(), size, key);
    }
    kept = {number, page};
    return page;
}

} // namespace vasclip::engine::jet

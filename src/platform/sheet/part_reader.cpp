#include "platform/sheet/part_reader.h"

#include <algorithm>

namespace vasclip::sheet {

using namespace Qt::StringLiterals;

namespace {

const QString kWhere = u"%1, line %2: %3"_s;
const QString kEntities = u"it defines texts of its own, which spreadsheets don't"_s;
const QString kDeep = u"its elements lie more than %1 deep"_s;
const QString kLong = u"one piece of it has more than %1 MB"_s;

} // namespace

PartReader::Rationed::Rationed(std::unique_ptr<Part> inner)
    : m_inner(std::move(inner))
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 PartReader::Rationed::readData(char* data, qint64 size)
{
    const qint64 read = m_inner->read(data, std::min(size, std::max<qint64>(m_left, 0)));
    if (read > 0) {
        m_left -= read;
        m_taken += read;
    }
    return read;
}

PartReader::PartReader(const Package& package, const QString& part)
    : m_file(package.File())
    , m_part(part)
    , m_device(std::make_unique<Rationed>(package.Open(part)))
    , m_xml(m_device.get())
{
    m_xml.setNamespaceProcessing(true);
}

void PartReader::Fail(const QString& why) const
{
    Refuse(m_file, kWhere.arg(m_part).arg(m_xml.lineNumber()).arg(why));
}

bool PartReader::Next()
{
    m_device->Renew();
    switch (m_xml.readNext()) {
    case QXmlStreamReader::DTD:
        Fail(kEntities);
    case QXmlStreamReader::StartElement:
        if (++m_depth > kDeepest)
            Fail(kDeep.arg(kDeepest));
        break;
    case QXmlStreamReader::EndElement:
        --m_depth;
        break;
    case QXmlStreamReader::EndDocument:
        return false;
    case QXmlStreamReader::Invalid:
        if (!m_device->Fault().isEmpty())
            Refuse(m_file, m_device->Fault());
        Fail(m_device->Exhausted() ? kLong.arg(kLongestPiece >> 20) : m_xml.errorString());
    default:
        break;
    }
    return true;
}

QString PartReader::Attribute(QStringView name) const
{
    const auto attributes = m_xml.attributes();
    const auto found = std::find_if(attributes.cbegin(), attributes.cend(),
                                    [name](const QXmlStreamAttribute& one) { return one.name() == name; });
    return found == attributes.cend() ? QString() : found->value().toString();
}

QString PartReader::Text()
{
    QString text;
    int phonetic = 0;
    for (const int outside = m_depth - 1; m_depth > outside && Next();) {
        if (IsStart() || IsEnd())
            phonetic += Name() == "rPh"_L1 ? (IsStart() ? 1 : -1) : 0;
        else if (m_xml.isCharacters() && phonetic == 0)
            text += m_xml.text();
        if (text.size() > kLongestPiece)
            Fail(kLong.arg(kLongestPiece >> 20));
    }
    return text;
}

} // namespace vasclip::sheet

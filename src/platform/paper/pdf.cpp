#include "platform/paper/pdf.h"

#include "platform/text/runtime_error.h"

#include <QPainter>
#include <QPdfWriter>

namespace vasclip::paper {

using namespace Qt::StringLiterals;

namespace {

const QString kFull = u"the disk is full or takes no more"_s;

/// Hands on what a PDF is made of, with a time of creation that is the program's. What is written in its
/// place has the same length, since a PDF counts its bytes.
class DatedFile : public QIODevice
{
public:
    DatedFile(QIODevice& file, const QDateTime& made)
        : m_file(file)
        , m_made(made.toString(u"yyyyMMddHHmmss"_s).toLatin1())
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }
    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool Failed() const { return m_failed; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 length) override
    {
        static const QByteArray kDate("/CreationDate (D:");
        QByteArray bytes = QByteArray::fromRawData(data, length);
        if (const qsizetype at = m_dated ? -1 : bytes.indexOf(kDate); at >= 0) {
            bytes.replace(at + kDate.size(), m_made.size(), m_made);
            m_dated = true;
        }
        // The writer looks at no result: what fails once has failed.
        m_failed = m_failed || m_file.write(bytes) != length;
        return length;
    }

private:
    QIODevice& m_file;
    QByteArray m_made;
    bool m_dated = false;
    bool m_failed = false;
};

[[noreturn]] void Fail(const QString& shown)
{
    throw RuntimeError(error::kDiskFull, u"%1 can't be written: %2. Nothing was stored"_s.arg(shown, kFull));
}

} // namespace

Made WritePdf(QIODevice& into, const QString& shown, const Sheet& sheet, const PdfFacts& facts,
              const std::function<std::optional<Page>()>& next, PictureSource& pictures,
              const std::function<bool()>& goOn)
{
    DatedFile dated(into, facts.made);
    QPdfWriter writer(&dated);
    writer.setResolution(kInch);
    writer.setPageLayout(sheet.Layout());
    writer.setTitle(facts.title);
    writer.setCreator(u"Vasclip"_s);
    QPainter painter(&writer);
    bool first = true;
    while (goOn()) {
        const std::optional<Page> page = next();
        if (!page) {
            painter.end();
            if (dated.Failed())
                Fail(shown);
            return Made::Whole;
        }
        if (!first)
            writer.newPage();
        first = false;
        Paint(painter, *page, 1, pictures);
        if (dated.Failed())
            break;
    }
    painter.end();
    if (dated.Failed())
        Fail(shown);
    return Made::Stopped;
}

} // namespace vasclip::paper

#pragma once

#include "platform/sheet/package.h"

#include <QXmlStreamReader>

namespace vasclip::sheet {

/// The XML of one part, piece by piece. Names come without their prefix: writers differ in these. Definitions of entities, a
/// depth or a single piece beyond what spreadsheets have are refused, so that no part of a file takes more than its share.
class PartReader
{
public:
    /// @throws RuntimeError 3343 as Package::Open
    PartReader(const Package& package, const QString& part);

    /// On to the next piece. @return false at the end. @throws RuntimeError 3343 with the line for what is no XML
    bool Next();
    [[nodiscard]] bool IsStart() const { return m_xml.isStartElement(); }
    [[nodiscard]] bool IsEnd() const { return m_xml.isEndElement(); }
    [[nodiscard]] QStringView Name() const { return m_xml.name(); }
    /// "" for one that is not there; with any prefix.
    [[nodiscard]] QString Attribute(QStringView name) const;
    /// The text up to the end of the element that was just begun, without what is phonetic. @throws as Next
    [[nodiscard]] QString Text();
    [[nodiscard]] qint64 At() const { return m_device->Taken(); } ///< bytes that were unpacked so far
    [[noreturn]] void Fail(const QString& why) const;             ///< names the part and the line

    static constexpr int kDeepest = 64;
    static constexpr qint64 kLongestPiece = 16 << 20;

private:
    /// Ends a piece that would not end by itself.
    class Rationed : public QIODevice
    {
    public:
        explicit Rationed(std::unique_ptr<Part> inner);
        void Renew() { m_left = kLongestPiece; }
        [[nodiscard]] bool Exhausted() const { return m_left <= 0; }
        [[nodiscard]] qint64 Taken() const { return m_taken; }
        [[nodiscard]] const QString& Fault() const { return m_inner->Fault(); }
        [[nodiscard]] bool isSequential() const override { return true; }
        [[nodiscard]] bool atEnd() const override { return Exhausted() || m_inner->atEnd(); }

    protected:
        qint64 readData(char* data, qint64 size) override;
        qint64 writeData(const char*, qint64) override { return -1; }

    private:
        std::unique_ptr<Part> m_inner;
        qint64 m_left = kLongestPiece;
        qint64 m_taken = 0;
    };

    QString m_file;
    QString m_part;
    std::unique_ptr<Rationed> m_device;
    QXmlStreamReader m_xml;
    int m_depth = 0;
};

} // namespace vasclip::sheet

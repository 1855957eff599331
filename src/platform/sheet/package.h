#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <memory>

struct zip;
struct zip_file;

namespace vasclip::sheet {

/// What ends the reading of a spreadsheet file, in words with the file's name. @throws RuntimeError 3343
[[noreturn]] void Refuse(const QString& file, const QString& why);

/// A part of a package while it is unpacked. It throws nothing, since what reads it is not made for that.
class Part : public QIODevice
{
public:
    Part(zip_file* file, QString name);
    ~Part() override;
    [[nodiscard]] const QString& Fault() const { return m_fault; } ///< why it ended before its end; "" if it didn't
    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool atEnd() const override { return m_ended; }

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    zip_file* m_file;
    QString m_name;
    QString m_fault;
    qint64 m_taken = 0;
    bool m_ended = false;
};

/// A packed file of several parts, held in memory as it is on the disk.
class Package
{
public:
    /// @param file  native path. @throws RuntimeError 53, 75 of the disk, 3343 for what is no package
    explicit Package(const QString& file);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    [[nodiscard]] const QString& File() const { return m_file; }
    [[nodiscard]] bool Has(const QString& part) const;
    /// A part from its beginning; the package outlives it. @throws RuntimeError 3343: not there, encrypted, too large
    [[nodiscard]] std::unique_ptr<Part> Open(const QString& part) const;
    [[nodiscard]] qint64 SizeOf(const QString& part) const; ///< unpacked, as the file says; 0 for one that is not there

    static constexpr qint64 kLargestFile = qint64(256) << 20;
    static constexpr qint64 kLargestPart = qint64(1) << 30; ///< a packed gigabyte of nothing is a megabyte
    static constexpr qint64 kMostParts = 20000;

private:
    [[nodiscard]] qint64 PlaceOf(const QString& part) const;

    QString m_file;
    QByteArray m_bytes;
    struct Closer
    {
        void operator()(zip* archive) const;
    };
    std::unique_ptr<zip, Closer> m_archive;
};

} // namespace vasclip::sheet

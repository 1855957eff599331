// The first page of a new file.

#include "platform/engine/jet/rc4.h"
#include "platform/engine/jet/system_tables.h"

namespace vasclip::engine::jet {

namespace {

constexpr int kMaskStart = 0x18;
constexpr int kMaskSize = 128;
constexpr int kUsersStart = 0xE00;
constexpr int kUserSlots = 255;

} // namespace

QByteArray HeaderPage()
{
    // Creation date, build number and the identifiers in the system tables belong together: never change one alone.
    static const QByteArray kCreated("\x3E\x85\xD3\x3B\x3E\xAB\xE4\x40", 8);
    constexpr quint32 kBuild = 0x261C;
    constexpr quint32 kCreatedDay = 0xA559; // the whole days of that date
    QByteArray page(kJet4.pageSize, '\0');
    const auto put32 = [&](int at, quint32 value) { qToLittleEndian(value, page.data() + at); };
    const auto put16 = [&](int at, quint16 value) { qToLittleEndian(value, page.data() + at); };
    put32(0x00, 0x00000100);
    page.replace(0x04, 15, "Standard Jet DB");
    put32(0x14, 1);
    put32(0x18, RowPointer{kFreeMapsPage, 0}.Stored());
    put32(0x1C, RowPointer{kFreeMapsPage, 1}.Stored());
    for (quint32 table = 0; table < 4; ++table)
        put32(0x20 + 4 * static_cast<int>(table), kObjectsPage + table);
    put16(0x3C, 1252);
    for (int i = 0; i < 10; ++i)
        put32(0x42 + 4 * i, kCreatedDay); // no password
    put32(0x6A, kBuild);
    put32(0x6E, 0x409);
    page.replace(0x72, 8, kCreated);
    Mask(page.data() + kMaskStart, kMaskSize, QByteArray("\xC7\xDA\x39\x6B", 4));
    put32(0x98, 0x654);
    page.replace(0x9C, 3, "4.0");
    put16(kUsersStart, 0x0101);
    for (int i = 1; i <= kUserSlots; ++i)
        put16(kUsersStart + 2 * i, 0x0100);
    return page;
}

} // namespace vasclip::engine::jet

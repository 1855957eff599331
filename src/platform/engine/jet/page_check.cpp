#include "platform/engine/jet/page_check.h"

#include "platform/engine/jet/data_page.h"
#include "platform/text/counted.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kBytes{u"byte is"_s, u"bytes are"_s};

void CheckRows(PageFile& file, quint32 number)
{
    const DataPage page(file, number);
    const Format& format = file.Shape();
    int start = format.pageSize;
    for (int row = 0; row < page.Rows(); ++row) {
        static_cast<void>(page.Row(row));
        start = page.Entry(row) & kRowStart;
    }
    const int free = Bytes(page.Page()).U16(2);
    const int room = start - format.rowOffsets - 2 * page.Rows();
    if (free != room)
        throw Damaged(u"%1 free on it, and it claims %2"_s.arg(kBytes(room), QString::number(free)));
}

} // namespace

void CheckPages(PageFile& file, Findings& findings)
{
    for (quint32 number = 1; number < file.Pages(); ++number) {
        try {
            if (const QByteArray page = file.Page(number); Bytes(page).U8(0) == kDataPage)
                CheckRows(file, number);
        } catch (const Damaged& damage) {
            findings.Add({}, {number, 0}, {}, u"page %1: %2"_s.arg(QString::number(number), damage.Description()));
        }
    }
}

} // namespace vasclip::engine::jet

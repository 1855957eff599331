#include "upkeep/account.h"

#include "platform/text/text.h"
#include "upkeep/draft_file.h"
#include "upkeep/target_file.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kChanged = "changed"_L1;
constexpr auto kDeleted = "deleted"_L1;
constexpr auto kRemark = "note"_L1;
const QString kColumns = u"RECORD\tWHAT\tFIELD\tBEFORE\tAFTER"_s;

constexpr qsizetype kMostBytes = 3; ///< that a letter takes in a line

/// Writes a text as one of the columns of a line; most are a few plain letters, which need no conversion.
/// @param to  where there is room for kMostBytes a letter. @return where the line goes on
char* WriteColumn(char* to, QStringView text)
{
    const auto escaped = [&to](char letter) {
        *to++ = '\\';
        *to++ = letter;
    };
    for (const char16_t *at = text.utf16(), *end = at + text.size(); at != end; ++at) {
        const char16_t letter = *at;
        if (letter >= 0x80) {
            const char16_t* plain = std::find_if(at, end, [](char16_t one) { return one < 0x80; });
            const QByteArray wide = QStringView(at, plain).toUtf8();
            to = std::copy(wide.begin(), wide.end(), to);
            at = plain - 1;
        } else if (letter > u'\r' && letter != u'\\') {
            *to++ = static_cast<char>(letter);
        } else if (letter == u'\\') {
            escaped('\\');
        } else if (letter == u'\t') {
            escaped('t');
        } else if (letter == u'\r') {
            escaped('r');
        } else if (letter == u'\n') {
            escaped('n');
        } else {
            *to++ = static_cast<char>(letter);
        }
    }
    return to;
}

/// @param line  that is written over
void WriteLine(QByteArray& line, QStringView key, QLatin1StringView what, QStringView field, QStringView before,
               QStringView after)
{
    line.resize(kMostBytes * (key.size() + field.size() + before.size() + after.size()) + what.size() + 4);
    char* const begin = line.data();
    char* to = WriteColumn(begin, key);
    *to++ = '\t';
    to = std::copy(what.begin(), what.end(), to);
    for (const QStringView text : {field, before, after}) {
        *to++ = '\t';
        to = WriteColumn(to, text);
    }
    line.truncate(to - begin);
}

/// A text as the list shows it; a record's photos stand on lines of their own.
QString Shown(QString text)
{
    text.replace(u"\\r\\n"_s, u"; "_s);
    return u'"' + text + u'"';
}

} // namespace

void Account::Begin(const QString& heading)
{
    m_lines.Clear();
    m_heading = heading;
    m_seen = m_changed = m_removed = 0;
    m_fields.clear();
}

void Account::Add(QStringView key, QLatin1StringView what, QStringView field, QStringView before, QStringView after)
{
    WriteLine(m_line, key, what, field, before, after);
    m_lines.Append(m_line);
}

void Account::TakeBack()
{
    Begin(m_heading);
}

void Account::Changed(const QString& key, const QString& field, const QString& before, const QString& after)
{
    const QString was = text::Trim(before);
    const QString is = text::Trim(after);
    Add(key, kChanged, field, was, is);
    Tally& tally = m_fields[field];
    ++tally.changed;
    if (!was.isEmpty() && is.isEmpty())
        ++tally.emptied;
}

void Account::Deleted(const QString& key, const store::Record& record, const QStringList& fields)
{
    ++m_removed;
    for (const QString& field : fields)
        if (const QString held = record.Text(field); !held.isEmpty())
            Add(key, kDeleted, field, held, {});
}

void Account::Remark(const QString& key, const QString& words)
{
    Add(key, kRemark, {}, words, {});
}

QString Account::Summary() const
{
    if (m_seen == 0)
        return u"No record was changed."_s;
    QStringList fields;
    for (auto field = m_fields.cbegin(); field != m_fields.cend(); ++field)
        fields.append(field->emptied == 0 ? u"%1 %2"_s.arg(field.key()).arg(field->changed)
                                          : u"%1 %2 (%3 emptied)"_s.arg(field.key())
                                                .arg(field->changed)
                                                .arg(field->emptied));
    QString said = m_seen == 1 ? u"%1 of 1 record changed"_s.arg(m_changed)
                               : u"%1 of %2 records changed"_s.arg(m_changed).arg(m_seen);
    if (m_removed > 0)
        said += u", %1 deleted"_s.arg(m_removed);
    return fields.isEmpty() ? said + u'.' : said + u": "_s + fields.join(u", "_s) + u'.';
}

QString Account::Line(int index) const
{
    const QStringList parts = m_lines.Line(index).split(u'\t');
    const QString& key = parts.value(0);
    if (parts.value(1) == kRemark)
        return u"%1: %2"_s.arg(key, parts.value(3));
    if (parts.value(1) == kDeleted)
        return u"%1 deleted: %2 was %3"_s.arg(key, parts.value(2), Shown(parts.value(3)));
    return u"%1: %2 %3 → %4"_s.arg(key, parts.value(2), Shown(parts.value(3)), Shown(parts.value(4)));
}

void Account::Save(const files::Disk& disk, const QString& path) const
{
    NeedTextFile(disk, path);
    DraftFile draft(disk.ToNative(path), path);
    const auto write = [&](const QString& line) {
        const QByteArray bytes = line.toUtf8() + '\n';
        return draft.Out().write(bytes) == bytes.size();
    };
    bool whole = write(m_heading) && write(Summary()) && write({}) && write(kColumns);
    for (qint64 i = 0; whole && i < m_lines.Count(); ++i)
        whole = write(m_lines.Line(i));
    if (!whole)
        FailWriting(path, draft.Out());
    draft.Finish();
}

} // namespace vasclip::upkeep

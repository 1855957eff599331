#include "comments/comment_store.h"

#include "comments/messages.h"
#include "common/error_block.h"
#include "common/text_filters.h"
#include "platform/text/call_errors.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/transaction.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace vasclip::comments {

using common::RoutineScope;

namespace {

const QString kKeyField = fields::CENTRALKEY;
const QString kBlankKey(20, QLatin1Char(' '));

/// A source on its first row, and the column that is read and written.
struct Walk
{
    Walk(store::DataSource& source, const QString& library)
        : data(source)
        , name(library)
    {
        if (data.FieldIndex(name) < 0)
            throw RuntimeError(
                error::kFieldUnknown,
                u"The comment file %1 has no library for the field %2. Let the file be updated "
                "when the program asks for it at the next opening"_s.arg(data.DatabaseName(), name));
        data.MoveFirst();
    }

    /// @return false if the table has fewer rows
    bool SkipTo(int row)
    {
        for (int i = 0; i < row && !data.AtEnd(); ++i)
            data.MoveNext();
        return !data.AtEnd();
    }
    [[nodiscard]] QString Text() const { return data.Value(name).toString(); }
    void Write(const QString& text)
    {
        store::Change change(data, kPhraseWords);
        change.Set(name, text);
        change.Store();
    }

    store::DataSource& data;
    QString name;
};

/// "" and Null are the same phrase.
QString Shown(const QString& text)
{
    return text::Trim(text);
}

Stored StoreOnKey(const forms::Ports& ports, Walk& walk, const QString& text)
{
    const QString cleaned = text::Trim(common::RemoveIllegalChars(text));
    QString agreed; // the phrase that the user gave away
    for (;;) {
        // Remembers the row: a change of another user from here on is error 3197.
        store::Change change(walk.data, kPhraseWords);
        const QString old = Shown(walk.Text());
        const bool same = old == cleaned || old == Shown(text);
        if (!old.isEmpty() && !same && old != agreed) {
            store::Change::Drop(walk.data); // no row is held open while somebody thinks
            if (!ports.prompter.YesNo(store::kPlainTitle, kOverwriteKey.arg(old, cleaned)))
                return Stored::Declined;
            agreed = old;
            continue;
        }
        change.Set(walk.name, text::Trim(text));
        try {
            change.Store();
            return Stored::Yes;
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kDataChanged)
                throw;
        }
    }
}

} // namespace

void OpenCommentSource(store::DataSource& data, const QString& path)
{
    data.Open(path, u"COMPS"_s, store::SourceKind::Table);
    if (!data.Updatable())
        return;
    if (data.Count() < kKeys)
        Add6Records(data);
    EnsureAtLeast6Records(data);
}

void Add6Records(store::DataSource& data)
{
    const RoutineScope scope{"Add6Records"};
    store::Transaction all(data);
    for (int key = 1; key <= kKeys; ++key) {
        store::Change row(data, store::Change::NewRecord{}, kRowWords.arg(key));
        row.Set(kKeyField, QString::number(key));
        row.Store();
    }
    all.Commit();
}

void EnsureAtLeast6Records(store::DataSource& data)
{
    const RoutineScope scope{"EnsureAtLeast6Records"};
    Walk walk(data, kKeyField);
    if (!walk.SkipTo(kKeys))
        return;
    std::optional<store::Transaction> all;
    for (; !walk.data.AtEnd(); walk.data.MoveNext()) {
        if (walk.Text() == kBlankKey)
            continue;
        if (!all)
            all.emplace(data);
        walk.Write(kBlankKey);
    }
    if (all)
        all->Commit();
}

int ListCapacity(const store::DataSource& data)
{
    return static_cast<int>(std::max<qint64>(0, data.Count() - kKeys));
}

QString ReturnComment(store::DataSource& data, int keyIndex, const QString& column, Capitals capitals)
{
    const RoutineScope scope{"ReturnComment"};
    Walk walk(data, column);
    if (!walk.SkipTo(keyIndex))
        return {};
    const QString phrase = Shown(walk.Text());
    return capitals == Capitals::Upper ? phrase.toUpper() : phrase;
}

Stored SaveTheComment(const forms::Ports& ports, store::DataSource& data, int keyIndex, const QString& column,
                      const QString& text)
{
    const RoutineScope scope{"SaveTheComment"};
    Walk walk(data, column);
    if (!walk.SkipTo(keyIndex))
        throw RuntimeError(error::kNoCurrentRecord,
                           u"The comment file %1 has no row for this key. Open the entry screen "
                           "anew, which adds it"_s.arg(data.DatabaseName()));
    return StoreOnKey(ports, walk, text);
}

QStringList KeyPhrases(store::DataSource& data, const QString& column)
{
    Walk walk(data, column);
    QStringList phrases;
    for (int key = 0; key < kKeys; ++key) {
        phrases.append(walk.data.AtEnd() ? QString() : Shown(walk.Text()));
        if (!walk.data.AtEnd())
            walk.data.MoveNext();
    }
    return phrases;
}

QStringList ListPhrases(store::DataSource& data, const QString& column)
{
    Walk walk(data, column);
    QStringList phrases;
    walk.SkipTo(kKeys);
    for (; !walk.data.AtEnd(); walk.data.MoveNext()) {
        const QString phrase = walk.Text();
        if (Shown(phrase).isEmpty())
            break;
        phrases.append(phrase);
    }
    return phrases;
}

bool HasPhrasesBehindAGap(store::DataSource& data, const QString& column)
{
    Walk walk(data, column);
    bool gap = false;
    for (walk.SkipTo(kKeys); !walk.data.AtEnd(); walk.data.MoveNext()) {
        const bool empty = Shown(walk.Text()).isEmpty();
        if (gap && !empty)
            return true;
        gap = gap || empty;
    }
    return false;
}

int ClearAllFieldsBelow6(store::DataSource& data, const QString& column)
{
    const RoutineScope scope{"ClearAllFieldsBelow6"};
    Walk walk(data, column);
    walk.SkipTo(kKeys);
    int written = 0;
    store::Transaction all(data);
    for (; !walk.data.AtEnd(); walk.data.MoveNext()) {
        if (walk.Text().isEmpty())
            continue; // a row that is empty already would only cost a write
        walk.Write(QString());
        ++written;
    }
    all.Commit();
    return written;
}

QStringList SaveListControl(store::DataSource& data, const QString& column, const QStringList& entries)
{
    const RoutineScope scope{"SaveListControl"};
    QStringList left;
    store::Transaction all(data);
    ClearAllFieldsBelow6(data, column);
    Walk walk(data, column);
    for (const QString& entry : entries) {
        if (walk.data.AtEnd()) {
            if (!entry.isEmpty())
                left.append(entry);
            continue;
        }
        if (!entry.isEmpty())
            walk.Write(entry);
        walk.data.MoveNext();
    }
    all.Commit();
    return left;
}

Library ReadLibrary(store::DataSource& data, const QString& column)
{
    return {KeyPhrases(data, column), ListPhrases(data, column)};
}

Library Merged(const Library& opened, const Library& mine, const Library& now)
{
    Library merged = mine;
    for (qsizetype key = 0; key < merged.keys.size(); ++key)
        if (merged.keys.at(key) == opened.keys.value(key))
            merged.keys[key] = now.keys.value(key);
    for (const QString& phrase : now.list)
        if (!opened.list.contains(phrase) && !merged.list.contains(phrase))
            merged.list.append(phrase);
    return merged;
}

bool AddPhrase(store::DataSource& data, const QString& column, const QString& text)
{
    const QString phrase = text::Trim(text);
    if (phrase.isEmpty())
        throw RuntimeError(error::kInvalidCall, u"An empty phrase can not be added"_s);
    store::Transaction all(data);
    const QStringList list = ListPhrases(data, column);
    if (list.contains(phrase))
        return false;
    // What stands behind a gap is no part of the list, so the gap itself is free.
    Walk walk(data, column);
    if (!walk.SkipTo(kKeys + static_cast<int>(list.size())))
        throw RuntimeError(error::kInvalidCall,
                           u"The list of %1 is full: the comment file has room for %2 phrases a "
                           "field. Delete one first"_s.arg(column)
                               .arg(ListCapacity(data)));
    walk.Write(phrase);
    all.Commit();
    return true;
}

bool DatDeleteRecord(store::DataSource& data, const QString& column, const QString& text)
{
    const RoutineScope scope{"DatDeleteRecord"};
    store::Transaction all(data);
    Library library = ReadLibrary(data, column);
    if (!library.list.removeOne(text))
        return false;
    static_cast<void>(SaveListControl(data, column, library.keys + library.list));
    all.Commit();
    return true;
}

} // namespace vasclip::comments

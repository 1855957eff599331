#include "app/vasctl/session.h"

#include "comments/comment_file.h"
#include "comments/comment_store.h"
#include "comments/messages.h"
#include "platform/text/text.h"
#include "store/schema.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kFirstKey = 3;

QString KeyName(int index)
{
    return u"F%1"_s.arg(index + kFirstKey);
}

/// 0 for F3 to 5 for F8, -1 for anything else.
int KeyIndex(const QString& name)
{
    for (int index = 0; index < comments::kKeys; ++index)
        if (text::Folded(name) == KeyName(index))
            return index;
    return -1;
}

int Usage(const Output& out)
{
    out.Error(u"Usage: vasctl comments list FIELD | key FIELD F3|F4|F5|F6|F7|F8 [TEXT] | add FIELD TEXT | "
              "delete FIELD TEXT"_s);
    return kUsage;
}

int List(store::DataSource& data, const Output& out, const QString& field)
{
    const comments::Library library = comments::ReadLibrary(data, field);
    QList<QStringList> rows;
    for (int index = 0; index < comments::kKeys; ++index)
        rows.append({KeyName(index), library.keys.at(index)});
    for (const QString& phrase : library.list)
        rows.append({QString(), phrase});
    out.Table({u"KEY"_s, u"PHRASE"_s}, rows);
    return kDone;
}

int Key(Session& session, store::DataSource& data, const Output& out, const QString& field, int index,
        const QString* phrase)
{
    if (phrase == nullptr) {
        const QString held = comments::ReturnComment(data, index, field, comments::Capitals::Keep);
        out.Value({{u"KEY"_s, KeyName(index)}, {u"PHRASE"_s, held}}, held);
        return held.isEmpty() ? kNotFound : kDone;
    }
    if (comments::SaveTheComment(session.Ports(), data, index, field, *phrase) == comments::Stored::Declined)
        return kDeclined;
    out.Line(u"%1 of %2 is '%3' now."_s.arg(KeyName(index), field, text::Trim(*phrase)));
    return kDone;
}

int Add(store::DataSource& data, const Output& out, const QString& field, const QString& phrase)
{
    if (!comments::AddPhrase(data, field, phrase)) {
        out.Error(u"'%1' is in the list of %2 already."_s.arg(phrase, field));
        return kFailed;
    }
    out.Line(u"'%1' is in the list of %2 now."_s.arg(text::Trim(phrase), field));
    return kDone;
}

int Delete(Session& session, store::DataSource& data, const Output& out, const QString& field,
           const QString& phrase)
{
    if (!comments::ListPhrases(data, field).contains(phrase)) {
        out.Error(u"'%1' is not in the list of %2."_s.arg(phrase, field));
        return kNotFound;
    }
    if (!session.Prompter().YesNo(u"vasctl"_s, comments::kDeletePhrase.arg(phrase)))
        return kDeclined;
    if (!comments::DatDeleteRecord(data, field, phrase)) { // while the question stood
        out.Error(u"'%1' is no longer in the list of %2."_s.arg(phrase, field));
        return kNotFound;
    }
    out.Line(u"'%1' is out of the list of %2."_s.arg(phrase, field));
    return kDone;
}

} // namespace

int RunComments(Session& session, const Output& out, const QStringList& arguments)
{
    const qsizetype count = arguments.size();
    const QString command = arguments.value(0);
    const bool list = command == u"list"_s && count == 2;
    const bool key = command == u"key"_s && (count == 3 || count == 4) && KeyIndex(arguments.at(2)) >= 0;
    const bool add = command == u"add"_s && count == 3;
    if (!list && !key && !add && !(command == u"delete"_s && count == 3))
        return Usage(out);
    const store::CompsColumn* column = store::FindCompsColumn(arguments.at(1));
    if (column == nullptr) {
        out.Error(u"COMPS has no field '%1'; 'vasctl records show KEY' names those of a record."_s.arg(
            arguments.at(1)));
        return kUsage;
    }
    const QString field = QString(column->name);
    const common::Globals& globals = session.Home().globals;
    const QString path = comments::CommentFilePath(globals);
    if (!comments::HasCommentFile(session.Disk(), path)) {
        out.Error(u"There is no comment file %1; the program makes it when an entry screen opens, or set "
                  "SHARE or the directories of the settings right."_s.arg(path));
        return kNotFound;
    }
    store::DataSource data(session.Engine(), u"datComment"_s);
    comments::OpenCommentSource(data, path);
    if (list)
        return List(data, out, field);
    if (key)
        return Key(session, data, out, field, KeyIndex(arguments.at(2)),
                   count == 4 ? &arguments.at(3) : nullptr);
    if (add)
        return Add(data, out, field, arguments.at(2));
    return Delete(session, data, out, field, arguments.at(2));
}

} // namespace vasclip::vasctl

#include "app/vasctl/output.h"

#include "app/vasctl/shown_text.h"
#include "platform/desktop/terminal.h"

#include <QJsonDocument>

#include <cstdio>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

void Print(std::FILE* to, const QByteArray& bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), to);
    std::fputc('\n', to);
}

void PrintText(std::FILE* to, const QString& text)
{
    Print(to, Visible(text).toUtf8());
}

void PrintJson(std::FILE* to, const QJsonDocument& json)
{
    Print(to, VisibleJson(json.toJson(QJsonDocument::Compact)));
}

/// A cell on one line: a long text is shortened for people, but never in the last column and never in JSON.
QString Cell(const QString& text, bool last)
{
    constexpr qsizetype kWidest = 60;
    QString line = Visible(QString(text).replace(u"\r\n"_s, u" "_s).replace(u'\r', u' '));
    line.replace(u'\n', u' ').replace(u'\t', u' ');
    return !last && line.size() > kWidest ? line.left(kWidest - 1) + u'\u2026' : line;
}

} // namespace

void Output::Table(const QStringList& headings, const QList<QStringList>& rows, const QList<Kind>& kinds) const
{
    if (m_json) {
        QJsonArray array;
        for (const QStringList& row : rows) {
            QJsonObject object;
            for (qsizetype i = 0; i < headings.size(); ++i)
                object.insert(headings[i], AsJson(kinds.value(i, Kind::Text), row.value(i)));
            array.append(object);
        }
        PrintJson(stdout, QJsonDocument(array));
        return;
    }
    QList<qsizetype> widths;
    for (const QString& heading : headings)
        widths.append(heading.size());
    for (const QStringList& row : rows) {
        for (qsizetype i = 0; i < headings.size(); ++i)
            widths[i] = qMax(widths[i], Cell(row.value(i), i + 1 == headings.size()).size());
    }
    const auto print = [&](const QStringList& cells) {
        QString line;
        for (qsizetype i = 0; i < headings.size(); ++i)
            line += Cell(cells.value(i), i + 1 == headings.size()).leftJustified(widths[i] + 2);
        while (line.endsWith(u' '))
            line.chop(1);
        PrintText(stdout, line);
    };
    print(headings);
    for (const QStringList& row : rows)
        print(row);
}

void Output::Facts(const QList<std::pair<QString, QString>>& facts, Kind (*kindOf)(const QString&)) const
{
    if (m_json) {
        QJsonObject object;
        for (const auto& [name, value] : facts)
            object.insert(name, AsJson(kindOf == nullptr ? Kind::Text : kindOf(name), value));
        PrintJson(stdout, QJsonDocument(object));
        return;
    }
    qsizetype width = 0;
    for (const auto& [name, value] : facts)
        width = qMax(width, name.size());
    for (const auto& [name, value] : facts)
        PrintText(stdout, name.leftJustified(width + 2) + value);
}

void Output::Line(const QString& text) const
{
    Value(QJsonObject{{u"message"_s, text}}, text);
}

void Output::Array(const QJsonArray& values) const
{
    PrintJson(stdout, QJsonDocument(values));
}

void Output::Value(const QJsonObject& value, const QString& text) const
{
    if (m_json)
        PrintJson(stdout, QJsonDocument(value));
    else
        PrintText(stdout, text);
}

void Output::Error(const QString& text) const
{
    if (m_json)
        PrintJson(stderr, QJsonDocument(QJsonObject{{u"error"_s, text}}));
    else
        PrintText(stderr, u"vasctl: "_s + text);
}

ProgressLine::ProgressLine(const Output& out)
    : m_seen(!out.Json() && desktop::ErrorsAreSeen())
{}

ProgressLine::~ProgressLine()
{
    Clear();
}

void ProgressLine::Show(const QString& doing, qint64 done, qint64 total)
{
    constexpr int kWhole = 100;
    const QString line = total > 0 ? doing + u"  %1 %"_s.arg(done * kWhole / total) : doing;
    if (!m_seen || line == m_shown)
        return;
    m_shown = line;
    std::fprintf(stderr, "\r%s\x1b[K", Visible(line).toUtf8().constData());
    std::fflush(stderr);
}

void ProgressLine::Clear()
{
    if (m_shown.isEmpty())
        return;
    m_shown.clear();
    std::fputs("\r\x1b[K", stderr);
    std::fflush(stderr);
}

} // namespace vasclip::vasctl

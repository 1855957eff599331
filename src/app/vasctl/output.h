#pragma once

#include "app/vasctl/json_value.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace vasclip::vasctl {

/// Exit codes, as `vasctl --help` lists them.
enum Exit : int {
    kDone = 0,
    kFailed = 1,   ///< the operation failed; the message says why
    kUsage = 2,    ///< the command line is wrong
    kNotFound = 3, ///< no such record, setting, page or slot
    kDeclined = 4, ///< a question was answered No or Cancel
    kNoLink = 5,   ///< the forms program is not running or has no report open
};

/// Prints what a command found: aligned columns for people, one JSON value with --json. Errors go to stderr.
class Output
{
public:
    explicit Output(bool json)
        : m_json(json)
    {}

    [[nodiscard]] bool Json() const { return m_json; }
    /// @param kinds  of the columns, for JSON; what it has none for is text
    void Table(const QStringList& headings, const QList<QStringList>& rows, const QList<Kind>& kinds = {}) const;
    /// One object: "name  value" lines, in the order given.
    void Facts(const QList<std::pair<QString, QString>>& facts, Kind (*kindOf)(const QString& name) = nullptr) const;
    void Line(const QString& text) const; ///< {"message": text} with --json
    void Array(const QJsonArray& values) const; ///< with --json alone
    void Value(const QJsonObject& value, const QString& text) const;
    void Error(const QString& text) const; ///< {"error": text} with --json, on stderr

private:
    bool m_json;
};

/// One line that tells how far a long command is, for a person at a terminal; for nobody else, so that what a
/// script reads has none of it. It goes when this does.
class ProgressLine
{
public:
    explicit ProgressLine(const Output& out);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    void Show(const QString& doing, qint64 done = 0, qint64 total = 0);
    void Clear();

private:
    bool m_seen;
    QString m_shown;
};

} // namespace vasclip::vasctl

#include "kelforms/core/report.h"

#include "platform/text/runtime_error.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace error = vasclip::error;
using vasclip::RuntimeError;

namespace {

constexpr int kInvalidFile = 321;

[[noreturn]] void NoReport(const QString& path, const QString& why)
{
    throw RuntimeError(kInvalidFile, u"%1 is no report: %2"_s.arg(path, why));
}

QMap<QString, QString> Texts(const QJsonObject& object, QLatin1StringView member, const QString& path)
{
    QMap<QString, QString> texts;
    const QJsonValue value = object.value(member);
    if (value.isUndefined())
        return texts;
    if (!value.isObject())
        NoReport(path, u"\"%1\" is not an object"_s.arg(member));
    const QJsonObject entries = value.toObject();
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        if (!it->isString())
            NoReport(path, u"\"%1\" of \"%2\" is not a text"_s.arg(it.key(), member));
        texts.insert(it.key(), it->toString());
    }
    return texts;
}

QJsonObject Object(const QMap<QString, QString>& texts)
{
    QJsonObject object;
    for (auto it = texts.cbegin(); it != texts.cend(); ++it)
        object.insert(it.key(), it.value());
    return object;
}

/// A name or code that can stand in a topic and in a list with commas.
bool IsToken(const QString& text)
{
    if (text.isEmpty() || text != text.trimmed())
        return false;
    for (const QChar c : text) {
        if (c == u',' || c == u'|' || c < u' ')
            return false;
    }
    return true;
}

std::optional<int> Count(const QString& text)
{
    bool fine = false;
    const int number = text.trimmed().toInt(&fine);
    return fine && number >= 1 && number <= 9999 ? std::optional(number) : std::nullopt;
}

} // namespace

QString CellAddress::Key() const
{
    return form + u'|' + QString::number(row) + u'|' + QString::number(cell);
}

CellAddress ReadItem(const QString& item)
{
    QStringList parts = item.split(u'|');
    for (QString& part : parts)
        part = part.trimmed();
    CellAddress address;
    address.form = parts.value(0).toUpper();
    if (address.form.isEmpty() || parts.size() < 2)
        throw RuntimeError(error::kLinkBusy,
                           u"\"%1\" is no item: FORM|ROW|CELL is wanted"_s.arg(item.left(80)));
    if (parts.size() == 4) {
        if (parts[1].toUpper() != address.form)
            throw RuntimeError(error::kLinkBusy,
                               u"\"%1\" is no item: its two forms differ"_s.arg(item.left(80)));
        parts.removeAt(1);
    }
    if (parts.size() <= 3 && parts[1].isEmpty() && parts.value(2).isEmpty())
        return address;
    const std::optional<int> row = Count(parts[1]);
    const std::optional<int> cell = Count(parts.value(2));
    if (parts.size() != 3 || !row || !cell)
        throw RuntimeError(
            error::kLinkBusy,
            u"\"%1\" is no item: row and cell must be whole numbers from 1"_s.arg(item.left(80)));
    address.row = *row;
    address.cell = *cell;
    return address;
}

Report Report::Load(const QString& nativePath)
{
    QFile file(nativePath);
    if (!file.exists())
        throw RuntimeError(error::kFileNotFound, u"There is no report %1"_s.arg(nativePath));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(error::kPathFileAccess,
                           u"The report %1 cannot be read: %2"_s.arg(nativePath, file.errorString()));
    return FromJson(file.readAll(), nativePath);
}

Report Report::FromJson(const QByteArray& json, const QString& nativePath)
{
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &problem);
    if (problem.error != QJsonParseError::NoError)
        NoReport(nativePath, u"%1 at byte %2"_s.arg(problem.errorString()).arg(problem.offset));
    if (!document.isObject())
        NoReport(nativePath, u"it holds no JSON object"_s);
    QJsonObject object = document.object();

    Report report;
    report.m_path = nativePath;
    report.m_name = object.value("name"_L1).toString();
    if (!IsToken(report.m_name))
        NoReport(nativePath, u"\"name\" must be a text without commas and bars"_s);
    if (!object.value("forms"_L1).isArray())
        NoReport(nativePath, u"\"forms\" is not a list"_s);
    const QJsonArray forms = object.value("forms"_L1).toArray();
    for (const QJsonValue& form : forms) {
        const QString code = form.toString().toUpper();
        if (!IsToken(code))
            NoReport(nativePath, u"form %1 is no form code"_s.arg(report.m_forms.size() + 1));
        if (report.m_codes.contains(code))
            NoReport(nativePath, u"the form %1 is there twice"_s.arg(code));
        report.m_codes.insert(code);
        report.m_forms.append(code);
    }
    if (report.m_forms.isEmpty())
        NoReport(nativePath, u"it has no forms"_s);

    const QMap<QString, QString> cells = Texts(object, "cells"_L1, nativePath);
    for (auto it = cells.cbegin(); it != cells.cend(); ++it) {
        try {
            const CellAddress address = ReadItem(it.key());
            if (address.row == 0)
                NoReport(nativePath, u"the cell \"%1\" has no row"_s.arg(it.key()));
            report.m_cells.insert(address.Key(), it.value());
        } catch (const RuntimeError& wrong) {
            if (wrong.Number() == kInvalidFile)
                throw;
            NoReport(nativePath, wrong.Description());
        }
    }
    const QMap<QString, QString> images = Texts(object, "images"_L1, nativePath);
    for (auto it = images.cbegin(); it != images.cend(); ++it)
        report.m_images.insert(it.key().toUpper(), it.value());
    report.m_variables = Texts(object, "variables"_L1, nativePath);
    for (const QLatin1StringView own : {"name"_L1, "forms"_L1, "cells"_L1, "images"_L1, "variables"_L1})
        object.remove(own);
    report.m_rest = object;
    return report;
}

QByteArray Report::ToJson() const
{
    QJsonObject object = m_rest;
    object.insert("name"_L1, m_name);
    object.insert("forms"_L1, QJsonArray::fromStringList(m_forms));
    object.insert("cells"_L1, Object(m_cells));
    object.insert("images"_L1, Object(m_images));
    object.insert("variables"_L1, Object(m_variables));
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

void Report::Save()
{
    SaveAs(m_path);
}

void Report::SaveAs(const QString& nativePath)
{
    QSaveFile file(nativePath);
    const QByteArray json = ToJson();
    if (!file.open(QIODevice::WriteOnly))
        throw RuntimeError(error::kPathFileAccess,
                           u"The report %1 cannot be written: %2"_s.arg(nativePath, file.errorString()));
    if (file.write(json) != json.size() || !file.commit())
        throw RuntimeError(file.error() == QFileDevice::ResourceError ? error::kDiskFull
                                                                      : error::kPathFileAccess,
                           u"The report %1 cannot be written: %2"_s.arg(nativePath, file.errorString()));
    m_path = nativePath;
    m_modified = false;
}

const vasclip::formsbook::Page* Report::Layout(const QString& pageCode) const
{
    const QString code = pageCode.toUpper();
    auto found = m_layouts.find(code);
    if (found == m_layouts.end())
        found = m_layouts.emplace(code, vasclip::formsbook::LayoutOf(MainForm(), code)).first;
    return found->second ? &*found->second : nullptr;
}

void Report::SetCell(const QString& key, const QString& text)
{
    m_cells.insert(key, text);
    m_modified = true;
}

void Report::SwapCells(const QString& a, const QString& b)
{
    const std::optional<QString> fromA = m_cells.contains(a) ? std::optional(m_cells.take(a)) : std::nullopt;
    const std::optional<QString> fromB = m_cells.contains(b) ? std::optional(m_cells.take(b)) : std::nullopt;
    if (fromA)
        m_cells.insert(b, *fromA);
    if (fromB)
        m_cells.insert(a, *fromB);
    m_modified = m_modified || fromA || fromB;
}

void Report::ClearCell(const QString& key)
{
    if (m_cells.remove(key) > 0)
        m_modified = true;
}

QStringList Report::Objects() const
{
    QStringList objects;
    for (const QString& form : m_forms) {
        if (const auto* page = Layout(form))
            objects += page->objects;
    }
    return objects;
}

QString Report::FindObject(const QString& name) const
{
    const QString wanted = name.trimmed().toUpper();
    return Objects().contains(wanted) ? wanted : QString();
}

QString Report::ObjectOf(const QString& prefix) const
{
    for (const QString& object : Objects()) {
        if (object.startsWith(prefix))
            return object;
    }
    return {};
}

void Report::SetImage(const QString& object, const QString& path)
{
    if (path.isEmpty())
        m_images.remove(object);
    else
        m_images.insert(object, path);
    m_modified = true;
}

std::optional<QString> Report::Variable(const QString& name) const
{
    for (auto it = m_variables.cbegin(); it != m_variables.cend(); ++it) {
        if (it.key().compare(name, Qt::CaseInsensitive) == 0)
            return it.value();
    }
    return std::nullopt;
}

} // namespace kelforms

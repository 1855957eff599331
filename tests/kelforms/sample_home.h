#pragma once

#include "formsbook/kel_ini.h"
#include "formsbook/layout.h"
#include "formsbook/scripts.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <QString>

namespace kelforms::test {

/// A home with KEL.INI, the scripts, two pictures, and reports as they are asked for.
class SampleHome
{
public:
    SampleHome()
    {
        Write(QStringLiteral("drive_c/APPRAISE/KEL.INI"), vasclip::formsbook::KelIniText().toUtf8());
        for (const vasclip::formsbook::ScriptFile& script : vasclip::formsbook::Scripts())
            Write(QStringLiteral("drive_c/KEL/") + script.name, script.text.toUtf8());
        Write(QStringLiteral("drive_c/VASCLIPS/JPG/12345678.jpg"), "a picture");
        Write(QStringLiteral("drive_c/VASCLIPS/JPG/Other.jpg"), "another");
    }

    [[nodiscard]] QString Path() const { return m_dir.path(); }
    [[nodiscard]] QString File(const QString& name) const { return m_dir.filePath(name); }

    void Write(const QString& name, const QByteArray& content) const
    {
        const QString path = m_dir.filePath(name);
        QDir().mkpath(path.section(QLatin1Char('/'), 0, -2));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
    }

    [[nodiscard]] QByteArray Read(const QString& name) const
    {
        QFile file(m_dir.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// A report file; its name is upper case and ".RPT". With all pages of the form.
    [[nodiscard]] QString MakeReport(const QString& name, const QString& mainForm,
                                     const QJsonObject& cells = {}) const
    {
        return MakeReportOf(name,
                            vasclip::formsbook::PagesOf(*vasclip::formsbook::FindForm(mainForm),
                                                        vasclip::formsbook::Edition::Small),
                            cells);
    }

    [[nodiscard]] QString MakeReportOf(const QString& name, const QStringList& forms,
                                       const QJsonObject& cells = {}) const
    {
        const QJsonObject report{{QStringLiteral("name"), name.toUpper() + QStringLiteral(".RPT")},
                                 {QStringLiteral("forms"), QJsonArray::fromStringList(forms)},
                                 {QStringLiteral("cells"), cells},
                                 {QStringLiteral("images"), QJsonObject()},
                                 {QStringLiteral("variables"), QJsonObject()}};
        Write(name + QStringLiteral(".json"), QJsonDocument(report).toJson());
        return File(name + QStringLiteral(".json"));
    }

    [[nodiscard]] QJsonObject ReadReport(const QString& name) const
    {
        return QJsonDocument::fromJson(Read(name + QStringLiteral(".json"))).object();
    }

private:
    QTemporaryDir m_dir;
};

} // namespace kelforms::test

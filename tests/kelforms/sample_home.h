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

using namespace Qt::StringLiterals;

/// A home with KEL.INI, the scripts, two pictures, and reports as they are asked for.
class SampleHome
{
public:
    SampleHome()
    {
        Write(u"drive_c/APPRAISE/KEL.INI"_s, vasclip::formsbook::KelIniText().toUtf8());
        for (const vasclip::formsbook::ScriptFile& script : vasclip::formsbook::Scripts())
            Write(u"drive_c/KEL/"_s + script.name, script.text.toUtf8());
        Write(u"drive_c/VASCLIPS/JPG/12345678.jpg"_s, "a picture");
        Write(u"drive_c/VASCLIPS/JPG/Other.jpg"_s, "another");
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
        const QJsonObject report{{u"name"_s, name.toUpper() + u".RPT"_s},
                                 {u"forms"_s, QJsonArray::fromStringList(forms)},
                                 {u"cells"_s, cells},
                                 {u"images"_s, QJsonObject()},
                                 {u"variables"_s, QJsonObject()}};
        Write(name + u".json"_s, QJsonDocument(report).toJson());
        return File(name + u".json"_s);
    }

    [[nodiscard]] QJsonObject ReadReport(const QString& name) const
    {
        return QJsonDocument::fromJson(Read(name + u".json"_s)).object();
    }

private:
    QTemporaryDir m_dir;
};

} // namespace kelforms::test

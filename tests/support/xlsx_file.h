#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <zip.h>

#include <utility>

namespace vasclip::tests {

/// The bytes of a package of these parts. @param store  packs nothing, so that a part's bytes stand in the file
inline QByteArray Packed(const QList<std::pair<QByteArray, QByteArray>>& parts, bool store = false)
{
    zip_error_t failure;
    zip_error_init(&failure);
    zip_source_t* memory = zip_source_buffer_create(nullptr, 0, 0, &failure);
    zip_source_keep(memory);
    zip_t* archive = zip_open_from_source(memory, ZIP_TRUNCATE, &failure);
    for (const auto& [name, bytes] : parts) {
        zip_source_t* part =
            zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
        const zip_int64_t place = zip_file_add(archive, name.constData(), part, ZIP_FL_ENC_UTF_8);
        if (store)
            zip_set_file_compression(archive, static_cast<zip_uint64_t>(place), ZIP_CM_STORE, 0);
    }
    zip_close(archive);
    zip_source_open(memory);
    zip_source_seek(memory, 0, SEEK_END);
    QByteArray packed(static_cast<qsizetype>(zip_source_tell(memory)), '\0');
    zip_source_seek(memory, 0, SEEK_SET);
    zip_source_read(memory, packed.data(), static_cast<zip_uint64_t>(packed.size()));
    zip_source_close(memory);
    zip_source_free(memory);
    return packed;
}

/// A spreadsheet file as programs write it, from the XML of its rows.
struct XlsxFile
{
    struct Sheet
    {
        QByteArray name;
        QByteArray rows;            ///< <row>s
        QByteArray behind = {};     ///< <mergeCells> and the like
    };
    QList<Sheet> sheets;
    QList<QByteArray> texts = {};      ///< shared, as XML within <si>
    QList<QByteArray> formats = {};    ///< style 1, 2, ... ; a number is one of those that every file has
    bool from1904 = false;

    [[nodiscard]] QList<std::pair<QByteArray, QByteArray>> Parts() const
    {
        const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
        const QByteArray rels = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
        const QByteArray space = " xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
        QByteArray book = head + "<workbook" + space + " xmlns:r=\"" + rels + "\"><workbookPr date1904=\"" +
                          (from1904 ? "1" : "0") + "\"/><sheets>";
        QByteArray links = head + "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
        QList<std::pair<QByteArray, QByteArray>> parts;
        for (qsizetype i = 0; i < sheets.size(); ++i) {
            const QByteArray number = QByteArray::number(i + 1);
            book += "<sheet name=\"" + sheets[i].name + "\" sheetId=\"" + number + "\" r:id=\"rId" + number + "\"/>";
            links += "<Relationship Id=\"rId" + number + "\" Type=\"" + rels + "/worksheet\" Target=\"worksheets/sheet" + number +
                     ".xml\"/>";
            parts.append({"xl/worksheets/sheet" + number + ".xml", head + "<worksheet" + space + "><sheetData>" + sheets[i].rows +
                                                                       "</sheetData>" + sheets[i].behind + "</worksheet>"});
        }
        links += "<Relationship Id=\"rIdS\" Type=\"" + rels + "/styles\" Target=\"styles.xml\"/>"
                 "<Relationship Id=\"rIdT\" Type=\"" + rels + "/sharedStrings\" Target=\"/xl/sharedStrings.xml\"/></Relationships>";
        QByteArray codes;
        QByteArray cells = "<xf numFmtId=\"0\"/>";
        for (qsizetype i = 0; i < formats.size(); ++i) {
            bool plain = false;
            formats[i].toInt(&plain);
            const QByteArray number = plain && !formats[i].startsWith('0') ? formats[i] : QByteArray::number(164 + i);
            if (number != formats[i])
                codes += "<numFmt numFmtId=\"" + number + "\" formatCode=\"" + formats[i] + "\"/>";
            cells += "<xf numFmtId=\"" + number + "\"/>";
        }
        QByteArray shared = head + "<sst" + space + ">";
        for (const QByteArray& text : texts)
            shared += "<si>" + text + "</si>";
        parts.append({"[Content_Types].xml", head + "<Types/>"});
        parts.append({"_rels/.rels", head + "<Relationships><Relationship Id=\"rId1\" Type=\"" + rels +
                                         "/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>"});
        parts.append({"xl/workbook.xml", book + "</sheets></workbook>"});
        parts.append({"xl/_rels/workbook.xml.rels", links});
        parts.append({"xl/styles.xml", head + "<styleSheet" + space + "><numFmts>" + codes + "</numFmts><cellStyleXfs><xf numFmtId=\"14\"/>"
                                           "</cellStyleXfs><cellXfs>" + cells + "</cellXfs></styleSheet>"});
        parts.append({"xl/sharedStrings.xml", shared + "</sst>"});
        return parts;
    }
    [[nodiscard]] QByteArray Bytes(bool store = false) const { return Packed(Parts(), store); }

    /// A row of texts, written into its cells.
    [[nodiscard]] static QByteArray Row(int number, const QList<QByteArray>& texts)
    {
        QByteArray row = "<row r=\"" + QByteArray::number(number) + "\">";
        for (const QByteArray& text : texts)
            row += text.isEmpty() ? QByteArray("<c/>") : "<c t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
        return row + "</row>";
    }
};

} // namespace vasclip::tests

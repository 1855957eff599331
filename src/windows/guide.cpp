#include "windows/guide.h"

#include <QFile>
#include <QRegularExpression>
#include <QWidget>

#include <algorithm>

static void InitGuide()
{
    Q_INIT_RESOURCE(guide);
}

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

std::span<const GuideTopic> GuideTopics()
{
    // clang-format off
    static constexpr GuideTopic kTopics[] = {
        // parts of the main window
        {"txtQuickFind"_L1, "quick-find.md"_L1},
        {"grddatabook"_L1, "grid.md"_L1},
        {"txtcentralkey"_L1, "records.md"_L1},
        {"cboapprslType"_L1, "records.md"_L1},
        {"TabData"_L1, "sending.md"_L1},
        {"recordPane"_L1, "photos.md"_L1},
        {"browserPane"_L1, "capture.md"_L1},
        {"mapPane"_L1, "map.md"_L1},
        // windows
        {"frm_Main"_L1, "main-window.md"_L1},
        {"frm_Splash"_L1, "starting.md"_L1},
        {"frm_About"_L1, "about.md"_L1},
        {"columnsDialog"_L1, "grid.md"_L1},
        {"sendToSlot"_L1, "sending.md"_L1},
        // screens
        {"frm_CompMnt1"_L1, "entry-screens.md"_L1},
        {"frm_CompMnt2"_L1, "entry-screens.md"_L1},
        {"frm_CompMntC"_L1, "entry-screens.md"_L1},
        {"frm_CompMntL"_L1, "entry-screens.md"_L1},
        {"frm_CompMntM"_L1, "entry-screens.md"_L1},
        {"frm_CompMntR"_L1, "entry-screens.md"_L1},
        {"frm_CompMntS"_L1, "entry-screens.md"_L1},
        {"frm_Calendar"_L1, "calendar.md"_L1},
        {"frm_SearchSQL"_L1, "search.md"_L1},
        {"frm_Comment"_L1, "phrases.md"_L1},
        {"frm_FKey"_L1, "phrases.md"_L1},
        {"frm_CopyPics"_L1, "copy-photos.md"_L1},
        {"frm_Double"_L1, "adjust.md"_L1},
        {"frm_GenView"_L1, "views.md"_L1},
        {"frm_Grid"_L1, "grid-layouts.md"_L1},
        {"frm_ChangeDB"_L1, "databases.md"_L1},
        {"frm_Config"_L1, "settings.md"_L1},
        {"frm_AttachCity"_L1, "city-listings.md"_L1},
        {"frm_MassCity"_L1, "cities.md"_L1},
        {"frm_Crystal"_L1, "printing.md"_L1},
        {"frm_ReportPreview"_L1, "printing.md"_L1},
        {"frm_Rename"_L1, "records.md"_L1},
        {"frm_SearchPics"_L1, "find-photos.md"_L1},
        {"frm_Trash"_L1, "trashcan.md"_L1},
        {"frm_CameraDir"_L1, "capture.md"_L1},
        {"frm_Overwrite"_L1, "capture.md"_L1},
        {"frm_StreetFind"_L1, "map.md"_L1},
        {"frm_Manual"_L1, "map.md"_L1},
        {"frm_MapPreview"_L1, "map.md"_L1},
        {"frm_MapData"_L1, "map-data.md"_L1},
        {"frm_Maintenance"_L1, "maintenance.md"_L1},
        {"frm_DelDate"_L1, "maintenance.md"_L1},
        {"frm_Archive"_L1, "archive.md"_L1},
        {"frm_Export"_L1, "export.md"_L1},
        {"frm_Import"_L1, "import.md"_L1},
        {"frm_ListColumns"_L1, "import-lists.md"_L1},
        {"frm_Rehearse"_L1, "import.md"_L1},
    };
    // clang-format on
    return kTopics;
}

QString GuidePageOf(const QWidget* widget)
{
    for (; widget != nullptr; widget = widget->parentWidget()) {
        for (const GuideTopic& topic : GuideTopics())
            if (widget->objectName() == topic.widget)
                return QString(topic.page);
    }
    return QString(kGuideIndex);
}

QUrl GuideUrl(const QString& file)
{
    InitGuide();
    return QUrl(u"qrc:/guide/"_s + file);
}

QString GuideText(const QString& page)
{
    InitGuide();
    QFile file(u":/guide/"_s + page);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QList<GuideLine> GuideContents()
{
    static const QRegularExpression kEntry(u"^- \\[(.+)\\]\\(([^)]+\\.md)\\)"_s);
    QList<GuideLine> lines;
    const QString index = GuideText(QString(kGuideIndex));
    for (const QString& line : index.split(u'\n')) {
        if (line.startsWith(u"## "_s))
            lines.append({line.mid(3), {}});
        else if (const auto match = kEntry.match(line); match.hasMatch())
            lines.append({match.captured(1), match.captured(2)});
    }
    return lines;
}

QList<GuideLine> FindInGuide(const QString& words)
{
    const QStringList wanted = words.simplified().split(u' ', Qt::SkipEmptyParts);
    const auto holds = [&](const QString& text) {
        return std::all_of(wanted.begin(), wanted.end(),
                           [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
    };
    QList<GuideLine> byTitle;
    QList<GuideLine> byText;
    for (const GuideLine& line : GuideContents()) {
        if (line.page.isEmpty())
            continue;
        if (holds(line.title))
            byTitle.append(line);
        else if (holds(line.title + u' ' + GuideText(line.page)))
            byText.append(line);
    }
    return byTitle + byText;
}

} // namespace vasclip::windows

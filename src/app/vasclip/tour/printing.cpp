// The step of the tour that prints.

#include "app/vasclip/tour/steps.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QRadioButton>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

template <typename Widget>
Widget* Find(const QWidget& window, const QString& name)
{
    return window.findChild<Widget*>(name);
}

/// Saves by the dialog that asks for the file's name.
bool SavePdf(const Stage& stage, QWidget& preview, const QString& file)
{
    return stage.tour.During(
        u"The name of the PDF"_s, [&] { Click(preview, u"cmdPDF"_s); },
        [&](QWidget& dialog) {
            if (auto* name = Find<QLineEdit>(dialog, u"fileNameEdit"_s))
                name->setText(file);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
}

/// The preview of a length, with a picture of it.
bool Preview(const Stage& stage, QWidget& options, int length, const QString& name,
             const Tour::Visit& more = {})
{
    if (auto* option = Find<QRadioButton>(options, u"optSelected_%1"_s.arg(length)))
        option->click();
    return stage.tour.During(
        u"The preview"_s, [&] { Click(options, u"cmdPrint"_s); },
        [&](QWidget& preview) {
            Settle(400); // its pages are counted
            stage.tour.Shoot(preview, name);
            if (more)
                more(preview);
        });
}

} // namespace

bool PrintAReport(const Stage& stage)
{
    // Twenty sales with a front photo: more would be the same again.
    auto& state = stage.main.records.state;
    const QString before = state.sqlText;
    state.sqlText = u"SELECT * FROM COMPS WHERE FRONT = '1' AND VAL(SELLINGPR) > 400000"_s;
    const QString pdf = stage.tour.PathOf(u"report.pdf"_s);
    bool all = true;
    const bool shown =
        LookAt(stage, u"File > Print Comparable Report (from Database)"_s, u"print-options"_s,
               [&](QWidget& options) {
                   all = Preview(stage, options, 0, u"print-brief"_s);
                   all = Preview(stage, options, 1, u"print-regular"_s,
                                 [&](QWidget& preview) {
                                     if (auto* zoom = Find<QComboBox>(preview, u"cboZoom"_s)) {
                                         zoom->setCurrentIndex(1);
                                         Q_EMIT zoom->activated(1); // as a click does
                                     }
                                     Click(preview, u"cmdNext"_s);
                                     Settle();
                                     stage.tour.Shoot(preview, u"print-page-width"_s);
                                 }) &&
                         all;
                   all = Preview(stage, options, 2, u"print-extended"_s,
                                 [&](QWidget& preview) { all = SavePdf(stage, preview, pdf); }) &&
                         all;
               });
    state.sqlText = before;
    if (QFileInfo(pdf).size() < 10'000)
        return stage.tour.Fail(u"The preview saved no PDF."_s);
    stage.tour.Step(u"Looked at a report in three lengths, and saved it as report.pdf."_s);
    return shown && all;
}

} // namespace vasclip::app

#include "windows/window_prompter.h"

#include "platform/files/disk.h"
#include "platform/text/runtime_error.h"
#include "windows/icons.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

using forms::Answer;
using forms::Buttons;

struct ButtonSet
{
    Buttons buttons;
    QMessageBox::StandardButtons shown;
    QMessageBox::StandardButton first;  ///< Enter
    QMessageBox::StandardButton closed; ///< Escape and the window's cross
};

constexpr ButtonSet kSets[] = {
    {Buttons::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    {Buttons::OkCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel},
    {Buttons::AbortRetryIgnore, QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore,
     QMessageBox::Abort, QMessageBox::Abort},
    {Buttons::YesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No,
     QMessageBox::Cancel},
    {Buttons::YesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No},
    {Buttons::RetryCancel, QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Retry, QMessageBox::Cancel},
};

QMessageBox::Icon IconOf(forms::Icon icon)
{
    switch (icon) {
    case forms::Icon::Critical:
        return QMessageBox::Critical;
    case forms::Icon::Question:
        return QMessageBox::Question;
    case forms::Icon::Exclamation:
        return QMessageBox::Warning;
    case forms::Icon::Information:
        return QMessageBox::Information;
    case forms::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

Answer AnswerOf(int button)
{
    switch (button) {
    case QMessageBox::Cancel:
        return Answer::Cancel;
    case QMessageBox::Abort:
        return Answer::Abort;
    case QMessageBox::Retry:
        return Answer::Retry;
    case QMessageBox::Ignore:
        return Answer::Ignore;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Ok;
    }
}

const ButtonSet& SetOf(Buttons buttons)
{
    const auto* found =
        std::ranges::find_if(kSets, [buttons](const ButtonSet& set) { return set.buttons == buttons; });
    return found == std::end(kSets) ? kSets[0] : *found;
}

QMessageBox::StandardButton FirstOf(const ButtonSet& set, forms::Icon icon)
{
    if (set.buttons == Buttons::YesNoCancel && icon == forms::Icon::Exclamation)
        return QMessageBox::Cancel;
    if (set.buttons == Buttons::YesNoCancel && icon == forms::Icon::Information)
        return QMessageBox::Yes;
    return set.first;
}

/// A box is answered with the plain pointer, even in the middle of long work.
class PlainPointer
{
public:
    PlainPointer()
        : m_busy(QApplication::overrideCursor() != nullptr)
    {
        if (m_busy)
            QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainPointer()
    {
        if (m_busy)
            QApplication::restoreOverrideCursor();
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

private:
    bool m_busy;
};

} // namespace

WindowPrompter::WindowPrompter(const files::Disk& disk)
    : m_disk(disk)
{}

QWidget* WindowPrompter::Owner() const
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    return m_owner;
}

Answer WindowPrompter::MsgBox(Buttons buttons, forms::Icon icon, const QString& title, const QString& text)
{
    const ButtonSet& set = SetOf(buttons);
    const PlainPointer pointer;
    QMessageBox box(IconOf(icon), title, QString(), set.shown, Owner());
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setWindowIcon(ApplicationIcon());
    box.setDefaultButton(FirstOf(set, icon));
    box.setEscapeButton(set.closed);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QAbstractButton* button : box.buttons())
        button->setIcon(QIcon());
    return AnswerOf(box.exec());
}

bool WindowPrompter::Offer(const QString& action, const QString& title, const QString& text)
{
    const PlainPointer pointer;
    QMessageBox box(QMessageBox::Warning, title, QString(), QMessageBox::Cancel, Owner());
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setWindowIcon(ApplicationIcon());
    const auto* done = box.addButton(action, QMessageBox::AcceptRole);
    box.setEscapeButton(QMessageBox::Cancel);
    for (QAbstractButton* button : box.buttons())
        button->setIcon(QIcon());
    box.exec();
    return box.clickedButton() == done;
}

QStringList DialogFilters(const QString& filter)
{
    QStringList filters;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString pattern = parts.at(i).trimmed();
        if (pattern.isEmpty())
            continue;
        const QString words = parts.value(i + 1).trimmed();
        filters.append(
            u"%1 (%2)"_s.arg(words.isEmpty() ? pattern : words, QString(pattern).replace(u';', u' ')));
    }
    return filters;
}

QString WindowPrompter::OpenDialog(const QString& filter, const QString& title, const QString& directory)
{
    return Choose(DialogFilters(filter), title, directory, Wanted::File);
}

QString WindowPrompter::NewFileDialog(const QString& filter, const QString& title, const QString& directory)
{
    return Choose(DialogFilters(filter), title, directory, Wanted::NewFile);
}

QString WindowPrompter::ChooseDirectory(const QString& title, const QString& directory)
{
    return Choose({}, title, directory, Wanted::Directory);
}

QString WindowPrompter::Choose(const QStringList& filters, const QString& title, const QString& directory,
                               Wanted wanted)
{
    const PlainPointer pointer;
    QString start;
    try {
        start = m_disk.ToNative(directory);
    } catch (const RuntimeError&) {
        start = m_disk.Drives().value(0).second; // a directory that cannot be is no reason not to ask
    }
    for (;;) {
        QFileDialog dialog(Owner(), title, start);
        dialog.setFileMode(wanted == Wanted::Directory ? QFileDialog::Directory
                           : wanted == Wanted::NewFile ? QFileDialog::AnyFile
                                                       : QFileDialog::ExistingFile);
        dialog.setOption(QFileDialog::ShowDirsOnly, wanted == Wanted::Directory);
        if (wanted == Wanted::NewFile) {
            dialog.setAcceptMode(QFileDialog::AcceptSave);
            dialog.setOption(QFileDialog::DontConfirmOverwrite); // a file that is there is the asker's to speak of
            dialog.setLabelText(QFileDialog::Accept, title);
        }
        if (!filters.isEmpty())
            dialog.setNameFilters(filters);
        QList<QUrl> places;
        for (const auto& [letter, native] : m_disk.Drives())
            places.append(QUrl::fromLocalFile(native));
        dialog.setSidebarUrls(places);
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return {};
        QString chosen = dialog.selectedFiles().constFirst();
        while (wanted == Wanted::NewFile && chosen.endsWith(u'.')) // drives have no such names
            chosen.chop(1);
        if (const auto path = m_disk.ToDrivePath(chosen))
            return *path;
        start = chosen;
        MsgBox(Buttons::Ok, forms::Icon::Exclamation, title,
               QCoreApplication::translate(
                   "WindowPrompter",
                   "%1 lies on none of the program's drives. Choose a place on one of them, or map "
                   "its directory to a drive letter in drives.ini.")
                   .arg(chosen));
    }
}

} // namespace vasclip::windows

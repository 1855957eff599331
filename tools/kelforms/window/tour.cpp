#include "kelforms/window/tour.h"

#include "platform/text/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QSaveFile>
#include <QWidget>

#include <cstdio>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace {

constexpr int kLookMs = 50;
constexpr int kSettleMs = 120; ///< for layouts and paints that are still due

/// A word that can stand in a file name.
QString Harmless(const QString& name)
{
    QString word;
    for (const QChar c : name) {
        if (c.isLetterOrNumber() || c == u'-' || c == u'_')
            word += c;
    }
    return word.left(60);
}

} // namespace

void SavePicture(QWidget& window, const QString& file)
{
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) || !window.grab().toImage().save(&target, "PNG") ||
        !target.commit())
        throw vasclip::RuntimeError(
            vasclip::error::kPathFileAccess,
            u"The picture %1 cannot be written: %2"_s.arg(file, target.errorString()));
}

Tour::Tour(QWidget& window, QString directory, std::function<void(const QString& page)> showPage)
    : m_window(window)
    , m_directory(std::move(directory))
    , m_showPage(std::move(showPage))
{
    m_timer.setInterval(kLookMs);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Look(); });
    m_timer.start();
}

void Tour::Shoot()
{
    Take(QString::number(++m_count));
}

void Tour::Look()
{
    QFile order(m_directory + u"/shoot"_s);
    if (m_busy || !order.open(QIODevice::ReadOnly))
        return;
    QString name;
    const QStringList lines = QString::fromUtf8(order.readAll()).split(u'\n');
    order.close();
    for (const QString& line : lines) {
        if (line.startsWith("page="_L1))
            m_showPage(line.mid(5).trimmed());
        else if (line.startsWith("name="_L1))
            name = Harmless(line.mid(5).trimmed());
    }
    if (name.isEmpty())
        name = QString::number(++m_count);
    m_busy = true;
    QTimer::singleShot(kSettleMs, &m_timer, [this, name] {
        Take(name);
        QFile::remove(m_directory + u"/shoot"_s);
        m_busy = false;
    });
}

void Tour::Take(const QString& name)
{
    try {
        SavePicture(m_window, u"%1/kelforms-%2.png"_s.arg(m_directory, name));
    } catch (const vasclip::RuntimeError& failure) {
        std::fprintf(stderr, "kelforms: %s\n", failure.what());
    }
}

} // namespace kelforms

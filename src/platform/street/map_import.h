#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

namespace vasclip::street {

/// What an import says of itself at its end.
struct ImportResult
{
    enum class Ending { Done, Failed, Stopped };
    Ending ending = Ending::Failed;
    QString problem; ///< why it is not Done
    QStringList taken, remarks, leftOut; ///< "648 streets", "8 it has no street"
    QStringList notes; ///< about whole sources
};

/// What becomes of new maps.
enum class Placing { InUse, Beside };

struct ImportOrder
{
    QStringList sources; ///< native
    QString directory; ///< of the maps, native
    QString county, state, source, date; ///< "" for what the sources tell
    QString account; ///< native; "" for none
    Placing placing = Placing::InUse;
};

/// The program `vasclip-mapdata` at work: it alone knows the formats of public street files. It is stopped, and leaves
/// everything as it was, when this goes.
class MapImport
{
public:
    /// Told as it goes on: a part of the whole, and what is done.
    using Heard = std::function<void(int done, int of, const QString& words)>;

    MapImport(const ImportOrder& order, Heard heard);
    ~MapImport();
    MapImport(const MapImport&) = delete;
    MapImport& operator=(const MapImport&) = delete;

    /// Waits for something to happen. @return false once it has ended
    [[nodiscard]] bool GoesOn(int milliseconds);
    void Stop(); ///< it ends soon, unless it is at its last step
    /// After its end.
    [[nodiscard]] const ImportResult& Result() const { return m_result; }

    /// Native path of the program, beside this one.
    [[nodiscard]] static QString Program();

private:
    void Read();
    void Take(const QString& line);
    void End();

    Heard m_heard;
    QProcess m_process;
    QByteArray m_rest; ///< of a line that is not there whole
    bool m_started = false;
    bool m_ended = false;
    ImportResult m_result;
};

} // namespace vasclip::street

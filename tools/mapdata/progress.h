#pragma once

#include <QElapsedTimer>
#include <QString>

namespace vasclip::mapdata {

/// Lines "progress N M words" on the standard output, for a program that shows them.
class Progress
{
public:
    /// @param all  of the whole work, in any unit
    explicit Progress(qint64 all)
        : m_all(all)
    {}

    /// A step of so many units begins.
    void Begin(qint64 units, const QString& words);
    /// @param share  0 to 1, of the step that is under way
    /// @return false when the work is to stop
    [[nodiscard]] bool At(double share);
    void End();

private:
    void Say(double share);

    qint64 m_all;
    qint64 m_before = 0; ///< units of the steps that ended
    qint64 m_units = 0;
    QString m_words;
    qint64 m_said = -1;
    QElapsedTimer m_since;
};

} // namespace vasclip::mapdata

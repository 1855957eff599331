#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace vasclip::app {

/// Nobody answers a box that no step of a tour expects, and the tour would stand for ever: it is told of and closed.
class Strangers : public QObject
{
public:
    /// @param tell  is told of a dialog that stands unexpected, before it is closed
    /// @param end   is called when dialogs keep coming back; it ends the program
    Strangers(std::function<void(QWidget& dialog)> tell, std::function<void()> end);

    /// A dialog that a step looks at; it is none for that long.
    class Visited
    {
    public:
        Visited(Strangers& strangers, QWidget& dialog)
            : m_strangers(strangers)
        {
            m_strangers.m_visited.append(&dialog);
        }
        ~Visited() { m_strangers.m_visited.removeLast(); }
        Visited(const Visited&) = delete;
        Visited& operator=(const Visited&) = delete;

    private:
        Strangers& m_strangers;
    };

private:
    void Look();
    void Close(QWidget& dialog);

    std::function<void(QWidget& dialog)> m_tell;
    std::function<void()> m_end;
    QTimer m_watch;
    QList<QPointer<QWidget>> m_visited;
    QPointer<QWidget> m_seen; ///< stands there unexpected, since m_since
    QElapsedTimer m_since;
    int m_closed = 0;
};

/// What a dialog says: its title and the texts on it.
[[nodiscard]] QString WordsOf(const QWidget& dialog);

} // namespace vasclip::app

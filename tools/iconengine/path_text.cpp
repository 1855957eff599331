#include "iconengine/path_text.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace vasclip::drawing {

namespace {

struct Ellipse
{
    double rx = 0, ry = 0, turn = 0; ///< radii, and degrees that the first one is turned by
    bool large = false, sweep = false;
};

/// An arc between two points, as curves of at most a quarter each. The standard tells its ends; here its middle and its angles
/// are worked out of them (SVG 1.1, F.6.5 and F.6.6).
void AddArc(QPainterPath& path, QPointF a, QPointF b, const Ellipse& ellipse)
{
    double rx = std::abs(ellipse.rx), ry = std::abs(ellipse.ry);
    if (a == b)
        return;
    if (rx == 0 || ry == 0) {
        path.lineTo(b);
        return;
    }
    const double phi = qDegreesToRadians(ellipse.turn), c = std::cos(phi), s = std::sin(phi);
    const QPointF half = (a - b) / 2;
    const double x = c * half.x() + s * half.y(), y = c * half.y() - s * half.x();
    const double tooFar = x * x / (rx * rx) + y * y / (ry * ry);
    if (tooFar > 1) {
        rx *= std::sqrt(tooFar);
        ry *= std::sqrt(tooFar);
    }
    const double reach = rx * rx * y * y + ry * ry * x * x;
    const double factor = (ellipse.large == ellipse.sweep ? -1 : 1) *
                          std::sqrt(std::max(0.0, (rx * rx * ry * ry - reach) / reach));
    const double cx = factor * rx * y / ry, cy = -factor * ry * x / rx;
    const QPointF middle(c * cx - s * cy + (a.x() + b.x()) / 2, s * cx + c * cy + (a.y() + b.y()) / 2);
    const double from = std::atan2((y - cy) / ry, (x - cx) / rx);
    double span = std::atan2((-y - cy) / ry, (-x - cx) / rx) - from;
    if (ellipse.sweep && span < 0)
        span += 2 * M_PI;
    else if (!ellipse.sweep && span > 0)
        span -= 2 * M_PI;

    const auto at = [&](double px, double py) {
        return QPointF(c * rx * px - s * ry * py, s * rx * px + c * ry * py) + middle;
    };
    const int pieces = std::max(1, int(std::ceil(std::abs(span) / M_PI_2 - 1e-9)));
    for (int i = 0; i < pieces; ++i) {
        const double u = from + span * i / pieces, v = from + span * (i + 1) / pieces;
        const double k = 4.0 / 3 * std::tan((v - u) / 4);
        path.cubicTo(at(std::cos(u) - k * std::sin(u), std::sin(u) + k * std::cos(u)),
                     at(std::cos(v) + k * std::sin(v), std::sin(v) - k * std::cos(v)),
                     i + 1 == pieces ? b : at(std::cos(v), std::sin(v)));
    }
}

class Reader
{
public:
    explicit Reader(const QString& text)
        : m_text(text)
    {}

    QPainterPath Read()
    {
        while (SkipBlanks()) {
            const QChar next = m_text[m_at];
            if (next.isLetter()) {
                m_command = next;
                ++m_at;
            } else if (m_command.toUpper() == u'Z') {
                return m_path; // a number where a command has to stand
            }
            if (!Step())
                return m_path;
        }
        return m_path;
    }

private:
    /// @return false at the end
    bool SkipBlanks()
    {
        while (m_at < m_text.size() && (m_text[m_at].isSpace() || m_text[m_at] == u','))
            ++m_at;
        return m_at < m_text.size();
    }

    double Number()
    {
        SkipBlanks();
        const qsizetype from = m_at;
        const auto digits = [this] {
            while (m_at < m_text.size() && m_text[m_at].isDigit())
                ++m_at;
        };
        const auto sign = [this] {
            if (m_at < m_text.size() && (m_text[m_at] == u'-' || m_text[m_at] == u'+'))
                ++m_at;
        };
        sign();
        digits();
        if (m_at < m_text.size() && m_text[m_at] == u'.') {
            ++m_at;
            digits();
        }
        if (m_at > from && m_at < m_text.size() && m_text[m_at].toLower() == u'e') {
            ++m_at;
            sign();
            digits();
        }
        bool good = false;
        const double number = QStringView(m_text).mid(from, m_at - from).toDouble(&good);
        m_good = m_good && good;
        return number;
    }

    /// The flags of an arc are single digits, which need no blank behind them.
    bool Flag()
    {
        m_good = m_good && SkipBlanks() && (m_text[m_at] == u'0' || m_text[m_at] == u'1');
        return m_good && m_text[m_at++] == u'1';
    }

    QPointF Point()
    {
        const double x = Number();
        const double y = Number();
        return Origin() + QPointF(x, y);
    }

    [[nodiscard]] QPointF Origin() const { return m_command.isLower() ? m_path.currentPosition() : QPointF(); }

    /// The control point before, mirrored at where the pen stands, if a command of that kind was before.
    [[nodiscard]] QPointF Mirrored(QChar kind) const
    {
        const QPointF here = m_path.currentPosition();
        return m_before == kind ? 2 * here - m_control : here;
    }

    void CurveTo(const QPointF& first)
    {
        m_control = Point();
        const QPointF to = Point();
        if (m_good)
            m_path.cubicTo(first, m_control, to);
        m_before = u'C';
    }

    void QuadTo(const QPointF& control)
    {
        m_control = control;
        const QPointF to = Point();
        if (m_good)
            m_path.quadTo(control, to);
        m_before = u'Q';
    }

    void LineTo(const QPointF& to)
    {
        if (m_good)
            m_path.lineTo(to);
    }

    void ArcTo()
    {
        Ellipse ellipse;
        ellipse.rx = Number();
        ellipse.ry = Number();
        ellipse.turn = Number();
        ellipse.large = Flag();
        ellipse.sweep = Flag();
        const QPointF to = Point();
        if (m_good)
            AddArc(m_path, m_path.currentPosition(), to, ellipse);
    }

    /// One command with its numbers. @return false if that was no command
    bool Step()
    {
        const QChar kind = m_command.toUpper();
        const QPointF here = m_path.currentPosition();
        switch (kind.unicode()) {
        case u'M':
            if (const QPointF to = Point(); m_good)
                m_path.moveTo(to);
            m_command = m_command.isLower() ? u'l' : u'L'; // what further points draw
            break;
        case u'L': LineTo(Point()); break;
        case u'H': LineTo({Origin().x() + Number(), here.y()}); break;
        case u'V': LineTo({here.x(), Origin().y() + Number()}); break;
        case u'C': CurveTo(Point()); break;
        case u'S': CurveTo(Mirrored(u'C')); break;
        case u'Q': QuadTo(Point()); break;
        case u'T': QuadTo(Mirrored(u'Q')); break;
        case u'A': ArcTo(); break;
        case u'Z': m_path.closeSubpath(); break;
        default: return false;
        }
        if (kind != u'C' && kind != u'S' && kind != u'Q' && kind != u'T')
            m_before = {};
        return m_good;
    }

    const QString& m_text;
    qsizetype m_at = 0;
    bool m_good = true;
    QPainterPath m_path;
    QChar m_command, m_before;
    QPointF m_control;
};

} // namespace

QPainterPath ReadPath(const QString& text)
{
    return Reader(text).Read();
}

} // namespace vasclip::drawing

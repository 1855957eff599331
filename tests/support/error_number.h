#pragma once

#include "platform/text/runtime_error.h"

#include <QString>

#include <ostream>
#include <string>

namespace vasclip::tests {

/// What a call threw: its number and words, or 0 and "".
struct Thrown
{
    int number = 0;
    QString words;
};

template <class Call>
Thrown ThrownBy(Call&& call)
{
    try {
        (void)call();
    } catch (const RuntimeError& failure) {
        return {failure.Number(), failure.Description()};
    }
    return {};
}

template <class Call>
int NumberOf(Call&& call)
{
    return ThrownBy([&] {
               call();
               return 0;
           })
        .number;
}

} // namespace vasclip::tests

QT_BEGIN_NAMESPACE
/// Shows texts in failures of GoogleTest as texts.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

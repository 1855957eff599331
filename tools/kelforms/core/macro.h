#pragma once

#include <QList>
#include <QString>

namespace kelforms {

/// An argument of a statement: a text in quotes, a whole number, or a function with one argument.
struct MacroValue
{
    enum class Kind { Text, Number, Call };
    Kind kind = Kind::Text;
    QString text;     ///< the text, the number's digits, or the function's name in upper case ("GETIMAGES$")
    QString argument; ///< of a function, as it stands between its parentheses
    qsizetype at = 0; ///< the character on which it begins, from 1
};

struct MacroStatement
{
    QString keyword; ///< upper case
    QList<MacroValue> values;
    qsizetype at = 0;
};

/// What a command asks for: a script file, or statements.
struct Macro
{
    QString script;
    QList<MacroStatement> statements;
};

/// Reads "[RunMacro( ... )]", the form in which commands come over the link.
///
///     command    = "[" "RunMacro" "(" ( file | statements ) ")" "]"      blanks and line ends between are
///     free file       = a name with a point in it and none of  " ( ) [ ] ,  and no line end statements =
///     statement { line end statement } statement  = word [ value { "," value } ] value      = text in quotes
///     | digits | word "$" "(" anything up to ")" ")"
///
/// Words are read without regard to case; in a text `\\` is one backslash and `\"` a quote.
/// @throws RuntimeError 285 that says what was expected at which character
[[nodiscard]] Macro ParseCommand(const QString& command);

/// Reads the statements of a script file; a line that begins with ' is a comment.
/// @throws RuntimeError 285 that names the line
[[nodiscard]] QList<MacroStatement> ParseScript(const QString& text);

} // namespace kelforms

#pragma once

#include <QCommandLineParser>
#include <QStringList>

namespace vasclip::vasctl {

/// What is wrong with the values of the options: none where one is wanted, or two of an option that takes one. "" if all are
/// good.
QString WrongValue(const QCommandLineParser& options);

/// What is wrong with the command and its verb; "" for one that is known. Told before the home is looked at.
[[nodiscard]] QString StrangeCommand(const QStringList& command);

/// Of the options that were given, the first that means nothing to the command; "" if all of them do. Left
/// unsaid, somebody would think that it was heeded.
/// @param command  the words of the command line without its options
[[nodiscard]] QString StrangeOption(const QStringList& command, const QStringList& given);

/// The arguments with the numbers below zero of a map command told from options, as the parser then takes them.
[[nodiscard]] QStringList WithSouthAndWest(QStringList arguments);
/// The command and its words, those numbers as they were given.
[[nodiscard]] QStringList CommandOf(const QCommandLineParser& options);

} // namespace vasclip::vasctl

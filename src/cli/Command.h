#pragma once

#include "Invocation.h"

#include <QString>
#include <QStringList>

namespace ostrel {

/// A command of `ostrel COMMAND`.
struct Command
{
    QString name;
    QString summary; ///< Begins in lower case; at most 60 characters.
    QString help;    ///< All of `ostrel COMMAND --help`: lines of at most 80 characters.
    /// Parses the arguments behind the command; the first is the program's name.
    Invocation (*parse)(const QStringList &arguments);
};

} // namespace ostrel

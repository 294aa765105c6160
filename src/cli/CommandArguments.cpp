#include "CommandArguments.h"

#include "MonitorStore.h"
#include "OneLine.h"

#include <QDir>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ostrel {

QCommandLineOption dataDirOption()
{
    return {u"data-dir"_s, {}, u"DIR"_s};
}

QCommandLineOption jsonOption()
{
    return {u"json"_s, {}};
}

std::optional<qint64> portFrom(const QString &value)
{
    bool isNumber = false;
    const int port = value.toInt(&isNumber);
    if (!isNumber || port < 1 || port > std::numeric_limits<quint16>::max())
        return std::nullopt;
    return port;
}

std::optional<double> positiveNumberFrom(const QString &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || number <= 0)
        return std::nullopt;
    return number;
}

OutputFormat formatOf(const QCommandLineParser &parser)
{
    return parser.isSet(u"json"_s) ? OutputFormat::json : OutputFormat::human;
}

std::optional<QString> dataDirOf(const QCommandLineParser &parser)
{
    if (!parser.isSet(u"data-dir"_s))
        return MonitorStore::defaultStorageDir();
    const QString given = parser.value(u"data-dir"_s);
    return given.isEmpty() ? std::nullopt : std::optional(QDir(given).absolutePath());
}

QString quoted(const QString &argument)
{
    return u'\'' + oneLine(argument) + u'\'';
}

QString noTarget(const QString &typed)
{
    if (typed.isEmpty())
        return u"The address is empty."_s;
    return quoted(typed) + u" is no web address and no HOST:PORT. A web address begins "
                           "with https:// or http://."_s;
}

UnusableInvocation unusable(const QString &reason)
{
    return {.reason = reason};
}

UnusableInvocation unusableOption(const QCommandLineParser &parser, const QString &name)
{
    return unusable(quoted(parser.value(name)) + u" is no usable value for --"_s + name + u'.');
}

UnusableInvocation unusableLine(const QCommandLineParser &parser)
{
    return unusable(oneLine(parser.errorText()));
}

std::optional<UnusableInvocation> excessOf(const QCommandLineParser &parser, qsizetype count)
{
    const QStringList positionals = parser.positionalArguments();
    if (positionals.size() <= count)
        return std::nullopt;
    return unusable(u"Unexpected argument "_s + quoted(positionals.at(count)) + u'.');
}

} // namespace ostrel

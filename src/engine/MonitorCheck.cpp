#include "MonitorCheck.h"

#include <QPromise>

#include <exception>

using namespace Qt::StringLiterals;

namespace ostrel {

QFuture<Check> beginCheck(MonitorCheck &check, const Monitor &monitor)
{
    try {
        return check.run(monitor);
    } catch (const std::exception &) {
        QPromise<Check> cancelled;
        cancelled.start();
        return cancelled.future();
    }
}

Check outcomeOf(const QFuture<Check> &run, const Monitor &monitor)
{
    if (!run.isCanceled())
        return run.result();
    Check check = newCheck(monitor, systemNow());
    check.error = u"The check could not be carried out"_s;
    return check;
}

} // namespace ostrel

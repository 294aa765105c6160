#include "Check.h"

#include <QHashFunctions>

namespace ostrel {

static_assert(sizeof(Check) == 72 || sizeof(void *) != 8);

size_t qHash(const Check &check, size_t seed)
{
    const auto &c = check;
    return qHashMulti(seed, c.id, c.monitorId, c.timestamp.time_since_epoch().count(),
                      c.statusCode.value_or(-1), c.isUp, c.keywordFound.has_value(),
                      c.keywordFound.value_or(false), c.responseTime, c.error.has_value(),
                      c.error.value_or(QString()),
                      c.sslExpiresAt.value_or(Timestamp::min()).time_since_epoch().count());
}

} // namespace ostrel

#include "Check.h"

#include <QHashFunctions>

namespace ostrel {

static_assert(sizeof(Check) == 72 || sizeof(void *) != 8);

size_t qHash(const Check &check, size_t seed)
{
    const auto &c = check;
    return qHashMulti(seed, c.id, c.monitorId, c.timestamp.time_since_epoch().count(),
                      c.statusCode.value_or(-1), c.isUp, int(c.keywordFound.value_or(false)),
                      c.responseTime, c.error.value_or(QString()),
                      c.sslExpiresAt.value_or(Timestamp()).time_since_epoch().count());
}

} // namespace ostrel

#include "SharedUuid.h"

#include <mutex>
#include <set>

namespace ostrel {

namespace {

class KnownIds
{
public:
    static KnownIds &instance()
    {
        static KnownIds ids;
        return ids;
    }

    /// The one that equals @p id, for ever.
    const QUuid *find(const QUuid &id)
    {
        const std::lock_guard lock(m_mutex);
        return &*m_ids.insert(id).first;
    }

private:
    std::mutex m_mutex;
    std::set<QUuid> m_ids;
};

} // namespace

SharedUuid::SharedUuid(const QUuid &id)
    : m_id(id.isNull() ? &null : KnownIds::instance().find(id))
{
}

} // namespace ostrel

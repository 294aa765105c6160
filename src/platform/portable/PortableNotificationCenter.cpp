#include "PortableNotificationCenter.h"

#include <utility>

namespace ostrel {

PortableNotificationCenter::PortableNotificationCenter(NotificationPresenter presenter)
    : m_presenter(std::move(presenter))
{
}

void PortableNotificationCenter::add(const NotificationRequest &request)
{
    if (m_presenter)
        m_presenter(request);
}

} // namespace ostrel

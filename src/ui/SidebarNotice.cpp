#include "SidebarNotice.h"

#include "NetworkPresence.h"

namespace ostrel {

SidebarNotice::SidebarNotice(const NetworkPresence &presence, QObject *parent)
    : QObject(parent)
    , m_presence(presence)
{
    connect(&m_presence, &NetworkPresence::isPresentChanged, this, &SidebarNotice::update);
    update();
}

void SidebarNotice::update()
{
    m_isNeeded = !m_presence.isPresent();
    if (m_isNeeded)
        m_message = {.text = tr("Offline. Checks wait for the network."),
                     .symbol = QStringLiteral("network"),
                     .tone = Tone::Secondary};
    Q_EMIT changed();
}

} // namespace ostrel

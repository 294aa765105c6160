#include "SidebarNotice.h"

#include "FolderText.h"
#include "MonitorStore.h"
#include "NetworkPresence.h"
#include "OneLine.h"
#include "ProductConstants.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace ostrel {

SidebarNotice::SidebarNotice(const MonitorStore &store, const NetworkPresence &presence,
                             QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_presence(presence)
{
    connect(&m_store, &MonitorStore::canSaveChanged, this, &SidebarNotice::update);
    connect(&m_presence, &NetworkPresence::isPresentChanged, this, &SidebarNotice::update);
    update();
}

void SidebarNotice::takeHelpAnswer(bool isTaken)
{
    m_lacksMail = !isTaken;
    update();
}

void SidebarNotice::copyAddress()
{
    QGuiApplication::clipboard()->setText(supportAddress().path());
    takeHelpAnswer(true);
}

void SidebarNotice::update()
{
    const auto message = currentMessage();
    m_isNeeded = message.has_value();
    if (message)
        m_message = *message;
    Q_EMIT changed();
}

std::optional<SidebarNotice::Message> SidebarNotice::currentMessage() const
{
    // Possible data loss has priority.
    if (!m_store.canSave()) {
        QString folder = folderText(m_store.storageDir(), QDir::homePath());
        folder.chop(1); // Removes the slash, since a full stop follows.
        return Message{.text = tr("Can't save to %1.").arg(oneLine(folder)),
                       .symbol = u"exclamationmark.triangle.fill"_s,
                       .tone = Tone::Warning};
    }
    // The user has just asked for it.
    if (m_lacksMail)
        return Message{.text = tr("No mail program. Write to %1.").arg(supportAddress().path()),
                       .symbol = u"questionmark.circle"_s,
                       .tone = Tone::Secondary,
                       .hasAddress = true};
    if (!m_presence.isPresent())
        return Message{.text = tr("Offline. Checks wait for the network."),
                       .symbol = u"network"_s,
                       .tone = Tone::Secondary};
    return std::nullopt;
}

} // namespace ostrel

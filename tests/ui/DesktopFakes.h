#pragma once

#include "LoginItem.h"
#include "Workspace.h"

#include <QStringList>
#include <QUrl>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// Records what the desktop was asked to open, and opens nothing.
class RecordingWorkspace : public Workspace
{
public:
    QFuture<bool> open(const QUrl &url) override
    {
        record(url.toString());
        return QtFuture::makeReadyFuture(isTaking);
    }
    bool openFolder(const QString &path) override { return record(path); }
    bool openNotificationSettings() override { return record(u"notifications"_s); }

    QStringList opened;
    bool isTaking = true; ///< Whether a program takes the addresses.

private:
    bool record(const QString &what)
    {
        opened += what;
        return false; // The result isn't used.
    }
};

/// Records its calls, and refuses them if the test says so.
class RecordingLoginItem : public LoginItem
{
public:
    bool registerItem() override { return record(u"register"_s); }
    bool unregisterItem() override { return record(u"unregister"_s); }

    QStringList calls;
    bool isRefusing = false;

private:
    bool record(const QString &call)
    {
        calls += call;
        return !isRefusing;
    }
};

} // namespace ostrel::test

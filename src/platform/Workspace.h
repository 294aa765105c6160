#pragma once

class QString;
class QUrl;

namespace ostrel {

/// Opens addresses and folders with the programs that the user has chosen for them. Main thread.
///
/// Every function returns at once: true where the desktop has been asked, false where there is
/// nobody to ask or nothing to ask for. What the desktop makes of it is not told.
class Workspace
{
public:
    Workspace() = default;
    Workspace(const Workspace &) = delete;
    Workspace &operator=(const Workspace &) = delete;
    virtual ~Workspace() = default;

    /// @p url is absolute.
    virtual bool open(const QUrl &url) = 0;
    /// Shows what is in the folder @p path, which is absolute and exists.
    virtual bool openFolder(const QString &path) = 0;
    /// Shows where the desktop lets its user choose how notifications appear.
    virtual bool openNotificationSettings() = 0;
};

} // namespace ostrel

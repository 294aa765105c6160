#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

class Workspace;

/// The views' requests to the desktop. Nothing is shown if the desktop can't fulfil them, but for a
/// message to the support. Main thread.
class DesktopActions : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    /// The data folder as users read it: "~/.local/share/Vantry/".
    Q_PROPERTY(QString dataFolderText READ dataFolderText CONSTANT)

public:
    /// @p storageDir is the data folder. @p workspace must outlive this object.
    DesktopActions(Workspace &workspace, const QString &storageDir, QObject *parent = nullptr);

    [[nodiscard]] QString dataFolderText() const;

    /// Starts a message to the product's support.
    Q_INVOKABLE void getHelp();
    Q_INVOKABLE void openWebsite(const QUrl &website);
    /// Puts @p text on the clipboard.
    Q_INVOKABLE void copyText(const QString &text);
    Q_INVOKABLE void openNotificationSettings();
    /// Shows the contents of the data folder.
    Q_INVOKABLE void revealDataFolder();

Q_SIGNALS:
    /// Help was asked for: whether a mail program has taken the message.
    void helpAnswered(bool isTaken);

private:
    Workspace &m_workspace;
    QString m_storageDir;
};

} // namespace ostrel

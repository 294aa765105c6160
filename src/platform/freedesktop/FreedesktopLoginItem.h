#pragma once

#include "LoginItem.h"

#include <QByteArray>
#include <QString>

namespace ostrel {

/// The desktop's autostart entry, which is named after the application's id and lies in the folder
/// `autostart` of the user's configuration folder.
///
/// An entry of the program's former name, `ostrel.desktop`, is renamed as it is, or removed if
/// there is a present one. An entry that already starts this program, or that the user has disabled
/// with the desktop's own settings, isn't changed.
class FreedesktopLoginItem final : public LoginItem
{
public:
    /// For the running program.
    FreedesktopLoginItem();
    /// For the program at @p executable, an absolute path.
    explicit FreedesktopLoginItem(const QString &executable);

    bool registerItem() override;
    bool unregisterItem() override;

private:
    void takeFormerEntryOver() const;
    [[nodiscard]] QString command() const;
    [[nodiscard]] QByteArray entry() const;
    [[nodiscard]] bool isSettled() const;

    QString m_executable;
    QString m_file;
    QString m_formerFile;
};

} // namespace ostrel

#pragma once

#include <QSettings>
#include <QTemporaryDir>

namespace ostrel::test {

/// Objects created after it keep their preferences in a folder of its own.
struct PrivatePreferences
{
    PrivatePreferences()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    }

    QTemporaryDir folder;
};

} // namespace ostrel::test

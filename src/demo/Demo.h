#pragma once

#include "DemoSites.h"

#include <QString>
#include <QTemporaryDir>

namespace ostrel {

/// A place to try the program out: a fresh folder with a month of history, and servers on this
/// computer to watch. Nothing of the user's own is touched. The folder is removed at the end of
/// this object. Main thread; needs an application object.
class Demo
{
public:
    /// Starts the servers and fills the folder. False if that fails; reason() then says why.
    [[nodiscard]] bool start();
    [[nodiscard]] const QString &reason() const { return m_reason; }

    [[nodiscard]] QString dataDir() const;
    /// Where this program keeps its preferences from now on, instead of the user's place.
    [[nodiscard]] QString preferencesDir() const;
    /// A bundle of the authorities in the file @p others, which may be empty, and of the demo's
    /// own. Empty if it can't be written.
    [[nodiscard]] QByteArray trustBundle(const QByteArray &others) const;

private:
    [[nodiscard]] bool writeRecords(Timestamp now);
    void writeIcons() const;
    bool fail(const QString &reason);

    QTemporaryDir m_folder;
    DemoSites m_sites;
    QString m_reason;
};

} // namespace ostrel

#pragma once

#include "BoundProcess.h"

#include <QString>
#include <QTemporaryDir>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// An X server without a screen (Xvfb), on a display number that was free. Ends with this object.
class VirtualDisplay
{
public:
    VirtualDisplay();

    /// False if the server didn't start.
    [[nodiscard]] bool isRunning() const { return !m_name.isEmpty(); }
    /// The value for DISPLAY: ":5".
    [[nodiscard]] const QString &name() const { return m_name; }

    /// The file that always holds what the display shows, in the X window dump format.
    [[nodiscard]] QString dumpFile() const { return m_folder.filePath(u"Xvfb_screen0"_s); }

private:
    QTemporaryDir m_folder;
    BoundProcess m_server;
    QString m_name;
};

} // namespace ostrel::test

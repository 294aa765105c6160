#pragma once

#include "BoundProcess.h"

#include <QString>

namespace ostrel::test {

/// An X server without a screen (Xvfb), on a display number that was free. Ends with this object.
class VirtualDisplay
{
public:
    VirtualDisplay();

    /// False where the server didn't start.
    [[nodiscard]] bool isRunning() const { return !m_name.isEmpty(); }
    /// For DISPLAY: ":5".
    [[nodiscard]] const QString &name() const { return m_name; }

private:
    BoundProcess m_server;
    QString m_name;
};

} // namespace ostrel::test

#include "VirtualDisplay.h"

namespace ostrel::test {

VirtualDisplay::VirtualDisplay()
{
    m_server.logTo(QProcess::nullDevice());
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1280x960x24"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp"), QStringLiteral("-noreset"), QStringLiteral("-fbdir"),
                    m_folder.path()});
    const QByteArray number = m_server.nextLine();
    if (!number.isEmpty())
        m_name = u':' + QString::fromUtf8(number);
}

} // namespace ostrel::test

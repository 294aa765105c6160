#include "VirtualDisplay.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

VirtualDisplay::VirtualDisplay()
{
    m_server.logTo(QProcess::nullDevice());
    m_server.start(u"Xvfb"_s,
                   {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x960x24"_s, u"-nolisten"_s,
                    u"tcp"_s, u"-noreset"_s, u"-fbdir"_s, m_folder.path()});
    const QByteArray number = m_server.nextLine();
    if (!number.isEmpty())
        m_name = u':' + QString::fromUtf8(number);
}

} // namespace ostrel::test

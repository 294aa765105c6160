#include "SSLCaptureDelegate.h"

namespace ostrel {

void SSLCaptureDelegate::didReceiveLeafCertificate(std::chrono::sys_seconds notAfter)
{
    m_expiryDate = notAfter;
}

} // namespace ostrel

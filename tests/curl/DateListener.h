#pragma once

#include "TlsDelegate.h"

#include <chrono>
#include <vector>

namespace ostrel::test {

/// Records every date that it is notified of.
class DateListener final : public TlsDelegate
{
public:
    void didReceiveLeafCertificate(std::chrono::sys_seconds notAfter) override
    {
        dates.push_back(notAfter);
    }

    std::vector<std::chrono::sys_seconds> dates;
};

} // namespace ostrel::test

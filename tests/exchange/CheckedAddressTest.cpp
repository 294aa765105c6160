#include "CheckedAddress.h"

#include "ExchangeSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

TEST(CheckedAddressTest, IsAnAddressOrAHostAndAPort)
{
    Monitor withoutPort = portMonitor(1, u"db.local"_s, 1);
    withoutPort.port.reset();
    const struct
    {
        Monitor monitor;
        QString address;
    } cases[] = {
        {website(1, u"https://example.com/a?b=c"_s), u"https://example.com/a?b=c"_s},
        {portMonitor(1, u"db.local"_s, 5432), u"db.local:5432"_s},
        {portMonitor(1, u"http://db.local/x"_s, 5432), u"db.local:5432"_s},
        {portMonitor(1, u"::1"_s, 22), u"[::1]:22"_s},
        {portMonitor(1, u"[::1]"_s, 22), u"[::1]:22"_s},
        {withoutPort, u"db.local"_s},
    };
    for (const auto &each : cases)
        EXPECT_EQ(checkedAddress(each.monitor), each.address);
}

} // namespace ostrel::test

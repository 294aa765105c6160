#include "ApplicationId.h"

using namespace Qt::StringLiterals;

namespace ostrel {

QString applicationId()
{
    return u"" OSTREL_APPLICATION_ID ""_s;
}

} // namespace ostrel

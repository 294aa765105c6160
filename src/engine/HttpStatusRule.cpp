#include "HttpStatusRule.h"

namespace ostrel {

bool isUpStatus(int statusCode)
{
    return (statusCode >= 200 && statusCode <= 399) || statusCode == 401 || statusCode == 403;
}

} // namespace ostrel

#include "CurlNetwork.h"

/// What the program finds in the library that it loads for the network; the caller's to delete.
extern "C" Q_DECL_EXPORT ostrel::Network *makeOstrelNetwork()
{
    return new ostrel::CurlNetwork;
}

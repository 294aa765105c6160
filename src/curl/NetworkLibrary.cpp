#include "CurlNetwork.h"
#include "WorkThread.h"

/// What the program finds in the library that it loads for the network; the caller's to delete.
extern "C" Q_DECL_EXPORT ostrel::Network *makeOstrelNetwork()
{
    return new ostrel::CurlNetwork;
}

/// Whether a thread of the library's was still at work when its network was destroyed.
extern "C" Q_DECL_EXPORT bool isOstrelNetworkLeftBehind()
{
    return ostrel::WorkThread::isAnyLeftBehind();
}

#include "TcpConnector.h"

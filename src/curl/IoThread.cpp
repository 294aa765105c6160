#include "IoThread.h"

#include "IoThreadWorker.h"

#include <utility>

namespace ostrel {

IoThread::IoThread(IoThreadConfiguration configuration)
    : m_worker(std::make_unique<Worker>(std::move(configuration)))
{
}

IoThread::~IoThread() = default;

void IoThread::dropConnections()
{
    m_worker->dropConnections();
}

} // namespace ostrel

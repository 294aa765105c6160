#pragma once

#include <QtGlobal>

#include <memory>

namespace ostrel {

class MonitorStore;
class MonitoringEngine;

/// An engine without network and notifications: none of its checks ever ends.
class CannedEngine
{
public:
    /// @p store outlives it.
    explicit CannedEngine(MonitorStore &store);
    ~CannedEngine();
    Q_DISABLE_COPY_MOVE(CannedEngine)

    [[nodiscard]] MonitoringEngine &engine();

private:
    struct Parts;

    std::unique_ptr<Parts> m_parts;
};

} // namespace ostrel

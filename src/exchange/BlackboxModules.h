#pragma once

#include "ProbedMonitor.h"

#include <QByteArray>
#include <QList>

namespace ostrel {

/// The modules of several monitors, each once, and their names.
class BlackboxModules
{
public:
    /// The name of @p module, for example "http_get_30s"; adds it if it is new.
    QByteArray nameOf(const ProbeModule &module);
    /// The blackbox exporter's configuration file.
    [[nodiscard]] QByteArray yaml() const;

private:
    struct Named
    {
        ProbeModule module;
        QByteArray name;
    };

    [[nodiscard]] QByteArray newNameFor(const ProbeModule &module) const;

    QList<Named> m_modules;
};

} // namespace ostrel

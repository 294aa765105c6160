#pragma once

#include "AtomicFile.h"
#include "StoredRecords.h"

#include <QByteArray>
#include <QList>

namespace ostrel::test {

/// A monitor of @p url with an id that ends in @p number.
[[nodiscard]] Monitor website(int number, const QString &url);
[[nodiscard]] Monitor portMonitor(int number, const QString &host, qint64 port);

/// A check of @p monitor, @p minute minutes after 1 January 2026, that took 250 ms.
[[nodiscard]] Check checkAt(const Monitor &monitor, int minute, bool isUp);

[[nodiscard]] StoredRecords recordsOf(const QList<Monitor> &monitors,
                                      const QList<Check> &checks = {});

/// What @p append appends; empty if it can't be written.
[[nodiscard]] QByteArray written(const std::function<void(ContentWriter &)> &append);

} // namespace ostrel::test

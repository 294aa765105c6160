#pragma once

#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// The layout of the statistic cards' figures in their row.
class StatisticLayout : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// The size of the values if the row has room for all.
    static constexpr int largestValue = 32;
    static constexpr int smallestValue = 16;

    /// The common size for the values of all @p statistics, in pixels: the largest at which each
    /// fits in @p room together with its unit, @p unitGap away from it; never below the smallest.
    Q_INVOKABLE [[nodiscard]] static int valueSize(const QVariantList &statistics, qreal room,
                                                   qreal unitGap);
};

} // namespace ostrel

#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// Colours that C++ draws with. Views use them under the same names.
class ThemeColors : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QColor statusDown READ statusDown CONSTANT)

public:
    [[nodiscard]] static QColor statusDown() { return QColor::fromRgbF(0.92F, 0.34F, 0.30F); }
    /// Legible on light and on dark backgrounds.
    [[nodiscard]] static QColor onAnyGround() { return QColor::fromRgbF(0.5F, 0.5F, 0.5F); }
};

} // namespace ostrel

#pragma once

#include "DesktopActions.h"
#include "Settings.h"

#include <QObject>
#include <QTemporaryDir>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace ostrel {

/// Preferences in a folder of their own, on a desktop that does nothing.
class CannedSettings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ostrel::Settings *settings READ settings CONSTANT)
    Q_PROPERTY(ostrel::DesktopActions *actions READ actions CONSTANT)

public:
    explicit CannedSettings(QObject *parent = nullptr);
    ~CannedSettings() override;

    [[nodiscard]] Settings *settings();
    [[nodiscard]] DesktopActions *actions();

private:
    struct Parts;

    std::unique_ptr<Parts> m_parts;
};

} // namespace ostrel

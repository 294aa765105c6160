#pragma once

#include "WindowModels.h"

#include <QObject>
#include <QStringList>
#include <QUuid>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace ostrel {

/// Everything that the window shows, over a store of made-up monitors. Changes made there are
/// neither kept nor watched.
class CannedWindow : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// One of samples(); set once.
    Q_PROPERTY(QString sample READ sample WRITE setSample REQUIRED)
    Q_PROPERTY(ostrel::WindowModels *models READ models CONSTANT)
    /// A QUuid: the monitor whose page is to be shown; null for the dashboard.
    Q_PROPERTY(QVariant selectedMonitorId READ selectedMonitorId CONSTANT)

public:
    explicit CannedWindow(QObject *parent = nullptr);
    ~CannedWindow() override;

    /// The names of the states. In a page's name, a gesture of GalleryGesture may follow.
    [[nodiscard]] static QStringList samples();

    [[nodiscard]] QString sample() const { return m_sample; }
    void setSample(const QString &sample);
    [[nodiscard]] WindowModels *models();
    [[nodiscard]] QVariant selectedMonitorId() const { return m_selectedMonitorId; }

private:
    struct Parts;

    QString m_sample;
    QUuid m_selectedMonitorId;
    std::unique_ptr<Parts> m_parts;
};

} // namespace ostrel

#pragma once

#include "MonitorDetailModel.h"
#include "MonitorStore.h"

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// A made-up monitor's values for the detail page, at a fixed moment.
class CannedDetail : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// One of samples(); set once.
    Q_PROPERTY(QString sample READ sample WRITE setSample REQUIRED)
    Q_PROPERTY(ostrel::MonitorDetailModel *model READ model CONSTANT)

public:
    explicit CannedDetail(QObject *parent = nullptr);

    [[nodiscard]] static QStringList samples();

    [[nodiscard]] QString sample() const { return m_sample; }
    void setSample(const QString &sample);
    [[nodiscard]] MonitorDetailModel *model() { return &m_model; }

private:
    QTemporaryDir m_folder;
    QString m_sample;
    MonitorStore m_store;
    MonitorDetailModel m_model;
};

} // namespace ostrel

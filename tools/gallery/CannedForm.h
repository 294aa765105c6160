#pragma once

#include "MonitorForm.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace ostrel {

/// The form as a user has filled it in. Monitors saved in it are neither kept nor watched.
class CannedForm : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// One of samples().
    Q_PROPERTY(QString sample READ sample WRITE setSample REQUIRED)
    Q_PROPERTY(ostrel::MonitorForm *form READ form CONSTANT)

public:
    explicit CannedForm(QObject *parent = nullptr);
    ~CannedForm() override;

    [[nodiscard]] static QStringList samples();

    [[nodiscard]] QString sample() const { return m_sample; }
    void setSample(const QString &sample);
    [[nodiscard]] MonitorForm *form();

private:
    struct Parts;

    QString m_sample;
    std::unique_ptr<Parts> m_parts;
};

} // namespace ostrel

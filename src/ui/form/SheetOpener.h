#pragma once

#include "MonitorForm.h"

#include <QObject>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// Fills the form each time its sheet is shown, with the clipboard's text at that moment. Main
/// thread.
class SheetOpener : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(ostrel::MonitorForm *form READ form CONSTANT)

public:
    /// Both must outlive this object.
    SheetOpener(const MonitorStore &store, MonitorForm &form, QObject *parent = nullptr);

    [[nodiscard]] MonitorForm *form() const { return &m_form; }

    /// Starts a new monitor.
    Q_INVOKABLE void beginCreate();
    /// Starts editing the monitor with this id. False, without any effect, if there is none.
    Q_INVOKABLE bool beginEdit(const QUuid &monitorId);

Q_SIGNALS:
    /// Emitted by the application, to the window: the sheet for a new monitor is wanted. A sheet
    /// that is open stays.
    void createRequested();

private:
    const MonitorStore &m_store;
    MonitorForm &m_form;
};

} // namespace ostrel

#include "SheetOpener.h"

#include "MonitorStore.h"

#include <QClipboard>
#include <QGuiApplication>

namespace ostrel {

SheetOpener::SheetOpener(const MonitorStore &store, MonitorForm &form, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_form(form)
{
}

void SheetOpener::beginCreate()
{
    m_form.beginCreate(QGuiApplication::clipboard()->text());
}

bool SheetOpener::beginEdit(const QUuid &monitorId)
{
    const auto monitor = m_store.monitor(monitorId);
    if (!monitor)
        return false;
    m_form.beginEdit(*monitor, QGuiApplication::clipboard()->text());
    return true;
}

} // namespace ostrel

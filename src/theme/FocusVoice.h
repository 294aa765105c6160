#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>

namespace ostrel {

/// Notifies assistive tools which item of a list or grid the keys go to. Only the list itself has
/// the focus, so otherwise they wouldn't be notified when the current item changes.
class FocusVoice : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Null while the keys go elsewhere. Not owned.
    Q_PROPERTY(QQuickItem *item READ item WRITE setItem NOTIFY itemChanged FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem *item() const { return m_item; }
    void setItem(QQuickItem *item);

Q_SIGNALS:
    void itemChanged();

private:
    QPointer<QQuickItem> m_item;
};

} // namespace ostrel

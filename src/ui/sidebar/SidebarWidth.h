#pragma once

#include "StoredPreferences.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// The width of the sidebar: the width that the user dragged it to, which is stored, but in a
/// narrow window the minimum. Lengths in device-independent pixels, the width a whole number of
/// them.
class SidebarWidth : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal minimum MEMBER m_minimum NOTIFY changed REQUIRED FINAL)
    Q_PROPERTY(qreal maximum MEMBER m_maximum NOTIFY changed REQUIRED FINAL)
    /// The width until the user has dragged it.
    Q_PROPERTY(qreal ideal MEMBER m_ideal NOTIFY changed REQUIRED FINAL)
    Q_PROPERTY(qreal windowWidth MEMBER m_windowWidth NOTIFY changed REQUIRED FINAL)
    /// Below this width of the window, the sidebar has its minimum width.
    Q_PROPERTY(qreal givesWayBelow MEMBER m_givesWayBelow NOTIFY changed REQUIRED FINAL)
    Q_PROPERTY(qreal width READ width NOTIFY changed FINAL)
    /// Whether the window is so narrow that the user's width is ignored.
    Q_PROPERTY(bool givesWay READ givesWay NOTIFY changed FINAL)

public:
    explicit SidebarWidth(QObject *parent = nullptr);

    [[nodiscard]] qreal width() const;
    [[nodiscard]] bool givesWay() const { return m_windowWidth < m_givesWayBelow; }
    /// Sets @p width, or the nearest allowed width, and stores it.
    Q_INVOKABLE void drag(qreal width);

Q_SIGNALS:
    void changed();

private:
    qreal m_minimum = 0;
    qreal m_maximum = 0;
    qreal m_ideal = 0;
    qreal m_windowWidth = 0;
    qreal m_givesWayBelow = 0;
    StoredPreferences m_values;
};

} // namespace ostrel

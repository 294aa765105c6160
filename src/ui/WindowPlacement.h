#pragma once

#include "StoredPreferences.h"

#include <QObject>
#include <QPointer>
#include <QQuickWindow>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// Keeps the size, the place and the maximised state of a window between starts. Main thread.
///
/// Wayland doesn't let programs place their windows: there the place is neither kept nor set.
class WindowPlacement : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY changed REQUIRED FINAL)
    /// What the stored preferences begin with.
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed REQUIRED FINAL)
    /// The window that this one is centred over until the user has moved it. Null: the desktop
    /// places it.
    Q_PROPERTY(QQuickWindow *over MEMBER m_over NOTIFY changed FINAL)

public:
    explicit WindowPlacement(QObject *parent = nullptr);
    ~WindowPlacement() override;

    [[nodiscard]] QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);

    /// Gives the window, which must not be visible, what is stored, as far as the screens of now
    /// allow. A window with a fixed size keeps it.
    Q_INVOKABLE void restore();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QString key(const QString &what) const { return m_name + what; }
    void restoreSizeAndState();
    void restorePlace();
    void noteChange();
    /// Stores what has changed since the last time, if anything.
    void storeAtOnce();
    void store();
    void storePlace();

    QPointer<QQuickWindow> m_window;
    QString m_name;
    QPointer<QQuickWindow> m_over;
    QPoint m_givenPlace; ///< Where restore() has put the window by itself.
    QTimer m_settled;
    StoredPreferences m_values;
};

} // namespace ostrel

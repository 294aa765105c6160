#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace ostrel {

/// Whether the window of an item is visible: it is shown, and neither minimised nor completely
/// covered, if the desktop reports that. Endless animations run only while it is.
class WindowExposure : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickWindow *window READ window WRITE setWindow NOTIFY windowChanged FINAL)
    Q_PROPERTY(bool isExposed READ isExposed NOTIFY isExposedChanged FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickWindow *window() const { return m_window; }
    void setWindow(QQuickWindow *window);
    [[nodiscard]] bool isExposed() const { return m_isExposed; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void windowChanged();
    void isExposedChanged();

private:
    void readExposure();

    QPointer<QQuickWindow> m_window;
    bool m_isExposed = false;
};

} // namespace ostrel

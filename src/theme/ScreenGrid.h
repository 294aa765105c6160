#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace ostrel {

/// The pixels of the screen that an item's window is on.
class ScreenGrid : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Attached to items")
    QML_ATTACHED(ostrel::ScreenGrid)
    /// Whether a device-independent pixel is at most one of the screen's: hinted letters are
    /// sharper there; on a finer screen they would be spaced unevenly.
    Q_PROPERTY(bool isCoarse READ isCoarse NOTIFY isCoarseChanged FINAL)

public:
    explicit ScreenGrid(QQuickItem &item);

    static ScreenGrid *qmlAttachedProperties(QObject *item);

    [[nodiscard]] bool isCoarse() const { return m_isCoarse; }

Q_SIGNALS:
    void isCoarseChanged();

private:
    void takeWindow(QQuickWindow *window);
    void takeScreen(QScreen *screen);
    void readScale();

    QPointer<QQuickWindow> m_window;
    QPointer<QScreen> m_screen;
    bool m_isCoarse = true;
};

} // namespace ostrel

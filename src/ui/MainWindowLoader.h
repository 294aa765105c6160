#pragma once

#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QVariantMap>

class QQuickWindow;

namespace ostrel {

/// Makes the main window. Lives on the main thread.
class MainWindowLoader
{
public:
    /// Begins to look through the faces for text, on another thread.
    MainWindowLoader();

    [[nodiscard]] QQmlApplicationEngine &engine() { return m_engine; }

    /// Loads what the window needs before it has anything to show, so that this can be done while
    /// the data is still being read.
    void prepare();
    /// The window with its @p properties, which lives as long as this; null where it can't be made.
    [[nodiscard]] QQuickWindow *load(const QVariantMap &properties);

private:
    QQmlApplicationEngine m_engine;
    QQmlComponent m_types;
};

} // namespace ostrel

#pragma once

#include "WorkThread.h"

#include <QQmlApplicationEngine>
#include <QQmlComponent>

#include <optional>

class QQuickWindow;

namespace ostrel {

class WindowModels;

/// Creates the main window. Lives on the main thread.
class MainWindowLoader
{
public:
    /// Starts to load the list of fonts, on another thread.
    MainWindowLoader();

    [[nodiscard]] QQmlApplicationEngine &engine() { return m_engine; }

    /// Loads what the window needs before it has data, so that this can be done while the data is
    /// still being read. The types of its views are loaded on another thread, which may still be
    /// running when this returns.
    void prepare();
    /// The window, not shown yet, which lives as long as this object; null if it can't be created.
    /// @p models must outlive it.
    [[nodiscard]] QQuickWindow *load(WindowModels &models);

private:
    /// Runs the event loop while it waits.
    void finishPreparing();

    std::optional<WorkThread> m_faces; ///< Exists while the window is prepared.
    QQmlApplicationEngine m_engine;
    QQmlComponent m_types;
};

} // namespace ostrel

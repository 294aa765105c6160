#pragma once

#include "WorkThread.h"

#include <QQmlApplicationEngine>
#include <QQmlComponent>

#include <optional>

class QQuickWindow;

namespace ostrel {

struct WindowModels;

/// Makes the main window. Lives on the main thread.
class MainWindowLoader
{
public:
    /// Begins to look through the faces for text, on another thread.
    MainWindowLoader();

    [[nodiscard]] QQmlApplicationEngine &engine() { return m_engine; }

    /// Loads what the window needs before it has anything to show, so that this can be done while
    /// the data is still being read. The types of its views are loaded on another thread, and may
    /// still be when this returns.
    void prepare();
    /// The window, not shown yet, which lives as long as this; null where it can't be made. The
    /// @p models outlive it.
    [[nodiscard]] QQuickWindow *load(WindowModels &models);

private:
    /// Runs the event loop while it waits.
    void finishPreparing();

    std::optional<WorkThread> m_faces; ///< While the window is prepared.
    QQmlApplicationEngine m_engine;
    QQmlComponent m_types;
};

} // namespace ostrel

#pragma once

namespace ostrel {

/// What a start asks of the program that already owns the data folder.
enum class StartRequest {
    show,       ///< Show the window.
    addMonitor, ///< Show the window with the form for a new monitor.
    quit,       ///< End.
};

} // namespace ostrel

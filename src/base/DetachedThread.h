#pragma once

#include <functional>

namespace ostrel {

/// Runs @p work on a thread of its own that is never joined: it may run as long as the program.
/// Throws std::system_error if no thread can be created.
void startDetached(std::function<void()> work);

/// Whether any such thread is still running. If so, the program must end without the destructors of
/// static objects, which the work may use.
[[nodiscard]] bool isAnyDetachedThreadAtWork();

} // namespace ostrel

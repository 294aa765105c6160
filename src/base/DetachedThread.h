#pragma once

#include <functional>

namespace ostrel {

/// Does @p work on a thread of its own, for which nobody waits: it may last as long as the program.
/// Throws std::system_error if there can't be another thread.
void startDetached(std::function<void()> work);

/// Whether any such thread is still at work. The program then has to end without the destructors of
/// static objects, which that work may use.
[[nodiscard]] bool isAnyDetachedThreadAtWork();

} // namespace ostrel

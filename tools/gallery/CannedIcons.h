#pragma once

class QObject;

namespace ostrel {

class FaviconService;

/// The icons of the made-up sites, without a network; owned by @p parent. All of them are in memory
/// at once, so that views show them in their first frame.
[[nodiscard]] FaviconService &cannedIcons(QObject *parent);

} // namespace ostrel

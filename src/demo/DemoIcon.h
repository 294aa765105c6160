#pragma once

#include <QColor>
#include <QImage>

namespace ostrel {

/// What a site's icon shows.
enum class DemoShape { disc, ring, bars, lines, roof };

/// A white shape on a ground of @p color. Needs no application object for pictures. Any thread.
[[nodiscard]] QImage demoIcon(DemoShape shape, const QColor &color);

} // namespace ostrel

#pragma once

#include <QString>
#include <QStringList>

class QQuickWindow;

namespace ostrel {

/// What a hand does to a window of the gallery, so that the state that follows can be seen.
namespace GalleryGesture {

/// The names of what can be done in the whole window, with the sample that it is done to:
/// "one-down+row-hover".
[[nodiscard]] QStringList windowSamples();

/// Does what is called @p name to @p window, which is shown and has drawn itself once, and returns
/// when the state is reached. Does nothing for an empty name.
void perform(const QString &name, QQuickWindow &window);

} // namespace GalleryGesture

} // namespace ostrel

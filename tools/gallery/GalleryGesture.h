#pragma once

#include <QString>
#include <QStringList>

class QQuickWindow;

namespace ostrel {

/// User input in a window of the gallery, which makes the resulting state visible.
namespace GalleryGesture {

/// The names of the gestures in the whole window, each with the sample that it is done to:
/// "one-down+row-hover".
[[nodiscard]] QStringList windowSamples();

/// Performs the gesture @p name in @p window, which is shown and has drawn itself once, and returns
/// when the state is reached. Does nothing for an empty name.
void perform(const QString &name, QQuickWindow &window);

} // namespace GalleryGesture

} // namespace ostrel

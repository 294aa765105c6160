#pragma once

class QQuickItem;
class QString;

namespace ostrel {

/// Makes @p item a graphic that screen readers speak as @p sentence. The item must be part of a QML
/// document that imports QtQuick.
void speakAsGraphic(QQuickItem &item, const QString &sentence);

} // namespace ostrel

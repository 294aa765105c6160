#include "SpokenGraphic.h"

#include <QAccessible>
#include <QQmlContext>
#include <QQmlProperty>
#include <QQuickItem>

namespace ostrel {

void speakAsGraphic(QQuickItem &item, const QString &sentence)
{
    // The attached object has no public C++ class.
    QQmlContext *context = qmlContext(&item);
    QQmlProperty(&item, QStringLiteral("Accessible.role"), context).write(QAccessible::Graphic);
    QQmlProperty(&item, QStringLiteral("Accessible.name"), context).write(sentence);
}

} // namespace ostrel

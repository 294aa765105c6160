#include "SpokenGraphic.h"

#include <QAccessible>
#include <QQmlContext>
#include <QQmlProperty>
#include <QQuickItem>

using namespace Qt::StringLiterals;

namespace ostrel {

void speakAsGraphic(QQuickItem &item, const QString &sentence)
{
    // The attached object has no public C++ class.
    QQmlContext *context = qmlContext(&item);
    QQmlProperty(&item, u"Accessible.role"_s, context).write(QAccessible::Graphic);
    QQmlProperty(&item, u"Accessible.name"_s, context).write(sentence);
}

} // namespace ostrel

#include "ThemeFonts.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    // As with a screen reader at work.
    QAccessible::setActive(true);
    ostrel::ThemeFonts::install();
    return RUN_ALL_TESTS();
}

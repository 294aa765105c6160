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
    // As if a screen reader were running.
    QAccessible::setActive(true);
    ostrel::ThemeFonts::install();
    return RUN_ALL_TESTS();
}

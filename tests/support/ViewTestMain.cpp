#include "ThemeFonts.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    ostrel::ThemeFonts::install();
    return RUN_ALL_TESTS();
}

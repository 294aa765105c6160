#include "ThemeFonts.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QTemporaryFile>

#include <gtest/gtest.h>

// A desktop with a screen at scale 1 and one at scale 2.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    QTemporaryFile screens;
    if (!screens.open())
        return 1;
    screens.write(R"({"screens": [
        {"name": "coarse", "x": 0, "y": 0, "width": 1000, "height": 800,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
        {"name": "fine", "x": 1000, "y": 0, "width": 1000, "height": 800,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}
    ]})");
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    ostrel::ThemeFonts::install();
    return RUN_ALL_TESTS();
}

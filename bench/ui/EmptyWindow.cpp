// The cost of Qt Quick itself: a window of Ostrel's size with nothing in it, drawn by the same
// renderer.

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

int main(int argc, char **argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QQmlApplicationEngine views;
    views.loadData(R"(import QtQuick
Window { title: "Ostrel"; width: 960; height: 640; visible: true })");
    return views.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}

// Another program on a Wayland desktop. Shows a red window; or, with the argument --token, prints a
// token for raising a window, as the program does from which another one is started.

#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

extern "C" {
#include "xdg-activation-client.h"
// After the client's part, which declares what is defined here.
#include "xdg-activation-code.h"
}

namespace {

class RedWindow : public QRasterWindow
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(QRect(QPoint(), size()), Qt::red);
    }
};

void takeGlobal(void *activation, wl_registry *registry, std::uint32_t name, const char *interface,
                std::uint32_t)
{
    if (std::strcmp(interface, xdg_activation_v1_interface.name) == 0)
        *static_cast<void **>(activation) =
            wl_registry_bind(registry, name, &xdg_activation_v1_interface, 1);
}

void ignoreRemoval(void *, wl_registry *, std::uint32_t) {}

void takeToken(void *token, xdg_activation_token_v1 *, const char *text)
{
    *static_cast<std::string *>(token) = text;
}

/// Empty if the compositor gives out none.
std::string newToken()
{
    wl_display *display = wl_display_connect(nullptr);
    if (!display)
        return {};
    void *activation = nullptr;
    const wl_registry_listener registryListener = {takeGlobal, ignoreRemoval};
    wl_registry_add_listener(wl_display_get_registry(display), &registryListener, &activation);
    wl_display_roundtrip(display);
    std::string token;
    if (activation) {
        const xdg_activation_token_v1_listener tokenListener = {takeToken};
        xdg_activation_token_v1 *request =
            xdg_activation_v1_get_activation_token(static_cast<xdg_activation_v1 *>(activation));
        xdg_activation_token_v1_add_listener(request, &tokenListener, &token);
        xdg_activation_token_v1_commit(request);
        wl_display_roundtrip(display);
    }
    wl_display_disconnect(display);
    return token;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1) {
        std::puts(newToken().c_str());
        return 0;
    }
    const QGuiApplication application(argc, argv);
    RedWindow window;
    window.setTitle(QStringLiteral("Stranger"));
    window.show();
    return QGuiApplication::exec();
}

#include "GalleryGesture.h"

#include "GalleryHand.h"

#include <QQuickItem>
#include <QQuickWindow>

#include <array>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QQuickItem *row(const GalleryHand &hand)
{
    return hand.itemOf("list", 2);
}

QQuickItem *card(const GalleryHand &hand)
{
    return hand.itemOf("grid", 3);
}

/// Moves the keyboard focus to another window.
void leave(QQuickWindow &window)
{
    QWindow other;
    other.show();
    other.requestActivate();
    GalleryHand(window).await([&] { return !window.isActive(); });
}

/// Opens the menu of the row at @p index with the right button.
void openMenu(GalleryHand &hand, int index)
{
    hand.click(hand.itemOf("list", index), Qt::RightButton);
    hand.await([&] { return hand.item("menuRows") != nullptr; });
}

void awaitHelp(GalleryHand &hand, const char *target)
{
    hand.point(hand.item(target));
    hand.await([&] { return hand.item("helpText") != nullptr; });
}

void openForm(GalleryHand &hand)
{
    hand.click(hand.item("addMonitor"));
    hand.await([&] {
        const QQuickItem *address = hand.item("address");
        return address && address->hasActiveFocus();
    });
}

struct Gesture
{
    const char *name;
    const char *sample;
    void (*perform)(GalleryHand &hand);
};

constexpr std::array gestures = {
    Gesture{"row-hover", "one-down", [](GalleryHand &hand) { hand.point(row(hand)); }},
    Gesture{"row-pressed", "one-down", [](GalleryHand &hand) { hand.press(row(hand)); }},
    Gesture{"row-focus", "one-down",
            [](GalleryHand &hand) {
                for (int step = 0; step < 3; ++step)
                    hand.key(Qt::Key_Down);
            }},
    Gesture{"home-hover", "detail-up", [](GalleryHand &hand) { hand.point(hand.item("home")); }},
    Gesture{"home-focus", "detail-up", [](GalleryHand &hand) { hand.key(Qt::Key_Escape); }},
    Gesture{"card-hover", "one-down", [](GalleryHand &hand) { hand.point(card(hand)); }},
    Gesture{"card-pressed", "one-down", [](GalleryHand &hand) { hand.press(card(hand)); }},
    Gesture{"card-focus", "one-down",
            [](GalleryHand &hand) {
                hand.tabTo(hand.item("grid"));
                hand.key(Qt::Key_Right);
            }},
    Gesture{"add-hover", "one-down",
            [](GalleryHand &hand) { hand.point(hand.item("addMonitor")); }},
    Gesture{"add-pressed", "one-down",
            [](GalleryHand &hand) { hand.press(hand.item("addMonitor")); }},
    Gesture{"add-focus", "one-down",
            [](GalleryHand &hand) { hand.tabTo(hand.item("addMonitor")); }},
    Gesture{"settings-help", "one-down", [](GalleryHand &hand) { awaitHelp(hand, "settings"); }},
    Gesture{"settings-pressed", "one-down",
            [](GalleryHand &hand) { hand.press(hand.item("settings")); }},
    Gesture{"settings-focus", "one-down",
            [](GalleryHand &hand) { hand.tabTo(hand.item("settings")); }},
    Gesture{"button-help", "detail-up", [](GalleryHand &hand) { awaitHelp(hand, "getHelp"); }},
    Gesture{"button-focus", "detail-up",
            [](GalleryHand &hand) { hand.tabTo(hand.item("editMonitor")); }},
    Gesture{"address-focus", "detail-up",
            [](GalleryHand &hand) { hand.tabTo(hand.item("address")); }},
    Gesture{"address-menu", "detail-up",
            [](GalleryHand &hand) {
                hand.tabTo(hand.item("address"));
                hand.key(Qt::Key_Menu);
                hand.await([&] { return hand.item("menuRows") != nullptr; });
            }},
    Gesture{"row-help", "detail-long",
            [](GalleryHand &hand) {
                hand.key(Qt::Key_Down);
                hand.key(Qt::Key_Up);
                hand.await([&] { return hand.item("helpText") != nullptr; });
            }},
    Gesture{"menu", "one-down", [](GalleryHand &hand) { openMenu(hand, 2); }},
    Gesture{"menu-hover", "one-down",
            [](GalleryHand &hand) {
                openMenu(hand, 2);
                for (int step = 0; step < 3; ++step)
                    hand.key(Qt::Key_Down);
            }},
    Gesture{"menu-paused", "one-down", [](GalleryHand &hand) { openMenu(hand, 4); }},
    Gesture{"scrolled", "many",
            [](GalleryHand &hand) {
                if (QQuickItem *grid = hand.item("grid"))
                    grid->setProperty("contentY", 60);
            }},
    Gesture{"form", "one-down", openForm},
    Gesture{"form-typed", "one-down",
            [](GalleryHand &hand) {
                openForm(hand);
                hand.type(u"https://garden.example"_s);
            }},
    Gesture{"form-edit", "detail-up",
            [](GalleryHand &hand) { hand.click(hand.item("editMonitor")); }},
};

constexpr QLatin1String inactive("inactive");

} // namespace

QStringList GalleryGesture::windowSamples()
{
    QStringList samples = {u"one-down+inactive"_s, u"detail-up+inactive"_s};
    for (const Gesture &gesture : gestures)
        samples += QLatin1String(gesture.sample) + QLatin1Char('+') + QLatin1String(gesture.name);
    return samples;
}

void GalleryGesture::perform(const QString &name, QQuickWindow &window)
{
    if (name == inactive)
        leave(window);
    GalleryHand hand(window);
    for (const Gesture &gesture : gestures) {
        if (name == QLatin1String(gesture.name))
            gesture.perform(hand);
    }
}

} // namespace ostrel

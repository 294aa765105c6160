#pragma once

#include <QQuickView>
#include <QString>

namespace ostrel {

/// A window that shows one page of the gallery at the page's own size.
class GalleryWindow : public QQuickView
{
public:
    /// @p page is the page's base name, for example "ComponentsPage"; if a page shows samples, with
    /// the sample's name: "DetailPage-up"; and after a gesture, with the gesture's name:
    /// "WindowPage-one-down+row-hover".
    explicit GalleryWindow(const QString &page);

    /// False if there is no such page.
    [[nodiscard]] bool isUsable() const;
    /// Lets a shown window get the keyboard focus, so that its focused field shows its caret.
    void awaitActive();
    /// Performs the gesture in the page's name in a shown window.
    void performGesture();
    /// Draws the page into a PNG at @p path, in device pixels. False if it can't be written.
    [[nodiscard]] bool save(const QString &path);

private:
    QString m_gesture;
};

/// Every page, with every sample.
[[nodiscard]] QStringList galleryPages();

} // namespace ostrel

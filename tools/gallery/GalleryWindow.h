#pragma once

#include <QQuickView>
#include <QString>

namespace ostrel {

/// A window that shows one page of the gallery at the page's own size.
class GalleryWindow : public QQuickView
{
public:
    /// @p page is the page's base name, for example "ComponentsPage"; where a page shows samples,
    /// with the sample's name: "DetailPage-up"; where a hand has done something, with that:
    /// "WindowPage-one-down+row-hover".
    explicit GalleryWindow(const QString &page);

    /// False where there is no such page.
    [[nodiscard]] bool isUsable() const;
    /// Lets a shown window take the keyboard, so that its focused field shows its caret.
    void awaitActive();
    /// Does to a shown window what its page's name says.
    void performGesture();
    /// Draws the page into a PNG at @p path, in device pixels. False where it can't be written.
    [[nodiscard]] bool save(const QString &path);

private:
    QString m_gesture;
};

/// Every page, with every sample.
[[nodiscard]] QStringList galleryPages();

} // namespace ostrel

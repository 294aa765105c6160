#pragma once

#include "PixelItem.h"

#include <QImage>

class QQmlEngine;

namespace ostrel {

class FaviconService;

/// The icon of a site with round corners; draws nothing until, or unless, one is found.
class FaviconImage : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    /// The address of the site.
    Q_PROPERTY(QString urlString READ urlString WRITE setUrlString NOTIFY urlStringChanged FINAL)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY radiusChanged FINAL)
    Q_PROPERTY(bool hasIcon READ hasIcon NOTIFY hasIconChanged FINAL)
    /// What stands for the site while it has no icon.
    Q_PROPERTY(QString placeholderLetter READ placeholderLetter NOTIFY urlStringChanged FINAL)

public:
    explicit FaviconImage(QQuickItem *parent = nullptr);

    /// Where the icons of all views of @p views come from; without one they keep their letters.
    /// @p icons outlives the views.
    static void useIcons(QQmlEngine &views, FaviconService &icons);

    [[nodiscard]] QString urlString() const { return m_urlString; }
    void setUrlString(const QString &urlString);
    [[nodiscard]] bool hasIcon() const { return !m_icon.isNull(); }
    [[nodiscard]] QString placeholderLetter() const;

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void urlStringChanged();
    void radiusChanged();
    void hasIconChanged();

protected:
    void componentComplete() override;

private:
    void lookUp();
    void setIcon(const QImage &icon);

    QString m_urlString;
    qreal m_radius = 0;
    QImage m_icon;
};

} // namespace ostrel

#pragma once

#include "PixelItem.h"

#include <QColor>
#include <QImage>

class QQmlEngine;

namespace ostrel {

class FaviconService;

/// The icon of a site with round corners; until one is found, or if none is, a letter on a plate.
class FaviconImage : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    /// The address of the site.
    Q_PROPERTY(QString urlString READ urlString WRITE setUrlString NOTIFY urlStringChanged FINAL)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor plateColor MEMBER m_plateColor NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor letterColor MEMBER m_letterColor NOTIFY lookChanged FINAL)
    /// The letter's font size in pixels.
    Q_PROPERTY(qreal letterSize MEMBER m_letterSize NOTIFY lookChanged FINAL)

public:
    explicit FaviconImage(QQuickItem *parent = nullptr);

    /// Sets the source of the icons for all views of @p views; without one they keep their letters.
    /// @p icons must outlive the views.
    static void useIcons(QQmlEngine &views, FaviconService &icons);

    [[nodiscard]] QString urlString() const { return m_urlString; }
    void setUrlString(const QString &urlString);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void urlStringChanged();
    void lookChanged();

protected:
    void componentComplete() override;
    [[nodiscard]] QString look() const override;

private:
    [[nodiscard]] bool hasIcon() const { return !m_icon.isNull(); }
    /// The placeholder while the site has no icon.
    [[nodiscard]] QString placeholderLetter() const;
    void paintIcon(QPainter *painter);
    void paintPlaceholder(QPainter *painter);
    void lookUp();
    void setIcon(const QImage &icon);

    QString m_urlString;
    qreal m_radius = 0;
    QColor m_plateColor = Qt::transparent;
    QColor m_letterColor = Qt::black;
    qreal m_letterSize = 0;
    QImage m_icon;
};

} // namespace ostrel

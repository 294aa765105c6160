#pragma once

#include "SymbolRaster.h"

#include <QColor>
#include <QIcon>
#include <QIconEngine>
#include <QString>

namespace ostrel {

/// A symbol of the theme as a QIcon, redrawn for every size.
class SymbolIcon final : public QIconEngine
{
public:
    struct Look
    {
        QString symbol;
        QColor color;
        SymbolRaster::Margin margin = SymbolRaster::Margin::ofGrid;
        /// The name under which desktops that tint such pictures themselves find this one; may be
        /// empty.
        QString themeName = {};
    };

    [[nodiscard]] static QIcon icon(const Look &look);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    /// The sizes in which desktops request an icon in a bar or a menu.
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    QString iconName() override { return m_look.themeName; }
    [[nodiscard]] QIconEngine *clone() const override;

private:
    explicit SymbolIcon(const Look &look);

    Look m_look;
};

} // namespace ostrel

#pragma once

#include "SymbolRaster.h"

#include <QColor>
#include <QIcon>
#include <QIconEngine>
#include <QString>

namespace ostrel {

/// A symbol of the theme for what takes its pictures as a QIcon: drawn anew for every size.
class SymbolIcon final : public QIconEngine
{
public:
    struct Look
    {
        QString symbol;
        QColor color;
        SymbolRaster::Margin margin = SymbolRaster::Margin::ofGrid;
        /// Under which name a desktop that tints such pictures itself finds this one; may be empty.
        QString themeName = {};
    };

    [[nodiscard]] static QIcon icon(const Look &look);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    /// Those in which desktops ask for an icon in a bar or a menu.
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    QString iconName() override { return m_look.themeName; }
    [[nodiscard]] QIconEngine *clone() const override;

private:
    explicit SymbolIcon(const Look &look);

    Look m_look;
};

} // namespace ostrel

#pragma once

#include "PixelItem.h"
#include "ResponseChartPainter.h"

namespace ostrel {

/// The body of the response-time chart: area, line, points, grid and labels. Draws nothing if the
/// series is too short for a line.
class ResponseChartView : public ostrel::PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ostrel::ResponseSeries series READ series WRITE setSeries NOTIFY seriesChanged)
    Q_PROPERTY(ostrel::ClockStyle clock READ clock WRITE setClock NOTIFY clockChanged)
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor NOTIFY styleChanged)
    Q_PROPERTY(QColor gridColor READ gridColor WRITE setGridColor NOTIFY styleChanged)
    Q_PROPERTY(double gridWidth READ gridWidth WRITE setGridWidth NOTIFY styleChanged)
    Q_PROPERTY(QColor labelColor READ labelColor WRITE setLabelColor NOTIFY styleChanged)
    Q_PROPERTY(QFont labelFont READ labelFont WRITE setLabelFont NOTIFY styleChanged)

public:
    explicit ResponseChartView(QQuickItem *parent = nullptr);

    [[nodiscard]] const ResponseSeries &series() const { return m_series; }
    void setSeries(const ResponseSeries &series);

    [[nodiscard]] const ClockStyle &clock() const { return m_clock; }
    void setClock(const ClockStyle &clock);

    [[nodiscard]] QColor lineColor() const { return m_style.line; }
    void setLineColor(const QColor &color) { setStyle(m_style.line, color); }
    [[nodiscard]] QColor gridColor() const { return m_style.grid; }
    void setGridColor(const QColor &color) { setStyle(m_style.grid, color); }
    [[nodiscard]] double gridWidth() const { return m_style.gridWidth; }
    void setGridWidth(double width) { setStyle(m_style.gridWidth, width); }
    [[nodiscard]] QColor labelColor() const { return m_style.label; }
    void setLabelColor(const QColor &color) { setStyle(m_style.label, color); }
    [[nodiscard]] QFont labelFont() const { return m_style.font; }
    void setLabelFont(const QFont &font) { setStyle(m_style.font, font); }

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void seriesChanged();
    void clockChanged();
    void styleChanged();

protected:
    void componentComplete() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void updatePolish() override;

private:
    template<typename Value>
    void setStyle(Value &member, const Value &value)
    {
        if (member == value)
            return;
        member = value;
        polish();
        Q_EMIT styleChanged();
    }
    void speak();

    ResponseSeries m_series;
    ClockStyle m_clock;
    ChartStyle m_style;
    ResponseChart m_chart;
};

} // namespace ostrel

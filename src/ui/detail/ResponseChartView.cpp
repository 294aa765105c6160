#include "ResponseChartView.h"

#include "SpokenGraphic.h"

namespace ostrel {

ResponseChartView::ResponseChartView(QQuickItem *parent)
    : PixelItem(parent)
{
}

void ResponseChartView::setSeries(const ResponseSeries &series)
{
    if (m_series == series)
        return;
    m_series = series;
    polish();
    speak();
    Q_EMIT seriesChanged();
}

void ResponseChartView::paint(QPainter *painter)
{
    paintResponseChart(*painter, m_chart, m_style);
}

void ResponseChartView::componentComplete()
{
    PixelItem::componentComplete();
    speak();
}

void ResponseChartView::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    PixelItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void ResponseChartView::updatePolish()
{
    m_chart = responseChart(m_series, size(), labelMetrics(m_style.font),
                            QTimeZone::systemTimeZone(), QLocale());
    update();
}

void ResponseChartView::speak()
{
    if (isComponentComplete())
        speakAsGraphic(*this, m_series.spokenText());
}

} // namespace ostrel

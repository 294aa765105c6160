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

void ResponseChartView::setClock(const ClockStyle &clock)
{
    if (m_clock == clock)
        return;
    m_clock = clock;
    polish();
    Q_EMIT clockChanged();
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
    m_chart = responseChart(m_series, size(), labelMetrics(m_style.font), m_clock);
    update();
}

void ResponseChartView::speak()
{
    if (isComponentComplete())
        speakAsGraphic(*this, m_series.spokenText());
}

} // namespace ostrel

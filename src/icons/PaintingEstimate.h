#pragma once

#include <QPaintDevice>
#include <QSize>

#include <memory>

namespace ostrel {

/// A paint device that draws nothing but adds up how much work the painting would be. A few curves
/// that reach far out of the picture keep the rasterizer busy for minutes, and drawing can't be
/// stopped once it has begun.
class PaintingEstimate : public QPaintDevice
{
public:
    /// For a picture of @p size, in pixels.
    explicit PaintingEstimate(const QSize &size);
    ~PaintingEstimate() override;

    /// Every point of every path that was painted, times how many pixels its path, outline
    /// included, reaches from the origin; six times that where the outline is drawn. A logo of 1000
    /// points at 128 pixels comes to 128 000, without outlines.
    /// Not finite where a line is dashed, or a coordinate isn't finite.
    [[nodiscard]] double work() const;

    [[nodiscard]] QPaintEngine *paintEngine() const override;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;

    QSize m_size;
    std::unique_ptr<Engine> m_engine;
};

} // namespace ostrel

#include <QByteArray>

namespace {

/// The toolkit reads the scale when the application is created, so it is set before main().
[[maybe_unused]] const bool isScaled = qputenv("QT_SCALE_FACTOR", "1.5");

} // namespace

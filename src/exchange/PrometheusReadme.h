#pragma once

#include <QByteArray>

namespace ostrel {

/// The README.md of an exported configuration: how to use it, and where its verdicts differ from
/// Ostrel's.
[[nodiscard]] QByteArray prometheusReadme();

} // namespace ostrel

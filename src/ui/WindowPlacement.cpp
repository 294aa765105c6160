#include "WindowPlacement.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// How long a window must have been left alone before its placement is stored: a drag isn't written
/// with every step, and a window that is being maximised changes its size before its state.
constexpr auto settling = 300ms;
/// What a pointer needs of a title bar.
constexpr QSize handle = {64, 16};

bool canBePlaced()
{
    return !QGuiApplication::platformName().startsWith(u"wayland"_s);
}

bool hasFixedSize(const QWindow &window)
{
    return window.minimumSize() == window.maximumSize();
}

QSize largestScreen()
{
    QSize largest;
    for (const QScreen *screen : QGuiApplication::screens())
        largest = largest.expandedTo(screen->availableSize());
    return largest;
}

/// Whether a window of @p size at @p place can be moved with the pointer.
bool isInReach(QPoint place, QSize size)
{
    const QRect titleBar(place, QSize(size.width(), 2 * handle.height()));
    return std::ranges::any_of(QGuiApplication::screens(), [&](const QScreen *screen) {
        const QSize seen = titleBar.intersected(screen->availableGeometry()).size();
        return seen.width() >= handle.width() && seen.height() >= handle.height();
    });
}

/// Where @p window is in the middle of @p other, and on its screen as a whole. The desktop has no
/// frame around it yet, but is going to use the same as around the other.
QPoint middleOf(const QWindow &other, const QWindow &window)
{
    QRect frame(QPoint(), window.size() + other.frameGeometry().size() - other.size());
    frame.moveCenter(other.frameGeometry().center());
    const QRect room = other.screen()->availableGeometry();
    frame.moveRight(std::min(frame.right(), room.right()));
    frame.moveBottom(std::min(frame.bottom(), room.bottom()));
    frame.moveLeft(std::max(frame.left(), room.left()));
    frame.moveTop(std::max(frame.top(), room.top()));
    return frame.topLeft();
}

/// The value at @p key; nothing if there is none, or it isn't a T because the file was edited by
/// hand.
template<typename T>
std::optional<T> storedValue(const StoredPreferences &values, const QString &key)
{
    const QVariant value = values.value(key);
    return value.metaType() == QMetaType::fromType<T>() ? std::optional(value.value<T>())
                                                        : std::nullopt;
}

} // namespace

WindowPlacement::WindowPlacement(QObject *parent)
    : QObject(parent)
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(settling);
    connect(&m_settled, &QTimer::timeout, this, &WindowPlacement::store);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &WindowPlacement::storeAtOnce);
}

WindowPlacement::~WindowPlacement()
{
    storeAtOnce();
}

void WindowPlacement::setWindow(QQuickWindow *window)
{
    if (m_window == window)
        return;
    m_window = window;
    connect(m_window, &QWindow::xChanged, this, &WindowPlacement::noteChange);
    connect(m_window, &QWindow::yChanged, this, &WindowPlacement::noteChange);
    connect(m_window, &QWindow::widthChanged, this, &WindowPlacement::noteChange);
    connect(m_window, &QWindow::heightChanged, this, &WindowPlacement::noteChange);
    connect(m_window, &QWindow::windowStateChanged, this, &WindowPlacement::noteChange);
    // Once it is closed, nobody knows its frame any more.
    connect(m_window, &QWindow::visibleChanged, this, &WindowPlacement::storeAtOnce);
    Q_EMIT changed();
}

void WindowPlacement::restore()
{
    // In this order: a later size would make the place that of the content, without the frame.
    if (!hasFixedSize(*m_window))
        restoreSizeAndState();
    if (canBePlaced())
        restorePlace();
}

void WindowPlacement::restoreSizeAndState()
{
    const auto size = storedValue<QSize>(m_values, key(u"Size"_s));
    if (size && size->isValid())
        m_window->resize(size->boundedTo(largestScreen()).expandedTo(m_window->minimumSize()));
    if (m_values.value(key(u"IsMaximized"_s)).toString() == u"true"_s)
        m_window->setWindowStates(Qt::WindowMaximized);
}

void WindowPlacement::restorePlace()
{
    const auto place = storedValue<QPoint>(m_values, key(u"Place"_s));
    if (place && isInReach(*place, m_window->size())) {
        m_window->setFramePosition(*place);
    } else if (m_over && m_over->isVisible()) {
        m_givenPlace = middleOf(*m_over, *m_window);
        m_window->setFramePosition(m_givenPlace);
    }
}

void WindowPlacement::noteChange()
{
    if (m_window->isVisible())
        m_settled.start();
}

void WindowPlacement::storeAtOnce()
{
    if (!m_settled.isActive())
        return;
    m_settled.stop();
    store();
}

void WindowPlacement::store()
{
    if (!m_window)
        return;
    const Qt::WindowStates states = m_window->windowStates();
    if (states & (Qt::WindowMinimized | Qt::WindowFullScreen))
        return;
    const bool isMaximized = states & Qt::WindowMaximized;
    if (!hasFixedSize(*m_window))
        m_values.setValue(key(u"IsMaximized"_s), isMaximized);
    if (isMaximized)
        return;
    if (!hasFixedSize(*m_window))
        m_values.setValue(key(u"Size"_s), m_window->size());
    storePlace();
}

void WindowPlacement::storePlace()
{
    const QPoint place = m_window->framePosition();
    if (canBePlaced() && place != m_givenPlace)
        m_values.setValue(key(u"Place"_s), place);
}

} // namespace ostrel

#include "EngineFakes.h"

#include <gtest/gtest.h>

#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

Check outcomeOf(const Monitor &monitor, bool isUp)
{
    Check check = newCheck(monitor, systemNow());
    check.isUp = isUp;
    check.responseTime = 12;
    if (monitor.type == MonitorType::http)
        check.statusCode = isUp ? 200 : 503;
    if (!isUp)
        check.error = u"HTTP 503"_s;
    return check;
}

} // namespace

Monitor makeMonitor(const QString &name)
{
    return {.id = QUuid::createUuid(),
            .name = name,
            .url = u"https://shop.example/"_s,
            .createdAt = systemNow()};
}

void ManualSleeper::sleep(Seconds duration, QObject *context, std::function<void()> wake)
{
    sleeps.push_back({duration, context, std::move(wake)});
}

void ManualSleeper::catchUp()
{
    const auto end = sleeps.begin() + static_cast<std::ptrdiff_t>(std::exchange(m_due, 0));
    const std::vector<Sleep> ended(sleeps.begin(), end);
    sleeps.erase(sleeps.begin(), end);
    for (const Sleep &sleep : ended) {
        if (sleep.context)
            sleep.wake();
    }
}

void ManualSleeper::wakeAll()
{
    fallDue(sleeps.size());
    catchUp();
}

QFuture<Check> ScriptedCheck::run(const Monitor &monitor)
{
    runs.push_back(monitor);
    if (std::exchange(m_isThrowing, false))
        throw std::bad_alloc();
    if (m_isHolding) {
        QPromise<Check> promise;
        promise.start();
        auto future = promise.future();
        m_held.emplace_back(monitor, std::move(promise));
        return future;
    }
    bool isUp = true;
    if (!m_outcomes.empty()) {
        isUp = m_outcomes.front();
        m_outcomes.pop_front();
    }
    return QtFuture::makeReadyFuture(outcomeOf(monitor, isUp));
}

void ScriptedCheck::willBe(std::initializer_list<bool> outcomes)
{
    m_outcomes.insert(m_outcomes.end(), outcomes);
}

void ScriptedCheck::hold()
{
    m_isHolding = true;
}

void ScriptedCheck::finishNext(bool isUp)
{
    if (m_held.empty()) {
        ADD_FAILURE() << "no check is under way";
        return;
    }
    auto [monitor, promise] = std::move(m_held.front());
    m_held.pop_front();
    promise.addResult(outcomeOf(monitor, isUp));
    promise.finish();
}

} // namespace ostrel::test

#include "StoredPreferences.h"

#include "WorkThread.h"

#include <QHash>
#include <QSettings>

#include <chrono>
#include <future>
#include <memory>
#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto patienceAtTheEnd = 5s;

using Values = QHash<QString, QVariant>;

Values read()
{
    const QSettings file(u"Ostrel"_s, u"Ostrel"_s);
    Values values;
    for (const QString &key : file.allKeys())
        values.insert(key, file.value(key));
    return values;
}

void write(const Values &values)
{
    QSettings file(u"Ostrel"_s, u"Ostrel"_s);
    for (auto [key, value] : values.asKeyValueRange())
        file.setValue(key, value);
}

/// What waits to be written. Any thread.
class Unwritten
{
public:
    /// True if nothing was waiting.
    bool add(const QString &key, const QVariant &value)
    {
        const std::lock_guard lock(m_mutex);
        const bool isFirst = m_values.isEmpty();
        m_values.insert(key, value);
        return isFirst;
    }
    [[nodiscard]] Values take()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_values, {});
    }

private:
    std::mutex m_mutex;
    Values m_values;
};

} // namespace

class StoredPreferences::File
{
public:
    File() = default;
    ~File() { finish(); }
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    [[nodiscard]] static std::shared_ptr<File> shared();

    [[nodiscard]] const Values &values() const { return m_values; }
    void setValue(const QString &key, const QVariant &value)
    {
        m_values.insert(key, value);
        if (m_unwritten->add(key, value))
            m_writer.post([unwritten = m_unwritten] { write(unwritten->take()); });
    }

private:
    void finish()
    {
        const auto end = std::make_shared<std::promise<void>>();
        m_writer.post([end] { end->set_value(); });
        end->get_future().wait_for(patienceAtTheEnd);
    }

    Values m_values = read();
    std::shared_ptr<Unwritten> m_unwritten = std::make_shared<Unwritten>();
    WorkThread m_writer;
};

std::shared_ptr<StoredPreferences::File> StoredPreferences::File::shared()
{
    static std::weak_ptr<File> current;
    auto file = current.lock();
    if (!file) {
        file = std::make_shared<File>();
        current = file;
    }
    return file;
}

StoredPreferences::StoredPreferences()
    : m_file(File::shared())
{
}

StoredPreferences::~StoredPreferences() = default;

QVariant StoredPreferences::value(const QString &key, const QVariant &fallback) const
{
    return m_file->values().value(key, fallback);
}

void StoredPreferences::setValue(const QString &key, const QVariant &value)
{
    m_file->setValue(key, value);
}

} // namespace ostrel

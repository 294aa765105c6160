#pragma once

#include <QString>
#include <QVariant>

#include <memory>

namespace ostrel {

/// The preferences that are kept between starts; all objects of this class share one set. Main
/// thread.
///
/// The file is flushed to the disk, which takes seconds while the disk is busy. So a thread of its
/// own writes what is set here. What others write meanwhile is kept, but read only at the next
/// start.
class StoredPreferences
{
public:
    /// The first object reads the file.
    StoredPreferences();
    /// The last object waits, for some seconds at most, until everything is written.
    ~StoredPreferences();
    StoredPreferences(const StoredPreferences &) = delete;
    StoredPreferences &operator=(const StoredPreferences &) = delete;

    /// The value at @p key, of whatever type the file gives it; @p fallback if there is none.
    [[nodiscard]] QVariant value(const QString &key, const QVariant &fallback = {}) const;
    void setValue(const QString &key, const QVariant &value);

private:
    class File;

    std::shared_ptr<File> m_file;
};

} // namespace ostrel

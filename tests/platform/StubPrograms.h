#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// Programs that do nothing but record how they were started. While this object lives, they are the
/// only ones on PATH.
class StubPrograms
{
public:
    StubPrograms();
    ~StubPrograms();
    StubPrograms(const StubPrograms &) = delete;
    StubPrograms &operator=(const StubPrograms &) = delete;

    /// The program records @p what, as its shell expands it, after its name, and ends with the
    /// command @p end.
    void add(const QString &name, const QString &what = u"$*"_s, const QString &end = u"exit 0"_s);
    /// A program that is there, but can't be started: its interpreter is missing.
    void addBroken(const QString &name);
    /// The starts so far, in order, each with its name and arguments separated by blanks.
    [[nodiscard]] QStringList starts() const;

private:
    void write(const QString &name, const QString &script) const;
    [[nodiscard]] QString logPath() const;

    QTemporaryDir m_folder;
    QByteArray m_formerPath;
};

} // namespace ostrel::test

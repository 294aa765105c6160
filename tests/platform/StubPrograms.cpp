#include "StubPrograms.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace ostrel::test {

StubPrograms::StubPrograms()
    : m_formerPath(qgetenv("PATH"))
{
    qputenv("PATH", m_folder.path().toLocal8Bit());
}

StubPrograms::~StubPrograms()
{
    qputenv("PATH", m_formerPath);
}

void StubPrograms::add(const QString &name, const QString &what, const QString &end)
{
    // A single write, which is appended as a whole even if others are writing.
    const auto script = u"#!/bin/sh\nprintf '%s\\n' \"%1 %2\" >> '%3'\n%4\n"_s;
    write(name, script.arg(name, what, logPath(), end));
}

void StubPrograms::addBroken(const QString &name)
{
    write(name, u"#!/nonexistent/interpreter\n"_s);
}

void StubPrograms::write(const QString &name, const QString &script) const
{
    QFile program(m_folder.filePath(name));
    if (!program.open(QIODevice::WriteOnly))
        return;
    program.write(script.toUtf8());
    program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QStringList StubPrograms::starts() const
{
    QFile log(logPath());
    if (!log.open(QIODevice::ReadOnly))
        return {};
    const auto lines = QString::fromUtf8(log.readAll()).split(u'\n');
    return lines.first(lines.size() - 1); // Text without a line end isn't complete yet.
}

QString StubPrograms::logPath() const
{
    return m_folder.filePath(u"starts"_s);
}

} // namespace ostrel::test

#pragma once

#include <QByteArray>
#include <QString>
#include <QUuid>

#include <ostream>

// How GoogleTest prints Qt's values if an expectation fails.

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toStdString() << '"';
}

inline void PrintTo(const QUuid &id, std::ostream *out)
{
    *out << id.toString().toStdString();
}

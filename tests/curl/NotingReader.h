#pragma once

#include "BodyReader.h"

#include <QByteArray>

namespace ostrel::test {

/// Records what it reads.
class NotingReader : public BodyReader
{
public:
    void begin() override
    {
        ++bodies;
        text.clear();
    }
    void read(QByteArrayView bytes) override { text.append(bytes); }

    int bodies = 0;
    QByteArray text;
};

} // namespace ostrel::test

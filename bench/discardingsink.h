#pragma once

#include <QIODevice>

/** Takes what an audio input writes, and does nothing with it but to say so. */
class DiscardingSink : public QIODevice
{
public:
    DiscardingSink() { open(QIODevice::WriteOnly); }

protected:
    qint64 readData(char *, qint64) override { return 0; }
    qint64 writeData(const char *, qint64 length) override
    {
        Q_EMIT bytesWritten(length);
        return length;
    }
};

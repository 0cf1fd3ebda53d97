#pragma once

#include <QByteArray>

/// What has arrived and waits for a listener. Bounded: of more than c_limitBytes the oldest is dropped.
class UndeliveredInput
{
public:
    static constexpr int c_limitBytes = 1024 * 1024;

    void add(const QByteArray& bytes);
    bool isEmpty() const { return m_bytes.isEmpty(); }
    /// What is there, oldest first; nothing is left. A drop is logged, with its size.
    QByteArray takeAll();

private:
    QByteArray m_bytes;
    qint64 m_droppedBytes = 0;
};

#pragma once

#include <QByteArray>

/// What has arrived since a frame, kept for who begins to listen after it. Bounded: of more than c_limitBytes the
/// oldest is dropped.
class UndeliveredInput
{
public:
    static constexpr int c_limitBytes = 1024 * 1024;

    /// isHeard: somebody listens already; what is dropped of it is lost to nobody else.
    void add(const QByteArray& bytes, bool isHeard);
    bool isEmpty() const { return m_bytes.isEmpty(); }
    /// Of what read() would give, so much is missing at its beginning.
    qint64 droppedBytes() const { return m_droppedBytes; }
    /// What is there, oldest first.
    QByteArray read();
    /// Nothing is left. Returns how many bytes nobody has heard or read.
    int clear();

private:
    QByteArray m_bytes;
    int m_unheardBytes = 0;
    qint64 m_droppedBytes = 0;
};

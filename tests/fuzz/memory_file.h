#pragma once

#include <QByteArray>
#include <QString>

/// A file that is in memory only, for what wants a path.
class MemoryFile
{
public:
    explicit MemoryFile(const QByteArray& content);
    ~MemoryFile();

    QString path() const;

private:
    Q_DISABLE_COPY(MemoryFile)
    int m_descriptor;
};

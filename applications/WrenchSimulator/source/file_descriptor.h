#pragma once

#include <utility>

#include <unistd.h>

/// Owns a file descriptor.
class FileDescriptor
{
public:
    explicit FileDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    ~FileDescriptor() { reset(); }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    void reset(int descriptor = -1)
    {
        const int old = std::exchange(m_descriptor, descriptor);
        if (old >= 0) {
            ::close(old);
        }
    }

    int get() const { return m_descriptor; }
    bool isOpen() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

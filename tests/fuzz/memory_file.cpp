#include "memory_file.h"

#include "fuzz_check.h"

#include <sys/mman.h>
#include <unistd.h>

MemoryFile::MemoryFile(const QByteArray& content) : m_descriptor(::memfd_create("fuzz", MFD_CLOEXEC))
{
    FUZZ_CHECK(m_descriptor >= 0);
    FUZZ_CHECK(::write(m_descriptor, content.constData(), size_t(content.size())) == content.size());
}

MemoryFile::~MemoryFile()
{
    ::close(m_descriptor);
}

QString MemoryFile::path() const
{
    return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor);
}

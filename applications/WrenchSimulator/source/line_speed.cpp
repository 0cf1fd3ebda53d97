#include "line_speed.h"

#include <asm/termbits.h> // and not termios.h, which does not know every speed and cannot be included beside it
#include <sys/ioctl.h>

namespace {

constexpr char c_notAscii = '\x80';
constexpr char c_scrambled = '\x5a';

/// What the terminal is set to, in baud; 0: it does not say.
int speedOf(int descriptor)
{
    termios2 settings{};
    return ::ioctl(descriptor, TCGETS2, &settings) == 0 ? static_cast<int>(settings.c_ospeed) : 0;
}

} // namespace

QByteArray LineSpeed::through(int descriptor, QByteArray bytes) const
{
    if (m_baud == 0 || speedOf(descriptor) == m_baud) {
        return bytes;
    }
    for (char& byte : bytes) {
        byte = static_cast<char>((byte ^ c_scrambled) | c_notAscii);
    }
    return bytes;
}

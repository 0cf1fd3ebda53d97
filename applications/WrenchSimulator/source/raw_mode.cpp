#include "raw_mode.h"

#include <termios.h>

bool makeRaw(int descriptor)
{
    termios settings{};
    if (::tcgetattr(descriptor, &settings) != 0) {
        return false;
    }
    ::cfmakeraw(&settings);
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    ::cfsetspeed(&settings, B115200);
    return ::tcsetattr(descriptor, TCSANOW, &settings) == 0;
}

#include "outside/widgets/SYModalHost.h"

namespace {

SYModalHost*& installed() {
    static SYModalHost* host = nullptr;
    return host;
}

} // namespace

SYModalHost* SYModalHost::Current() {
    return installed();
}

SYModalHost* SYModalHost::Install(SYModalHost* host) {
    SYModalHost* previous = installed();
    installed() = host;
    return previous;
}

#include "host/Interrupt.h"

#include <atomic>
#include <csignal>

namespace host {

namespace {

std::atomic<bool> g_happened = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void Note(int) {
    g_happened = true;
}

}  // namespace

Interrupt::Interrupt() {
    m_former = std::signal(SIGINT, Note);
    if (m_former == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

Interrupt::~Interrupt() {
    std::signal(SIGINT, m_former);
}

bool Interrupt::Happened() noexcept {
    return g_happened;
}

void Interrupt::Forget() noexcept {
    g_happened = false;
}

}  // namespace host

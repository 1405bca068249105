#include "platform/Watch.h"

#include <algorithm>
#include <utility>

namespace veka {

namespace {

thread_local Watch* t_watch = nullptr;

}  // namespace

Watch::Scope::Scope(Watch* watch) noexcept : m_outer(std::exchange(t_watch, watch)) {}

Watch::Scope::~Scope() {
    t_watch = m_outer;
}

Watch::~Watch() = default;

void Watch::Tick() {
    if (t_watch) t_watch->CheckAlone();
}

void Watch::Take(std::size_t bytes) {
    Watch* const watch = t_watch;
    if (!watch) return;
    watch->m_taken += static_cast<std::int64_t>(bytes);
    watch->m_mostTaken = std::max(watch->m_mostTaken, watch->m_taken);
    watch->CheckAlone();
}

void Watch::Free(std::size_t bytes) noexcept {
    if (t_watch) t_watch->m_taken -= static_cast<std::int64_t>(bytes);
}

bool Watch::HasEnded() noexcept {
    return t_watch && t_watch->m_ended;
}

void Watch::CheckAlone() {
    const Scope none(nullptr);
    try {
        Check();
    } catch (...) {
        m_ended = true;
        throw;
    }
}

}  // namespace veka

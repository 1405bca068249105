#pragma once

namespace host {

/// While it lives, Ctrl-C does not end the program but is noted. A program that was started to ignore Ctrl-C
/// goes on doing so.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// True if Ctrl-C was noted.
    static bool Happened() noexcept;
    static void Forget() noexcept;

private:
    void (*m_former)(int);
};

}  // namespace host

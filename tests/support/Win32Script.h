#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

#include "win32/WideText.h"
#include "win32/Win32UserInterface.h"
#include "window/ScopedUserInterface.h"

namespace test {

/// Operates modal windows as a user would, while they run: each step waits for the window of its title. A
/// script that is stuck fails its test and closes what is open.
class Win32Script {
public:
    using Step = std::function<void(HWND window)>;

    ~Win32Script() {
        if (m_timer) KillTimer(nullptr, m_timer);
        s_running = nullptr;
        EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " steps were not reached";
    }

    /// Adds a step in the window of a title; the first one starts the script.
    Win32Script& Then(const std::wstring& title, Step step) {
        m_steps.push_back({title, std::move(step)});
        s_running = this;
        if (!m_timer) m_timer = SetTimer(nullptr, 0, kPause, Tick);
        return *this;
    }
    /// Presses a button.
    Win32Script& Click(const std::wstring& title, int button) {
        return Then(title, [button](HWND window) { Click(window, button); });
    }

    // A press takes effect after its step, so that a window that it opens belongs to the next step.
    static void Click(HWND window, int button) { PostMessageW(Child(window, button), BM_CLICK, 0, 0); }

    /// A control of a window by its number; it must be there.
    static HWND Child(HWND window, int control) {
        const HWND child = GetDlgItem(window, control);
        if (!child) throw std::logic_error("no control " + std::to_string(control));
        return child;
    }
    static std::wstring TextOf(HWND window) {
        std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
        text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
        return text;
    }
    static std::wstring ClassOf(HWND window) {
        wchar_t name[64];
        return {name, static_cast<size_t>(GetClassNameW(window, name, 64))};
    }

    /// The window of this thread that takes input: a modal one shuts the others out.
    static HWND OpenWindow() {
        HWND found = nullptr;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
                *reinterpret_cast<HWND*>(result) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

private:
    static constexpr UINT kPause = 20;  // ms
    static constexpr int kPatience = 250;

    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (s_running) s_running->Next();
    }
    void Next() {
        const HWND window = OpenWindow();
        if (!window) return;
        if (m_waited > kPatience) return Close(window);
        const std::wstring wanted = m_steps.empty() ? L"" : m_steps.front().title;
        if (m_steps.empty() || TextOf(window) != wanted) {
            if (++m_waited <= kPatience) return;
            ADD_FAILURE() << "The window that is open is \"" << veka::FromWide(TextOf(window)).GetString()
                          << "\" and not \"" << veka::FromWide(wanted).GetString() << "\"";
            return;
        }
        m_waited = 0;
        const Step step = std::move(m_steps.front().step);
        m_steps.pop_front();
        try {
            step(window);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
            Close(window);
        }
    }
    static void Close(HWND window) {
        for (WPARAM button : {WPARAM{IDCANCEL}, WPARAM{IDNO}, WPARAM{IDOK}})
            PostMessageW(window, WM_COMMAND, button, 0);
    }

    struct Titled {
        std::wstring title;
        Step step;
    };

    inline static Win32Script* s_running = nullptr;
    std::deque<Titled> m_steps;
    UINT_PTR m_timer = 0;
    int m_waited = 0;
};

/// Tests with the system's windows installed as the user interface.
class Win32Test : public testing::Test {
protected:
    Win32Script script;
    veka::Win32UserInterface windows;
    veka::ScopedUserInterface installed{windows};
};

}  // namespace test

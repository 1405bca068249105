#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

#include "qt/QtUserInterface.h"
#include "window/ScopedUserInterface.h"

namespace test {

/// Operates modal windows as a user would, while they run: each step is done in the modal window that is open
/// by then. A script that is stuck fails its test and closes what is open.
class QtScript {
public:
    using Step = std::function<void(QWidget& window)>;

    ~QtScript() { EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " steps were not reached"; }

    /// Adds a step; the first one starts the script.
    QtScript& Then(Step step) {
        m_steps.push_back(std::move(step));
        if (m_steps.size() == 1) {
            m_patience.start();
            Schedule();
        }
        return *this;
    }
    /// Clicks a button of the window that is open by then.
    QtScript& Click(const char* button) {
        return Then([button](QWidget& window) { Click(window, button); });
    }

    static void Click(QWidget& window, const char* button) {
        QTest::mouseClick(Child<QWidget>(window, button), Qt::LeftButton);
    }
    /// Answers a message with one of its buttons.
    static void Answer(QWidget& window, QMessageBox::StandardButton button) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        if (!box) throw std::logic_error("no message box");
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    }
    /// A widget in a window by its name; it must be there.
    template <class Widget>
    static Widget* Child(QWidget& window, const char* name) {
        auto* child = window.findChild<Widget*>(name);
        if (!child) throw std::logic_error(std::string("no widget ") + name);
        return child;
    }

private:
    static constexpr int kPause = 15, kPatience = 5000;  // ms

    void Schedule() {
        QTimer::singleShot(kPause, &m_life, [this] { Next(); });
    }
    void Next() {
        if (m_steps.empty()) return;  // it was given up
        QWidget* window = QApplication::activeModalWidget();
        // A window gets its focus some time after it is shown, and a key or a click before goes astray. The
        // window below one that closed gets it from a window manager, which may not be there.
        if (!window || !window->isActiveWindow()) {
            if (window) window->activateWindow();
            if (m_patience.elapsed() < kPatience) return Schedule();
            return GiveUp(window ? "a window did not become active" : "no window came");
        }
        m_patience.start();
        const Step step = std::move(m_steps.front());
        m_steps.pop_front();
        // The step may open a window of its own, in which the next step is done.
        if (m_steps.empty())
            QTimer::singleShot(kPatience, &m_life, [] { CloseAll(); });
        else
            Schedule();
        try {
            step(*window);
        } catch (const std::exception& error) {
            GiveUp(error.what());  // it must not cross Qt's loops
        }
    }
    void GiveUp(const char* reason) {
        ADD_FAILURE() << reason;
        m_steps.clear();
        CloseAll();
    }
    static void CloseAll() {
        while (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            ADD_FAILURE() << "a window was left open: " << dialog->windowTitle().toStdString();
            dialog->done(0);
            dialog->hide();
        }
    }

    std::deque<Step> m_steps;
    QElapsedTimer m_patience;  // since the last step
    QObject m_life;            // timers end with it
};

/// Installs the Qt user interface for a test.
class QtTest : public testing::Test {
protected:
    veka::QtUserInterface user;
    veka::ScopedUserInterface installed{user};
    QtScript script;
};

}  // namespace test

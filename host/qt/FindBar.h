#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;

namespace host {

/// A line in which the user types a text to find. Enter finds the next place, Shift and Enter the one before,
/// and Escape closes the bar.
class FindBar : public QWidget {
public:
    /// Finds the next place; false if there is none.
    using Find = std::function<bool(const QString& text, bool backward)>;

    explicit FindBar(Find find);
    /// Shows the bar and lets the user type.
    void Open();
    void FindNext(bool backward);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Find m_find;
    QLineEdit* m_text;
    QLabel* m_answer;
};

}  // namespace host

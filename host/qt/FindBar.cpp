#include "host/qt/FindBar.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace host {

FindBar::FindBar(Find find) : m_find(std::move(find)), m_text(new QLineEdit), m_answer(new QLabel) {
    setObjectName("findBar");
    m_text->setObjectName("findText");
    m_text->setPlaceholderText("Find in names and values");
    m_answer->setObjectName("findAnswer");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel("Find:"));
    layout->addWidget(m_text, 1);
    const auto addButton = [&](Qt::ArrowType arrow, const char* tip, bool backward) {
        auto* button = new QToolButton;
        button->setArrowType(arrow);
        button->setToolTip(tip);
        connect(button, &QToolButton::clicked, this, [this, backward] { FindNext(backward); });
        layout->addWidget(button);
    };
    addButton(Qt::UpArrow, "Previous", true);
    addButton(Qt::DownArrow, "Next", false);
    layout->addWidget(m_answer);
    hide();
}

void FindBar::Open() {
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void FindBar::FindNext(bool backward) {
    const bool found = m_find(m_text->text(), backward);
    m_answer->setText(found || m_text->text().isEmpty() ? "" : "Not found");
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        parentWidget()->setFocus();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        FindNext((event->modifiers() & Qt::ShiftModifier) != 0);
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace host

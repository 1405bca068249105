#include "host/qt/PictureView.h"

#include <QAction>
#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QSplitter>
#include <QToolButton>
#include <algorithm>

#include "drawing/SceneBuilder.h"
#include "host/qt/ScenePainter.h"
#include "qt/Text.h"

namespace host {

namespace {

// Nobody chooses among more.
constexpr std::size_t kMostPictures = 1000, kMostLayers = 1000;

const std::pair<const char*, drawing::Side> kSides[] = {
    {"From the top", drawing::Side::Top},
    {"From the bottom", drawing::Side::Bottom},
    {"All layers", drawing::Side::Both},
};

QIcon Swatch(const QColor& color) {
    QPixmap pixmap(12, 12);
    pixmap.fill(color);
    return pixmap;
}

}  // namespace

PictureView::PictureView(const char* name, bool sides)
    : m_view(new SceneView), m_choice(new QComboBox), m_layers(new QListWidget), m_remarks(new QLabel) {
    setObjectName(name);
    const QString prefix(name);
    m_view->setObjectName(prefix + "View");
    m_choice->setObjectName(prefix + "Choice");
    m_choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_choice->setMinimumContentsLength(12);
    m_layers->setObjectName(prefix + "Layers");
    m_layers->setUniformItemSizes(true);
    m_remarks->setObjectName(prefix + "Remarks");
    m_remarks->setTextFormat(Qt::PlainText);
    m_remarks->setWordWrap(true);
    m_remarks->hide();
    connect(m_choice, &QComboBox::currentIndexChanged, this, [this] { ShowPicture(); });
    connect(m_layers, &QListWidget::itemChanged, this, [this] { ReadLayers(); });

    auto* bar = new QHBoxLayout;
    bar->addWidget(m_choice, 1);
    if (sides) {
        m_side = new QComboBox;
        m_side->setObjectName(prefix + "Side");
        for (const auto& [text, side] : kSides) m_side->addItem(text);
        connect(m_side, &QComboBox::currentIndexChanged, this, [this] { ShowPicture(); });
        bar->addWidget(m_side);
    }
    const auto addButton = [&](const char* text, const char* tip, auto deed) {
        auto* button = new QToolButton;
        auto* action = new QAction(text, this);
        action->setToolTip(tip);
        connect(action, &QAction::triggered, this, deed);
        button->setDefaultAction(action);
        bar->addWidget(button);
        return action;
    };
    addButton("Fit", "Show all (F)", [this] { m_view->Fit(); });
    m_measure = addButton("Distance", "Measure between two points (D); Escape ends", [this](bool on) {
        m_view->Measure(on);
        m_view->setFocus();
    });
    m_measure->setObjectName(prefix + "Measure");
    m_measure->setCheckable(true);
    m_view->onMeasuring = [this](bool measuring) { m_measure->setChecked(measuring); };

    auto* splitter = new QSplitter;
    splitter->addWidget(m_view);
    splitter->addWidget(m_layers);
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({1000, 150});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->addLayout(bar);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_remarks);
}

void PictureView::SetPictures(std::vector<Picture> pictures, const QString& none) {
    if (pictures.size() > kMostPictures) pictures.resize(kMostPictures);
    m_pictures = std::move(pictures);
    m_none = none;
    m_switched.clear();
    m_ranks.clear();
    const QSignalBlocker blocker(m_choice);
    m_choice->clear();
    for (const Picture& picture : m_pictures) m_choice->addItem(picture.name);
    m_choice->setEnabled(!m_pictures.empty());
    ShowPicture();
}

void PictureView::ShowPicture() {
    m_made = false;
    m_scene.reset();
    if (isVisible()) return MakeScene();
    m_view->ShowScene(nullptr, From());  // its sources may be gone
}

void PictureView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_made) MakeScene();
}

void PictureView::MakeScene() {
    m_made = true;
    QStringList remarks;
    QString none = m_none;
    const int index = m_choice->currentIndex();
    if (index >= 0) try {
            m_scene =
                std::make_shared<const drawing::Scene>(m_pictures[static_cast<std::size_t>(index)].make());
            none = "There is nothing to draw.";
            constexpr std::size_t kMostRemarks = 5;
            const std::vector<std::string>& all = m_scene->Remarks();
            for (std::size_t i = 0; i < std::min(all.size(), kMostRemarks); ++i)
                remarks += veka::ToQString(CString(all[i]));
            if (all.size() > kMostRemarks)
                remarks += QString::number(all.size() - kMostRemarks) + " more remarks";
        } catch (const drawing::DrawingError& error) {
            none = veka::ToQString(CString(error.what()));
        }
    m_remarks->setText(remarks.join("; "));
    m_remarks->setVisible(!remarks.isEmpty());
    m_view->ShowScene(m_scene, From(), none);
    ListLayers();
    ReadLayers();
    ShowHighlight();
}

drawing::Side PictureView::From() const {
    return m_side ? kSides[m_side->currentIndex()].second : drawing::Side::Both;
}

void PictureView::ListLayers() {
    m_listing = true;
    m_layers->clear();
    if (m_scene) {
        const drawing::Theme theme = m_view->Theme();
        // The uppermost layer comes first.
        const std::vector<drawing::Layer>& layers = m_scene->Layers();
        for (std::size_t i = layers.size(); i > 0 && layers.size() - i < kMostLayers; --i) {
            const drawing::Layer& layer = layers[i - 1];
            if (!layer.SeenFrom(From())) continue;
            auto* item = new QListWidgetItem(Swatch(ToQColor(layer.ColorOn(theme))),
                                             veka::ToQString(CString(layer.name)), m_layers);
            const auto switched = m_switched.find(layer.name);
            const bool shown = switched == m_switched.end() ? layer.shown : switched->second;
            item->setData(Qt::UserRole, QVariant::fromValue(i - 1));
            item->setCheckState(shown ? Qt::Checked : Qt::Unchecked);
        }
    }
    m_listing = false;
}

/// Shows the layers that are ticked in the list, and those that the list does not have.
void PictureView::ReadLayers() {
    if (m_listing || !m_scene) return;
    std::vector<bool> shown;
    for (const drawing::Layer& layer : m_scene->Layers()) shown.push_back(layer.shown);
    for (int row = 0; row < m_layers->count(); ++row) {
        const QListWidgetItem& item = *m_layers->item(row);
        const auto layer = item.data(Qt::UserRole).value<std::size_t>();
        const bool on = item.checkState() == Qt::Checked;
        if (on != m_scene->Layers()[layer].shown || m_switched.count(m_scene->Layers()[layer].name) > 0)
            m_switched[m_scene->Layers()[layer].name] = on;
        shown[layer] = on;
    }
    m_view->ShowLayers(std::move(shown));
}

void PictureView::Highlight(const Ranks& records) {
    m_ranks = records;
    const int current = m_choice->currentIndex();
    if (current >= 0 && m_ranks.count(m_pictures[static_cast<std::size_t>(current)].record) == 0)
        for (std::size_t i = 0; i < m_pictures.size(); ++i)
            if (m_ranks.count(m_pictures[i].record) > 0) {
                m_choice->setCurrentIndex(static_cast<int>(i));
                return;  // it is highlighted when it is shown
            }
    ShowHighlight();
}

void PictureView::ShowHighlight() {
    if (!m_scene) return;
    std::vector<std::size_t> shapes;
    int best = std::numeric_limits<int>::max();
    const std::vector<drawing::Shape>& all = m_scene->Shapes();
    for (std::size_t i = 0; i < all.size() && !m_ranks.empty(); ++i)
        for (const void* record : {all[i].source.record, all[i].definition.record}) {
            const auto found = record ? m_ranks.find(record) : m_ranks.end();
            if (found == m_ranks.end() || found->second > best) continue;
            if (found->second < best) shapes.clear();
            best = found->second;
            if (shapes.empty() || shapes.back() != i) shapes.push_back(i);
        }
    m_view->Highlight(std::move(shapes));
}

}  // namespace host

#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <unordered_map>

#include "host/qt/SceneView.h"

class QAction;
class QComboBox;
class QLabel;
class QListWidget;

namespace host {

/// Records by their addresses, each with a rank: 0 for a selected record and those below it, 1 for the record
/// that it is in, and so on.
using Ranks = std::unordered_map<const void*, int>;

/// One picture that the user can choose.
struct Picture {
    QString name;
    const void* record = nullptr;          ///< what it shows: a footprint, a gate
    std::function<drawing::Scene()> make;  ///< is called when the picture is first shown
};

/// Shows one of several scenes with its layers, which can be switched on and off. A scene is made when it is
/// first to be seen.
class PictureView : public QWidget {
public:
    /// `sides` lets the user choose the side of a board.
    PictureView(const char* name, bool sides);

    SceneView& View() { return *m_view; }

    /// Offers pictures and shows the first one; without one the text is shown.
    void SetPictures(std::vector<Picture> pictures, const QString& none);
    /// Paints in another colour what shows the records of the lowest rank that anything shows. If the picture
    /// belongs to none of the records and another one does, that one is shown.
    void Highlight(const Ranks& records);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ShowPicture();
    void MakeScene();
    void ListLayers();
    void ReadLayers();
    void ShowHighlight();
    drawing::Side From() const;

    SceneView* m_view;
    QComboBox* m_choice;
    QComboBox* m_side = nullptr;
    QListWidget* m_layers;
    QLabel* m_remarks;
    QAction* m_measure;
    std::vector<Picture> m_pictures;
    QString m_none;
    std::shared_ptr<const drawing::Scene> m_scene;
    bool m_made = false;
    bool m_listing = false;
    std::map<std::string, bool> m_switched;  // layers that the user switched on or off
    Ranks m_ranks;
};

}  // namespace host

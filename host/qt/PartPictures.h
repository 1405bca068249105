#pragma once

#include <QTabWidget>
#include <functional>
#include <memory>

#include "drawing/Part.h"
#include "host/qt/PictureView.h"

namespace host {

/// The pictures of a part as tabs: the footprints, the symbols with their gates, and the packages from above
/// and from the sides. It refers to the part that it shows.
class PartPictures : public QTabWidget {
public:
    PartPictures();

    /// Is called with the record that was clicked, null for a click beside all shapes.
    std::function<void(const void* record)> onPick;
    /// Is called with the place of the pointer as a text, empty when the pointer leaves.
    std::function<void(const QString& place)> onPointer;

    /// Shows a part, which must live until the next one is shown.
    void ShowPart(const CVEKA_Manager& part);
    /// Highlights records, and with a pin the pin in all views of the part.
    void Highlight(Ranks records);
    /// Highlights all that is a pin.
    void HighlightPin(const CString& name);
    /// The name of the pin that a record is, in any view; empty for a record that is no pin.
    CString PinOf(const void* record);

private:
    PictureView* AddPictures(const char* name, const char* title, bool sides);
    std::vector<Picture> Footprints() const;
    std::vector<Picture> Symbols() const;
    std::vector<Picture> Packages() const;
    void JoinPins();

    std::unique_ptr<const drawing::Part> m_part;
    PictureView *m_footprint, *m_symbol, *m_package;
    bool m_joined = false;
    struct Pin {
        CString name;
        std::vector<const void*> records;
    };
    std::vector<Pin> m_pins;
    std::unordered_map<const void*, std::size_t> m_pinOf;
};

}  // namespace host

#include "drawing/Sheet.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr double kGap = 2;  // between two scenes, in millimetres
constexpr double kLetterWidth = 0.8;
constexpr double kLargestTitle = 2;

/// Texts of these roles name something. They are never shown mirrored.
bool IsName(Role role) {
    return role == Role::PinName || role == Role::PinNumber || role == Role::Label || role == Role::Missing ||
           role == Role::Dimension;
}

}  // namespace

Text Frame::Seen(const Text& text, Role role) const {
    Text seen = text;
    if (!mirrored) return seen;
    seen.rotation = -text.rotation;
    seen.mirrored = !text.mirrored;
    if (IsName(role)) {
        seen.mirrored = false;
        // It goes on to the other side of its point.
        if (text.align != Align::Middle) seen.align = text.align == Align::Left ? Align::Right : Align::Left;
    }
    return seen;
}

Sheet::Sheet(std::vector<View> views) : m_views(std::move(views)) {
    std::vector<Box> boxes;
    std::erase_if(m_views, [&](const View& view) {
        const Box box = view.scene.Bounds(view.from, false);
        if (!box.IsEmpty()) boxes.push_back(box);
        return box.IsEmpty();
    });
    const bool titled = m_views.size() > 1;
    double widest = 0, area = 0, titleHeight = kLargestTitle;
    for (size_t i = 0; i < m_views.size(); ++i) {
        Frame frame;
        const double margin = std::max(0.5, std::max(boxes[i].Width(), boxes[i].Height()) * 0.04);
        const Box box = boxes[i].Grown(margin);
        frame.width = box.Width();
        frame.height = box.Height();
        frame.mirrored = m_views[i].from == Side::Bottom;
        frame.x = frame.mirrored ? box.right : -box.left;
        frame.y = box.top;
        if (titled) {
            const auto letters = static_cast<double>(std::max<size_t>(m_views[i].scene.Title().size(), 1));
            frame.titleHeight = std::clamp(frame.width / (letters * kLetterWidth), 0.4, kLargestTitle);
        }
        titleHeight = std::min(titleHeight, frame.titleHeight);
        widest = std::max(widest, frame.width);
        area += (frame.width + kGap) * (frame.height + kGap);
        m_frames.push_back(frame);
    }
    // Rows of about the width of a picture that is half as high again as it is wide.
    const double rowWidth = std::max(widest, std::sqrt(area) * 1.5);
    double x = kGap, y = kGap, rowHeight = 0;
    for (Frame& frame : m_frames) {
        frame.titleHeight = titled ? titleHeight : 0;  // the same for all
        const double titleSpace = frame.titleHeight * 2;
        if (x > kGap && x + frame.width > rowWidth + kGap) {
            x = kGap;
            y += rowHeight + kGap;
            rowHeight = 0;
        }
        frame.left = x;
        frame.top = y + titleSpace;
        frame.x += frame.left;
        frame.y += frame.top;
        x += frame.width + kGap;
        rowHeight = std::max(rowHeight, frame.height + titleSpace);
        m_width = std::max(m_width, x);
        m_height = std::max(m_height, y + rowHeight + kGap);
    }
    if (m_frames.size() == 1) {  // no border around a single scene
        Frame& frame = m_frames[0];
        frame.x -= frame.left;
        frame.y -= frame.top;
        frame.left = frame.top = 0;
        m_width = frame.width;
        m_height = frame.height;
    }
}

Theme Sheet::GroundTheme() const {
    return m_views.size() == 1 ? m_views[0].theme : Theme::Light;
}

}  // namespace drawing

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "drawing/Palette.h"
#include "host/Solids.h"

namespace host {

/// The solids of a part as a viewer shows them.
class ViewedSolids {
public:
    virtual ~ViewedSolids() = default;

    std::size_t count = 0;             ///< how many solids there are
    std::vector<std::string> remarks;  ///< a sentence for each kind of thing that was left out
};

/// Is called with the number of steps done and of all; false ends the work.
using SolidProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// Makes the solids of the package that a part uses by default, and their triangles. A STEP file that the
/// part names is looked for beside the part's file. To be called in any thread; the part must not change
/// meanwhile. Null where the work was ended. Raises `SolidsError` in a program that was built without solids.
std::unique_ptr<ViewedSolids> MakeViewedSolids(const CVEKA_Manager& part, const std::string& partFile,
                                               const SolidProgress& progress);

/// From where solids are seen.
enum class SolidSide { Oblique, Top, Bottom, Front, Back, Left, Right };

/// Shows solids in a window of the system. Places are pixels of the window, from its upper left corner.
class SolidViewer {
public:
    virtual ~SolidViewer() = default;

    /// Shows solids in place of the former ones, all of them in sight.
    virtual void Show(const ViewedSolids& solids) = 0;
    /// Shows all from a side.
    virtual void LookFrom(SolidSide side) = 0;
    virtual void Fit() = 0;
    virtual void SetPerspective(bool on) = 0;
    virtual void SetGround(drawing::Theme theme) = 0;
    /// Begins to turn at a place, and turns to another one.
    virtual void BeginTurn(int x, int y) = 0;
    virtual void Turn(int x, int y) = 0;
    virtual void Move(int right, int down) = 0;
    /// Zooms by steps and keeps what is at a place.
    virtual void Zoom(int x, int y, int steps) = 0;
    /// The window has another size.
    virtual void Resize() = 0;
    virtual void Redraw() = 0;
};

/// Makes a viewer in a window of X11. Raises `SolidsError` where there can be none, for example without
/// OpenGL.
std::unique_ptr<SolidViewer> MakeSolidViewer(std::uintptr_t window);

}  // namespace host

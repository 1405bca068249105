#pragma once

#include <memory>
#include <string>
#include <vector>

#include "geometry/MathVector.h"
#include "geometry/PlaneShapesLib.h"

class TopoDS_Shape;

namespace geometry {

using vector = Math::Vector<double>;

/// A body that can be turned and shown.
///
/// Every body is made about its own origin: it is centred on it in X and Y and stands on it in Z, but for the
/// sphere, which is centred in all three. It is then turned once about its pivot, and last moved to its
/// point. Nothing throws for sizes that no body can have: the shape is then empty and `GetFailure` says why.
class object {
public:
    virtual ~object();
    object(const object&) = delete;
    object& operator=(const object&) = delete;

    /// Turns the body about X, then Y, then Z, counter-clockwise in degrees. Angles of 0 leave the directions
    /// that the body was made with.
    virtual void SetAngle(double x, double y, double z);
    const vector& GetAngle() const { return m_angle; }

    /// The body's shape, made on the first call; empty where it cannot be made. It is valid until
    /// `SetAngle` is called or the body is deleted. The pivot of the first call is used.
    const TopoDS_Shape* GetShape() const;
    /// Why the shape is empty; an empty text if it is not.
    const std::string& GetFailure() const;
    /// Red, green and blue, 1 being full; not clamped.
    virtual const vector& GetColor() const = 0;
    /// What the body is, in one word.
    virtual const char* GetKind() const = 0;

    vector pivot;  ///< the point that the body is turned about, in its own coordinates

protected:
    object();
    /// Makes the shape in its place. Throws where it cannot.
    virtual TopoDS_Shape Make() const = 0;
    /// True for a body that has checked itself. The check of the modeller takes the square of the faces of a
    /// body.
    virtual bool ChecksItself() const { return false; }

    vector m_angle;

private:
    mutable std::unique_ptr<TopoDS_Shape> m_shape;
    mutable std::string m_failure;
};

/// A body with a place: a point and two directions.
class multi_object : public object {
public:
    const vector& GetPoint() const { return m_point; }
    const vector& GetFront() const { return m_front; }
    const vector& GetUp() const { return m_up; }

protected:
    multi_object(const vector& point, const vector& front, const vector& up);
    TopoDS_Shape Make() const final;
    /// Makes the shape about its own origin. Throws where it cannot.
    virtual TopoDS_Shape MakeAtOrigin() const = 0;

private:
    vector m_point, m_front, m_up;
};

/// A body with a kind and a colour.
class type_multi_object : public multi_object {
public:
    const vector& GetColor() const override { return m_color; }
    const char* GetKind() const override { return m_kind; }
    /// The last argument of each body, which the body only keeps.
    bool GetFlag() const { return m_flag; }

protected:
    type_multi_object(const char* kind, const vector& point, const vector& front, const vector& up,
                      const vector& color, bool flag);

private:
    const char* m_kind;
    vector m_color;
    bool m_flag;
};

/// A box.
class cuboid : public type_multi_object {
public:
    cuboid(const vector& point, const vector& front, const vector& up, double width, double height,
           double depth, const vector& color, bool flag);
    const double Width, Height, Depth;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// A box with a rectangular hole along its depth.
class hole_cuboid : public type_multi_object {
public:
    hole_cuboid(const vector& point, const vector& front, const vector& up, double width, double height,
                double holeWidth, double holeHeight, double depth, const vector& color, bool flag);
    const double Width, Height, HoleWidth, HoleHeight, Depth;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// A round cylinder along its depth.
class cylinder : public type_multi_object {
public:
    cylinder(const vector& point, const vector& front, const vector& up, double radius, double depth,
             const vector& color, bool flag);
    const double Radius, Depth;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// A ring of rectangular section; the sizes are diameters.
class donut : public type_multi_object {
public:
    donut(const vector& point, const vector& front, const vector& up, double innerSize, double outterSize,
          double depth, const vector& color, bool flag);
    const double InnerSize, OutterSize, Depth;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// A frustum between two rectangles; an end of 0 by 0 is a tip.
class pyramid : public type_multi_object {
public:
    pyramid(const vector& point, const vector& front, const vector& up, double btmWidth, double btmHeight,
            double topWidth, double topHeight, double depth, const vector& color, bool flag);
    const double BtmWidth, BtmHeight, TopWidth, TopHeight, Depth;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// A ball about its origin.
class sphere : public type_multi_object {
public:
    sphere(const vector& point, double radius, const vector& color, bool flag);
    const double Radius;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// An elliptic cylinder along its depth; width and height are its diameters.
class ellipse : public type_multi_object {
public:
    ellipse(const vector& point, const vector& front, const vector& up, double width, double height,
            double depth, const vector& color, bool flag);
    const double Width, Height, Depth;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// A prism over a closed outline, without the voids; its outline is where it is drawn.
class pillar : public type_multi_object {
public:
    /// Copies outline and voids.
    pillar(const vector& point, const vector& front, const vector& up, const CPCDrawObjArray& bound,
           const CPCPolygonArray& voids, double depth, const vector& color, bool flag);
    const CPCDrawObjArray Bound;
    const CPCPolygonArray Voids;
    const double Depth;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
    bool ChecksItself() const override;

private:
    std::size_t PieceCount() const;
};

/// A section that is moved along a line of straight pieces and arcs in an upright plane through the Z axis.
struct sweep {
    bool round = false;    ///< the section is an ellipse; otherwise a rectangle
    double width = 0;      ///< of the section, square to the plane
    double thickness = 0;  ///< of the section, in the plane
    double direction = 0;  ///< degrees about Z from X to the plane
    CPCDrawObjArray
        middle;  ///< of a round section: the open line that it follows, X along the plane and Y up
    CPCDrawObjArray outline;  ///< of a rectangular section: the closed outline in the plane
};

/// The metal of a lead: sweeps and balls that become one body.
class lead : public type_multi_object {
public:
    /// A ball on the Z axis.
    struct ball {
        double radius = 0;
        double height = 0;  ///< of its centre
    };
    lead(const vector& point, const vector& front, const vector& up, std::vector<sweep> sweeps,
         std::vector<ball> balls, const vector& color, bool flag);
    const std::vector<sweep> Sweeps;
    const std::vector<ball> Balls;

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

/// How a body is turned, mirrored, moved and scaled: the rows of a rotation, with a determinant of 1 or -1,
/// then a move, then a factor.
struct placement {
    vector x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};
    vector move;
    double scale = 1;
};

/// A body at another place. It shares the body, and its shape as long as that is only turned and moved.
class placed : public object {
public:
    placed(std::shared_ptr<const object> body, const placement& place);
    const vector& GetColor() const override { return m_body->GetColor(); }
    const char* GetKind() const override { return m_body->GetKind(); }
    const object& GetBody() const { return *m_body; }
    const placement& GetPlace() const { return m_place; }

protected:
    TopoDS_Shape Make() const override;
    bool ChecksItself() const override { return true; }  // a sound body is sound at any place

private:
    std::shared_ptr<const object> m_body;
    placement m_place;
};

class step_files;

/// What a STEP file holds. The file is looked for by the files that the body was given, and nowhere else;
/// without them the shape is empty.
class step : public type_multi_object {
public:
    /// The path is copied; null counts as empty.
    step(const char* path, const vector& point, const vector& front, const vector& up, const vector& color,
         bool flag);
    const std::string Path;
    std::shared_ptr<const step_files>
        files;  ///< where and how the file is read; the value of the first call is used

protected:
    TopoDS_Shape MakeAtOrigin() const override;
};

}  // namespace geometry

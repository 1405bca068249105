#pragma once

#include <cstddef>
#include <memory>
#include <vector>

/// A point in the plane.
struct CPointD {
    double x = 0, y = 0;

    bool operator==(const CPointD&) const = default;
};

/// One piece of an outline.
class CPCDrawObj {
public:
    virtual ~CPCDrawObj() = default;
    /// A copy that the caller owns.
    virtual CPCDrawObj* Clone() const = 0;
    virtual CPointD GetStartPt() const = 0;
    virtual CPointD GetEndPt() const = 0;
};

/// A straight piece.
class CPCLineSeg : public CPCDrawObj {
public:
    CPCLineSeg(double startX, double startY, double endX, double endY)
        : m_start{startX, startY}, m_end{endX, endY} {}

    CPCLineSeg* Clone() const override { return new CPCLineSeg(*this); }
    CPointD GetStartPt() const override { return m_start; }
    CPointD GetEndPt() const override { return m_end; }

private:
    CPointD m_start, m_end;
};

/// A piece of a circle, from its start angle to its end angle in its direction. Equal angles are a whole
/// circle.
class CPCArc : public CPCDrawObj {
public:
    CPCArc* Clone() const override { return new CPCArc(*this); }
    CPointD GetStartPt() const override { return At(m_startAngle); }
    CPointD GetEndPt() const override { return At(m_endAngle); }
    /// The point half way along the arc.
    CPointD GetMiddlePt() const;
    /// How far the arc turns, in degrees above 0 and up to 360.
    double GetSweep() const;

    const CPointD& GetCenterPt() const { return m_center; }
    void SetCenterPt(const CPointD& center) { m_center = center; }
    double GetRadius() const { return m_radius; }
    void SetRadius(double radius) { m_radius = radius; }
    /// Angles in degrees.
    double GetStartAngle() const { return m_startAngle; }
    void SetStartAngle(double degrees) { m_startAngle = degrees; }
    double GetEndAngle() const { return m_endAngle; }
    void SetEndAngle(double degrees) { m_endAngle = degrees; }
    /// 1 for clockwise, 0 for counter-clockwise.
    int GetDirection() const { return m_direction; }
    void SetDirection(int direction) { m_direction = direction; }
    bool IsCW() const { return m_direction == 1; }

private:
    CPointD At(double degrees) const;

    CPointD m_center;
    double m_radius = 0, m_startAngle = 0, m_endAngle = 0;
    int m_direction = 0;
};

/// Owning array of outline pieces.
class CPCDrawObjArray {
public:
    CPCDrawObjArray() = default;
    CPCDrawObjArray(const CPCDrawObjArray& other) { *this = other; }
    CPCDrawObjArray(CPCDrawObjArray&&) noexcept = default;
    virtual ~CPCDrawObjArray() = default;
    CPCDrawObjArray& operator=(const CPCDrawObjArray& other);
    CPCDrawObjArray& operator=(CPCDrawObjArray&&) noexcept = default;

    /// Appends a piece and takes it over; null is ignored.
    void Add(CPCDrawObj* piece);
    std::size_t GetSize() const { return m_pieces.size(); }
    /// The piece at an index below the size.
    const CPCDrawObj& operator[](std::size_t index) const { return *m_pieces[index]; }

private:
    std::vector<std::unique_ptr<CPCDrawObj>> m_pieces;
};

/// A closed outline.
class CPCPolygon {
public:
    CPCDrawObjArray& GetBoundary() { return m_boundary; }
    const CPCDrawObjArray& GetBoundary() const { return m_boundary; }

private:
    CPCDrawObjArray m_boundary;
};

/// Owning array of polygons.
class CPCPolygonArray {
public:
    CPCPolygonArray() = default;
    CPCPolygonArray(const CPCPolygonArray& other) { *this = other; }
    CPCPolygonArray(CPCPolygonArray&&) noexcept = default;
    CPCPolygonArray& operator=(const CPCPolygonArray& other);
    CPCPolygonArray& operator=(CPCPolygonArray&&) noexcept = default;
    virtual ~CPCPolygonArray() = default;

    /// Appends a polygon and takes it over; null is ignored.
    void Add(CPCPolygon* polygon);
    std::size_t GetSize() const { return m_polygons.size(); }
    /// The polygon at an index below the size.
    const CPCPolygon& operator[](std::size_t index) const { return *m_polygons[index]; }

private:
    std::vector<std::unique_ptr<CPCPolygon>> m_polygons;
};

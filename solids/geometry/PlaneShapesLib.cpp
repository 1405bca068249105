#include "geometry/PlaneShapesLib.h"

#include <cmath>
#include <numbers>

CPointD CPCArc::At(double degrees) const {
    const double angle = degrees / 180 * std::numbers::pi;
    return {m_center.x + m_radius * std::cos(angle), m_center.y + m_radius * std::sin(angle)};
}

double CPCArc::GetSweep() const {
    const double turned = std::fmod(IsCW() ? m_startAngle - m_endAngle : m_endAngle - m_startAngle, 360.0);
    return turned > 0 ? turned : turned + 360;
}

CPointD CPCArc::GetMiddlePt() const {
    return At(m_startAngle + (IsCW() ? -0.5 : 0.5) * GetSweep());
}

CPCDrawObjArray& CPCDrawObjArray::operator=(const CPCDrawObjArray& other) {
    std::vector<std::unique_ptr<CPCDrawObj>> pieces;
    for (const auto& piece : other.m_pieces) pieces.emplace_back(piece->Clone());
    m_pieces = std::move(pieces);
    return *this;
}

void CPCDrawObjArray::Add(CPCDrawObj* piece) {
    std::unique_ptr<CPCDrawObj> owner(piece);
    if (owner) m_pieces.push_back(std::move(owner));
}

CPCPolygonArray& CPCPolygonArray::operator=(const CPCPolygonArray& other) {
    std::vector<std::unique_ptr<CPCPolygon>> polygons;
    for (const auto& polygon : other.m_polygons) polygons.push_back(std::make_unique<CPCPolygon>(*polygon));
    m_polygons = std::move(polygons);
    return *this;
}

void CPCPolygonArray::Add(CPCPolygon* polygon) {
    std::unique_ptr<CPCPolygon> owner(polygon);
    if (owner) m_polygons.push_back(std::move(owner));
}

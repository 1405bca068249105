#include "drawing/Gate.h"

#include <cmath>

namespace drawing {

namespace {

Point At(const CVEKA_Coordinate* point) {
    return {point->GetX(), point->GetY()};
}

}  // namespace

Gate GateReader::Read(const CVEKA_Partition& partition) {
    Gate gate;
    gate.partition = &partition;
    gate.library = m_part.records.LibraryPartition(partition.GetLibPartitionName().View());
    const double scale = partition.GetLibPartitionScale();
    gate.place = m_part.Unit() * Place::Scaled(scale > 0 && std::isfinite(scale) ? scale : 1);
    // The body of the partition itself is the frame of the library's body.
    const bool own = !gate.library || gate.library->GetBodyShape()->IsEmpty();
    gate.body = own ? partition.GetBodyShape() : gate.library->GetBodyShape();
    static const LibraryPins none;
    const LibraryPins& libraryPins = gate.library ? PinsOf(*gate.library) : none;
    int index = 0;
    for (const CVEKA_PartitionPin* pin : *partition.GetPins()) {
        const auto found = libraryPins.find(index++);
        if (!pin) continue;
        const LibraryPin library = found == libraryPins.end() ? LibraryPin() : found->second;
        Point point = At(pin->GetPoint());
        double rotation = pin->GetPinRotation();
        if (library.pin && point == Point{} && rotation == 0) {
            point = At(library.pin->GetPoint());
            rotation = library.pin->GetPinRotation();
        }
        gate.pins.push_back({pin, library.pin, library.shape, gate.place * Place(point, rotation)});
    }
    return gate;
}

const GateReader::LibraryPins& GateReader::PinsOf(const CVEKA_PartitionDB& library) {
    const auto [found, isNew] = m_libraryPins.try_emplace(&library);
    if (!isNew) return found->second;
    for (const CVEKA_PartitionDBPin* pin : *library.GetPins()) {
        if (!pin) continue;
        const CVEKA_NSHAPE* shape = m_part.records.PinShape(pin->GetLibPinShapeName().View());
        found->second.try_emplace(pin->GetPartitionPinNo(), LibraryPin{pin, shape});
    }
    return found->second;
}

}  // namespace drawing

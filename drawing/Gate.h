#pragma once

#include <unordered_map>
#include <vector>

#include "drawing/Part.h"

namespace drawing {

/// A pin of a gate, with what draws it.
struct GatePin {
    const CVEKA_PartitionPin* pin = nullptr;
    const CVEKA_PartitionDBPin* library = nullptr;  ///< the pin of the library partition, or null
    const CVEKA_NSHAPE* shape = nullptr;            ///< the shape of that pin, or null
    Place place;                                    ///< of the pin's shape, in millimetres

    /// True if the pin names a shape that is not there.
    bool MissesShape() const { return library && !shape && !library->GetLibPinShapeName().IsEmpty(); }
};

/// A partition of a symbol with its library partition. The records that a gate names belong to the part.
struct Gate {
    const CVEKA_Partition* partition = nullptr;
    const CVEKA_PartitionDB* library = nullptr;  ///< null where the partition has none
    const CVEKA_3DObjectArray* body = nullptr;   ///< what draws the body; never null
    Place place;                                 ///< of the body, in millimetres
    std::vector<GatePin> pins;

    /// True if the partition names a library partition that is not there.
    bool MissesLibrary() const { return !library && !partition->GetLibPartitionName().IsEmpty(); }
};

/// Finds what draws the gates of a part. What a library partition has is looked up once, however many gates
/// use it. The part must outlive the reader.
class GateReader {
public:
    explicit GateReader(const Part& part) : m_part(part) {}

    /// The gate of a partition. The body is that of the library partition, or the partition's own one if the
    /// library has none. A pin stands where the partition has it, or where the library partition has it if
    /// the partition does not say.
    Gate Read(const CVEKA_Partition& partition);

private:
    struct LibraryPin {
        const CVEKA_PartitionDBPin* pin = nullptr;
        const CVEKA_NSHAPE* shape = nullptr;
    };
    using LibraryPins = std::unordered_map<int, LibraryPin>;
    /// The pins of a library partition by their numbers.
    const LibraryPins& PinsOf(const CVEKA_PartitionDB& library);

    const Part& m_part;
    std::unordered_map<const CVEKA_PartitionDB*, LibraryPins> m_libraryPins;
};

}  // namespace drawing

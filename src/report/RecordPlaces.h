#pragma once

#include <string_view>
#include <vector>

#include "inspect/Description.h"
#include "model/CVEKA_Manager.h"
#include "report/Region.h"

namespace veka {

/// Finds the records of a part by places in its file. It refers to the part.
class VEKA_API RecordPlaces {
public:
    /// `bytes` are those of the file that the part was imported from; with others nothing is found. The time
    /// and the memory are proportional to the size of the file.
    RecordPlaces(std::string_view bytes, const CVEKA_Manager& part);
    /// The innermost element of a list of the part whose level holds a place; without a record where there is
    /// none.
    RecordView At(Place place) const;

private:
    struct Element {
        Region region;
        RecordView record;
    };

    std::vector<Element> m_elements;  // an element comes before those within it
};

}  // namespace veka

#pragma once

#include "drawing/Part.h"

namespace drawing {

/// One gate of a symbol: its body and its pins, each pin with its shape, its name and its number.
///
/// What is drawn is the library partition, in its scale. Where there is none, it is what the partition itself
/// has, and a cross with the name of what is missing. A pin stands where the partition has it, or where the
/// library partition has it if the partition does not say. Labels that are not visible are on a layer that is
/// not shown. The source of a pin's shapes is its `CVEKA_PartitionPin`. Raises `TooLarge`.
Scene GateScene(const Part& part, const CVEKA_Partition& partition);

/// All gates of a symbol side by side, each with its name below it if there are several. Raises `TooLarge`.
Scene SymbolScene(const Part& part, const CVEKA_Symbol& symbol);

}  // namespace drawing

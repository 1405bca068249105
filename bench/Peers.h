#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "leveltree/CECadClsLvl.h"

/// The other readers, on the level tree of a file written in their own format.
namespace bench {

/// The tree as XML: one element a level, named as the level, its values as attributes. A byte that XML does
/// not allow in its place is replaced.
std::string WriteXml(const CECadClsLvlArray& levels);
/// The tree as JSON: for each level a list of its name, its values and its children.
std::string WriteJson(const CECadClsLvlArray& levels);

/// One reader of a text in memory.
class Reader {
public:
    virtual ~Reader() = default;
    /// Reads the text anew; what was made before is freed first.
    virtual void Read() = 0;
    /// Frees what `Read` made, outside the measured time.
    virtual void Free() = 0;
    /// Prepares the next `Read`, outside the measured time.
    virtual void Prepare() {}
    /// Levels in what was read.
    virtual std::int64_t Count() = 0;
};

enum class Format { Veka, Xml, Json };

struct Peer {
    const char* name;
    Format format;
    std::function<std::unique_ptr<Reader>(const std::string& text)> make;
};

/// All peers that this program was built with.
std::vector<Peer> Peers();

}  // namespace bench

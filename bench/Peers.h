#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Records.h"
#include "leveltree/CECadClsLvl.h"

/// The other readers, on the level tree of a file written in their own format.
namespace bench {

/// The tree as XML: one element a level, named as the level, its values as attributes. A byte that XML does
/// not allow in its place is replaced.
std::string WriteXml(const CECadClsLvlArray& levels);
/// The tree as JSON: for each level a list of its name, its values and its children.
std::string WriteJson(const CECadClsLvlArray& levels);
/// The tree as s-expressions: a level in parentheses, in quotes what needs them.
std::string WriteSExpressions(const CECadClsLvlArray& levels);
/// A text with the bytes replaced that these texts replace.
std::string WithoutForbidden(std::string_view text);

/// One reader of a text in memory, or of a file.
class Reader {
public:
    virtual ~Reader() = default;
    /// Reads the text anew; what was made before is freed first.
    virtual void Read() = 0;
    /// Frees what `Read` made, outside the measured time.
    virtual void Free() = 0;
    /// Prepares the next `Read`, outside the measured time.
    virtual void Prepare() {}
    /// Levels in what was read; -1 if that is no tree.
    virtual std::int64_t Count() { return -1; }
    /// The checksum of the records that were made; nothing if none were.
    virtual std::optional<std::uint64_t> Sum() { return {}; }
};

/// A reader that makes records.
class RecordReader : public Reader {
public:
    void Free() override { m_part.reset(); }
    std::optional<std::uint64_t> Sum() override { return ChecksumOf(*m_part); }

protected:
    std::optional<Part> m_part;
};

/// Raises `std::runtime_error` if a reader did not take its text.
void Require(bool done, const char* reader);

/// The text that a reader takes. A reader of a file takes its path.
enum class Format { Veka, Xml, Json, SExpressions };

struct Peer {
    const char* name;
    Format format;
    bool fromFile;
    std::function<std::unique_ptr<Reader>(const std::string& input)> make;
};

// The readers that make records, each from memory and from a file.
std::unique_ptr<Reader> MakePugiXmlRecords(const std::string& text);
std::unique_ptr<Reader> MakePugiXmlRecordsFromFile(const std::string& path);
std::unique_ptr<Reader> MakeSimdJsonDomRecords(const std::string& text);
std::unique_ptr<Reader> MakeSimdJsonDomRecordsFromFile(const std::string& path);
std::unique_ptr<Reader> MakeSimdJsonOnDemandRecords(const std::string& text);
std::unique_ptr<Reader> MakeSimdJsonOnDemandRecordsFromFile(const std::string& path);
std::unique_ptr<Reader> MakeSExpressionRecords(const std::string& text);
std::unique_ptr<Reader> MakeSExpressionRecordsFromFile(const std::string& path);

/// All peers that this program was built with.
std::vector<Peer> Peers();

}  // namespace bench

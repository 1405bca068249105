#include "Hostile.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <vector>

#include "HostileShapes.h"
#include "Memory.h"
#include "VEKAsciiDLL.h"

namespace bench {

namespace {

constexpr const char* kCompleteFile = "tests/data/complete.veka";
constexpr double kMostRatio = 2.3;
constexpr double kMostNanosecondsAByte = 500;  // 2 s for 4 MB
constexpr double kMostBytesAByte = 128;
constexpr double kMostBytesAByteOfALine = 25;  // 100 MB for 4 MB
// A stack that grows by doubling has up to twice the memory that it needs, at one size and not at another.
constexpr double kMostMemoryRatio = 2.6;
constexpr double kMemoryNoise = 1e6;  // bytes
constexpr int kRounds = 3;
constexpr int kMostRounds = 20;
constexpr std::size_t kKilobyte = 1000;

/// A file in memory. Its path is valid in this process and its children, for as long as the object lives.
class InputFile {
public:
    explicit InputFile(const std::string& text)
        : m_descriptor(memfd_create("veka-hostile", 0)), m_size(static_cast<double>(text.size())) {
        for (std::size_t written = 0; written < text.size();) {
            const ssize_t count = write(m_descriptor, text.data() + written, text.size() - written);
            if (count <= 0) throw std::runtime_error("a file in memory cannot be written");
            written += static_cast<std::size_t>(count);
        }
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile() { close(m_descriptor); }

    double Size() const { return m_size; }
    void Import() const {
        CVEK_AsciiParser parser;
        parser.SetVEKAsciiFilePath(CString("/proc/self/fd/" + std::to_string(m_descriptor)));
        try {
            parser.Parser();
        } catch (const CInvalidAccessException&) {
            // Some levels without their content end the import.
        }
    }

private:
    int m_descriptor;
    double m_size;
};

double ImportTime(const InputFile& file) {
    const double start = ProcessorTime();
    file.Import();
    return ProcessorTime() - start;
}

/// Runs a measurement in a process of its own: what was allocated and freed before does not change the
/// result.
template <class Measurement>
auto InOwnProcess(Measurement measure) {
    decltype(measure()) result;
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    const pid_t child = fork();
    if (child == 0) {
        result = measure();
        _exit(write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(ends[1]);
    const bool received = read(ends[0], &result, sizeof result) == sizeof result;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    if (!received) throw std::runtime_error("a measurement failed");
    return result;
}

/// The most memory that an import takes, in bytes for each byte of the file.
double PeakMemory(const InputFile& file) {
    return InOwnProcess([&] {
        const double before = ResetPeak();
        file.Import();
        return std::max(0.0, Peak() - before) / file.Size();
    });
}

/// The shapes whose kind or name contains a text.
std::vector<Shape> Select(std::vector<Shape> shapes, const std::string& filter) {
    std::erase_if(shapes, [&](const Shape& shape) {
        return (shape.kind + ": " + shape.name).find(filter) == std::string::npos;
    });
    return shapes;
}

struct Times {
    double once = 1e9;
    double twice = 1e9;
    double ratio = 0;  // as if the second file were exactly twice as large
};

Times MeasureTimes(const InputFile& once, const InputFile& twice) {
    return InOwnProcess([&] {
        KeepMemory();
        Times times;
        // What disturbs a measurement makes it longer, so the shortest one counts.
        for (int round = 0; round < kRounds || (round < kMostRounds && times.ratio > kMostRatio); ++round) {
            times.once = std::min(times.once, ImportTime(once));
            times.twice = std::min(times.twice, ImportTime(twice));
            times.ratio = times.twice / times.once * once.Size() / twice.Size() * 2;
        }
        return times;
    });
}

/// Which limits a measurement keeps.
struct Result {
    bool ratio = false;  // of the times
    bool others = false;
    bool All() const { return ratio && others; }
};

/// Measures files of n and of 2n bytes, and prints one line.
Result Measure(const Shape& shape, std::size_t size, bool checkRatio) {
    const InputFile once(shape.text(size)), twice(shape.text(2 * size));
    const Times times = MeasureTimes(once, twice);
    const double nanoseconds = times.twice / twice.Size() * 1e9;
    const double memory = PeakMemory(once), memoryOfTwice = PeakMemory(twice);
    const double mostMemory = shape.kind.starts_with("one line") ? kMostBytesAByteOfALine : kMostBytesAByte;
    Result result;
    result.ratio = times.ratio <= kMostRatio || !checkRatio;
    result.others = nanoseconds <= kMostNanosecondsAByte && memoryOfTwice <= mostMemory &&
                    memoryOfTwice * twice.Size() <= kMostMemoryRatio * memory * once.Size() + kMemoryNoise;
    std::printf("%-90s %7.0f %9.2f %9.2f %6.2f %7.1f %7.1f %7.1f%s\n",
                (shape.kind + ": " + shape.name).c_str(), once.Size() / kKilobyte, times.once * 1e3,
                times.twice * 1e3, times.ratio, nanoseconds, memory, memoryOfTwice,
                result.All() ? "" : "  TOO MUCH");
    std::fflush(stdout);
    return result;
}

/// Measures a line at each doubling of its size, and returns how often a limit was exceeded. What exceeds one
/// is measured once more: on a busy machine other programs use the same caches. The time of a byte rises
/// where the index leaves the processor's cache, at one doubling or two. Only where a line costs more than
/// its length it rises at each. So where it rises at the last doubling the next ones are measured, too.
int MeasureDoublings(const Shape& shape, std::size_t first, std::size_t last) {
    int failures = 0;
    int risesInTurn = 0;
    for (std::size_t size = first; size <= last || (risesInTurn > 0 && risesInTurn < 3); size *= 2) {
        Result result = Measure(shape, size, true);
        if (!result.All()) result = Measure(shape, size, true);
        risesInTurn = result.ratio ? 0 : risesInTurn + 1;
        failures += !result.others || risesInTurn > 2;
    }
    return failures;
}

/// As `Measure`; true if all limits are kept. A ratio that is too large is measured again with larger files:
/// the time of a byte rises once where the processor's cache is full, and rises again and again only where
/// the import costs more than its length.
bool MeasureAgain(const Shape& shape, std::size_t size) {
    return Measure(shape, size, true).All() || Measure(shape, 4 * size, true).All() ||
           Measure(shape, 16 * size, true).All();
}

}  // namespace

int MeasureHostile(bool quick, const std::string& filter) {
    std::printf("%-90s %7s %9s %9s %6s %7s %7s %7s\n", "shape", "n, kB", "n, ms", "2n, ms", "ratio",
                "ns/byte", "n, B/B", "2n, B/B");
    int failures = 0;
    for (const Shape& shape : Select(HostileLines(), filter)) {
        const std::size_t last = (quick ? 250 : 8000) * kKilobyte;
        if (shape.kind != "one line") {
            failures += MeasureDoublings(shape, quick ? last : 125 * kKilobyte, last);
        } else {
            // The smaller line may have no index where the larger one has one.
            failures += !Measure(shape, last, false).All();
        }
    }
    for (const Shape& shape : Select(HostileFiles(), filter))
        failures += !MeasureAgain(shape, (quick ? 250 : 1000) * kKilobyte);
    for (const Shape& shape : Select(GrownLevels(kCompleteFile), filter))
        failures += !MeasureAgain(shape, (quick ? 100 : 1000) * kKilobyte);
    if (failures > 0)
        std::fprintf(
            stderr,
            "%d shapes cost too much: over %.1f times the time or %.1f times the memory for twice the "
            "input, over %.0f ns a byte, or over %.0f bytes a byte (%.0f for one line)\n",
            failures, kMostRatio, kMostMemoryRatio, kMostNanosecondsAByte, kMostBytesAByte,
            kMostBytesAByteOfALine);
    return failures;
}

void MeasureMemory(const std::string& filter) {
    struct Row {
        double bytes;
        std::string name;
    };
    std::map<std::string, std::vector<Row>> kinds;
    for (auto* const shapes : {&HostileLines, &HostileFiles})
        for (const Shape& shape : Select(shapes(), filter)) {
            const InputFile file(shape.text(4000 * kKilobyte));
            kinds[shape.kind].push_back({PeakMemory(file), shape.name});
        }
    for (const Shape& shape : Select(GrownLevels(kCompleteFile), filter)) {
        const InputFile file(shape.text(1000 * kKilobyte));
        kinds[shape.kind].push_back({PeakMemory(file), shape.name});
    }
    for (auto& [kind, rows] : kinds) {
        std::ranges::sort(rows, std::greater(), &Row::bytes);
        std::printf("%s: %zu shapes\n", kind.c_str(), rows.size());
        for (std::size_t i = 0; i < std::min<std::size_t>(rows.size(), 10); ++i)
            std::printf("  %-80s %7.1f bytes a byte\n", rows[i].name.c_str(), rows[i].bytes);
    }
}

}  // namespace bench

// Reads a STEP file from standard input and writes its shape to standard output, for a program that must
// survive whatever the file holds: veka-step-reader SECONDS BYTES. It ends with 1 where there is no shape,
// and the system ends it where the file makes the modeller fail.

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <BRepCheck_Analyzer.hxx>
#include <IFSelect_ReturnStatus.hxx>
#include <STEPControl_Reader.hxx>
#include <TopoDS_Shape.hxx>
#include <cstdlib>
#include <iostream>

#include "geometry/Quiet.h"
#include "geometry/ShapeBytes.h"

#if defined(__SANITIZE_ADDRESS__)
#define VEKA_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VEKA_ADDRESS_SANITIZER
#endif
#endif

namespace {

void Limit(int resource, unsigned long long value) {
    rlimit limit{};
    limit.rlim_cur = limit.rlim_max = static_cast<rlim_t>(value);
    setrlimit(static_cast<__rlimit_resource>(resource), &limit);
}

/// Takes from this process what reading needs no more: time, memory, other files, the right to write files.
void GiveUpRights(unsigned long long seconds, [[maybe_unused]] unsigned long long bytes) {
    for (int descriptor = 3; descriptor < 1024; ++descriptor) close(descriptor);
    Limit(RLIMIT_CPU, seconds);
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_FSIZE, 0);
#ifndef VEKA_ADDRESS_SANITIZER
    Limit(RLIMIT_AS, bytes);  // the sanitizer takes terabytes of addresses
#endif
}

/// Writes all bytes to standard output.
bool Write(const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t written = write(1, bytes.data() + done, bytes.size() - done);
        if (written <= 0) return false;
        done += static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 3) {
        std::cerr << "usage: veka-step-reader SECONDS BYTES <IN.step\n";
        return 2;
    }
    GiveUpRights(std::strtoull(argv[1], nullptr, 10), std::strtoull(argv[2], nullptr, 10));
    const geometry::Quiet quiet;
    STEPControl_Reader reader;
    if (reader.ReadStream("part.step", std::cin) != IFSelect_RetDone) return 1;
    reader.TransferRoots();
    const TopoDS_Shape shape = reader.OneShape();
    if (shape.IsNull()) return 1;
    // What the other program will do with the shape is done here first: what fails, fails here.
    const std::string bytes = geometry::ToBytes(shape);
    const TopoDS_Shape again = geometry::FromBytes(bytes);
    if (!BRepCheck_Analyzer(again).IsValid() || !geometry::MakeTriangles(again).empty()) return 1;
    return Write(bytes) ? 0 : 1;
} catch (...) {
    return 1;
}

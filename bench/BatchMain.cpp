// The pieces of bench/batch:
//   veka_batch read FOLDER JOBS    reads and checks all files below a folder, and prints the seconds
//   veka_batch make LIBRARY COUNT  makes a library of small parts
//   veka_batch find LIBRARY        prints how long opening the library and finding parts takes, in
//   milliseconds
//   veka_batch all LIBRARY         asks for each part by its number, and fails where one is not found

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "Memory.h"
#include "host/LibraryIndex.h"
#include "host/PartFiles.h"
#include "host/ReadAhead.h"
#include "host/StoredPart.h"

namespace {

using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

int Read(const std::string& folder, unsigned jobs) {
    const std::vector<std::string> files = host::PartFilesBelow(folder);
    const auto begin = Clock::now();
    host::ReadAhead reader(files, {}, jobs);
    std::size_t bytes = 0;
    for (host::CheckedFile file;
         reader.Next(file, std::chrono::minutes(10)) == host::ReadAhead::Answer::File;)
        bytes += file.content.bytes.size();
    std::cout << Seconds(begin) << '\n';
    return bytes > 0 ? 0 : 1;
}

/// A small part with texts as real parts have them.
host::NewPart MakePart(std::size_t number) {
    constexpr const char* kWords[] = {"amplifier", "regulator", "resistor", "capacitor",
                                      "converter", "sensor",    "driver",   "transistor"};
    constexpr const char* kMakers[] = {"Maker One", "Maker Two", "Other", "Fourth"};
    const std::string name =
        "PX" + std::to_string(100'000 + number * 7919 % 900'000) + "-" + std::to_string(number);
    const std::string text = "(VEK (PARTGENERAL (MPN " + name + ") (MANUFACTURER \"" + kMakers[number % 4] +
                             "\") (PARTDESC \"" + kWords[number % 8] + ' ' + kWords[number / 8 % 8] +
                             " type " + std::to_string(number % 1000) + "\") (NUMBEROFPINS " +
                             std::to_string(number % 64) + ")))";
    return {name, "part.veka", {text, 0644}, host::Existing::Keep};
}

int Make(const std::string& library, std::size_t count) {
    std::filesystem::create_directories(library);
    host::PartLibrary parts(library);
    constexpr std::size_t kGroup = 4096;
    for (std::size_t begin = 0; begin < count; begin += kGroup) {
        std::vector<host::NewPart> group;
        for (std::size_t i = begin; i < std::min(begin + kGroup, count); ++i) group.push_back(MakePart(i));
        parts.StoreGroup(group);
    }
    host::OpenIndex(library)->Refresh();
    return 0;
}

int Find(const std::string& library) {
    auto begin = Clock::now();
    const auto index = host::OpenIndex(library);
    index->Refresh();
    std::cout << "open and compare " << Seconds(begin) * 1000 << '\n';
    begin = Clock::now();
    host::OpenIndex(library)->Refresh();
    std::cout << "open again " << Seconds(begin) * 1000 << '\n';
    double worst = 0, worstCpu = 0;
    for (const std::string text :
         {"PX1", "PX100000-0", "amplifier", "ampl conv", "919-", "maker two driver", "p", "x", "nothing"}) {
        double best = 1e9, cpu = 1e9;
        std::size_t found = 0;
        for (int round = 0; round < 5; ++round) {
            begin = Clock::now();
            const std::clock_t used = std::clock();
            const auto ids = index->Find({text, {}});
            // What a user sees at once.
            for (std::size_t i = 0; i < std::min<std::size_t>(ids.size(), 50); ++i) index->Part(ids[i]);
            best = std::min(best, Seconds(begin) * 1000);
            cpu = std::min(cpu, static_cast<double>(std::clock() - used) * 1000 / CLOCKS_PER_SEC);
            found = ids.size();
        }
        std::cout << "find \"" << text << "\": " << found << " parts in " << best << ", of the processor "
                  << cpu << '\n';
        worst = std::max(worst, best);
        worstCpu = std::max(worstCpu, cpu);
    }
    std::cout << "worst " << worst << ", of the processor " << worstCpu << "\npeak memory in MB "
              << bench::Peak() / 1e6 << '\n';
    return 0;
}

/// True if the index finds a part under its number. The part is one of the first that it finds.
bool FindsItself(host::LibraryIndex& index, const host::PartFacts& facts) {
    const std::vector<std::int64_t> found = index.Find({facts.number, {}});
    return std::any_of(found.begin(), found.end(), [&](std::int64_t id) {
        const std::optional<host::ListedPart> part = index.Part(id);
        return part && part->facts.name == facts.name && part->facts.number == facts.number;
    });
}

/// Reads the numbers from the files of the parts, and not from the index.
int FindAll(const std::string& library) {
    const host::Directory directory(library);
    const std::vector<std::string> names = host::StoredNames(directory);
    const auto index = host::OpenIndex(library);
    index->Refresh();
    for (const std::string& remark : index->Remarks()) std::cerr << remark << '\n';
    host::ReadAhead reader(
        names.size(), [&](std::size_t place) { return host::ReadStored(directory, names[place]).file; }, 0);
    std::size_t missing = 0;
    for (host::CheckedFile file;
         reader.Next(file, std::chrono::minutes(10)) == host::ReadAhead::Answer::File;) {
        if (!file.failure && FindsItself(*index, file.facts)) continue;
        ++missing;
        std::cerr << (file.failure ? file.failure->sentence : "not found: " + file.facts.name) << '\n';
    }
    std::cout << names.size() - missing << " of " << names.size() << " parts are found under their numbers\n";
    return missing == 0 && !names.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    try {
        if (what == "read" && argc == 4) return Read(argv[2], static_cast<unsigned>(std::stoul(argv[3])));
        if (what == "make" && argc == 4) return Make(argv[2], std::stoul(argv[3]));
        if (what == "find" && argc == 3) return Find(argv[2]);
        if (what == "all" && argc == 3) return FindAll(argv[2]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    std::cerr << "veka_batch read FOLDER JOBS | make LIBRARY COUNT | find LIBRARY | all LIBRARY\n";
    return 2;
}

#include "host/FindingSums.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace host {

void FindingSums::Add(const veka::ImportReport& report) {
    ++m_files;
    for (const veka::CodeDescription& description : veka::AllCodes()) {
        const std::size_t count = report.Count(description.code);
        Sum& sum = m_sums[static_cast<std::size_t>(description.code)];
        sum.count += count;
        if (count > 0) ++sum.files;
    }
}

std::vector<FindingSums::Sum> FindingSums::Sums() const {
    std::vector<Sum> sums;
    for (const veka::CodeDescription& description : veka::AllCodes()) {
        Sum sum = m_sums[static_cast<std::size_t>(description.code)];
        sum.code = description.code;
        if (sum.count > 0) sums.push_back(sum);
    }
    std::stable_sort(sums.begin(), sums.end(),
                     [](const Sum& one, const Sum& other) { return one.count > other.count; });
    return sums;
}

void WriteTable(std::ostream& out, const FindingSums& sums) {
    const std::vector<FindingSums::Sum> found = sums.Sums();
    out << "findings in " << sums.Files() << (sums.Files() == 1 ? " file" : " files")
        << (found.empty() ? ": none\n" : ":\n");
    if (!found.empty()) out << "  findings     files  code       severity  kind          name\n";
    for (const FindingSums::Sum& sum : found) {
        const veka::CodeDescription& code = veka::Describe(sum.code);
        out << std::right << std::setw(10) << sum.count << std::setw(10) << sum.files << "  " << code.id
            << "  " << std::left << std::setw(8) << veka::NameOf(code.severity) << "  " << std::setw(12)
            << veka::NameOf(code.kind) << "  " << code.name << '\n';
    }
}

void WriteJsonMembers(std::ostream& out, const FindingSums& sums) {
    out << ",\"reports\":" << sums.Files() << ",\"findings\":[";
    const char* separator = "\n";
    for (const FindingSums::Sum& sum : sums.Sums()) {
        const veka::CodeDescription& code = veka::Describe(sum.code);
        out << separator << "{\"code\":\"" << code.id << "\",\"name\":\"" << code.name << "\",\"severity\":\""
            << veka::NameOf(code.severity) << "\",\"kind\":\"" << veka::NameOf(code.kind)
            << "\",\"files\":" << sum.files << ",\"count\":" << sum.count << '}';
        separator = ",\n";
    }
    out << "\n]";
}

}  // namespace host

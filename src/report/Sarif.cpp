#include "report/Sarif.h"

#include <algorithm>
#include <ostream>

#include "inspect/Json.h"
#include "platform/Version.h"

namespace veka {

namespace {

/// A path as the reference of a URI: absolute paths as `file:` URIs, all others as they are.
std::string UriOf(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    const bool drive = path.size() > 1 && path[1] == ':';
    std::string uri = drive ? "file:///" : path.starts_with('/') ? "file://" : "";
    for (const char c : path) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                           std::string_view("-._~/").find(c) != std::string_view::npos ||
                           (drive && &c == &path[1]);
        if (plain) {
            uri += c;
        } else {
            constexpr const char* digits = "0123456789ABCDEF";
            uri += '%';
            uri += digits[static_cast<unsigned char>(c) >> 4];
            uri += digits[static_cast<unsigned char>(c) & 15];
        }
    }
    return uri;
}

void WriteRules(std::ostream& out) {
    const char* separator = "";
    for (const CodeDescription& code : AllCodes()) {
        out << separator << "\n      {\"id\":" << JsonString(code.id) << ",\"name\":" << JsonString(code.name)
            << ",\"shortDescription\":{\"text\":" << JsonString(code.meaning)
            << "},\"defaultConfiguration\":{\"level\":" << JsonString(NameOf(code.severity))
            << "},\"properties\":{\"kind\":" << JsonString(NameOf(code.kind)) << "}}";
        separator = ",";
    }
}

void WriteResult(std::ostream& out, const std::string& uri, const Finding& finding) {
    const CodeDescription& code = Describe(finding.code);
    const Region& region = finding.region;
    out << "\n    {\"ruleId\":" << JsonString(code.id) << ",\"ruleIndex\":" << static_cast<int>(finding.code)
        << ",\"level\":" << JsonString(NameOf(code.severity))
        << ",\"message\":{\"text\":" << JsonString(finding.sentence)
        << "},\"locations\":[{\"physicalLocation\":{\"artifactLocation\":{\"uri\":" << JsonString(uri)
        << "},\"region\":{\"startLine\":" << region.begin.line << ",\"startColumn\":" << region.begin.column
        << ",\"endLine\":" << region.end.line << ",\"endColumn\":" << region.end.column << "}}";
    if (!finding.path.empty())
        out << ",\"logicalLocations\":[{\"fullyQualifiedName\":" << JsonString(finding.path) << "}]";
    out << "}],\"properties\":{\"kind\":" << JsonString(NameOf(code.kind)) << "}}";
}

}  // namespace

void WriteSarif(std::ostream& out, std::span<const ReportedFile> files) {
    out << "{\"$schema\":\"https://json.schemastore.org/"
           "sarif-2.1.0.json\",\"version\":\"2.1.0\",\"runs\":[{\n"
           "  \"tool\":{\"driver\":{\"name\":\"veka-host\",\"version\":"
        << JsonString(Version()) << ",\"rules\":[";
    WriteRules(out);
    out << "\n  ]}},\n  \"invocations\":[{\"executionSuccessful\":true,\"toolExecutionNotifications\":[";
    const char* separator = "";
    for (const ReportedFile& file : files) {
        if (file.report.Dropped() == 0) continue;
        out << separator << "\n    {\"level\":\"note\",\"message\":{\"text\":"
            << JsonString(std::to_string(file.report.Dropped()) + " more findings are not shown")
            << "},\"locations\":[{\"physicalLocation\":{\"artifactLocation\":{\"uri\":"
            << JsonString(UriOf(file.path)) << "}}}]}";
        separator = ",";
    }
    out << "]}],\n  \"results\":[";
    separator = "";
    for (const ReportedFile& file : files) {
        const std::string uri = UriOf(file.path);
        for (const Finding& finding : file.report.Findings()) {
            out << separator;
            WriteResult(out, uri, finding);
            separator = ",";
        }
    }
    out << "\n  ]\n}]}\n";
}

}  // namespace veka

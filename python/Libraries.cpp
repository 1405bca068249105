#include "python/Libraries.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "files/Paths.h"
#include "host/LibraryIndex.h"
#include "python/Values.h"

namespace veka::python {

namespace {

constexpr std::array<std::pair<const char*, host::SortBy>, 7> kOrders = {
    {{"number", host::SortBy::Number},
     {"manufacturer", host::SortBy::Manufacturer},
     {"description", host::SortBy::Description},
     {"package_type", host::SortBy::PackageType},
     {"pins", host::SortBy::Pins},
     {"size", host::SortBy::Size},
     {"stored", host::SortBy::Stored}}};

std::optional<host::SortBy> ToOrder(const std::string& word) {
    if (word.empty()) return std::nullopt;
    std::string known;
    for (const auto& [name, order] : kOrders) {
        if (word == name) return order;
        known += std::string(known.empty() ? "" : ", ") + name;
    }
    throw py::value_error("\"" + word + "\" is none of these: " + known);
}

std::string Bytes(py::handle text) {
    return std::string(ToText(text).View());
}

py::tuple Texts(const std::vector<std::string>& texts) {
    py::list list;
    for (const std::string& text : texts) list.append(FromText(text));
    return py::tuple(list);
}

py::tuple Row(const std::string& library, const host::ListedPart& part) {
    const host::PartFacts& facts = part.facts;
    const auto count = [&](std::int64_t host::FindingCounts::*kind) {
        return part.findings ? py::object(py::int_((*part.findings).*kind)) : py::none();
    };
    return py::make_tuple(FromText(facts.name), FromText(facts.number), FromText(facts.manufacturer),
                          FromText(facts.description), FromText(facts.functionalType),
                          FromText(facts.packageType), facts.pins, Texts(facts.companyNumbers),
                          Texts(facts.families), Texts(facts.packages), Texts(facts.footprints),
                          Texts(facts.symbols), py::bytes(library + '/' + facts.name + '/' + facts.fileName),
                          facts.size, part.stored, count(&host::FindingCounts::errors),
                          count(&host::FindingCounts::warnings), count(&host::FindingCounts::notes));
}

}  // namespace

py::list FindParts(const py::bytes& library, const py::object& text, const py::list& where,
                   const py::object& sortBy, bool descending) {
    const std::string path = library;
    host::PartQuery query{Bytes(text), {}, ToOrder(Bytes(sortBy)), descending};
    for (const py::handle condition : where) query.where.push_back(host::ParseCondition(Bytes(condition)));
    std::vector<host::ListedPart> found;
    std::vector<std::string> remarks;
    {
        const py::gil_scoped_release unlocked;
        const std::unique_ptr<host::LibraryIndex> index = host::OpenIndex(ToPath(CString(path)));
        index->Refresh([](std::size_t, std::size_t) {
            const py::gil_scoped_acquire lock;
            Checked(PyErr_CheckSignals());
            return true;
        });
        for (const std::int64_t id : index->Find(query))
            if (std::optional<host::ListedPart> part = index->Part(id)) found.push_back(std::move(*part));
        remarks = index->Remarks();
    }
    for (const std::string& remark : remarks) Checked(PyErr_WarnEx(PyExc_RuntimeWarning, remark.c_str(), 2));
    py::list rows;
    for (const host::ListedPart& part : found) rows.append(Row(path, part));
    return rows;
}

}  // namespace veka::python

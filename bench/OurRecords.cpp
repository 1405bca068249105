#include "OurRecords.h"

#include <initializer_list>

#include "Peers.h"
#include "Records.h"
#include "inspect/Description.h"

namespace bench {

namespace {

void AddTo(Checksum& sum, const veka::RecordView& view) {
    const veka::RecordDescription& description = *view.description;
    if (description.IsArray()) {
        const INT_PTR size = description.size(view.record);
        sum.Add(static_cast<std::uint64_t>(size));
        for (INT_PTR i = 0; i < size; ++i) AddTo(sum, description.at(view.record, i));
        return;
    }
    for (const veka::FieldDescription& field : description.fields) {
        switch (field.kind) {
            case veka::FieldKind::Whole:
            case veka::FieldKind::Flag:
                sum.Add(static_cast<std::uint64_t>(field.Whole(view.record)));
                break;
            case veka::FieldKind::Real:
                sum.Add(field.Real(view.record));
                break;
            case veka::FieldKind::Text:
                sum.Add(std::string_view(WithoutForbidden(field.Text(view.record).View())));
                break;
            case veka::FieldKind::TextList: {
                const CStringArray& texts = field.Texts(view.record);
                sum.Add(static_cast<std::uint64_t>(texts.GetSize()));
                for (const CString& text : texts) sum.Add(std::string_view(WithoutForbidden(text.View())));
                break;
            }
            case veka::FieldKind::DistinctNames:
                break;  // only our records list them
            case veka::FieldKind::Record:
            case veka::FieldKind::Array:
                // How a package is mounted is no part of the comparison.
                if (std::string_view(field.content->name) != "CVEKA_MountData")
                    AddTo(sum, field.Content(view.record));
                break;
        }
    }
}

double BytesOf(const CECadClsLvl& level) {
    double bytes = level.m_strName.GetLength();
    for (const CString& value : level.m_aValues) bytes += value.GetLength();
    for (const CECadClsLvl* child : *level.m_pChildren) bytes += BytesOf(*child);
    return bytes;
}

/// The bytes of the children of one name.
double BytesAt(const CECadClsLvl& level, std::string_view name) {
    double bytes = 0;
    for (const CECadClsLvl* child : *level.m_pChildren)
        if (child->m_strName.View() == name) bytes += BytesOf(*child);
    return bytes;
}

}  // namespace

std::uint64_t ChecksumOf(const CVEKA_Manager& model) {
    Checksum sum;
    AddTo(sum, veka::View(*model.GetPadArr()));
    AddTo(sum, veka::View(*model.GetPadStackArr()));
    AddTo(sum, veka::View(*model.GetFootprintDBArr()));
    AddTo(sum, veka::View(*model.GetVEK()->GetPackages()->GetPackageArr()));
    AddTo(sum, veka::View(*model.GetPartitionDBArr()));
    return sum.Sum();
}

double CoveredPercent(const CECadClsLvlArray& levels) {
    double all = 0, covered = 0;
    for (const CECadClsLvl* section : levels) {
        const double bytes = BytesOf(*section);
        all += bytes;
        for (const std::string_view name : {"PADS", "PADSTACKS", "FOOTPRINTS", "PARTITIONS"})
            if (section->m_strName.View() == name) covered += bytes;
        if (section->m_strName != "VEK") continue;
        for (const CECadClsLvl* packages : *section->m_pChildren) {
            if (packages->m_strName != "PACKAGES") continue;
            for (const CECadClsLvl* package : *packages->m_pChildren)
                if (package->m_strName == "PACKAGE")
                    covered += BytesOf(*package) - BytesAt(*package, "MOUNTDATA");
        }
    }
    return all > 0 ? 100 * covered / all : 0;
}

}  // namespace bench

// One file that sets every field of every record to a value of its own.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "inspect/Description.h"
#include "model/CVEKA_Manager.h"
#include "support/ModelText.h"
#include "support/Parsing.h"

namespace {

/// Walks a model and looks at every field: a text must bear the name of its owner's field and its own, since
/// the file gives it so, and a number must be set somewhere in the file.
class Walker {
public:
    void Walk(const std::string& owner, const veka::RecordView& record) {
        for (const veka::FieldDescription& field : record.description->fields)
            Look(owner, field, record.record);
    }
    std::set<std::string> wrong;          ///< texts that are not named after their place
    std::map<std::string, int> set, all;  ///< how often each field is set, and how often there is one

private:
    void Look(const std::string& owner, const veka::FieldDescription& field, const void* record) {
        const std::string place = owner + "." + field.name;
        switch (field.kind) {
            case veka::FieldKind::Whole:
            case veka::FieldKind::Flag:
                Count(place, field.Whole(record) != 0);
                break;
            case veka::FieldKind::Real:
                Count(place, field.Real(record) != 0);
                break;
            case veka::FieldKind::Text:
                LookAtText(place, field.Text(record));
                break;
            case veka::FieldKind::TextList:
                for (const CString& text : field.Texts(record)) LookAtText(place, text);
                break;
            case veka::FieldKind::DistinctNames:
                set[place] += !field.Texts(record).IsEmpty();
                break;
            case veka::FieldKind::Record:
                Walk(field.name, field.Content(record));
                break;
            case veka::FieldKind::Array: {
                const veka::RecordView array = field.Content(record);
                const INT_PTR size = array.description->size(array.record);
                Count(place, size > 0);
                for (INT_PTR i = 0; i < size; ++i) Walk(field.name, array.description->at(array.record, i));
                break;
            }
        }
    }
    void LookAtText(const std::string& place, const CString& text) {
        Count(place, !text.IsEmpty());
        if (!text.IsEmpty() && text != place.c_str()) wrong.insert(place + " is " + text.GetString());
    }
    void Count(const std::string& place, bool isSet) {
        ++all[place];
        set[place] += isSet;
    }
};

std::unique_ptr<CVEK_AsciiParser> Complete() {
    return test::Import(test::ReadFile(test::ProjectFolder("tests/data/complete.veka")));
}

TEST(CompleteFile, EveryTextReachesTheFieldThatItNames) {
    Walker walker;
    const auto parser = Complete();
    walker.Walk("Manager", veka::View(*parser->GetCVEKA_Manager()));
    EXPECT_EQ(walker.wrong, (std::set<std::string>{"PKGPins.StepFileName is PKGPins.PKGPinName"}))
        << "a pin's file name alone is the pin's own name";
}

TEST(CompleteFile, EveryFieldIsSetButThoseThatNoKeywordFillsOrACopyLoses) {
    Walker walker;
    const auto parser = Complete();
    walker.Walk("Manager", veka::View(*parser->GetCVEKA_Manager()));
    std::set<std::string> unset;
    for (const auto& [place, count] : walker.all)
        if (walker.set[place] == 0) unset.insert(place);
    const std::set<std::string> expected{
        // Filled by no keyword.
        "ElectricalPins.ReceiverModelName",
        "ElectricalPins.CommentArr",
        "FootprintDBArr.Comment",
        "Pins.PartionPinNo",
        "Pins.LogicPinNo",
        "RL.CapacitorValue",
        "Comment.Index",
        "Mold.Z",
        "OverAll.Z",
        "Rotate.X",
        "Rotate.Y",
        "Rotate.Z",
        // Lost by a copy.
        "MountPins.No",
        "MountPins.PinName",
        "MountPins.Direction",
        "MountPins.Skip",
        "MountPins.LeadType",
    };
    for (const std::string& place : unset) {
        // Objects are drawn with what they need; each kind has tests of its own.
        const std::string owner = place.substr(0, place.find('.'));
        const bool object =
            std::set<std::string>{
                "Objects3D",        "Lead",         "DrawObjs", "BodyShape", "CamLayerDrawObjs",
                "CAMLayerDrawObjs", "PinBodyShape", "Rotation", "Color",     "Point"}
                .count(owner) > 0;
        EXPECT_TRUE(object || expected.count(place)) << place << " is not set";
    }
}

TEST(CompleteFile, GivesTheModelThatWasLookedAtFieldByField) {
    EXPECT_EQ(test::Outlined(*Complete()->GetCVEKA_Manager(), true),
              test::ReadFile(test::ProjectFolder("tests/data/complete.outline")));
}

/// A tree as text again, with one more level in one of its levels, counted in file order.
class WithOneMore {
public:
    WithOneMore(const CECadClsLvlArray& levels, int place) : m_place(place) { Write(levels, ""); }

    const std::string& Text() const { return m_text; }
    /// Names down to the level that got one more; empty where there was no such level.
    const std::string& Path() const { return m_path; }

private:
    void Write(const CECadClsLvlArray& levels, const std::string& path) {
        for (const CECadClsLvl* level : levels) {
            const std::string name(level->m_strName.View());
            m_text += '(' + name;
            for (const CString& value : level->m_aValues)
                m_text += ' ' + (value.IsEmpty() ? "\"\"" : std::string(value.View()));
            const bool here = m_place-- == 0;
            if (here) m_path = path + name;
            Write(*level->m_pChildren, path + name + ' ');
            if (here) m_text += "(UNHEARDOF 1 2)";
            m_text += ')';
        }
    }

    int m_place;
    std::string m_text, m_path;
};

TEST(CompleteFile, ALevelOfAnUnknownNameChangesNothingButWhereAnyNameCounts) {
    const auto tree = test::ReadTree(test::ReadFile(test::ProjectFolder("tests/data/complete.veka")));
    const auto told = [](const std::string& text) {
        return test::AsJson(*test::Import(text)->GetCVEKA_Manager());
    };
    const std::string expected = told(WithOneMore(*tree->m_pRootLevels, -1).Text());
    std::set<std::string> changed;
    for (int place = 0;; ++place) {
        const WithOneMore more(*tree->m_pRootLevels, place);
        if (more.Path().empty()) break;
        if (told(more.Text()) != expected) changed.insert(more.Path());
    }
    const std::set<std::string> expectedToChange{
        // Every child is an entry.
        "COLORTABLE",
        "VEK PARTGENERAL COMMENT",
        "VEK LOGICSYMBOLS SYMBOL COMMENT",
        "VEK LOGICSYMBOLS SYMBOL PARTITION COMMENT",
        "PARTITIONS PARTITION COMMENT",
        "PARTITIONS PARTITION PARTITIONPINS PARTITIONPIN COMMENT",
        // A name that nobody knows is the type's.
        "VEK ELECTRICAL PASSIVEVALUE",
        // The last child with values decides whether the size is checked.
        "VEK PACKAGES PACKAGE MOUNTDATA BODYSIZE",
    };
    EXPECT_EQ(changed, expectedToChange);
}

}  // namespace

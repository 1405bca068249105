// One file that sets every field of every record to a value of its own.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "inspect/VisitObject.h"
#include "support/Parsing.h"
#include "support/Told.h"

namespace {

/// Walks a model and looks at every field: a text must bear the name of its owner's field and its own, since
/// the file gives it so, and a number must be set somewhere in the file.
class Walker {
public:
    template <class Record>
    void Walk(const std::string& owner, const Record& record) {
        veka::ForEachField(record, [&](const auto& description, const auto& field) {
            Look(owner, description.name, field);
        });
    }
    std::set<std::string> wrong;          ///< texts that are not named after their place
    std::map<std::string, int> set, all;  ///< how often each field is set, and how often there is one

private:
    template <class T>
    void Look(const std::string& owner, const std::string& name, const T& value) {
        const std::string place = owner + "." + name;
        if constexpr (std::is_arithmetic_v<T>) {
            ++all[place];
            set[place] += value != T{};
        } else if constexpr (std::is_same_v<T, CString>) {
            ++all[place];
            set[place] += !value.IsEmpty();
            if (!value.IsEmpty() && value != place.c_str()) wrong.insert(place + " is " + value.GetString());
        } else if constexpr (std::is_same_v<T, CStringArray>) {
            for (const CString& text : value) Look(owner, name, text);
        } else if constexpr (requires { value.Names(); }) {
            set[place] += !value.Names().IsEmpty();
        } else if constexpr (veka::IsArray<std::remove_cvref_t<decltype(*value)>>) {
            ++all[place];
            set[place] += !value->IsEmpty();
            for (const auto* element : *value) Element(name, *element);
        } else {
            Walk(name, *value);
        }
    }
    template <class T>
    void Element(const std::string& name, const T& element) {
        if constexpr (std::is_same_v<T, CVEKA_3DObject>)
            host::VisitObject(element, [&](const auto& object) { Walk(name, object); });
        else
            Walk(name, element);
    }
};

std::unique_ptr<CVEK_AsciiParser> Complete() {
    return test::Import(test::ReadFile(test::ProjectFolder("tests/data/complete.veka")));
}

TEST(CompleteFile, EveryTextReachesTheFieldThatItNames) {
    Walker walker;
    walker.Walk("Manager", *Complete()->GetCVEKA_Manager());
    EXPECT_EQ(walker.wrong, (std::set<std::string>{"PKGPins.StepFileName is PKGPins.PKGPinName"}))
        << "a pin's file name alone is the pin's own name";
}

TEST(CompleteFile, EveryFieldIsSetButThoseThatNoKeywordFillsOrACopyLoses) {
    Walker walker;
    walker.Walk("Manager", *Complete()->GetCVEKA_Manager());
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

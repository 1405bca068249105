// One file that sets every field of every record to a value of its own.

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "host/Outline.h"
#include "support/Parsing.h"

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
    std::ostringstream outline;
    host::Outline(outline, true).Write(*Complete()->GetCVEKA_Manager());
    EXPECT_EQ(outline.str(), test::ReadFile(test::ProjectFolder("tests/data/complete.outline")));
}

}  // namespace

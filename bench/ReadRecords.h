#pragma once

#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <type_traits>

#include "Records.h"

/// Reads levels into records, for a reader of any format. A reader gives a cursor on a level:
///
///     std::string_view Name() const;
///     void Read(onValue, onChild);   // calls `onValue(value)` and `onChild(cursor)` for what the level
///     holds
///
/// A value has `To(field)` for a number or a text, and `Is(word)`. A level is read at most once; a level that
/// is not read is passed over. Everything is compiled anew for each format, so that the compiler sees it as a
/// whole.
namespace bench {

/// A value that is a text.
struct TextValue {
    std::string_view text;
    void To(double& field) const { field = Number<double>(); }
    void To(int& field) const { field = Number<int>(); }
    void To(std::string& field) const { field = text; }
    bool Is(std::string_view word) const { return text == word; }

private:
    template <class T>
    T Number() const {
        T number = 0;
        const size_t plus = text.starts_with('+') ? 1 : 0;
        if (std::from_chars(text.data() + plus, text.data() + text.size(), number).ec != std::errc())
            return 0;
        return number;
    }
};

inline constexpr auto kIgnore = [](const auto&) {};

template <class Level>
void AppendObject(Level& level, Objects& objects);

// `ReadInto` reads a level into a field, as the type of the field says.

template <class Level, class T>
void ReadLast(Level& level, T& field) {
    level.Read([&](const auto& value) { value.To(field); }, kIgnore);
}
template <class Level>
void ReadInto(Level& level, double& field) {
    ReadLast(level, field);
}
template <class Level>
void ReadInto(Level& level, int& field) {
    ReadLast(level, field);
}
template <class Level>
void ReadInto(Level& level, std::string& field) {
    ReadLast(level, field);
}
template <class Level>
void ReadInto(Level& level, WordFlag& field) {
    level.Read([&](const auto& value) { field.value = value.Is("TRUE"); }, kIgnore);
}
template <class Level>
void ReadInto(Level& level, NumberFlag& field) {
    ReadLast(level, field.value);
    field.value = field.value == 1;
}
template <class Level>
void ReadInto(Level& level, ClearedFlag& field) {
    level.Read([&](const auto& value) { field.value = field.value && !value.Is("FALSE"); }, kIgnore);
}
/// The first three values.
template <class Level, class T>
void ReadThree(Level& level, T& a, T& b, T& c) {
    int place = 0;
    a = b = c = 0;
    level.Read(
        [&](const auto& value) {
            if (place < 3) value.To(place == 0 ? a : place == 1 ? b : c);
            ++place;
        },
        kIgnore);
}
template <class Level>
void ReadInto(Level& level, Point& field) {
    ReadThree(level, field.x, field.y, field.z);
}
template <class Level>
void ReadInto(Level& level, Color& field) {
    ReadThree(level, field.red, field.green, field.blue);
}
template <class Level>
void ReadInto(Level& level, Objects& field) {
    field.clear();
    level.Read(kIgnore, [&](auto& child) { AppendObject(child, field); });
}
template <class Level>
void ReadInto(Level& level, std::vector<std::string>& field) {
    field.clear();
    level.Read([&](const auto& value) { value.To(field.emplace_back()); }, kIgnore);
}
template <class Level>
void ReadInto(Level& level, std::vector<SearchKey>& keys);
template <class Level>
void ReadInto(Level& level, std::vector<FootprintPin>& pins);
template <class Level>
void ReadInto(Level& level, std::vector<FootprintLayer>& layers);
template <class Level>
void ReadInto(Level& level, std::vector<PackagePin>& pins);
template <class Level>
void ReadInto(Level& level, std::vector<FootprintName>& names);
template <class Level>
void ReadInto(Level& level, std::vector<PropertyLabel>& labels);
template <class Level>
void ReadInto(Level& level, std::vector<Comment>& comments);
template <class Level>
void ReadInto(Level& level, std::vector<PartitionPin>& pins);
template <class Level>
void ReadInto(Level& level, Marking& marking);
template <class Level, class Record>
requires requires {
    Record::kFields;
}
void ReadInto(Level& level, Record& field);

/// Reads a child into the field that has its keyword; false if there is none.
template <class Record, class Level>
bool ReadField(Record& record, Level& child, int place = 0) {
    const std::string_view name = child.Name();
    bool found = false;
    Record::Fields(
        record, [&](std::string_view keyword, auto& field) __attribute__((always_inline)) {
            using Field = std::remove_reference_t<decltype(field)>;
            if (found || keyword.empty() || keyword != name) return;
            if constexpr (requires { Field::kPlace; })
                if (place != Field::kPlace) return;
            found = true;
            ReadInto(child, field);
        });
    return found;
}
template <class Level, class Record>
requires requires {
    Record::kFields;
}
void ReadInto(Level& level, Record& field) {
    field = Record();
    level.Read(kIgnore, [&](auto& child) { ReadField(field, child); });
}

/// The directions that a rotation means.
inline void Turn(Solid& solid) {
    const auto radians = [](double degrees) {
        const double turns = degrees / 180.0 * 2147483648.0;
        if (!(std::fabs(turns) < 0x1p63)) return 0.0;
        return static_cast<std::uint32_t>(static_cast<std::int64_t>(turns)) * 4.656612873077393e-10 *
               3.141592653589793;
    };
    const double a = radians(solid.rotate.x), b = radians(solid.rotate.y), c = radians(solid.rotate.z);
    const double sa = std::sin(a), sb = std::sin(b), sc = std::sin(c);
    const double ca = std::cos(a), cb = std::cos(b), cc = std::cos(c);
    solid.front = {cc * cb, cc * sb * sa - ca * sc, cc * sb * ca + sc * sa};
    solid.up = {-sb, cb * sa, cb * ca};
}

template <class Kind, class Level>
void ReadChild(Kind& object, Level& child, int place) {
    const std::string_view name = child.Name();
    bool found = false, otherPlace = false;
    const auto read = [&](std::string_view keyword, auto& field) __attribute__((always_inline)) {
        using Field = std::remove_reference_t<decltype(field)>;
        if (found) return;
        if constexpr (std::is_same_v<Field, OtherChildren>) {
            AppendObject(child, field.objects);
        } else if constexpr (std::is_same_v<Field, ChildrenOfChildren>) {
            ReadInto(child, field.objects);
        } else {
            if (keyword != name) return;
            if constexpr (requires { Field::kPlace; })
                if (place != Field::kPlace) {
                    otherPlace = true;
                    return;
                }
            found = true;
            ReadInto(child, field);
            if constexpr (std::is_same_v<Field, Rotation>) Turn(object);
        }
    };
    Kind::Fields(object, read);
    found = found || otherPlace;  // a kind with places does not read points at other places
    Kind::Bases::BaseFields(object, read);
}

template <class Kind, class Level>
void AppendKind(Level& level, Objects& objects) {
    auto object = std::make_unique<Kind>();
    int place = 0;
    level.Read(kIgnore, [&](auto& child) { ReadChild(*object, child, place++); });
    objects.push_back(std::move(object));
}

template <class Level>
void AppendUserDefined(Level& level, Objects& objects) {
    auto lead = std::make_unique<UserDefined>();
    level.Read(kIgnore, [&](auto& child) {
        if (child.Name() == "MAINSHAPE")
            ReadInto(child, lead->mainShape);
        else if (child.Name() == "LEADSHAPE")
            child.Read(kIgnore, [&](auto& inner) {
                if (inner.Name() == "LEAD") ReadInto(inner, lead->lead);
            });
        else if (child.Name() == "METALMASKSHAPE")
            child.Read(kIgnore, [&](auto& inner) {
                if (inner.Name() == "METALMASKSHAPEDATA") AppendKind<MetalMask>(inner, lead->masks);
            });
    });
    objects.push_back(std::move(lead));
}

/// In a model a wrap-around end is a flat lead with its height as thickness.
template <class Level>
void AppendWrapAround(Level& level, Objects& objects) {
    Objects read;
    AppendKind<WrapAround>(level, read);
    const auto& end = static_cast<const WrapAround&>(*read[0]);
    auto flat = std::make_unique<Flat>();
    flat->W = end.W, flat->L = end.L, flat->T = end.H;
    flat->rotation = end.rotation, flat->mirror = end.mirror;
    flat->color = end.color, flat->point = end.point;
    objects.push_back(std::move(flat));
}

/// Appends the object that a level is, if it is one; the frequent kinds first.
template <class Level>
void AppendObject(Level& level, Objects& objects) {
    const std::string_view name = level.Name();
    // clang-format off
    if (name == "LINE") AppendKind<Line>(level, objects);
    else if (name == "PINPOINT") AppendKind<PinPoint>(level, objects);
    else if (name == "FILLRECT") AppendKind<FillRect>(level, objects);
    else if (name == "FLAT") AppendKind<Flat>(level, objects);
    else if (name == "CUBOID") AppendKind<Cuboid>(level, objects);
    else if (name == "USERDEFINED") AppendUserDefined(level, objects);
    else if (name == "POLYLINE") AppendKind<Polyline>(level, objects);
    else if (name == "BALL") AppendKind<Ball>(level, objects);
    else if (name == "GULLWING") AppendKind<GullWing>(level, objects);
    else if (name == "RECTANGLE") AppendKind<Rectangle>(level, objects);
    else if (name == "PTEXT") AppendKind<PropertyText>(level, objects);
    else if (name == "ARC") AppendKind<Arc>(level, objects);
    else if (name == "FILLCIRCLE") AppendKind<FillCircle>(level, objects);
    else if (name == "ROUNDEDRECTANGLE") AppendKind<RoundedRect>(level, objects);
    else if (name == "CIRCLE") AppendKind<Circle>(level, objects);
    else if (name == "ROUNDBAR") AppendKind<RoundBar>(level, objects);
    else if (name == "DIP") AppendKind<Dip>(level, objects);
    else if (name == "CBEND") AppendKind<CBend>(level, objects);
    else if (name == "TEXT") AppendKind<Text>(level, objects);
    else if (name == "POLYGON") AppendKind<Polygon>(level, objects);
    else if (name == "THERMAL") AppendKind<Thermal>(level, objects);
    else if (name == "3DLINE") AppendKind<Line3D>(level, objects);
    else if (name == "GULLWINGA") AppendKind<GullWingA>(level, objects);
    else if (name == "3DFILLCIRCLE") AppendKind<FillCircle3D>(level, objects);
    else if (name == "COMPOSITE") AppendKind<Composite>(level, objects);
    else if (name == "PILLAR") AppendKind<Pillar>(level, objects);
    else if (name == "OBLONG") AppendKind<Oblong>(level, objects);
    else if (name == "PYRAMID") AppendKind<Pyramid>(level, objects);
    else if (name == "CYLINDER") AppendKind<Cylinder>(level, objects);
    else if (name == "KINKDIP") AppendKind<KinkDip>(level, objects);
    else if (name == "VOID") AppendKind<Void>(level, objects);
    else if (name == "CONTOUR") AppendKind<Contour>(level, objects);
    else if (name == "CHAMPEREDRECT") AppendKind<ChamferedRect>(level, objects);
    else if (name == "3DPOLYGON") AppendKind<Polygon3D>(level, objects);
    else if (name == "3DFILLRECT") AppendKind<FillRect3D>(level, objects);
    else if (name == "3DCIRCLE") AppendKind<Circle3D>(level, objects);
    else if (name == "TAPERED") AppendKind<Tapered>(level, objects);
    else if (name == "BAR") AppendKind<Bar>(level, objects);
    else if (name == "JINVERTED") AppendKind<JInverted>(level, objects);
    else if (name == "REVERSEBUTT") AppendKind<ReverseButt>(level, objects);
    else if (name == "ROUNDBARA") AppendKind<RoundBarA>(level, objects);
    else if (name == "ROUNDDIP") AppendKind<RoundDip>(level, objects);
    else if (name == "ELLIPSE") AppendKind<Ellipse>(level, objects);
    else if (name == "SPHERE") AppendKind<Sphere>(level, objects);
    else if (name == "STEP") AppendKind<Step>(level, objects);
    else if (name == "DIPB") AppendKind<DipB>(level, objects);
    else if (name == "ROUNDDIPA") AppendKind<RoundDipA>(level, objects);
    else if (name == "HOLECUBOID") AppendKind<HoleCuboid>(level, objects);
    else if (name == "WIRE") AppendKind<Wire>(level, objects);
    else if (name == "3DARC") AppendKind<Arc3D>(level, objects);
    else if (name == "BUTT") AppendKind<Butt>(level, objects);
    else if (name == "JBEND") AppendKind<JBend>(level, objects);
    else if (name == "DIPA") AppendKind<DipA>(level, objects);
    else if (name == "KINKDIPA") AppendKind<KinkDipA>(level, objects);
    else if (name == "ROUNDBARB") AppendKind<RoundBarB>(level, objects);
    else if (name == "ROUNDBARC") AppendKind<RoundBarC>(level, objects);
    else if (name == "DONUT") AppendKind<Donut>(level, objects);
    else if (name == "3DOBLONG") AppendKind<Oblong3D>(level, objects);
    else if (name == "3DSHAPE") AppendKind<Shape3D>(level, objects);
    else if (name == "WRAPAROUND") AppendWrapAround(level, objects);
    // clang-format on
}

/// Reads the children of one name into a fresh list, each by a function.
template <class Level, class T, class ReadOne>
void ReadList(Level& level, std::string_view keyword, std::vector<T>& list, ReadOne readOne) {
    list.clear();
    level.Read(kIgnore, [&](auto& child) {
        if (child.Name() == keyword) readOne(child, list.emplace_back());
    });
}

template <class Level>
void ReadInto(Level& level, std::vector<SearchKey>& keys) {
    ReadList(level, "USGKEYS", keys, [](auto& from, SearchKey& key) { ReadInto(from, key); });
}
template <class Level>
void ReadInto(Level& level, std::vector<FootprintPin>& pins) {
    ReadList(level, "FPIN", pins, [](auto& from, FootprintPin& pin) {
        int place = 0;
        from.Read(
            [&](const auto& value) {
                if (place == 0) value.To(pin.number), --pin.number;  // the file counts from 1
                if (place == 1) value.To(pin.name);
                ++place;
            },
            [&](auto& child) { ReadField(pin, child); });
    });
}
template <class Level>
void ReadInto(Level& level, std::vector<FootprintLayer>& layers) {
    ReadList(level, "LAYER", layers, [](auto& from, FootprintLayer& layer) {
        from.Read(kIgnore, [&](auto& child) {
            if (!ReadField(layer, child)) AppendObject(child, layer.objects);
        });
    });
}
template <class Level>
void ReadInto(Level& level, std::vector<PackagePin>& pins) {
    if (level.Name() == "PKGPINS") {
        ReadList(level, "PKGPIN", pins, [](auto& from, PackagePin& pin) {
            from.Read([&](const auto& value) { value.To(pin.name); },
                      [&](auto& child) { ReadField(pin, child); });
        });
        return;
    }
    // Of a mechanical pin only the child is read that has the pin's own place.
    int place = 0;
    pins.clear();
    level.Read(kIgnore, [&](auto& from) {
        const int own = place++;
        if (from.Name() != "MECHANICALPIN") return;
        PackagePin& pin = pins.emplace_back();
        int at = 0;
        from.Read([&](const auto& value) { value.To(pin.name); },
                  [&](auto& child) {
                      if (at++ != own) return;
                      if (child.Name() == "STEP")
                          ReadInto(child, pin.STEP);
                      else
                          ReadField(pin, child);
                  });
    });
}
template <class Level>
void ReadInto(Level& level, std::vector<FootprintName>& names) {
    ReadList(level, "FOOTPRINT", names, [](auto& from, FootprintName& name) {
        from.Read(kIgnore, [&](auto& child) {
            if (child.Name() == "LIBFOOTPRINTNAME" || child.Name() == "FOOTPRINTNAME")
                ReadInto(child, name.name);
        });
    });
}
/// Of a label only the child is read that has the label's own place.
template <class Level>
void ReadInto(Level& level, std::vector<PropertyLabel>& labels) {
    labels.clear();
    int place = 0;
    level.Read(kIgnore, [&](auto& from) {
        const int own = place++;
        if (from.Name() != "PROPLABEL") return;
        PropertyLabel& label = labels.emplace_back();
        int at = 0;
        from.Read(kIgnore, [&](auto& child) {
            if (at++ == own) ReadField(label, child);
        });
    });
}
template <class Level>
void ReadInto(Level& level, std::vector<Comment>& comments) {
    comments.clear();
    level.Read(kIgnore, [&](auto& from) {
        Comment& comment = comments.emplace_back();
        TextValue{from.Name()}.To(comment.index);
        int place = 0;
        from.Read(
            [&](const auto& value) {
                if (place < 2) value.To(place == 0 ? comment.property : comment.comment);
                ++place;
            },
            kIgnore);
    });
}
template <class Level>
void ReadInto(Level& level, std::vector<PartitionPin>& pins) {
    ReadList(level, "PARTITIONPIN", pins, [](auto& from, PartitionPin& pin) {
        int place = 0;
        from.Read(
            [&](const auto& value) {
                if (place == 0) value.To(pin.number), --pin.number;
                if (place == 1) value.To(pin.name);
                ++place;
            },
            [&](auto& child) {
                if (!ReadField(pin, child)) AppendObject(child, pin.objects);
            });
    });
}
template <class Level>
void ReadInto(Level& level, Marking& marking) {
    marking = Marking();
    level.Read(kIgnore, [&](auto& child) {
        if (!ReadField(marking, child)) AppendObject(child, marking.objects);
    });
}

template <class Level>
void ReadPad(Level& from, Pad& pad) {
    from.Read(kIgnore, [&](auto& child) {
        if (ReadField(pad, child)) return;
        if (child.Name() != "OFFSET") return AppendObject(child, pad.objects);
        double offset[2] = {};
        int count = 0;
        child.Read(
            [&](const auto& value) {
                if (count < 2) value.To(offset[count]);
                ++count;
            },
            kIgnore);
        if (count == 2) pad.offsetX = offset[0], pad.offsetY = offset[1];
    });
}
template <class Level>
void ReadPadStack(Level& from, PadStack& stack) {
    from.Read(kIgnore, [&](auto& child) {
        if (ReadField(stack, child) || child.Name() != "DRILL") return;
        child.Read(kIgnore, [&](auto& inner) {
            if (inner.Name() == "SHAPE") ReadInto(inner, stack.drillShape);
            if (inner.Name() == "PLATING") ReadInto(inner, stack.plating);
            if (inner.Name() == "PLATETHICKNESS") ReadInto(inner, stack.plateThickness);
        });
    });
}
template <class Level>
void ReadFootprint(Level& from, Footprint& footprint) {
    from.Read(kIgnore, [&](auto& child) {
        if (!ReadField(footprint, child) && child.Name() == "USGKEYS")
            ReadInto(child, footprint.keys.emplace_back());
    });
}
/// Reads one level from outside of all others.
template <class Level>
void ReadSection(Level& level, Part& part) {
    const std::string_view name = level.Name();
    if (name == "PADS") {
        ReadList(level, "PAD", part.PADS, [](auto& from, Pad& pad) { ReadPad(from, pad); });
    } else if (name == "PADSTACKS") {
        ReadList(level, "PADSTACK", part.PADSTACKS,
                 [](auto& from, PadStack& stack) { ReadPadStack(from, stack); });
    } else if (name == "FOOTPRINTS") {
        ReadList(level, "FOOTPRINT", part.FOOTPRINTS,
                 [](auto& from, Footprint& one) { ReadFootprint(from, one); });
    } else if (name == "PARTITIONS") {
        ReadList(level, "PARTITION", part.PARTITIONS,
                 [](auto& from, Partition& one) { ReadInto(from, one); });
    } else if (name == "VEK") {
        part.packages.clear();
        level.Read(kIgnore, [&](auto& child) {
            if (child.Name() == "PACKAGES")
                ReadList(child, "PACKAGE", part.packages,
                         [](auto& from, Package& one) { ReadInto(from, one); });
        });
    }
}

}  // namespace bench

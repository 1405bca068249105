// The library beside the part: colours, fonts, pads, padstacks, footprints, pin shapes and partitions.

#include "model/library/CVEKA_ColorTable.h"
#include "model/library/CVEKA_Font.h"
#include "model/library/CVEKA_FootprintDB.h"
#include "model/library/CVEKA_NSHAPE.h"
#include "model/library/CVEKA_Pad.h"
#include "model/library/CVEKA_PadStack.h"
#include "model/library/CVEKA_PartitionDB.h"
#include "parser/Rows.h"

using namespace veka;

namespace {

// The forms of padstacks, which list the names of the pads that they use.

/// The last name. All names are added to the list of the record.
template <class Record>
struct PadNames {
    CString& field;
    Record& record;
    PadNames(CString& last, Record& user) : field(last), record(user) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        Last(field).Read(reader, from);
        for (const CString& name : reader.Values(from)) record.AddStandardizationPadName(name);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        Last(field).Describe(lister);
    }
};

/// Q22: a layer replaces the field. The names of the layer are added to the list of the padstack, and stay in the list when
/// a later layer replaces the field.
struct Layer {
    Owned<CVEKA_Padstack_LayerInfo>& field;
    CVEKA_PadStack& stack;
    Layer(Owned<CVEKA_Padstack_LayerInfo>& layer, CVEKA_PadStack& user) : field(layer), stack(user) {}
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        const auto fresh = reader.New(&CVEK_AsciiParser::PadStack_LAYERInfoParser, from);
        stack.AddStandardizationPadName(fresh.get());
        reader.Replaces(from, *field);
        *field = std::move(*fresh);
    }
    template <class Lister>
    void Describe(Lister& lister) const {
        Replace(field, &CVEK_AsciiParser::PadStack_LAYERInfoParser).Describe(lister);
    }
};

/// As `Element`. The names of the padstack are added to the list of the array.
template <class Make>
struct PadStackElement : Element<CVEKA_PadStackArray, Make> {
    using Element<CVEKA_PadStackArray, Make>::Element;
    template <class Reader>
    void Read(const Reader& reader, const Source& from) const {
        auto fresh = reader.New(this->make, from);
        this->field.AddStandardizationPadName(fresh.get());
        this->field.Add(std::move(fresh));
    }
};
template <class Make>
PadStackElement(CVEKA_PadStackArray&, Make) -> PadStackElement<Make>;

}  // namespace

CVEKA_ColorTableArray* CVEK_AsciiParser::COLORTABLEParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_ColorTableArray& colors) { return Rows(
        // Every child is a colour, and its name is the number.
        Any(Element(colors, [](CVEKA_ColorTable& color) { return Rows(
            Own(Name(color.Index)),
            Own(Color(*color.Color)));
        })));
    });
}

CVEKA_FontArray* CVEK_AsciiParser::FontLibParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_FontArray& fonts) { return Rows(
        Row("FONT", Element(fonts, [](CVEKA_Font& font) { return Rows(
            Row("ID", Last(font.FontID)),
            Row("CHARWIDTH", Last(font.CharWidth)),
            Row("CHARHEIGHT", Last(font.CharHeight)),
            Row("CHARSPACE", Last(font.CharSpace)),
            Row("LINESPACE", Last(font.LineSpace)),
            Row("PENWIDTH", Last(font.PenWidth)),
            Row("WINDOWFONTNAME", Last(font.WindowFontName)),
            Row("WINDOWFONTSIZE", Last(font.WindowFontSize)));
        })));
    });
}

CVEKA_PadArray* CVEK_AsciiParser::PADParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PadArray& pads) { return Rows(
        Row("PAD", Element(pads, [](CVEKA_Pad& pad) { return Rows(
            Row("PADNAME", Last(pad.PadName)),
            Row("OFFSET", Exactly(pad.OffsetX, pad.OffsetY)),  // Q20
            Any(Element(*pad.CamLayerDrawObjs, &CVEK_AsciiParser::ObjectParser)));
        })));
    });
}

CVEKA_PadStackArray* CVEK_AsciiParser::PadStackParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PadStackArray& stacks) { return Rows(
        Row("PADSTACK", PadStackElement(stacks, [](CVEKA_PadStack& stack) { return Rows(
            Row("PADSTACKNAME", PadNames(stack.PadstackName, stack)),
            Row("TYPE", Last(stack.Type)),
            Row("DRILL", Within(
                Row("SHAPE", Last(stack.Drill_ShapeName)),
                Row("PLATING", Last(Flag(stack.Drill_Plating))),
                Row("PLATETHICKNESS", Last(stack.Drill_PlateThickness)))),
            Row("TOP", Layer(stack.Top, stack)),
            Row("INNERSIGNAL", Layer(stack.InnerSignal, stack)),
            Row("INNERPLANE", Layer(stack.InnerPlane, stack)),
            Row("BOTTOM", Layer(stack.Bottom, stack)));
        })));
    });
}

CVEKA_Padstack_LayerInfo* CVEK_AsciiParser::PadStack_LAYERInfoParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Padstack_LayerInfo& layer) { return Rows(
        Row("CON", PadNames(layer.Con, layer)),
        Row("UNCON", PadNames(layer.UnCon, layer)),
        Row("ANTI", PadNames(layer.Anti, layer)),
        Row("THERM", PadNames(layer.Thermal, layer)),
        Row("TD", Last(Flag(layer.TearDrop))),
        Row("SOLD", PadNames(layer.Solder, layer)),
        Row("METL", PadNames(layer.Metal, layer)));
    });
}

CVEKA_FootprintDBArray* CVEK_AsciiParser::FOOTPRINTParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_FootprintDBArray& footprints) { return Rows(
        Row("FOOTPRINT", Element(footprints, [](CVEKA_FootprintDB& footprint) { return Rows(
            Row("FOOTPRINTNAME", Last(footprint.FootprintName)),
            Row("USGKEYS", Element(*footprint.USGKeys, &CVEK_AsciiParser::USGKeyParser)),  // Q21
            Row("MOUNTHEIGHT", Last(footprint.MountHeight)),
            Row("OFFSET", Point(*footprint.Offset)),
            Row("ROTATIONOFFSET", Last(footprint.RotationOffset)),
            Row("FPINS", Replace(footprint.FPins, &CVEK_AsciiParser::FOOTPRINT_FPINSParser)),
            Row("CAMLAYERS", Replace(footprint.CAMLayers, &CVEK_AsciiParser::FOOTPRINT_CAMLAYERSParser)));
        })));
    });
}

CVEKA_FootprintPinArray* CVEK_AsciiParser::FOOTPRINT_FPINSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_FootprintPinArray& pins) { return Rows(
        Row("FPIN", Element(pins, [](CVEKA_FootprintPin& pin) { return Rows(
            Own(ByPosition(FromOne(pin.PinNo), pin.PinName)),
            Row("LIBPADSTACK", Last(pin.LibPadstackName)),
            Row("PT", Point(*pin.Point)),
            Row("ROTATION", Last(pin.Rotation)));
        })));
    });
}

CVEKA_CAMLayerArray* CVEK_AsciiParser::FOOTPRINT_CAMLAYERSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_CAMLayerArray& layers) { return Rows(
        Row("LAYER", Element(layers, [](CVEKA_CAMLayer& layer) { return Rows(
            Row("ANO", Last(layer.ArtworkLayerNo)),
            Row("LNAME", Last(layer.LayerName)),
            Any(ElementOrNull(*layer.CamLayerDrawObjs, &CVEK_AsciiParser::ObjectParser)));  // Q18
        })));
    });
}

CVEKA_NSHAPE* CVEK_AsciiParser::NSHAPEParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_NSHAPE& shape) { return Rows(
        Own(Last(shape.ShapeName)),
        Row("PINBODYSHAPE", Replace(shape.PinBodyShape, &CVEK_AsciiParser::ObjectsParser)),
        Row("PINCONNSHAPE", Element(*shape.PinConnShape, [](CVEKA_PinConnShape& connection) { return Rows(
            Own(ByPosition(connection.ShapeType, connection.Size)),
            Row("PT", Point(*connection.Point)));
        })),
        Row("PROPERTYLABELS", Replace(shape.PropertyLabels, &CVEK_AsciiParser::NSHAPE_PROPERTYLABELSParser)));
    });
}

CVEKA_PartitionDBArray* CVEK_AsciiParser::PARTITIONParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PartitionDBArray& partitions) { return Rows(
        Row("PARTITION", Element(partitions, [](CVEKA_PartitionDB& partition) { return Rows(
            Row("PARTITION", Last(partition.PatitionName)),  // Q14
            Row("PARTITIONPINS", Replace(partition.Pins, &CVEK_AsciiParser::PARTITION_PARTITIONPINSParser)),
            Row("BODYSHAPE", Within(
                Any(ElementOrNull(*partition.BodyShape, &CVEK_AsciiParser::ObjectParser)))),  // Q18
            Row("COMMENT", Replace(partition.Comment, &CVEK_AsciiParser::COMMENTParser)));
        })));
    });
}

CVEKA_PartitionDBPinArray* CVEK_AsciiParser::PARTITION_PARTITIONPINSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PartitionDBPinArray& pins) { return Rows(
        Row("PARTITIONPIN", Element(pins, [](CVEKA_PartitionDBPin& pin) { return Rows(
            Own(ByPosition(FromOne(pin.PartitionPinNo), pin.GatePinName)),
            // The objects are among the other children of the pin.
            Own(Replace(pin.CAMLayerDrawObjs, &CVEK_AsciiParser::ObjectsParser)),
            Row("LIBPIN", Last(pin.LibPinShapeName)),
            Row("PT", Point(*pin.Point)),
            Row("PROPERTYLABELS", Replace(pin.PropertyLabels, &CVEK_AsciiParser::PARTITION_PARTITIONPINS_PROPERTYLABELSParser)),
            Row("COMMENT", Replace(pin.Comment, &CVEK_AsciiParser::COMMENTParser)),
            Row("ROTATION", Last(pin.PinRotation)));
        })));
    });
}

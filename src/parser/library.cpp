// The library beside the part: colours, fonts, pads, padstacks, footprints, pin shapes and partitions.

#include "parser/CVEK_AsciiParser.h"
#include "parser/ReadingForms.h"

using namespace veka;

namespace {

/// A number that the file counts from 1 and the model from 0.
struct FromOne {
    int& field;
};
void Convert(const CString& value, FromOne number) noexcept {
    number.field = static_cast<int>(static_cast<unsigned>(ToInt(value)) - 1u);
}

}  // namespace

CVEKA_ColorTableArray* CVEK_AsciiParser::COLORTABLEParser(CECadClsLvl* level) {
    auto colors = std::make_unique<CVEKA_ColorTableArray>();
    // Every child is a colour: its name is the number.
    for (CECadClsLvl* child : Children(level)) {
        auto color = std::make_unique<CVEKA_ColorTable>();
        color->Index = ToInt(child->m_strName);
        Color(child, *color->Color);
        colors->Add(std::move(color));
    }
    return colors.release();
}

CVEKA_FontArray* CVEK_AsciiParser::FontLibParser(CECadClsLvl* level) {
    auto fonts = std::make_unique<CVEKA_FontArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "FONT") continue;
        auto font = std::make_unique<CVEKA_Font>();
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "ID") Last(data, font->FontID);
            else if (keyword == "CHARWIDTH") Last(data, font->CharWidth);
            else if (keyword == "CHARHEIGHT") Last(data, font->CharHeight);
            else if (keyword == "CHARSPACE") Last(data, font->CharSpace);
            else if (keyword == "LINESPACE") Last(data, font->LineSpace);
            else if (keyword == "PENWIDTH") Last(data, font->PenWidth);
            else if (keyword == "WINDOWFONTNAME") Last(data, font->WindowFontName);
            else if (keyword == "WINDOWFONTSIZE") Last(data, font->WindowFontSize);
        }
        fonts->Add(std::move(font));
    }
    return fonts.release();
}

CVEKA_PadArray* CVEK_AsciiParser::PADParser(CECadClsLvl* level) {
    auto pads = std::make_unique<CVEKA_PadArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PAD") continue;
        auto pad = std::make_unique<CVEKA_Pad>();
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "PADNAME") Last(data, pad->PadName);
            else if (keyword == "OFFSET") {
                // The one place where the count must be exact.
                if (data->m_aValues.GetSize() == 2) ByPosition(data, pad->OffsetX, pad->OffsetY);
            }
            // Everything else is taken for an object.
            else Append(*pad->CamLayerDrawObjs, ObjectParser(data));
        }
        pads->Add(std::move(pad));
    }
    return pads.release();
}

CVEKA_PadStackArray* CVEK_AsciiParser::PadStackParser(CECadClsLvl* level) {
    auto stacks = std::make_unique<CVEKA_PadStackArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PADSTACK") continue;
        auto stack = std::make_unique<CVEKA_PadStack>();
        const auto takeLayer = [&](Owned<CVEKA_Padstack_LayerInfo>& field, CECadClsLvl* data) {
            std::unique_ptr<CVEKA_Padstack_LayerInfo> layer(PadStack_LAYERInfoParser(data));
            // The names of a layer that a later one replaces stay in the padstack's list.
            stack->AddStandardizationPadName(layer.get());
            Take(field, layer.release());
        };
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "PADSTACKNAME") {
                Last(data, stack->PadstackName);
                for (const CString& name : data->m_aValues) stack->AddStandardizationPadName(name);
            }
            else if (keyword == "TYPE") Last(data, stack->Type);
            else if (keyword == "DRILL") {
                for (CECadClsLvl* drill : Children(data)) {
                    const CString& name = drill->m_strName;
                    if (name == "SHAPE") Last(drill, stack->Drill_ShapeName);
                    else if (name == "PLATING") Last(drill, Flag{stack->Drill_Plating});
                    else if (name == "PLATETHICKNESS") Last(drill, stack->Drill_PlateThickness);
                }
            }
            else if (keyword == "TOP") takeLayer(stack->Top, data);
            else if (keyword == "INNERSIGNAL") takeLayer(stack->InnerSignal, data);
            else if (keyword == "INNERPLANE") takeLayer(stack->InnerPlane, data);
            else if (keyword == "BOTTOM") takeLayer(stack->Bottom, data);
        }
        stacks->AddStandardizationPadName(stack.get());
        stacks->Add(std::move(stack));
    }
    return stacks.release();
}

CVEKA_Padstack_LayerInfo* CVEK_AsciiParser::PadStack_LAYERInfoParser(CECadClsLvl* level) {
    auto layer = std::make_unique<CVEKA_Padstack_LayerInfo>();
    // The field ends with the last name, and the list gets them all.
    const auto readNames = [&](CECadClsLvl* child, CString& field) {
        Last(child, field);
        for (const CString& name : child->m_aValues) layer->AddStandardizationPadName(name);
    };
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "CON") readNames(child, layer->Con);
        else if (keyword == "UNCON") readNames(child, layer->UnCon);
        else if (keyword == "ANTI") readNames(child, layer->Anti);
        else if (keyword == "THERM") readNames(child, layer->Thermal);
        else if (keyword == "TD") Last(child, Flag{layer->TearDrop});
        else if (keyword == "SOLD") readNames(child, layer->Solder);
        else if (keyword == "METL") readNames(child, layer->Metal);
    }
    return layer.release();
}

CVEKA_FootprintDBArray* CVEK_AsciiParser::FOOTPRINTParser(CECadClsLvl* level) {
    auto footprints = std::make_unique<CVEKA_FootprintDBArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "FOOTPRINT") continue;
        auto footprint = std::make_unique<CVEKA_FootprintDB>();
        bool keysRead = false;
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "FOOTPRINTNAME") Last(data, footprint->FootprintName);
            // Each such level is a key itself. All are read together, so once is enough.
            else if (keyword == "USGKEYS") { if (!std::exchange(keysRead, true)) Take(footprint->USGKeys, USGKeysParser(child)); }
            else if (keyword == "MOUNTHEIGHT") Last(data, footprint->MountHeight);
            else if (keyword == "OFFSET") Point(data, *footprint->Offset);
            else if (keyword == "ROTATIONOFFSET") Last(data, footprint->RotationOffset);
            else if (keyword == "FPINS") Take(footprint->FPins, FOOTPRINT_FPINSParser(data));
            else if (keyword == "CAMLAYERS") Take(footprint->CAMLayers, FOOTPRINT_CAMLAYERSParser(data));
        }
        footprints->Add(std::move(footprint));
    }
    return footprints.release();
}

CVEKA_FootprintPinArray* CVEK_AsciiParser::FOOTPRINT_FPINSParser(CECadClsLvl* level) {
    auto pins = std::make_unique<CVEKA_FootprintPinArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "FPIN") continue;
        auto pin = std::make_unique<CVEKA_FootprintPin>();
        if (child->m_aValues.GetSize() > 0) Convert(child->m_aValues[0], FromOne{pin->PinNo});
        if (child->m_aValues.GetSize() > 1) pin->PinName = child->m_aValues[1];
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "LIBPADSTACK") Last(data, pin->LibPadstackName);
            else if (keyword == "PT") Point(data, *pin->Point);
            else if (keyword == "ROTATION") Last(data, pin->Rotation);
        }
        pins->Add(std::move(pin));
    }
    return pins.release();
}

CVEKA_CAMLayerArray* CVEK_AsciiParser::FOOTPRINT_CAMLAYERSParser(CECadClsLvl* level) {
    auto layers = std::make_unique<CVEKA_CAMLayerArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "LAYER") continue;
        auto layer = std::make_unique<CVEKA_CAMLayer>();
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "ANO") Last(data, layer->ArtworkLayerNo);
            else if (keyword == "LNAME") Last(data, layer->LayerName);
            // Everything else is taken for an object; an unknown one leaves a null that a copy drops.
            else layer->CamLayerDrawObjs->Add(std::unique_ptr<CVEKA_3DObject>(ObjectParser(data)));
        }
        layers->Add(std::move(layer));
    }
    return layers.release();
}

CVEKA_NSHAPE* CVEK_AsciiParser::NSHAPEParser(CECadClsLvl* level) {
    auto shape = std::make_unique<CVEKA_NSHAPE>();
    Last(level, shape->ShapeName);
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "PINBODYSHAPE") Take(shape->PinBodyShape, ObjectsParser(child));
        else if (keyword == "PINCONNSHAPE") {
            auto connection = std::make_unique<CVEKA_PinConnShape>();
            ByPosition(child, connection->ShapeType, connection->Size);
            for (CECadClsLvl* data : Children(child))
                if (data->m_strName == "PT") Point(data, *connection->Point);
            shape->PinConnShape->Add(std::move(connection));
        }
        else if (keyword == "PROPERTYLABELS") Take(shape->PropertyLabels, NSHAPE_PROPERTYLABELSParser(child));
    }
    return shape.release();
}

CVEKA_PartitionDBArray* CVEK_AsciiParser::PARTITIONParser(CECadClsLvl* level) {
    auto partitions = std::make_unique<CVEKA_PartitionDBArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PARTITION") continue;
        auto partition = std::make_unique<CVEKA_PartitionDB>();
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            // The same keyword again inside gives the name.
            if (keyword == "PARTITION") Last(data, partition->PatitionName);
            else if (keyword == "PARTITIONPINS") Take(partition->Pins, PARTITION_PARTITIONPINSParser(data));
            else if (keyword == "BODYSHAPE") {
                // An unknown object leaves a null that a copy drops.
                for (CECadClsLvl* object : Children(data))
                    partition->BodyShape->Add(std::unique_ptr<CVEKA_3DObject>(ObjectParser(object)));
            }
            else if (keyword == "COMMENT") Take(partition->Comment, COMMENTParser(data));
        }
        partitions->Add(std::move(partition));
    }
    return partitions.release();
}

CVEKA_PartitionDBPinArray* CVEK_AsciiParser::PARTITION_PARTITIONPINSParser(CECadClsLvl* level) {
    auto pins = std::make_unique<CVEKA_PartitionDBPinArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PARTITIONPIN") continue;
        auto pin = std::make_unique<CVEKA_PartitionDBPin>();
        if (child->m_aValues.GetSize() > 0) Convert(child->m_aValues[0], FromOne{pin->PartitionPinNo});
        if (child->m_aValues.GetSize() > 1) pin->GatePinName = child->m_aValues[1];
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "LIBPIN") Last(data, pin->LibPinShapeName);
            else if (keyword == "PT") Point(data, *pin->Point);
            else if (keyword == "PROPERTYLABELS") Take(pin->PropertyLabels, PARTITION_PARTITIONPINS_PROPERTYLABELSParser(data));
            else if (keyword == "COMMENT") Take(pin->Comment, COMMENTParser(data));
            else if (keyword == "ROTATION") Last(data, pin->PinRotation);
        }
        // The objects stand among the other children of the pin.
        Take(pin->CAMLayerDrawObjs, ObjectsParser(child));
        pins->Add(std::move(pin));
    }
    return pins.release();
}

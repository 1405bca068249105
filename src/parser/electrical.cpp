// The part as a circuit element. "RLC" has another form in each of its three places (Q8).

#include "model/electrical/CVEKA_Electrical.h"
#include "parser/Rows.h"

using namespace veka;

namespace {

/// The number of the target of a power rail, by its word.
struct Target {
    CVEKA_SignalName& signal;
    explicit Target(CVEKA_SignalName& name) : signal(name) {}
};
void Convert(const CString& value, Target target) {
    target.signal.SetTargetType(value == "RLC" ? 1 : value == "RL" ? 2 : 0);
}
Loss LossOf(const CString& value, const Target&) noexcept {
    return value == "RLC" || value == "RL" || value.IsEmpty() ? Loss::None : Loss::UnknownTarget;
}
void PutMark(int mark, const Target& target) {
    target.signal.SetTargetType(mark);
}

}  // namespace

CVEKA_Electrical* CVEK_AsciiParser::ELECTRICALParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Electrical& electrical) { return Rows(
        Row("DEVICEMODELS", Replace(electrical.DeviceModels, &CVEK_AsciiParser::DEVICEMODELSParser)),
        Row("POWERRAILS", Replace(electrical.PowerRails, &CVEK_AsciiParser::POWERRAILSParser)),
        Row("PASSIVEVALUE", Replace(electrical.PassiveValue, &CVEK_AsciiParser::PASSIVEVALUEParser)),
        Row("PINMAPPINGMODE", First(Flag(electrical.PinMappingMode->Mode))),
        Row("ELECTRICALPINS", Replace(electrical.ElectricalPins, &CVEK_AsciiParser::ELECTRICALPINSParser)),
        Row("PINGROUPS", Replace(electrical.PinGroups, &CVEK_AsciiParser::PINGROUPSParser)));
    });
}

CVEKA_DeviceModelArray* CVEK_AsciiParser::DEVICEMODELSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_DeviceModelArray& models) { return Rows(
        Row("MODEL", Element(models, [](CVEKA_DeviceModel& model) { return Rows(
            Own(ByPosition(model.ModelType, model.FilePath)));
        })));
    });
}

/// The three values are children. Those that are not given stay as they are.
inline auto CVEK_AsciiParser::RLCRows(CVEKA_RLC& rlc) {
    return Rows(
        Row("R", Last(rlc.ResisterValue)),
        Row("L", Last(rlc.InductanceValue)),
        Row("C", Last(rlc.CapacitorValue)));
}

CVEKA_PowerRailArray* CVEK_AsciiParser::POWERRAILSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PowerRailArray& rails) { return Rows(
        Row("PRAIL", Element(rails, [](CVEKA_PowerRail& rail) { return Rows(
            Row("SIGNALNAME", Replace(rail.SignalName, [](CVEKA_SignalName& signal) { return Rows(
                Own(ByPosition(signal.StrSignalName, Target(signal))));
            })),
            Row("PDSMODEL", Replace(rail.PDSModel, [](CVEKA_PDSModel& model) { return Rows(
                Own(ByPosition(model.ModelType, model.ModelName)));
            })),
            Row("FREQUECNY", Element(*rail.FrequencyArr, [](CVEKA_Frequency& band) { return Rows(  // Q7
                Own(ByPosition(band.MinTarget, band.MaxTarget, band.Impedance)));
            })),
            Row("RLC", Within(RLCRows(*rail.RLC))),
            Row("RL", Within(
                Row("R", Last(rail.RL->ResisterValue)),
                Row("L", Last(rail.RL->InductanceValue)))));
        })));
    });
}

CVEKA_PassiveValue* CVEK_AsciiParser::PASSIVEVALUEParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PassiveValue& value) { return Rows(
        Row("NOMINALVALUE", First(value.NominalValue)),
        Row("SPICEMODEL", First(value.SpiceModel)),
        Row("CURRENT", First(value.CurrentValue)),
        Row("VOLTAGE", First(value.VoltageValue)),
        Row("POWER", First(value.PowerValue)),
        Row("MODELS", Within(
            Own(First(value.Models->CurrentModelType)),
            Row("RLC", Within(RLCRows(*value.Models->RLC))),
            Row("SPICE", First(value.Models->SpiceFileName)),
            Row("SPARAMETER", First(value.Models->SParameterFileName)))),
        Row("PINPAIRS", Within(
            Row("PAIR", Element(*value.PinPairArr, [](CVEKA_PinPair& pair) { return Rows(
                Own(ByPosition(pair.PinPairFirst, pair.PinPairSecond)));
            })))),
        // Q9: a level of any other name is the type. The last value of the level is both numbers.
        Any(Within(
            Own(Name(value.Type->Name)),
            Own(Last(value.Type->Value1)),
            Own(Last(value.Type->Value2)))));
    });
}

CVEKA_ElectricalPinArray* CVEK_AsciiParser::ELECTRICALPINSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_ElectricalPinArray& pins) { return Rows(
        // Q10: "COMMENT" is no keyword here, although a pin has a field for comments.
        Row("EPIN", Element(pins, [](CVEKA_ElectricalPin& pin) { return Rows(
            Row("NAME", Last(pin.Name)),
            Row("SNAME", Last(pin.SignalName)),
            Row("TYPE", Last(pin.Type)),
            Row("PUPD", ByPosition(pin.SignalPU, pin.SignalPD)),
            Row("INVERTER", Last(pin.InverterPinName)),
            Row("DEVICEMODELTYPE", Last(pin.DeviceModelType)),
            Row("DNAME", Last(pin.DName)),
            Row("DRMODEL", NewList(pin.DriverModelName)),
            Row("PKGPINMODELTYPE", Last(pin.PKGPinModelType)),
            Row("PNAME", Last(pin.PName)),
            Row("RCMODEL", Last(pin.RCModelName)),
            Row("RLC", Replace(pin.RLC, [](CVEKA_RLC& rlc) { return Rows(
                Own(ByPosition(rlc.ResisterValue, rlc.InductanceValue, rlc.CapacitorValue)));
            })),
            Row("STUP", Last(pin.STUPName)),
            Row("PORT", ByPosition(pin.INPort, pin.OUTPort)));
        })));
    });
}

CVEKA_PinGroupArray* CVEK_AsciiParser::PINGROUPSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PinGroupArray& groups) { return Rows(
        Row("PINGROUP", Element(groups, [](CVEKA_PinGroup& group) { return Rows(
            Own(ByPosition(group.GroupName, Rest(group.Name))));
        })));
    });
}

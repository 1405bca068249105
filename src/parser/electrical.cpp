// The part as a circuit element. "RLC" has a form of its own in each of its three places.

#include "parser/CVEK_AsciiParser.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEKA_Electrical* CVEK_AsciiParser::ELECTRICALParser(CECadClsLvl* level) {
    auto electrical = std::make_unique<CVEKA_Electrical>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "DEVICEMODELS") Take(electrical->DeviceModels, DEVICEMODELSParser(child));
        else if (keyword == "POWERRAILS") Take(electrical->PowerRails, POWERRAILSParser(child));
        else if (keyword == "PASSIVEVALUE") Take(electrical->PassiveValue, PASSIVEVALUEParser(child));
        else if (keyword == "PINMAPPINGMODE") First(child, Flag{electrical->PinMappingMode->Mode});
        else if (keyword == "ELECTRICALPINS") Take(electrical->ElectricalPins, ELECTRICALPINSParser(child));
        else if (keyword == "PINGROUPS") Take(electrical->PinGroups, PINGROUPSParser(child));
    }
    return electrical.release();
}

CVEKA_DeviceModelArray* CVEK_AsciiParser::DEVICEMODELSParser(CECadClsLvl* level) {
    auto models = std::make_unique<CVEKA_DeviceModelArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "MODEL") continue;
        auto model = std::make_unique<CVEKA_DeviceModel>();
        ByPosition(child, model->ModelType, model->FilePath);
        models->Add(std::move(model));
    }
    return models.release();
}

CVEKA_PowerRailArray* CVEK_AsciiParser::POWERRAILSParser(CECadClsLvl* level) {
    auto rails = std::make_unique<CVEKA_PowerRailArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PRAIL") continue;
        auto rail = std::make_unique<CVEKA_PowerRail>();
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "SIGNALNAME") {
                CVEKA_SignalName signal;
                CString target;
                ByPosition(data, signal.StrSignalName, target);
                signal.TargetType = target == "RLC" ? 1 : target == "RL" ? 2 : 0;
                *rail->SignalName = signal;
            }
            else if (keyword == "PDSMODEL") {
                CVEKA_PDSModel model;
                ByPosition(data, model.ModelType, model.ModelName);
                *rail->PDSModel = model;
            }
            else if (keyword == "FREQUECNY") {
                auto band = std::make_unique<CVEKA_Frequency>();
                ByPosition(data, band->MinTarget, band->MaxTarget, band->Impedance);
                rail->FrequencyArr->Add(std::move(band));
            }
            else if (keyword == "RLC") ReadRLC(data, *rail->RLC);
            else if (keyword == "RL") {
                for (CECadClsLvl* number : Children(data)) {
                    if (number->m_strName == "R") Last(number, rail->RL->ResisterValue);
                    else if (number->m_strName == "L") Last(number, rail->RL->InductanceValue);
                }
            }
        }
        rails->Add(std::move(rail));
    }
    return rails.release();
}

/// The three values as child levels; those that are not given keep what they had.
void CVEK_AsciiParser::ReadRLC(CECadClsLvl* level, CVEKA_RLC& rlc) {
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "R") Last(child, rlc.ResisterValue);
        else if (keyword == "L") Last(child, rlc.InductanceValue);
        else if (keyword == "C") Last(child, rlc.CapacitorValue);
    }
}

CVEKA_PassiveValue* CVEK_AsciiParser::PASSIVEVALUEParser(CECadClsLvl* level) {
    auto value = std::make_unique<CVEKA_PassiveValue>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "NOMINALVALUE") First(child, value->NominalValue);
        else if (keyword == "SPICEMODEL") First(child, value->SpiceModel);
        else if (keyword == "CURRENT") First(child, value->CurrentValue);
        else if (keyword == "VOLTAGE") First(child, value->VoltageValue);
        else if (keyword == "POWER") First(child, value->PowerValue);
        else if (keyword == "MODELS") {
            CVEKA_PassiveValueModels& models = *value->Models;
            First(child, models.CurrentModelType);
            for (CECadClsLvl* model : Children(child)) {
                const CString& name = model->m_strName;
                if (name == "RLC") ReadRLC(model, *models.RLC);
                else if (name == "SPICE") First(model, models.SpiceFileName);
                else if (name == "SPARAMETER") First(model, models.SParameterFileName);
            }
        }
        else if (keyword == "PINPAIRS") {
            for (CECadClsLvl* values : Children(child)) {
                if (values->m_strName != "PAIR") continue;
                auto pair = std::make_unique<CVEKA_PinPair>();
                ByPosition(values, pair->PinPairFirst, pair->PinPairSecond);
                value->PinPairArr->Add(std::move(pair));
            }
        }
        else {
            // The level's own name is the word for the type, and its last value is both numbers. That is required.
            value->Type->Name = keyword;
            Last(child, value->Type->Value1);
            Last(child, value->Type->Value2);
        }
    }
    return value.release();
}

CVEKA_ElectricalPinArray* CVEK_AsciiParser::ELECTRICALPINSParser(CECadClsLvl* level) {
    auto pins = std::make_unique<CVEKA_ElectricalPinArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "EPIN") continue;
        auto pin = std::make_unique<CVEKA_ElectricalPin>();
        // "COMMENT" is no keyword here: the comments of a pin in a file are dropped. That is required.
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "NAME") Last(data, pin->Name);
            else if (keyword == "SNAME") Last(data, pin->SignalName);
            else if (keyword == "TYPE") Last(data, pin->Type);
            else if (keyword == "PUPD") ByPosition(data, pin->SignalPU, pin->SignalPD);
            else if (keyword == "INVERTER") Last(data, pin->InverterPinName);
            else if (keyword == "DEVICEMODELTYPE") Last(data, pin->DeviceModelType);
            else if (keyword == "DNAME") Last(data, pin->DName);
            else if (keyword == "DRMODEL") pin->DriverModelName.Copy(data->m_aValues);
            else if (keyword == "PKGPINMODELTYPE") Last(data, pin->PKGPinModelType);
            else if (keyword == "PNAME") Last(data, pin->PName);
            else if (keyword == "RCMODEL") Last(data, pin->RCModelName);
            else if (keyword == "RLC") {
                // By position, and what is not given becomes 0.
                CVEKA_RLC rlc;
                ByPosition(data, rlc.ResisterValue, rlc.InductanceValue, rlc.CapacitorValue);
                *pin->RLC = rlc;
            }
            else if (keyword == "STUP") Last(data, pin->STUPName);
            else if (keyword == "PORT") ByPosition(data, pin->INPort, pin->OUTPort);
        }
        pins->Add(std::move(pin));
    }
    return pins.release();
}

CVEKA_PinGroupArray* CVEK_AsciiParser::PINGROUPSParser(CECadClsLvl* level) {
    auto groups = std::make_unique<CVEKA_PinGroupArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PINGROUP") continue;
        auto group = std::make_unique<CVEKA_PinGroup>();
        First(child, group->GroupName);
        for (INT_PTR i = 1; i < child->m_aValues.GetSize(); ++i) group->Name.Add(child->m_aValues[i]);
        groups->Add(std::move(group));
    }
    return groups.release();
}

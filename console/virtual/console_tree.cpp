#include "console/virtual/console_tree.h"

#include "console/text_fields.h"

#include <string>

namespace orvane {

namespace {

using namespace virtual_console;

struct CalibreModel {
    const char* Nom;
    float Min;
    float Max;
};

/// The differences between the two adapters.
struct AdapterModel {
    const char* Nom;
    const char* Fonction;
    const char* NomGrandeur;
    const char* Grandeur;
    const char* Unite;
    std::array<CalibreModel, 2> Calibres;
};

constexpr std::array<AdapterModel, 2> adapterModels{
    {{"Voltmètre",
      "Tension instantanée",
      "Tension",
      "u",
      "V",
      {{{"+-12V", -12.0F, 12.0F}, {"+-24V", -24.0F, 24.0F}}}},
     {"Ampèremetre",
      "Intensité instantanée",
      "Intensité",
      "i",
      "A",
      {{{"1A", 0.0F, 1.0F}, {"2A", 0.0F, 2.0F}}}}}};

void FillAdapter(tAdapterDesc& desc, const char* nom, const std::string& suffix) {
    SetText(desc.Nom, nom);
    SetText(desc.Reference, "Reference " + suffix);
    SetText(desc.Version, "Version " + suffix);
    SetText(desc.Description, "Description " + suffix);
    SetText(desc.NumSerie, "SN " + suffix);
    SetDate(desc.ManufacturingDate, "Manufact");
    SetText(desc.ManufacturerIdent, "ManufacturerIdent " + suffix);
}

std::unique_ptr<CalibreNode[]> MakeCalibres(const AdapterModel& model) {
    auto calibres = std::make_unique<CalibreNode[]>(model.Calibres.size());
    for (std::size_t i = 0; i < model.Calibres.size(); ++i) {
        const CalibreModel& calibre = model.Calibres[i];
        SetText(calibres[i].Desc.Nom, calibre.Nom);
        SetText(calibres[i].Desc.Format, "%+6.2f");
        calibres[i].Desc.Min = calibre.Min;
        calibres[i].Desc.Max = calibre.Max;
        calibres[i].Valeurs = ValuesOfCalibre(calibre.Min, calibre.Max);
    }
    return calibres;
}

std::unique_ptr<FunctionNode[]> MakeFunction(const AdapterModel& model) {
    auto functions = std::make_unique<FunctionNode[]>(1);
    tFunctionDesc& desc = functions[0].Desc;
    SetText(desc.Nom, model.Fonction);
    SetText(desc.NomGrandeur, model.NomGrandeur);
    SetText(desc.Grandeur, model.Grandeur);
    SetText(desc.Unite, model.Unite);
    desc.IndicateurFonction = 1;
    functions[0].Calibres = MakeCalibres(model);
    desc.NbCalibres = static_cast<uint8_t>(model.Calibres.size());
    return functions;
}

std::unique_ptr<ChannelNode[]> MakeChannel(const AdapterModel& model, const std::string& suffix) {
    auto channels = std::make_unique<ChannelNode[]>(1);
    tChannelDesc& desc = channels[0].Desc;
    SetText(desc.Nom, model.Nom);
    SetText(desc.Description, "Description ch 1 " + suffix);
    desc.Sens = 1;
    desc.IndicateurA = 1;
    desc.PeriodeDefautNs = 1'000'000;
    channels[0].Fonctions = MakeFunction(model);
    desc.NbFonctions = 1;
    FollowSelection(channels[0]);
    return channels;
}

} // namespace

namespace virtual_console {

ConnectorNode* ConnectorAt(uint8_t connector) {
    return connector < Connectors.size() ? &Connectors[connector] : nullptr;
}

ChannelNode* ChannelAt(uint8_t connector, uint8_t channel) {
    const ConnectorNode* node = ConnectorAt(connector);
    return node != nullptr && channel < node->Desc.NbVoies ? &node->Voies[channel] : nullptr;
}

FunctionNode* FunctionAt(uint8_t connector, uint8_t channel, uint8_t function) {
    const ChannelNode* node = ChannelAt(connector, channel);
    return node != nullptr && function < node->Desc.NbFonctions ? &node->Fonctions[function]
                                                                : nullptr;
}

CalibreNode* CalibreAt(uint8_t connector, uint8_t channel, uint8_t function, uint8_t calibre) {
    const FunctionNode* node = FunctionAt(connector, channel, function);
    return node != nullptr && calibre < node->Desc.NbCalibres ? &node->Calibres[calibre] : nullptr;
}

void FollowSelection(ChannelNode& channel) {
    const FunctionNode& function = channel.Fonctions[channel.Desc.FonctionCourante];
    channel.Valeurs = &function.Calibres[function.Desc.CalibreCourant].Valeurs;
}

void BuildTree() {
    FillAdapter(Connectors[0].Desc, "Nom Adapt 0 Console", "Adapt 0 Console");
    for (std::size_t i = 0; i < adapterModels.size(); ++i) {
        ConnectorNode& node = Connectors[i + 1];
        const std::string number = std::to_string(i + 1);
        FillAdapter(node.Desc, adapterModels[i].Nom, "Adapt " + number);
        node.Voies = MakeChannel(adapterModels[i], "adapt " + number);
        node.Desc.NbVoies = 1;
        node.Desc.NbVoiesEnumerees = 1;
    }
}

void ReleaseTree() {
    for (ConnectorNode& node : Connectors) {
        node.Desc.NbVoies = 0;
        node.Voies.reset();
    }
}

} // namespace virtual_console

} // namespace orvane

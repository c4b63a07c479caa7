#include "hosts/panel/catalogue.h"

#include "hosts/session/program_folder.h"

#include <wx/translation.h>
#include <wx/uilocale.h>

#include <filesystem>

namespace orvane {

std::string EnvironmentLanguage() {
    const auto languages = wxUILocale::GetPreferredUILanguages();
    return !languages.empty() && languages.front().BeforeFirst('-').BeforeFirst('_') == "fr" ? "fr"
                                                                                             : "en";
}

void UseLanguage(const std::string& code) {
    const std::filesystem::path home = ProgramFolder();
    const std::filesystem::path build = BuildRootAbove(home);
    const std::filesystem::path folder =
        build.empty() ? home.parent_path() / "share" / "locale" : build / "locale";
    wxFileTranslationsLoader::AddCatalogLookupPathPrefix(wxString::FromUTF8(folder.string()));
    auto* translations = new wxTranslations; // NOLINT: the toolkit owns it from the next line on.
    wxTranslations::Set(translations);
    translations->SetLanguage(wxString::FromUTF8(code));
    translations->AddStdCatalog();
    translations->AddCatalog("orvane-panel");
}

char DecimalPoint() {
    wxTranslations* translations = wxTranslations::Get();
    return translations != nullptr &&
                   translations->GetBestTranslation("orvane-panel").StartsWith("fr")
               ? ','
               : '.';
}

} // namespace orvane

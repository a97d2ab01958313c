#include "FX_Algen/AL_Katalog.h"

#include "host/NotBuilt.h"

namespace FX_Algen {

using host::NotBuilt;

namespace {
constexpr std::string_view Klasse = "AL_Katalog";
}

void AL_Katalog::Kataloguebersicht_Show() { NotBuilt(Klasse, "Kataloguebersicht_Show"); }
void AL_Katalog::KatalogEinStandard_Show() { NotBuilt(Klasse, "KatalogEinStandard_Show"); }
void AL_Katalog::KatalogSystematik_Show() { NotBuilt(Klasse, "KatalogSystematik_Show"); }
void AL_Katalog::KatalogSynonyme_Show() { NotBuilt(Klasse, "KatalogSynonyme_Show"); }
void AL_Katalog::KataloguebersichtSeston_Show() { NotBuilt(Klasse, "KataloguebersichtSeston_Show"); }

}  // namespace FX_Algen

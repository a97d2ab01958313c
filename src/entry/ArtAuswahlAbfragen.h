#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The statements of the taxon picker. Where `Katalog` is neither 0 (algae) nor 1 (seston) there is none, and
/// the text is empty. A genus stands in a statement as it is.
namespace FX_Algen::entry {

std::string SQL_Gattungen(std::int16_t Katalog);
std::string SQL_Arten(std::int16_t Katalog, std::string_view Gattung);
std::string SQL_SynGattungen();
std::string SQL_SynArten(std::string_view SynGattung);
std::string SQL_Synonym(std::string_view ID_Synart);
/// Whether the taxon stands at the site, not as cf.
std::string SQL_Eingetragen(std::int16_t Katalog, std::string_view ID_PS, std::string_view ID_Art);
std::string SQL_Neu(std::int16_t Katalog, std::int32_t ID_PS, std::int32_t ID_Art);
std::string SQL_Aendern(std::int16_t Katalog, std::int32_t ID_PS, std::int32_t ID_Art_alt,
                        std::int32_t ID_Art_neu, bool CF);
/// The shares of algae in the mixed stands of a sub-habitat go with the taxon.
std::string SQL_AendernAnteile(std::int32_t ID_TR, std::int32_t ID_Art_alt, std::int32_t ID_Art_neu, bool CF);

}  // namespace FX_Algen::entry
